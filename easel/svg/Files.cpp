// A file is replaced by writing its successor beside it, seeing that safely stored, and renaming it.
#include "svg/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "svg/Descriptor.h"
#include "svg/FileError.h"
#include "svg/Limits.h"

namespace easel::svg {

namespace {

[[noreturn]] void fail(const std::string& path, int error) { throw FileError(path + ": " + std::strerror(error)); }

/// Where a limit on the size of files is passed, writing fails; without this the system would end the program.
class UnlimitedBySignal {
  public:
    UnlimitedBySignal() {
        struct sigaction ignore {};
        ignore.sa_handler = SIG_IGN;
        ::sigaction(SIGXFSZ, &ignore, &before_);
    }
    ~UnlimitedBySignal() { ::sigaction(SIGXFSZ, &before_, nullptr); }
    UnlimitedBySignal(const UnlimitedBySignal&) = delete;
    UnlimitedBySignal& operator=(const UnlimitedBySignal&) = delete;

  private:
    struct sigaction before_ {};
};

FileStamp stampOf(const struct stat& status) {
    return {status.st_dev,
            status.st_ino,
            status.st_size,
            {status.st_mtim.tv_sec, status.st_mtim.tv_nsec},
            {status.st_ctim.tv_sec, status.st_ctim.tv_nsec}};
}

/// What a name stands for once all links are followed; a link may lead to what does not exist yet.
std::string linkedFile(const std::string& path) {
    constexpr int kMostLinks = 40; // as the system allows
    std::filesystem::path target(path);
    std::error_code none;
    for (int i = 0; i < kMostLinks; ++i) {
        const std::filesystem::path next = std::filesystem::read_symlink(target, none);
        if (none) return target.string();
        target = target.parent_path() / next;
    }
    fail(path, ELOOP);
}

/// A file beside the one to be replaced, removed at the end of the scope unless it took its place.
class Successor {
  public:
    /// `shown` is what errors call the file at `path`.
    Successor(std::string shown, const std::string& path)
        : shown_(std::move(shown)),
          path_(path),
          name_((std::filesystem::path(path).parent_path() / ".easel-XXXXXX").string()),
          file_(::mkostemp(name_.data(), O_CLOEXEC)) {
        if (file_.get() < 0) fail(shown_, errno);
    }
    ~Successor() {
        if (!name_.empty()) ::unlink(name_.c_str());
    }
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;

    void write(const std::vector<std::string_view>& pieces) {
        constexpr std::size_t kAtOnce = std::size_t{1} << 16;
        const UnlimitedBySignal unlimited;
        std::string small;
        for (const std::string_view piece : pieces) {
            if (small.size() + piece.size() < kAtOnce) {
                small += piece;
                continue;
            }
            write(small);
            small.clear();
            write(piece);
        }
        write(small);
    }

    FileStamp takePlace() {
        struct stat old {};
        const bool replaces = ::stat(path_.c_str(), &old) == 0;
        mode_t mode = replaces ? old.st_mode & 07777 : usualMode();
        // Giving a file away takes rights; without them it is one's own, and does not run as somebody else.
        const bool sameOwner = !replaces || ::fchown(file_.get(), old.st_uid, old.st_gid) == 0 ||
                               ::fchown(file_.get(), static_cast<uid_t>(-1), old.st_gid) == 0;
        if (!sameOwner) mode &= 0777;
        if (::fchmod(file_.get(), mode) != 0 || ::fsync(file_.get()) != 0) fail(shown_, errno);
        if (::rename(name_.c_str(), path_.c_str()) != 0) fail(shown_, errno);
        name_.clear();
        // The new name must be stored as well; file systems that cannot do that for folders do it by themselves.
        const std::string folder = std::filesystem::path(path_).parent_path().string();
        const Descriptor parent(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (parent.get() >= 0) ::fsync(parent.get());
        struct stat now {};
        if (::fstat(file_.get(), &now) != 0) fail(shown_, errno);
        return stampOf(now);
    }

  private:
    void write(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t count = ::write(file_.get(), bytes.data(), bytes.size());
            if (count < 0 && errno != EINTR) fail(shown_, errno);
            if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    [[nodiscard]] static mode_t usualMode() {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        return 0666 & ~mask;
    }

    std::string shown_;
    std::string path_;
    std::string name_;
    Descriptor file_;
};

} // namespace

std::optional<FileStamp> stampOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    return stampOf(status);
}

std::string readFile(const std::string& path, FileStamp* stamp) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (file.get() < 0) fail(path, errno);
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) fail(path, errno);
    if (S_ISDIR(status.st_mode)) fail(path, EISDIR);
    if (!S_ISREG(status.st_mode)) throw FileError(path + ": Not a regular file");
    if (static_cast<std::size_t>(status.st_size) > kMostBytes) fail(path, EFBIG);
    if (stamp) *stamp = stampOf(status);
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t size = 0;
    while (size < bytes.size()) {
        const ssize_t count = ::read(file.get(), bytes.data() + size, bytes.size() - size);
        if (count < 0 && errno != EINTR) fail(path, errno);
        if (count == 0) break;
        if (count > 0) size += static_cast<std::size_t>(count);
    }
    bytes.resize(size);
    return bytes;
}

std::string readAll(int file, const std::string& name) {
    std::string bytes;
    for (;;) {
        constexpr std::size_t kStep = std::size_t{1} << 16;
        const std::size_t size = bytes.size();
        bytes.resize(size + kStep);
        const ssize_t count = ::read(file, bytes.data() + size, kStep);
        if (count < 0 && errno != EINTR) fail(name, errno);
        bytes.resize(size + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0) return bytes;
        if (bytes.size() > kMostBytes) fail(name, EFBIG);
    }
}

FileStamp replaceFile(const std::string& path, std::string_view bytes) {
    return replaceFile(path, std::vector<std::string_view>{bytes});
}

FileStamp replaceFile(const std::string& path, const std::vector<std::string_view>& pieces) {
    const std::string target = linkedFile(path);
    struct stat old {};
    if (::stat(target.c_str(), &old) == 0) {
        if (S_ISDIR(old.st_mode)) fail(path, EISDIR);
        if (!S_ISREG(old.st_mode)) throw FileError(path + ": Not a regular file");
        if (::access(target.c_str(), W_OK) != 0) fail(path, errno); // a file can be protected in an open folder
    }
    Successor successor(path, target);
    successor.write(pieces);
    return successor.takePlace();
}

} // namespace easel::svg
