// What elements look like because of where they stand in the file: by inheritance and by the selectors of style sheets.
// For those that are written elsewhere and shall look as before. Paint is not looked at, which the document knows.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "svg/Source.h"

namespace easel::svg {

class Surroundings {
  public:
    explicit Surroundings(const Source& source) : source_(source) {}

    /// What an element has to say itself in another container, and what style sheets say of it there.
    struct Needed {
        std::vector<std::pair<std::string, std::string>> properties;
        std::map<std::string, std::string> declared;
    };
    /// `tag`: the element's as it is to be written, perhaps without its id. Outlines need less than text.
    [[nodiscard]] Needed needed(const Element& element, std::string_view tag, std::uint32_t into, bool isOutlined);

    /// What the element says of a property, or a style sheet of the element; empty for nothing.
    [[nodiscard]] std::string says(const Element& element, std::string_view name);

  private:
    using Values = std::map<std::string, std::string>;
    /// What holds inside of a container.
    struct Inside {
        std::vector<Styled> path; ///< from the root down to it
        Values values;
    };
    const Inside& inside(std::uint32_t container);
    [[nodiscard]] Inside insideOf(const Inside& around, const Container& container) const;
    [[nodiscard]] Values declared(std::vector<Styled> path, std::string_view tag, bool important) const;

    const Source& source_;
    std::map<std::uint32_t, Inside> inside_;
};

} // namespace easel::svg
