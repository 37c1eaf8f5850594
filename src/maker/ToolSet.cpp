// The file that holds the number of the first of the maker's tools.
#include "maker/ToolSet.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "core/services/Folders.h"

namespace vl::toolSet {

namespace {

constexpr const char* kMakerFolder = "Velloran";
constexpr const char* kFileName = "Base tool"; // holds the number as text

/// Empty where there is no folder for it.
std::filesystem::path file() {
    const std::string folder = kzo::core::folders::preferences(kMakerFolder);
    return folder.empty() ? std::filesystem::path() : std::filesystem::path(folder) / kFileName;
}

} // namespace

std::int16_t getBaseTool() {
    constexpr int kMostDigits = 8;
    char text[kMostDigits] = {};
    std::ifstream in(file());
    in.read(text, sizeof text);
    std::int16_t number = kNone;
    const char* const end = text + in.gcount();
    const auto read = std::from_chars(text, end, number);
    const bool whole = read.ec == std::errc() && (read.ptr == end || *read.ptr == '\n');
    return whole && number >= 0 ? number : kNone;
}

// Without a file each plug-in has a group of its own; nothing else is lost, so nobody is told.

void setBaseTool(std::int16_t number) { std::ofstream(file()) << number << '\n'; }

void clearBaseTool() {
    std::error_code ignored;
    std::filesystem::remove(file(), ignored);
}

} // namespace vl::toolSet
