// The renderer's process: limits itself, then replies to requests on standard input (a socket) until the host is gone.
//   easel-render SECONDS MEGABYTES    processor time for a request, and memory
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <iterator>
#include <new>
#include <string>
#include <string_view>

#include "render/Renderer.h"

namespace {

using namespace easel::render;

constexpr int kSocket = 0;
constexpr rlim_t kMostOutput = 16 << 20; // bytes of a file: of standard error, which the host keeps in memory

void limit(__rlimit_resource resource, rlim_t most) {
    rlimit now{};
    ::getrlimit(resource, &now);
    now.rlim_cur = std::min(most, now.rlim_max);
    ::setrlimit(resource, &now);
}

/// From now on; the system ends the process then.
void limitTime(rlim_t seconds) {
    rusage used{};
    ::getrusage(RUSAGE_SELF, &used);
    limit(RLIMIT_CPU, static_cast<rlim_t>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) + seconds + 1);
}

bool receive(char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t count = ::read(kSocket, bytes, size);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        bytes += count;
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

bool send(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::send(kSocket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool send(Reply kind, std::string_view bytes) {
    Packer head;
    head << Head{static_cast<std::uint32_t>(kind), 0, bytes.size()};
    return send(head.bytes) && send(bytes);
}

template <class Wanted> Wanted unpacked(std::string_view bytes) {
    Wanted request;
    Unpacker(bytes) >> request;
    return request;
}

template <class Found> std::string packed(const Found& found) {
    Packer packer;
    packer << found;
    return packer.bytes;
}

std::string handle(Renderer& renderer, Request kind, std::string_view bytes) {
    switch (kind) {
    case Request::Load: renderer.load(bytes); return {};
    case Request::Picture: return renderer.picture(unpacked<PictureRequest>(bytes));
    case Request::View: return renderer.view(unpacked<ViewRequest>(bytes));
    case Request::Bounds: return packed(renderer.bounds(unpacked<BoundsRequest>(bytes)));
    case Request::Outlines: return packed(renderer.outlines(unpacked<OutlinesRequest>(bytes)));
    }
    throw std::runtime_error("the renderer does not know this request");
}

/// Handles one request; false when the host is gone.
bool serve(Renderer& renderer, rlim_t seconds) {
    Head head;
    if (!receive(reinterpret_cast<char*>(&head), sizeof head)) return false;
    limitTime(seconds);
    try {
        std::string bytes(head.size, '\0');
        if (!receive(bytes.data(), bytes.size())) return false;
        return send(Reply::Done, handle(renderer, Request{head.kind}, bytes));
    } catch (const std::bad_alloc&) {
        return send(Reply::OutOfMemory, {});
    } catch (const std::exception& error) {
        return send(Reply::Failed, error.what());
    }
}

bool readNumber(std::string_view text, rlim_t& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number > 0;
}

} // namespace

int main(int argc, char** argv) {
    rlim_t seconds = 0;
    rlim_t megabytes = 0;
    if (argc != 3 || !readNumber(argv[1], seconds) || !readNumber(argv[2], megabytes)) {
        std::fprintf(stderr, "%s: a part of Easel that draws pictures; see easel --help\n", kProgramName);
        return 2;
    }
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::signal(SIGXFSZ, SIG_IGN);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_FSIZE, kMostOutput);
#ifndef __SANITIZE_ADDRESS__ // which takes more addresses than any limit allows
    limit(RLIMIT_AS, megabytes << 20);
#endif
    Renderer renderer;
    while (serve(renderer, seconds)) {
    }
    ::_exit(0); // nothing is left to tidy up
}
