// The application's preferences as a JSON file in the profile folder.
#include "session/base/HostPreferences.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

namespace easel::session {

namespace {

using Json = nlohmann::json;

/// The entry's value; false when it is of no kind that there is.
bool take(const Json& json, HostPreferences::Value& value) {
    if (json.is_boolean())
        value = json.get<bool>();
    else if (json.is_number_integer())
        value = json.get<std::int32_t>();
    else if (json.is_number())
        value = json.get<double>();
    else if (json.is_string())
        value = json.get<std::string>();
    else
        return false;
    return true;
}

} // namespace

const HostPreferences::Value* HostPreferences::find(std::string_view section, std::string_view key) {
    const auto at = values().find(Name(section, key));
    return at == values_.end() ? nullptr : &at->second;
}

void HostPreferences::put(std::string_view section, std::string_view key, Value value) {
    values().insert_or_assign(Name(section, key), std::move(value));
    write();
}

bool HostPreferences::remove(std::string_view section, std::string_view key) {
    if (values().erase(Name(section, key)) == 0) return false;
    write();
    return true;
}

// The file: a list of objects like {"section": "Window", "key": "width", "value": 800}

std::string HostPreferences::path() { return (std::filesystem::path(profile_.folder()) / kFile).string(); }

std::map<HostPreferences::Name, HostPreferences::Value>& HostPreferences::values() {
    if (std::exchange(loaded_, true)) return values_;
    std::ifstream file(path(), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || read(text)) return values_;
    std::error_code error;
    std::filesystem::rename(path(), path() + ".damaged", error);
    reports_.add(Blame::UserData, path() + ": is no file of preferences; it is kept as " + kFile + ".damaged");
    return values_;
}

bool HostPreferences::read(const std::string& text) {
    const Json all = Json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (!all.is_array()) return false;
    for (const Json& entry : all) {
        Value value;
        const auto textOf = [&](const char* name) { return entry.contains(name) && entry[name].is_string(); };
        if (!entry.is_object() || !textOf("section") || !textOf("key") || !entry.contains("value")) return false;
        if (!take(entry["value"], value)) return false;
        values_[Name(entry["section"], entry["key"])] = value;
    }
    return true;
}

/// The whole file, such that the old one is there until the new one is.
void HostPreferences::write() {
    Json all = Json::array();
    for (const auto& [name, value] : values_) {
        Json entry{{"section", name.first}, {"key", name.second}};
        std::visit([&](const auto& held) { entry["value"] = held; }, value);
        all.push_back(std::move(entry));
    }
    const std::string made = path() + ".new";
    std::error_code error;
    {
        std::ofstream file(made, std::ios::binary);
        file << all.dump(1, '\t', /*ensure_ascii=*/false, Json::error_handler_t::replace) << std::flush;
        if (!file) error = std::make_error_code(std::errc::io_error);
    }
    if (!error) std::filesystem::rename(made, path(), error);
    if (!error) return;
    reports_.add(Blame::Host, path() + ": cannot be written: " + error.message());
    std::filesystem::remove(made, error);
}

} // namespace easel::session
