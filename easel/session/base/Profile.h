// The folder in which the user's plug-ins keep their preferences.
#pragma once

#include <string>

namespace easel::session {

/// A folder that was given, or else a temporary one, made when it is first asked for and gone with this object.
class Profile {
  public:
    Profile() = default;
    ~Profile();
    Profile(const Profile&) = delete;
    Profile& operator=(const Profile&) = delete;

    /// Makes the folder if it is missing. Throws Error.
    void use(const std::string& folder);
    [[nodiscard]] const std::string& folder();

  private:
    std::string folder_;
    bool temporary_ = false;
};

} // namespace easel::session
