// A file is what it was while its place, its size and its time are; else its bytes decide, if they are still at hand.
#include "svg/KnownFiles.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "svg/FileError.h"

namespace easel::svg {

namespace {

std::string pathWithoutLinks(const std::string& path) {
    std::error_code error;
    const std::filesystem::path canonical = std::filesystem::weakly_canonical(path, error);
    return error ? path : canonical.string();
}

} // namespace

void KnownFiles::note(const std::string& path) const {
    if (const std::optional<FileStamp> stamp = stampOf(path)) note(path, *stamp);
}

void KnownFiles::note(const std::string& path, const FileStamp& stamp) const {
    stamps_[pathWithoutLinks(path)] = stamp;
}

void KnownFiles::requireUnchanged(const std::string& path) const {
    const auto known = stamps_.find(pathWithoutLinks(path));
    const std::optional<FileStamp> now = stampOf(path);
    if (known == stamps_.end() || !now || *now == known->second) return;
    if (isWhatWasRead(readFile(path))) return;
    throw FileError(path + ": Another program has changed the file since it was opened");
}

} // namespace easel::svg
