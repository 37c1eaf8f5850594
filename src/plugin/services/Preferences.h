// A preference store: the tree of a JSON file, with a version of its data and a count of its savings.
#pragma once

#include <string>

#include "plugin/services/PersistentData.h"
#include "json/Node.h"

namespace kzo::plugin {

/// The file holds one object with one member, "Prefs", in which every preference is a member, and so are "SaveCount",
/// "__vn" and "__vs". Without a tree everything returns false, 0 or an empty text.
class Preferences {
  public:
    // The file
    /// A file that is missing, empty or unreadable, or holds anything else, makes an empty store.
    void load(const std::string& path);
    /// False, with the tree as it was, when the file holds no preferences. Handles follow to the new tree.
    bool reload(const std::string& path);
    /// False, with the file as it was, when it cannot be written, or when it was there and could not be read.
    bool save(const std::string& path);
    [[nodiscard]] bool unreadable() const { return !unreadable_.empty(); } ///< the file could not be read when loaded

    // The store
    [[nodiscard]] bool isEmpty() const { return !root_; }
    [[nodiscard]] const PersistentData::Shared& dictionary() const { return dictionary_; } ///< null before loading
    [[nodiscard]] long long saveCount() const { return number(kSaveCount); }
    [[nodiscard]] int versionNumber() const;
    void setVersionNumber(int number);
    [[nodiscard]] std::string versionString() const;
    void setVersionString(const std::string& text);

  private:
    static constexpr const char* kSaveCount = "SaveCount";
    static constexpr const char* kVersionNumber = "__vn";
    static constexpr const char* kVersionString = "__vs";

    static json::Owned parsed(const std::string& text);
    void adopt(json::Owned root);
    void require(json::Owned member);
    [[nodiscard]] json::Owned member(const char* key) const;
    [[nodiscard]] long long number(const char* key) const;
    void setNumber(const char* key, long long value);

    json::Owned root_;
    PersistentData::Shared dictionary_; ///< stands for "Prefs", whichever tree it is in
    std::string unreadable_;            ///< the file that was there and could not be read
};

} // namespace kzo::plugin
