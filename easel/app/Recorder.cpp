// Statements and values of session scripts.
#include "app/Recorder.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "hostapi/SPTypes.h"
#include "session/base/Error.h"

namespace easel::app {

Recorder::Recorder(const std::string& path) : path_(path) {
    if (path.empty()) return;
    file_.open(path, std::ios::binary | std::ios::trunc);
    add("// Recorded by easel-window. Play it with: easel run " + path);
}

void Recorder::add(const std::string& statement) {
    if (path_.empty()) return;
    const bool isComment = statement.compare(0, 2, "//") == 0;
    file_ << statement << (isComment ? "\n" : ";\n") << std::flush;
    if (file_) return;
    const std::string path = std::exchange(path_, {});
    throw session::Error(path + ": cannot be written, so that nothing more is recorded");
}

std::string Recorder::kept(const std::string& file) {
    if (path_.empty()) return file;
    const std::filesystem::path copy = std::filesystem::absolute(path_ + ".svg");
    std::error_code failed;
    std::filesystem::copy_file(file, copy, std::filesystem::copy_options::overwrite_existing, failed);
    if (failed) file_.setstate(std::ios::failbit); // the statement that needs it is refused
    return copy.string();
}

std::string Recorder::quoted(std::string_view text) {
    std::string out = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const std::string_view separator = text.substr(i, 3); // of lines or paragraphs, where scripts end a line too
        if (separator == "\u2028" || separator == "\u2029") {
            out += separator == "\u2028" ? "\\u2028" : "\\u2029";
            i += 2;
            continue;
        }
        if (c == '"' || c == '\\') out += '\\';
        if (static_cast<unsigned char>(c) >= 0x20) {
            out += c;
        } else {
            std::array<char, 8> code{};
            std::snprintf(code.data(), code.size(), "\\u%04x", static_cast<unsigned>(c));
            out += code.data();
        }
    }
    return out + '"';
}

std::string Recorder::number(double value) {
    std::array<char, 32> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), end};
}

std::string Recorder::seconds(int milliseconds) { return number(milliseconds / 1000.0); }

std::string Recorder::modifiers(session::Modifiers held) {
    struct Known {
        session::Modifiers bit;
        const char* name;
    };
    static constexpr Known kKnown[] = {
        {kAIShiftKey, "shift"}, {kAIOptionKey, "option"}, {kAIControlKey, "control"}, {kAICommandKey, "command"}};
    std::string out;
    for (const Known& known : kKnown)
        if (held & known.bit) out += (out.empty() ? "{" : ", ") + std::string(known.name) + ": true";
    return out.empty() ? out : out + '}';
}

std::string Recorder::at(model::Point location, session::Modifiers held) {
    const std::string keys = modifiers(held);
    return number(location.x) + ", " + number(location.y) + (keys.empty() ? "" : ", " + keys);
}

} // namespace easel::app
