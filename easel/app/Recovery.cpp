// NUMBER.svg, or NUMBER-1.svg where that is taken, holds the work of the process of that number; the name of its file
// is in the one that ends in .path and, behind a zero, what was known of it. The one that ends in .lock is locked as
// long as the process has to do with the copy: its number alone may be another's by now.
#include "app/Recovery.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
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

/// None where another program has it; an empty one where nothing can be locked.
Recovery::Lock lockOf(const std::string& copy) {
    const std::string name = lockFileOf(copy);
    constexpr int kMostTries = 9; // where files have no numbers that stay
    for (int tries = 1;; ++tries) {
        const int file = ::open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        auto lock = std::make_shared<const svg::Descriptor>(file);
        if (file < 0) return lock;
        if (::flock(file, LOCK_EX | LOCK_NB) != 0) return errno == EWOULDBLOCK ? nullptr : lock;
        // Whoever had it may have removed it meanwhile: a lock on that keeps nobody away.
        struct stat held {};
        struct stat there {};
        const bool isThere = ::fstat(file, &held) == 0 && ::stat(name.c_str(), &there) == 0;
        if ((isThere && held.st_ino == there.st_ino) || tries == kMostTries) return lock;
    }
}

/// By who has the lock, which goes last.
void removeAll(const std::string& copy) {
    std::error_code ignored;
    for (const std::string& file : {copy, pathFileOf(copy), lockFileOf(copy)}) fs::remove(file, ignored);
}

bool isThere(const std::string& file) {
    std::error_code ignored;
    return fs::exists(file, ignored);
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
    fs::permissions(folder_, fs::perms::owner_all, ignored);
    removeStale();
}

Recovery::~Recovery() {
    for (const Copy& copy : copies_)
        if (!isThere(copy.file)) removeAll(copy.file);
}

/// What programs left that were ended before they had a copy, or after it was dropped.
void Recovery::removeStale() const {
    std::error_code failed;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_, failed)) {
        if (entry.path().extension() != kLockEnd && entry.path().extension() != kPathEnd) continue;
        const std::string copy = fs::path(entry.path()).replace_extension(kCopyEnd).string();
        const Lock lock = lockOf(copy);
        if (lock && !isThere(copy)) removeAll(copy);
    }
}

bool Recovery::isMine(const std::string& copy) const {
    return std::any_of(copies_.begin(), copies_.end(), [&](const Copy& each) { return each.file == copy; });
}

/// A new one has a name that nobody uses: a program of this number may have ended before, and left its own.
const Recovery::Copy& Recovery::copyOf(std::uint32_t document) {
    for (const Copy& copy : copies_)
        if (copy.document == document) return copy;
    const std::string name = (fs::path(folder_) / std::to_string(::getpid())).string();
    for (int i = 0;; ++i) {
        const std::string file = name + (i > 0 ? '-' + std::to_string(i) : "") + kCopyEnd;
        if (isMine(file) || isThere(file)) continue;
        if (Lock lock = lockOf(file)) return copies_.emplace_back(Copy{file, std::move(lock), document});
    }
}

void Recovery::keep(session::Documents& documents, model::Document& drawing) {
    const std::string file = copyOf(documents.numberOf(drawing)).file;
    const std::string& path = documents.pathOf(drawing);
    std::string about = path;
    if (!path.empty()) about += '\0' + svg::toldOfFile(drawing, path);
    // The copy last: whoever is ended in between leaves none that does not know its file.
    svg::replaceFile(pathFileOf(file), about);
    svg::replaceFile(file, documents.textOf(drawing));
}

std::string Recovery::keep(session::Documents& documents) {
    dropSaved(documents);
    std::string why;
    for (model::Document* const drawing : documents.unsaved()) {
        try {
            keep(documents, *drawing);
        } catch (const std::exception& error) {
            if (why.empty()) why = error.what();
        }
    }
    return why;
}

void Recovery::dropSaved(const session::Documents& documents) {
    const std::vector<model::Document*> unsaved = documents.unsaved();
    std::erase_if(copies_, [&](const Copy& copy) {
        const model::Document* const drawing = documents.byNumber(copy.document);
        const bool isSaved = std::find(unsaved.begin(), unsaved.end(), drawing) == unsaved.end();
        if (isSaved) removeAll(copy.file);
        return isSaved;
    });
}

void Recovery::drop() {
    for (const Copy& copy : copies_) removeAll(copy.file);
    copies_.clear();
}

std::vector<Recovery::Left> Recovery::left() const {
    std::vector<Left> found;
    std::error_code failed;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_, failed)) {
        if (entry.path().extension() != kCopyEnd) continue;
        const long process = std::strtol(entry.path().stem().c_str(), nullptr, 10);
        if (process <= 0 || isMine(entry.path().string())) continue;
        Left left{entry.path().string(), {}, {}, lockOf(entry.path().string())};
        if (!left.lock || !isThere(left.copy)) continue;
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

void Recovery::remove(const Left& left) { removeAll(left.copy); }

void Recovery::adopt(const Left& left, std::uint32_t document) { copies_.push_back({left.copy, left.lock, document}); }

} // namespace easel::app
