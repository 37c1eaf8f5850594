// Forwards to the platform.
#include "core/services/Folders.h"

#include <filesystem>

#include "plugin/platform/Platform.h"

namespace kzo::core::folders {

std::string preferences(const std::string& maker) {
    const std::string all = plugin::platform().folders().preferences();
    if (all.empty()) return "";
    const std::filesystem::path folder = std::filesystem::path(all) / maker;
    std::error_code error;
    std::filesystem::create_directory(folder, error);
    return std::filesystem::is_directory(folder, error) ? folder.string() : "";
}

} // namespace kzo::core::folders
