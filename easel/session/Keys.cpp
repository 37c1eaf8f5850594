// The table of keys. Codes are those of the platform that plug-ins are written for.
#include "session/Keys.h"

#include <algorithm>
#include <iterator>

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

} // namespace

std::optional<std::int32_t> keyCode(std::string_view name) {
    const auto* const row =
        std::find_if(std::begin(kRows), std::end(kRows), [&](const Row& r) { return r.name == name; });
    return row != std::end(kRows) ? std::optional(row->code) : std::nullopt;
}

} // namespace easel::session
