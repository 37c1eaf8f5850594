// NUMBER.svg, or NUMBER-1.svg where that is taken, holds the work of the process of that number; the name of its file
// is in the one that ends in .path and, behind a zero, what was known of it. The one that ends in .lock is locked as
// long as the process lives: its number alone may be another's by now.
#include "app/Recovery.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "svg/Files.h"
#include "svg/Writer.h"

namespace easel::app {

namespace {

namespace fs = std::filesystem;

constexpr const char* kCopyEnd = ".svg";
constexpr const char* kPathEnd = ".path";
constexpr const char* kLockEnd = ".lock";

std::string pathFileOf(const std::string& copy) { return fs::path(copy).replace_extension(kPathEnd).string(); }
std::string lockFileOf(const std::string& copy) { return fs::path(copy).replace_extension(kLockEnd).string(); }

/// Whether another holds the lock. Where files cannot be locked nobody does.
bool isRefused(int file, int kind) { return ::flock(file, kind | LOCK_NB) != 0 && errno == EWOULDBLOCK; }

/// Whether the program that keeps its work there runs.
bool isInUse(const std::string& copy) {
    const int file = ::open(lockFileOf(copy).c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool isHeld = isRefused(file, LOCK_SH);
    ::close(file);
    return isHeld;
}

void removeWork(const std::string& copy) {
    std::error_code ignored;
    fs::remove(copy, ignored);
    fs::remove(pathFileOf(copy), ignored);
}

} // namespace

std::string Recovery::defaultFolder() {
    const char* const state = std::getenv("XDG_STATE_HOME");
    const char* const home = std::getenv("HOME");
    const fs::path base = state && *state ? fs::path(state) : fs::path(home ? home : "/tmp") / ".local/state";
    return (base / "easel/recovery").string();
}

Recovery::Recovery(std::string folder) : folder_(std::move(folder)) {
    std::error_code ignored;
    fs::create_directories(folder_, ignored);
    takeAnother();
}

Recovery::~Recovery() {
    std::error_code ignored;
    for (const Copy& copy : copies_) {
        if (!fs::exists(copy.file, ignored)) fs::remove(lockFileOf(copy.file), ignored);
        if (copy.lock >= 0) ::close(copy.lock);
    }
}

void Recovery::takeAnother() {
    const std::string name = (fs::path(folder_) / std::to_string(::getpid())).string();
    bool isFree = take(name + kCopyEnd);
    for (int i = 1; !isFree; ++i) isFree = take(name + '-' + std::to_string(i) + kCopyEnd);
}

/// A program of this number may have ended before, and left its own.
bool Recovery::take(const std::string& copy) {
    std::error_code ignored;
    if (fs::exists(copy, ignored) || isMine(copy)) return false;
    const int lock = ::open(lockFileOf(copy).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    const bool isOthers = lock >= 0 && isRefused(lock, LOCK_EX);
    isOthers ? static_cast<void>(::close(lock)) : copies_.push_back({copy, lock});
    return !isOthers;
}

bool Recovery::isMine(const std::string& copy) const {
    return std::any_of(copies_.begin(), copies_.end(), [&](const Copy& each) { return each.file == copy; });
}

std::string Recovery::keep(session::Documents& documents) {
    const std::vector<model::Document*> unsaved = documents.unsaved();
    try {
        for (std::size_t i = 0; i < unsaved.size(); ++i) {
            if (i == copies_.size()) takeAnother();
            const std::string& path = documents.pathOf(*unsaved[i]);
            std::string about = path;
            if (!path.empty()) about += '\0' + svg::toldOfFile(*unsaved[i], path);
            // The copy last: whoever is ended in between leaves none that does not know its file.
            svg::replaceFile(pathFileOf(copies_[i].file), about);
            svg::replaceFile(copies_[i].file, documents.textOf(*unsaved[i]));
        }
    } catch (const std::exception& error) {
        return error.what();
    }
    drop(unsaved.size());
    return {};
}

void Recovery::drop(std::size_t from) {
    for (std::size_t i = from; i < copies_.size(); ++i) removeWork(copies_[i].file);
}

void Recovery::drop() { drop(0); }

std::vector<Recovery::Left> Recovery::left() const {
    std::vector<Left> found;
    std::error_code failed;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_, failed)) {
        if (entry.path().extension() != kCopyEnd) continue;
        const long process = std::strtol(entry.path().stem().c_str(), nullptr, 10);
        if (process <= 0 || isMine(entry.path().string()) || isInUse(entry.path().string())) continue;
        Left left{entry.path().string(), {}, {}};
        try {
            const std::string about = svg::readFile(pathFileOf(left.copy));
            left.path = about.substr(0, about.find('\0'));
            if (left.path.size() < about.size()) left.told = about.substr(left.path.size() + 1);
        } catch (const svg::FileError&) { // the copy alone is worth something
        }
        found.push_back(std::move(left));
    }
    return found;
}

void Recovery::remove(const Left& left) {
    removeWork(left.copy);
    std::error_code ignored;
    fs::remove(lockFileOf(left.copy), ignored);
}

} // namespace easel::app
