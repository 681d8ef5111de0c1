#include "platform/IsolatedRun.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <mutex>
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

/// Counted from what the copy has already, which sanitizers reckon in terabytes.
void limitMemory()
{
    long pages = 0;
    if (FILE *file = std::fopen("/proc/self/statm", "re")) {
        if (std::fscanf(file, "%*d %*d %*d %*d %*d %ld", &pages) != 1)
            pages = 0;
        std::fclose(file);
    }
    limit(RLIMIT_DATA, rlim_t(pages) * rlim_t(sysconf(_SC_PAGESIZE)) + gigabyte);
}

/// It dies plainly and alone: nobody catches its signals, and no core is written.
void prepareCopy()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (int signal = 1; signal < NSIG; ++signal)
        ::signal(signal, SIG_DFL);
    limit(RLIMIT_CORE, 0);
    limitMemory();
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

struct Copy
{
    pid_t process = -1;
    int answer = -1; ///< Where it writes what it gives.
};

// What the work throws ends the copy: it must not come out where the original goes on.
[[noreturn]] void beCopy(int answer, const std::function<QByteArray()> &work) noexcept
{
    prepareCopy();
    writeAll(answer, work());
    _exit(0);
}

Copy makeCopy(const std::function<QByteArray()> &work)
{
    // A copy that another thread makes meanwhile would keep this one's pipe open.
    static std::mutex one;
    const std::lock_guard lock(one);
    std::array<int, 2> ends;
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return {};
    const auto [readEnd, writeEnd] = ends;
    const pid_t process = fork();
    if (process == 0)
        beCopy(writeEnd, work);
    close(writeEnd);
    return {process, readEnd};
}

int statusOf(pid_t process)
{
    int status = -1;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

} // namespace

std::optional<QByteArray> runIsolated(const std::function<QByteArray()> &work,
                                      std::chrono::milliseconds patience,
                                      const std::stop_token &stop)
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    const Copy copy = makeCopy(work);
    if (copy.answer < 0)
        return std::nullopt;
    std::optional<QByteArray> bytes;
    if (copy.process > 0) {
        bytes = readAll(copy.answer, deadline, stop);
        if (!bytes)
            kill(copy.process, SIGKILL);
        if (statusOf(copy.process) != 0)
            bytes.reset();
    }
    close(copy.answer);
    return bytes;
}

} // namespace platform
