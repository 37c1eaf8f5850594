// Reads a file, and rewrites it in place in an order of steps that a kill cannot harm.
#include "plugin/services/PreferenceFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kzo::plugin {

namespace {

class Descriptor {
  public:
    /// Does not wait for the other end of a pipe.
    Descriptor(const std::string& path, int flags) {
        do {
            number_ = ::open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, 0666);
        } while (number_ < 0 && errno == EINTR);
    }
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] bool isOpen() const { return number_ >= 0; }
    /// Nothing for what is no regular file.
    [[nodiscard]] std::optional<std::size_t> size() const {
        struct stat info {};
        if (::fstat(number_, &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
        return static_cast<std::size_t>(info.st_size);
    }

    /// The first `size` bytes; nothing when they cannot be read.
    [[nodiscard]] std::optional<std::string> read(std::size_t size) const {
        std::string bytes(size, '\0');
        std::size_t count = 0;
        while (count < size) {
            const ssize_t got = ::pread(number_, bytes.data() + count, size - count, static_cast<off_t>(count));
            if (got < 0 && errno == EINTR) continue;
            if (got < 0) return std::nullopt;
            if (got == 0) break; // cut meanwhile
            count += static_cast<std::size_t>(got);
        }
        bytes.resize(count);
        return bytes;
    }

    /// Writes all in one call: a part is a failure.
    [[nodiscard]] bool write(const std::string& bytes, std::size_t at) const {
        ssize_t written = 0;
        do {
            written = ::pwrite(number_, bytes.data(), bytes.size(), static_cast<off_t>(at));
        } while (written < 0 && errno == EINTR);
        return written >= 0 && static_cast<std::size_t>(written) == bytes.size();
    }
    [[nodiscard]] bool flush() const { return ::fsync(number_) == 0; }
    [[nodiscard]] bool cut(std::size_t size) const { return ::ftruncate(number_, static_cast<off_t>(size)) == 0; }

  private:
    int number_ = -1;
};

/// Replaces what the open file holds. False, with the old contents in place, when a step fails.
bool rewriteOpen(const Descriptor& file, const std::string& text) {
    const auto size = file.size();
    if (!size) return false;
    // A file that is too large to hold preferences has no contents to be kept whole, and is not padded.
    const std::size_t kept = *size > kLargestPreferences ? text.size() : *size;
    const auto before = file.read(kept);
    if (!before) return false;

    // First the file gets all the room that it needs, behind what it holds; a full disk shows here, and does no harm.
    if (text.size() > *size && !file.write(std::string(text.size() - *size, '\n'), *size)) {
        static_cast<void>(file.cut(*size));
        return false;
    }
    // Then one call replaces the old text by the new one, padded to the same length.
    std::string padded = text;
    padded.resize(std::max(text.size(), kept), '\n');
    // Any padding is cut off once the text is on the disk.
    if (file.write(padded, 0) && file.flush() && file.cut(text.size())) return true;
    static_cast<void>(file.write(*before, 0));
    static_cast<void>(file.cut(*size));
    return false;
}

} // namespace

PreferenceFile PreferenceFile::read(const std::string& path) {
    const Descriptor file(path, O_RDONLY);
    if (!file.isOpen()) return {.state = errno == ENOENT ? State::Missing : State::Unreadable, .text = {}};
    const auto size = file.size();
    if (!size) return {.state = State::Unreadable, .text = {}};
    if (*size > kLargestPreferences) return {.state = State::TooLarge, .text = {}};
    auto text = file.read(*size);
    if (!text) return {.state = State::Unreadable, .text = {}};
    return {.state = State::Read, .text = std::move(*text)};
}

bool PreferenceFile::rewrite(const std::string& path, const std::string& text) {
    if (const Descriptor file(path, O_RDWR); file.isOpen()) return rewriteOpen(file, text);
    if (errno != ENOENT) return false; // it is there, and nothing of it may be lost
    const Descriptor made(path, O_RDWR | O_CREAT);
    if (!made.isOpen()) return false;
    if (rewriteOpen(made, text)) return true;
    // There was none before. The path may be a link.
    std::error_code error;
    std::filesystem::remove(std::filesystem::canonical(path, error), error);
    return false;
}

} // namespace kzo::plugin
