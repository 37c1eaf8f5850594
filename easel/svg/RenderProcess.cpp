// Starts the renderer, talks to it over a socket, and ends it when it is due.
#include "svg/RenderProcess.h"

#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include "svg/EnvironmentLimit.h"

extern char** environ;

namespace easel::svg {

namespace {

constexpr unsigned long kUsualSeconds = 60;
constexpr unsigned long kUsualMegabytes = 4096;
/// On a busy machine a process gets a part of the time that passes; one that gets less than this counts as stuck.
constexpr unsigned long kBusiest = 10;

[[noreturn]] void fail(const std::string& what, int error) { throw RenderError(what + ": " + std::strerror(error)); }

unsigned long limitFrom(const char* variable, unsigned long usual) {
    try {
        return limitFromEnvironment(variable, usual);
    } catch (const std::runtime_error& error) {
        throw RenderError(error.what());
    }
}

/// The renderer is built beside the program; tests, which are elsewhere, know the place from the build.
std::string program() {
    std::error_code none;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", none);
    const auto beside = self.parent_path() / render::kProgramName;
    if (::access(beside.c_str(), X_OK) == 0) return beside;
    if (::access(EASEL_RENDER_BUILT, X_OK) == 0) return EASEL_RENDER_BUILT;
    throw RenderError("there is no program " + beside.string());
}

/// Start attributes: no signal handling and no open file of the host reaches the process.
class StartUp {
  public:
    StartUp(int socket, int output) {
        ::posix_spawnattr_init(&attributes_);
        sigset_t signals;
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&attributes_, &signals);
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes_, &signals);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawn_file_actions_adddup2(&actions_, socket, 0);
        ::posix_spawn_file_actions_adddup2(&actions_, output, 1);
        ::posix_spawn_file_actions_adddup2(&actions_, output, 2);
        ::posix_spawn_file_actions_addclosefrom_np(&actions_, 3);
    }
    ~StartUp() {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributes_);
    }
    StartUp(const StartUp&) = delete;
    StartUp& operator=(const StartUp&) = delete;

    [[nodiscard]] pid_t start(const std::string& path, std::array<std::string, 2> arguments) const {
        std::string name = render::kProgramName;
        const std::array<char*, 4> all{name.data(), arguments[0].data(), arguments[1].data(), nullptr};
        pid_t process = -1;
        const int error = ::posix_spawn(&process, path.c_str(), &actions_, &attributes_, all.data(), environ);
        if (error != 0) fail(path, error);
        return process;
    }

  private:
    posix_spawnattr_t attributes_{};
    posix_spawn_file_actions_t actions_{};
};

/// The renderer's last words, where they are understood: "... panicked at 'REASON', FILE" or "memory allocation ...
/// failed".
std::string lastWords(int output, const std::string& outOfMemory) {
    std::array<char, 4096> buffer{};
    const ssize_t count = ::pread(output, buffer.data(), buffer.size(), 0);
    const std::string text(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (text.find("memory allocation of") != text.npos || text.find("failed to allocate") != text.npos)
        return outOfMemory;
    constexpr std::string_view kBefore = "panicked at '";
    const std::size_t begin = text.find(kBefore);
    const std::size_t end = begin == text.npos ? begin : text.find("', ", begin);
    if (end == text.npos) return {};
    return "the renderer gave up: " + text.substr(begin + kBefore.size(), end - begin - kBefore.size());
}

} // namespace

RenderProcess::RenderProcess(Waiting waiting)
    : seconds_(limitFrom("EASEL_RENDER_SECONDS", kUsualSeconds)),
      megabytes_(limitFrom("EASEL_RENDER_MEGABYTES", kUsualMegabytes)),
      waiting_(std::move(waiting)) {
    const std::string path = program();
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) fail(path, errno);
    socket_ = Descriptor(ends[0]);
    const Descriptor other(ends[1]);
    output_ = Descriptor(::memfd_create("renderer's output", MFD_CLOEXEC));
    if (output_.get() < 0) fail(path, errno);
    process_ = StartUp(other.get(), output_.get()).start(path, {std::to_string(seconds_), std::to_string(megabytes_)});
}

RenderProcess::~RenderProcess() { end(); }

int RenderProcess::end() {
    if (process_ < 0) return 0;
    int status = 0;
    ::kill(process_, SIGKILL); // does nothing to one that has ended already
    while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
    return status;
}

std::string RenderProcess::ask(render::Request request, std::string_view bytes) {
    if (process_ < 0) throw RenderError("the renderer has ended");
    if (!loading_) {
        start_ = Clock::now();
        told_ = 0;
    }
    loading_ = request == render::Request::Load;
    // Whoever shows that time goes by learns when that is over, however it ends.
    const std::unique_ptr<RenderProcess, void (*)(RenderProcess*)> over(this, [](RenderProcess* process) {
        if (process->told_ > 0 && process->waiting_) process->waiting_(0);
    });
    render::Packer head;
    head << render::Head{static_cast<std::uint32_t>(request), 0, bytes.size()};
    send(head.bytes);
    send(bytes);
    render::Head reply;
    receive(reinterpret_cast<char*>(&reply), sizeof reply);
    std::string answer(reply.size, '\0');
    receive(answer.data(), answer.size());
    if (render::Reply{reply.kind} == render::Reply::OutOfMemory) throw RenderError(outOfMemory());
    if (render::Reply{reply.kind} == render::Reply::Failed) throw RenderError(answer);
    return answer;
}

void RenderProcess::send(std::string_view bytes) {
    while (!bytes.empty()) {
        await(POLLOUT);
        const ssize_t count = ::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count < 0 && errno != EINTR && errno != EAGAIN) failEnded();
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void RenderProcess::receive(char* bytes, std::size_t size) {
    while (size > 0) {
        await(POLLIN);
        const ssize_t count = ::recv(socket_.get(), bytes, size, MSG_DONTWAIT);
        if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN)) failEnded();
        if (count < 0) continue;
        bytes += count;
        size -= static_cast<std::size_t>(count);
    }
}

void RenderProcess::await(short events) {
    using std::chrono::milliseconds, std::chrono::seconds;
    pollfd socket{socket_.get(), events, 0};
    for (;;) {
        const auto gone = std::chrono::duration_cast<milliseconds>(Clock::now() - start_);
        const milliseconds nextSecond = seconds(told_ + 1);
        const int most = static_cast<int>(std::max<milliseconds::rep>((nextSecond - gone).count(), 0));
        if (::poll(&socket, 1, most) > 0) return;
        if (Clock::now() - start_ < nextSecond) continue;
        ++told_;
        if (waiting_) waiting_(told_);
        if (static_cast<unsigned long>(told_) < kBusiest * seconds_) continue;
        end();
        throw RenderError(outOfTime());
    }
}

std::string RenderProcess::outOfMemory() const {
    return "that takes more than " + std::to_string(megabytes_) + " MB of memory (EASEL_RENDER_MEGABYTES)";
}

std::string RenderProcess::outOfTime() const {
    return "that takes longer than " + std::to_string(seconds_) + " s (EASEL_RENDER_SECONDS)";
}

void RenderProcess::failEnded() {
    // The socket closes a moment before the process has ended; nothing keeps it alive then.
    int status = 0;
    while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
    const std::string words = lastWords(output_.get(), outOfMemory());
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU) throw RenderError(outOfTime());
    if (!words.empty()) throw RenderError(words);
    if (WIFSIGNALED(status)) throw RenderError(std::string("the renderer was ended: ") + ::strsignal(WTERMSIG(status)));
    throw RenderError("the renderer ended with exit code " + std::to_string(WEXITSTATUS(status)));
}

} // namespace easel::svg
