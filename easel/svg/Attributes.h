// The attributes of one element as the parser tells them, and what several readers look up in them.
#pragma once

#include <2geom/affine.h>

#include <optional>
#include <string_view>

#include "svg/Values.h"

namespace easel::svg {

/// Names and values in turn, ended by null. Names as in Names.h.
class Attributes {
  public:
    explicit Attributes(const char** pairs) : pairs_(pairs) {}

    [[nodiscard]] std::optional<std::string_view> find(std::string_view name) const {
        for (const char** pair = pairs_; *pair; pair += 2) {
            if (name == pair[0]) return pair[1];
        }
        return std::nullopt;
    }
    [[nodiscard]] std::string_view get(std::string_view name) const { return find(name).value_or(""); }
    template <class Use> void forEach(Use use) const {
        for (const char** pair = pairs_; *pair; pair += 2) use(pair[0], pair[1]);
    }
    /// Calls `use(name, value)` for each property, attributes first, as later ones win.
    template <class Use> void forEachProperty(Use use) const {
        forEach([&](std::string_view name, std::string_view value) { use(name, trimmed(value)); });
        forEachDeclaration(get("style"), use);
    }
    /// The value that wins; empty when there is none.
    [[nodiscard]] std::string_view property(std::string_view name) const {
        std::string_view found;
        forEachProperty([&](std::string_view known, std::string_view value) {
            if (known == name) found = value;
        });
        return found;
    }

    /// The element's own transform, then `around`.
    [[nodiscard]] Geom::Affine transformInto(const Geom::Affine& around) const {
        const std::string_view text = get("transform");
        if (text.empty()) return around;
        return transform(text).value_or(Geom::Affine::identity()) * around;
    }
    /// Whether the style holds a transform too, which is not evaluated.
    [[nodiscard]] bool transformsInStyle() const {
        bool transforms = false;
        forEachDeclaration(get("style"), [&](std::string_view name, std::string_view value) {
            if (name == "transform" && value != "none") transforms = true;
        });
        return transforms;
    }

  private:
    const char** pairs_;
};

} // namespace easel::svg
