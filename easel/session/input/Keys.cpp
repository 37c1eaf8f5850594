// The table of keys. Codes are those of the platform that plug-ins are written for.
#include "session/input/Keys.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace easel::session {

namespace {

struct Row {
    std::string_view name;
    std::int32_t code;
};

constexpr Row kRows[] = {
    {"A", 0x00},      {"B", 0x0B},      {"C", 0x08},      {"D", 0x02},    {"E", 0x0E},    {"F", 0x03},
    {"G", 0x05},      {"H", 0x04},      {"I", 0x22},      {"J", 0x26},    {"K", 0x28},    {"L", 0x25},
    {"M", 0x2E},      {"N", 0x2D},      {"O", 0x1F},      {"P", 0x23},    {"Q", 0x0C},    {"R", 0x0F},
    {"S", 0x01},      {"T", 0x11},      {"U", 0x20},      {"V", 0x09},    {"W", 0x0D},    {"X", 0x07},
    {"Y", 0x10},      {"Z", 0x06},      {"0", 0x1D},      {"1", 0x12},    {"2", 0x13},    {"3", 0x14},
    {"4", 0x15},      {"5", 0x17},      {"6", 0x16},      {"7", 0x1A},    {"8", 0x1C},    {"9", 0x19},
    {"=", 0x18},      {"-", 0x1B},      {"[", 0x21},      {"]", 0x1E},    {"'", 0x27},    {";", 0x29},
    {"\\", 0x2A},     {",", 0x2B},      {".", 0x2F},      {"/", 0x2C},    {"`", 0x32},    {"Return", 0x24},
    {"Tab", 0x30},    {"Space", 0x31},  {"Delete", 0x33}, {"Home", 0x73}, {"End", 0x77},  {"ForwardDelete", 0x75},
    {"Escape", 0x35}, {"PageUp", 0x74}, {"Left", 0x7B},   {"Up", 0x7E},   {"Down", 0x7D}, {"PageDown", 0x79},
    {"Right", 0x7C},  {"F1", 0x7A},     {"F2", 0x78},     {"F3", 0x63},   {"F4", 0x76},   {"F5", 0x60},
    {"F6", 0x61},     {"F7", 0x62},     {"F8", 0x64},     {"F9", 0x65},   {"F10", 0x6D},  {"F11", 0x67},
    {"F12", 0x6F},
};

/// Names that other keyboards and programs have for keys.
constexpr std::pair<std::string_view, std::string_view> kOtherNames[] = {
    {"enter", "Return"}, {"backspace", "Delete"}, {"del", "ForwardDelete"},
    {"pgup", "PageUp"},  {"pgdn", "PageDown"},    {" ", "Space"}};

std::string lowered(std::string_view text) {
    std::string low(text);
    for (char& c : low)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c | 0x20);
    return low;
}

/// How many characters must be changed, added or left out to make one of the other.
std::size_t difference(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

} // namespace

std::optional<std::int32_t> keyCode(std::string_view name) {
    const auto* const row =
        std::find_if(std::begin(kRows), std::end(kRows), [&](const Row& r) { return r.name == name; });
    return row != std::end(kRows) ? std::optional(row->code) : std::nullopt;
}

std::string_view similarKey(std::string_view name) {
    const std::string meant = lowered(name);
    for (const auto& [other, key] : kOtherNames)
        if (meant == other) return key;
    std::string_view nearest;
    std::size_t least = 3; // characters; beyond that it is another word
    for (const Row& row : kRows) {
        const std::string key = lowered(row.name);
        const bool isPart =
            meant.size() > 2 && (key.rfind(meant, 0) == 0 || (key.size() > 1 && meant.find(key) != key.npos));
        const std::size_t far = isPart ? 1 : difference(meant, key);
        // A name of which no character is right is not meant; of one character is only the key itself, written small.
        if (far >= std::min({least, key.size(), meant.size()})) continue;
        least = far;
        nearest = row.name;
    }
    return nearest;
}

} // namespace easel::session
