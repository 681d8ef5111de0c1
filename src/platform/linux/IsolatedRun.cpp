#include "platform/IsolatedRun.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace platform {

namespace {

constexpr auto lookForStop = 20ms;
constexpr rlim_t gigabyte = rlim_t(1) << 30;

void limit(decltype(RLIMIT_AS) resource, rlim_t most)
{
    const rlimit limits{most, most};
    setrlimit(resource, &limits);
}

/// It dies plainly and alone: nobody catches its signals, and no core is written.
void prepareCopy()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (int signal = 1; signal < NSIG; ++signal)
        ::signal(signal, SIG_DFL);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_DATA, gigabyte);
}

void writeAll(int file, const QByteArray &bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written =
            ::write(file, bytes.constData() + done, size_t(bytes.size() - done));
        if (written < 0 && errno != EINTR)
            _exit(1);
        done += qMax<ssize_t>(0, written);
    }
}

/// What is written into the pipe until it is closed; nullopt when time is up.
std::optional<QByteArray> readAll(int file, std::chrono::steady_clock::time_point deadline,
                                  const std::stop_token &stop)
{
    QByteArray bytes;
    std::array<char, 65536> part;
    while (!stop.stop_requested() && std::chrono::steady_clock::now() < deadline) {
        pollfd wanted{file, POLLIN, 0};
        if (poll(&wanted, 1, int(lookForStop.count())) <= 0)
            continue;
        const ssize_t count = ::read(file, part.data(), part.size());
        if (count == 0)
            return bytes;
        if (count > 0)
            bytes.append(part.data(), count);
    }
    return std::nullopt;
}

} // namespace

std::optional<QByteArray> runIsolated(const std::function<QByteArray()> &work,
                                      std::chrono::milliseconds patience,
                                      const std::stop_token &stop)
{
    std::array<int, 2> ends;
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return std::nullopt;
    const auto [readEnd, writeEnd] = ends;
    const pid_t copy = fork();
    if (copy == 0) {
        prepareCopy();
        writeAll(writeEnd, work());
        _exit(0);
    }
    close(writeEnd);
    std::optional<QByteArray> bytes;
    int status = -1;
    if (copy > 0) {
        bytes = readAll(readEnd, std::chrono::steady_clock::now() + patience, stop);
        if (!bytes)
            kill(copy, SIGKILL);
        while (waitpid(copy, &status, 0) < 0 && errno == EINTR) {
        }
    }
    close(readEnd);
    return status == 0 ? bytes : std::nullopt;
}

} // namespace platform
