// A file is what it was while its stamp is; else its bytes decide: those that were read are at hand, of those that were
// saved a checksum.
#include "svg/KnownFiles.h"

#include <zlib.h>

#include <filesystem>
#include <sstream>
#include <system_error>

#include "svg/FileError.h"

namespace easel::svg {

namespace {

std::string pathWithoutLinks(const std::string& path) {
    std::error_code error;
    const std::filesystem::path canonical = std::filesystem::weakly_canonical(path, error);
    return error ? path : canonical.string();
}

std::uint32_t checksumOf(const std::vector<std::string_view>& pieces) {
    uLong sum = ::crc32_z(0, nullptr, 0);
    for (const std::string_view piece : pieces)
        sum = ::crc32_z(sum, reinterpret_cast<const Bytef*>(piece.data()), piece.size());
    return static_cast<std::uint32_t>(sum);
}

} // namespace

void KnownFiles::noteRead(const std::string& path, const FileStamp& stamp) const {
    files_[pathWithoutLinks(path)] = {stamp, std::nullopt};
}

void KnownFiles::noteSaved(const std::string& path, const FileStamp& stamp,
                           const std::vector<std::string_view>& pieces) const {
    files_[pathWithoutLinks(path)] = {stamp, checksumOf(pieces)};
}

std::string KnownFiles::toldOf(const std::string& path) const {
    const auto found = files_.find(pathWithoutLinks(path));
    if (found == files_.end()) return {};
    const FileStamp& stamp = found->second.stamp;
    std::ostringstream told;
    told << stamp.device << ' ' << stamp.number << ' ' << stamp.size;
    for (const std::int64_t time : {stamp.written[0], stamp.written[1], stamp.changed[0], stamp.changed[1]})
        told << ' ' << time;
    if (found->second.checksum) told << ' ' << *found->second.checksum;
    return told.str();
}

void KnownFiles::noteToldOf(const std::string& path, const std::string& told) const {
    std::istringstream from(told);
    Known known;
    FileStamp& stamp = known.stamp;
    from >> stamp.device >> stamp.number >> stamp.size >> stamp.written[0] >> stamp.written[1] >> stamp.changed[0] >>
        stamp.changed[1];
    if (!from) return;
    std::uint32_t checksum = 0;
    if (from >> checksum) known.checksum = checksum;
    files_[pathWithoutLinks(path)] = known;
}

void KnownFiles::requireUnchanged(const std::string& path) const {
    const auto found = files_.find(pathWithoutLinks(path));
    const std::optional<FileStamp> now = stampOf(path);
    if (found == files_.end() || !now || *now == found->second.stamp) return;
    const std::string bytes = readFile(path);
    const std::optional<std::uint32_t> saved = found->second.checksum;
    if (saved ? checksumOf({bytes}) == *saved : isWhatWasRead(bytes)) return;
    throw FileError(path + ": Another program has changed the file since it was opened");
}

} // namespace easel::svg
