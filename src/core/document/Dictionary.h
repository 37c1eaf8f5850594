// The values that plug-ins keep with art, or with the document.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/Handle.h"

struct ArtObject;

namespace kzo::plugin {
class Art;
}

namespace kzo::core {

class Art;

/// An entry is known by its key and holds one value of one kind; it is saved with the document, and undone as other
/// changes are. What reads one returns false, with `value` as it was, when there is none of that kind; what changes one
/// returns whether the host did it. That of art is empty once its art is.
class Dictionary {
  public:
    Dictionary() = default; ///< of the current document
    explicit Dictionary(const Art& art);

    [[nodiscard]] bool isEmpty() const; ///< of art that is; else there may still be no entry
    [[nodiscard]] std::vector<std::string> keys() const;
    bool remove(const std::string& key);

    bool getBool(const std::string& key, bool& value) const;
    bool getInt(const std::string& key, std::int32_t& value) const;
    bool getFloat(const std::string& key, double& value) const; ///< or a whole number
    bool getString(const std::string& key, std::string& value) const;

    bool setBool(const std::string& key, bool value);
    bool setInt(const std::string& key, std::int32_t value);
    bool setFloat(const std::string& key, double value);
    bool setString(const std::string& key, const std::string& value);

  private:
    [[nodiscard]] ArtObject* handle() const;
    template <class Value> bool read(const std::string& key, Value& value) const;
    template <class Value> bool write(const std::string& key, const Value& value);

    std::optional<Handle<plugin::Art>> art_; ///< none: the document's
};

} // namespace kzo::core
