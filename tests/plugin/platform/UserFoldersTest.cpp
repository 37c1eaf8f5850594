// The user's preferences folder, wherever the environment says that it is.
#include "plugin/platform/UserFolders.h"

#include <cstdlib>
#include <optional>

#include <gtest/gtest.h>

#include "support/Folder.h"

namespace {

class Variable {
  public:
    Variable(const char* name, const std::optional<std::string>& value) : name_(name) {
        if (const char* const before = std::getenv(name)) before_ = before;
        set(value);
    }
    ~Variable() { set(before_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    void set(const std::optional<std::string>& value) const {
        value ? setenv(name_, value->c_str(), 1) : unsetenv(name_);
    }
    const char* name_;
    std::optional<std::string> before_;
};

TEST(UserFolders, AreMadeWhereTheEnvironmentSaysButNoHomeIs) {
    const desk::Folder folder;
    folder.write("home/file", "");
    folder.write("other/.config", "in the way");
    const struct {
        std::optional<std::string> config;
        std::string home;
        std::string found;
    } rows[] = {{folder.path("config/"), "home", folder.path("config/")},
                {folder.path("none/config"), "home", ""},
                {std::nullopt, "home", folder.path("home/.config")},
                {"", "home", folder.path("home/.config")},
                {"relative", "home", folder.path("home/.config")},
                {std::nullopt, "none", ""},
                {std::nullopt, "other", ""},
                {folder.path("home/file"), "home", ""}};
    for (const auto& row : rows) {
        const Variable config("XDG_CONFIG_HOME", row.config);
        const Variable home("HOME", folder.path(row.home));
        EXPECT_EQ(kzo::plugin::userPreferences(), row.found) << row.home;
        EXPECT_EQ(std::filesystem::is_directory(row.found), !row.found.empty());
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path("none")));
}

} // namespace
