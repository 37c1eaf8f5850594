// A folder that is gone with its test, and what a refusal says.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

namespace desk {

inline std::string contents(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Files are named relative to the folder.
class Folder {
  public:
    Folder() = default;
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    [[nodiscard]] std::string path(const std::string& name = "") const { return (path_ / name).string(); }
    [[nodiscard]] std::string content(const std::string& name) const { return contents(path_ / name); }
    [[nodiscard]] std::ptrdiff_t fileCount() const {
        return std::distance(std::filesystem::directory_iterator(path_), {});
    }
    /// Makes the folders around the file too; answers its path.
    std::string write(const std::string& name, const std::string& content) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary) << content;
        return path(name);
    }

  private:
    static std::filesystem::path made() {
        std::string name = testing::TempDir() + "easel-XXXXXX";
        EXPECT_NE(mkdtemp(name.data()), nullptr) << name;
        return name;
    }

    std::filesystem::path path_ = made();
};

/// What an error of this type says; empty when there is none.
template <class Error> std::string errorOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const Error& error) {
        return error.what();
    }
    return "";
}

} // namespace desk
