// NUMBER.svg, or NUMBER-1.svg where that is taken, holds the work of the process of that number; the name of its file
// is in the one that ends in .path and, behind a zero, what was known of it.
#include "app/Recovery.h"

#include <signal.h>
#include <unistd.h>

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

std::string pathFileOf(const std::string& copy) { return fs::path(copy).replace_extension(kPathEnd).string(); }

bool isRunning(long process) { return ::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM; }

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
    // A program of this number may have ended before, and left its own.
    const std::string name = (fs::path(folder_) / std::to_string(::getpid())).string();
    copy_ = name + kCopyEnd;
    for (int i = 1; fs::exists(copy_, ignored); ++i) copy_ = name + '-' + std::to_string(i) + kCopyEnd;
}

std::string Recovery::keep(model::Document& document, const std::string& path) {
    try {
        std::string about = path.empty() ? path : fs::absolute(path).string();
        if (!path.empty()) about += '\0' + svg::toldOfFile(document, path);
        // The copy last: whoever is ended in between leaves none that does not know its file.
        svg::replaceFile(pathFileOf(copy_), about);
        svg::replaceFile(copy_, svg::write(document));
    } catch (const std::exception& error) {
        return error.what();
    }
    return {};
}

void Recovery::drop() { remove({copy_, {}, {}}); }

std::vector<Recovery::Left> Recovery::left() const {
    std::vector<Left> found;
    std::error_code failed;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_, failed)) {
        if (entry.path().extension() != kCopyEnd) continue;
        const long process = std::strtol(entry.path().stem().c_str(), nullptr, 10);
        const bool isOurs = process == ::getpid() && entry.path() == copy_;
        if (process <= 0 || isOurs || (process != ::getpid() && isRunning(process))) continue;
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
    std::error_code ignored;
    fs::remove(left.copy, ignored);
    fs::remove(pathFileOf(left.copy), ignored);
}

} // namespace easel::app
