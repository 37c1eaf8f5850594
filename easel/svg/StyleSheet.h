// The style sheets of a drawing, as far as pictures follow them: rules with type, class, id and universal selectors,
// alone or together, below one another, and grouped. Knows the names of no property.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace easel::svg {

/// What selectors ask of an element.
struct Styled {
    std::string type; ///< its name without a prefix
    std::string id;
    std::vector<std::string> classes;
};

[[nodiscard]] std::vector<std::string> classesIn(std::string_view attribute);

class StyleSheet {
  public:
    struct Declaration {
        std::string name;
        std::string value;
        bool important = false;
    };

    /// Adds rules behind those that are there. What is malformed is left out, and what begins with "@".
    void add(std::string_view text);
    [[nodiscard]] bool isEmpty() const { return rules_.empty(); }
    /// Whether all selectors were understood; the others select nothing.
    [[nodiscard]] bool isUnderstood() const { return understood_; }
    /// Whether some rule may select an element of this type that has no name and no class.
    [[nodiscard]] bool maySelect(std::string_view type) const {
        return !understood_ || byKey_.count("*") > 0 || byKey_.count(type) > 0;
    }
    /// Whether an element of this type that has no name and no class, put around others, might change what is selected.
    [[nodiscard]] bool maySeeAround(std::string_view type) const;
    /// What is declared for the last of some elements, each in the one before it. Later ones win.
    [[nodiscard]] std::vector<const Declaration*> declarationsFor(const std::vector<Styled>& path) const;

  private:
    /// What one element must be like.
    struct Step {
        std::string type; ///< empty: any
        std::vector<std::string> ids;
        std::vector<std::string> classes;
        bool isChild = false; ///< of what the step before selects; else anywhere in it
    };
    struct Rule {
        std::vector<Step> steps;
        int specificity = 0;
        std::size_t declarations = 0; ///< index of the block
    };

    void addSelectors(std::string_view selectors, std::size_t block);
    void addSelector(std::string_view selector, std::size_t block);
    [[nodiscard]] static bool fits(const Step& step, const Styled& element);
    [[nodiscard]] static bool selects(const Rule& rule, const std::vector<Styled>& path);

    std::vector<Rule> rules_;
    std::vector<std::vector<Declaration>> blocks_;
    /// The rules by what their last step asks for: "#id", ".class", the type, or "*".
    std::map<std::string, std::vector<std::size_t>, std::less<>> byKey_;
    bool understood_ = true;
};

} // namespace easel::svg
