// A file is replaced by writing its successor beside it, seeing that safely stored, and renaming it.
#include "svg/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "svg/FileError.h"
#include "svg/Limits.h"

namespace easel::svg {

namespace {

[[noreturn]] void fail(const std::string& path, int error) { throw FileError(path + ": " + std::strerror(error)); }

/// An open file, closed at the end of the scope.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int get() const { return number_; }

  private:
    int number_;
};

/// A file beside the one to be replaced, removed at the end of the scope unless it took its place.
class Successor {
  public:
    /// `shown` is what errors call the file at `path`.
    Successor(std::string shown, const std::string& path)
        : shown_(std::move(shown)), path_(path), name_(path + ".XXXXXX"), file_(::mkostemp(name_.data(), O_CLOEXEC)) {
        if (file_.get() < 0) fail(shown_, errno);
    }
    ~Successor() {
        if (!name_.empty()) ::unlink(name_.c_str());
    }
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;

    void write(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t count = ::write(file_.get(), bytes.data(), bytes.size());
            if (count < 0 && errno != EINTR) fail(shown_, errno);
            if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    void takePlace() {
        if (::fchmod(file_.get(), permissions()) != 0 || ::fsync(file_.get()) != 0) fail(shown_, errno);
        if (::rename(name_.c_str(), path_.c_str()) != 0) fail(shown_, errno);
        name_.clear();
        // The new name must be stored as well; file systems that cannot do that for folders do it by themselves.
        const std::string folder = std::filesystem::path(path_).parent_path().string();
        const Descriptor parent(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (parent.get() >= 0) ::fsync(parent.get());
    }

  private:
    [[nodiscard]] mode_t permissions() const {
        struct stat old {};
        if (::stat(path_.c_str(), &old) == 0) return old.st_mode & 07777;
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

std::string readFile(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (file.get() < 0) fail(path, errno);
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) fail(path, errno);
    if (S_ISDIR(status.st_mode)) fail(path, EISDIR);
    if (!S_ISREG(status.st_mode)) throw FileError(path + ": Not a regular file");
    if (static_cast<std::size_t>(status.st_size) > kMostBytes) fail(path, EFBIG);
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

void replaceFile(const std::string& path, std::string_view bytes) {
    // Behind a link, the file that it names is replaced, not the link.
    std::error_code missing;
    const std::filesystem::path target = std::filesystem::canonical(path, missing);
    if (!missing && std::filesystem::is_directory(target)) fail(path, EISDIR);
    Successor successor(path, missing ? path : target.string());
    successor.write(bytes);
    successor.takePlace();
}

} // namespace easel::svg
