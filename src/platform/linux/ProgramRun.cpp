#include "platform/ProgramRun.h"

#include "platform/Log.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <poll.h>
#include <QFile>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int lookForStop = 20; // ms

/// What is read and written stands in memory, so nobody has to feed the program while it runs.
bool openInMemory(QFile &file)
{
    const int descriptor = memfd_create("", MFD_CLOEXEC);
    return file.open(descriptor, QIODevice::ReadWrite | QIODevice::Unbuffered,
                     QFileDevice::AutoCloseHandle);
}

/// Minus one, with the reason in `errno`, when it does not start.
pid_t start(const QString &program, const QStringList &arguments, int input, int output)
{
    QByteArrayList words{QFile::encodeName(program)};
    for (const QString &argument : arguments)
        words << argument.toLocal8Bit();
    std::vector<char *> pointers;
    for (QByteArray &word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t process = -1;
    errno = posix_spawnp(&process, pointers[0], &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return errno == 0 ? process : -1;
}

/// Ends the program when its time is up. False when it came to no good end by itself.
bool waitFor(pid_t process, Clock::time_point deadline, const std::stop_token &stop)
{
    const int watched = int(syscall(SYS_pidfd_open, process, 0));
    pollfd wanted{watched, POLLIN, 0};
    while (poll(&wanted, 1, lookForStop) <= 0) {
        if (stop.stop_requested() || Clock::now() >= deadline) {
            kill(process, SIGKILL);
            break;
        }
    }
    close(watched);
    int status = -1;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return status == 0;
}

} // namespace

std::optional<QByteArray> outputOfProgram(const QString &program, const QStringList &arguments,
                                          const QByteArray &input,
                                          std::chrono::milliseconds patience,
                                          const std::stop_token &stop)
{
    const auto deadline = Clock::now() + patience;
    QFile in;
    QFile out;
    pid_t process = -1;
    if (openInMemory(in) && openInMemory(out) && in.write(input) == input.size() && in.seek(0))
        process = start(program, arguments, in.handle(), out.handle());
    if (process < 0) {
        log("%@ does not start: %@", program, QString::fromLocal8Bit(std::strerror(errno)));
        return std::nullopt;
    }
    if (!waitFor(process, deadline, stop))
        return std::nullopt;
    out.seek(0);
    return out.readAll();
}

} // namespace platform
