// A store of preferences, kept in one JSON file.
#pragma once

#include <memory>
#include <string>

#include "core/services/DictionaryPref.h"

namespace kzo::plugin {
class Preferences;
}

namespace kzo::core {

/// The dictionary that a file holds, with a version of its data and a count of its savings. Copies denote the same
/// store. It is empty until something is loaded; then its own operations, too, return false, 0 or an empty text.
class Preferences : public DictionaryPref {
  public:
    Preferences() = default; ///< empty

    // The file
    /// Makes the store of the file, which may be missing: then, as when it is empty or holds anything else, the store
    /// is empty of preferences. So it is when the file cannot be read; but then `save` refuses to write over it.
    static bool load(const std::string& path, Preferences& out);
    /// Reads the file again; handles stay with their keys. False, with all as it was, when it holds no preferences.
    bool reload(const std::string& path);
    /// Rewrites the file in place and counts. False, with the file as it was, when it cannot be written.
    bool save(const std::string& path);
    [[nodiscard]] bool unreadable() const; ///< the file was there when it was loaded, and could not be read

    // About the data
    [[nodiscard]] long long saveCount() const;
    [[nodiscard]] int versionNumber() const;
    void setVersionNumber(int number);
    [[nodiscard]] std::string versionString() const;
    void setVersionString(const std::string& text);

  private:
    explicit Preferences(const std::shared_ptr<plugin::Preferences>& store);

    std::shared_ptr<plugin::Preferences> store_;
};

} // namespace kzo::core
