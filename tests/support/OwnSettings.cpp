// Keeps tests away from the settings of whoever runs them, and from the maker's server: a product that its host gives
// no folder goes to the user's own.
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/Folder.h"

namespace {

class OwnSettings : public testing::Environment {
  public:
    void SetUp() override {
        folder_ = testing::TempDir() + "settings-XXXXXX";
        ASSERT_NE(mkdtemp(folder_.data()), nullptr);
        setenv("XDG_CONFIG_HOME", folder_.c_str(), 1);
        setenv("VELLORAN_WEB", "http://127.0.0.1:1", 1); // where nobody listens
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

  private:
    std::string folder_;
};

[[maybe_unused]] testing::Environment* const kOwnSettings = testing::AddGlobalTestEnvironment(new OwnSettings);

} // namespace
