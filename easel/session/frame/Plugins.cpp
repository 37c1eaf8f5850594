// Opening of bundles, and what lies in them.
#include "session/frame/Plugins.h"

#include <dlfcn.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "session/base/Error.h"
#include "session/base/HostError.h"

namespace easel::session {

namespace {

constexpr const char* kBundleExtension = ".aip";

} // namespace

Plugin& Plugins::attach(const std::string& name, SPEntry entry) {
    auto plugin = std::make_unique<Plugin>();
    plugin->name = name;
    plugin->entry = entry;
    return plugins_.add(std::move(plugin));
}

Plugin& Plugins::load(const std::string& bundle) {
    namespace fs = std::filesystem;
    fs::path path(bundle);
    if (!path.has_filename()) path = path.parent_path(); // "Name.aip/"
    std::error_code failure;
    if (!fs::exists(path, failure)) throw Error(bundle + ": no such plug-in");
    const fs::path library = path / "Contents" / "Linux" / path.stem();
    if (path.extension() != kBundleExtension || !fs::is_directory(path, failure) ||
        !fs::is_regular_file(library, failure))
        throw Error(bundle + ": not a plug-in bundle (a folder NAME.aip with Contents/Linux/NAME in it)");

    const auto sameBundle = [&](const Plugin* plugin) {
        return !plugin->file.empty() && fs::equivalent(plugin->file, path, failure);
    };
    const std::vector<Plugin*> known = all();
    if (std::any_of(known.begin(), known.end(), sameBundle)) throw Error(bundle + ": is loaded already");

    // Never closed again: a library with Objective-C classes cannot go.
    void* const image = dlopen(fs::absolute(library).c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!image) {
        const char* const reason = dlerror();
        throw Error(bundle + ": cannot be loaded: " + (reason ? reason : "unknown reason"));
    }
    void* const entry = dlsym(image, kSPEntryName);
    if (!entry) throw Error(bundle + ": exports no " kSPEntryName);
    Plugin& plugin = attach(path.stem(), reinterpret_cast<SPEntry>(entry));
    plugin.file = bundle;
    plugin.fileName = path.filename();
    plugin.filePath = fs::absolute(path);
    plugin.library = image;
    return plugin;
}

// Resources

std::string resource(const Plugin& plugin, std::string_view type, int number) {
    // A type is part of a file's name, never of its path.
    const bool plain = std::all_of(type.begin(), type.end(), [](unsigned char c) { return std::isalnum(c); });
    require(!type.empty() && plain);
    require(!plugin.filePath.empty(), kRefusedErr);
    const std::string name = std::to_string(number) + '.' + std::string(type);
    const auto file = std::filesystem::path(plugin.filePath) / "Contents" / "Resources" / name;
    std::error_code failure;
    require(std::filesystem::is_regular_file(file, failure), kRefusedErr);
    std::ifstream in(file, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    require(static_cast<bool>(in), kRefusedErr);
    return bytes;
}

} // namespace easel::session
