// Makes the profile folder, a temporary one unless the user named his own.
#include "session/base/Profile.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "session/base/Error.h"

namespace easel::session {

namespace fs = std::filesystem;

Profile::~Profile() {
    std::error_code ignored;
    if (temporary_) fs::remove_all(folder_, ignored);
}

void Profile::use(const std::string& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (!error && !fs::is_directory(folder)) error = std::make_error_code(std::errc::not_a_directory);
    if (error) throw Error(folder + ": cannot be the profile: " + error.message());
    folder_ = fs::absolute(folder).string();
}

const std::string& Profile::folder() {
    if (!folder_.empty()) return folder_;
    std::string name = (fs::temp_directory_path() / "easel-profile-XXXXXX").string();
    if (!mkdtemp(name.data())) throw Error(name + ": cannot be made: " + std::strerror(errno));
    folder_ = name;
    temporary_ = true;
    return folder_;
}

} // namespace easel::session
