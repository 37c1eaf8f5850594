// Selectors are read from the left and matched from the right.
#include "svg/StyleSheet.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "svg/Values.h"

namespace easel::svg {

namespace {

constexpr int kClassWeight = 1 << 10; // of one class against as many types as anybody writes
constexpr int kIdWeight = 1 << 20;

bool inName(char c) {
    return c == '-' || c == '_' || isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
           static_cast<unsigned char>(c) >= 0x80;
}

std::string_view takeName(std::string_view& text) {
    std::size_t end = 0;
    while (end < text.size() && inName(text[end])) ++end;
    const std::string_view name = text.substr(0, end);
    text.remove_prefix(end);
    return name;
}

std::vector<StyleSheet::Declaration> declarationsIn(std::string_view block) {
    std::vector<StyleSheet::Declaration> declarations;
    forEachDeclaration(block, [&](std::string_view name, std::string_view value, bool important) {
        if (!name.empty() && !value.empty()) declarations.push_back({std::string(name), std::string(value), important});
    });
    return declarations;
}

} // namespace

std::vector<std::string> classesIn(std::string_view attribute) {
    std::vector<std::string> classes;
    while (!(attribute = trimmed(attribute)).empty()) {
        const std::size_t end = std::min(attribute.find_first_of(" \t\r\n\f"), attribute.size());
        classes.emplace_back(attribute.substr(0, end));
        attribute.remove_prefix(end);
    }
    return classes;
}

void StyleSheet::add(std::string_view text) {
    const std::string plain = withoutComments(text);
    std::string_view rest = plain;
    while (!(rest = trimmed(rest)).empty()) {
        for (const std::string_view bracket : {"<!--", "-->"}) // as in old pages
            if (rest.substr(0, bracket.size()) == bracket) rest = trimmed(rest.substr(bracket.size()));
        const bool isAtRule = rest.substr(0, 1) == "@";
        const std::size_t begin = findPlain(rest, isAtRule ? "{;" : "{");
        if (begin == rest.size()) return;
        const std::size_t end = rest[begin] == ';' ? begin : findPlain(rest, "}", begin + 1);
        if (!isAtRule) {
            blocks_.push_back(declarationsIn(rest.substr(begin + 1, end - begin - 1)));
            addSelectors(rest.substr(0, begin), blocks_.size() - 1);
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

void StyleSheet::addSelectors(std::string_view selectors, std::size_t block) {
    while (!selectors.empty()) {
        const std::size_t end = findPlain(selectors, ",");
        addSelector(trimmed(selectors.substr(0, end)), block);
        selectors.remove_prefix(std::min(end + 1, selectors.size()));
    }
}

void StyleSheet::addSelector(std::string_view selector, std::size_t block) {
    Rule rule{.steps = {}, .specificity = 0, .declarations = block};
    bool isChild = false;
    while (!selector.empty()) {
        Step& step = rule.steps.emplace_back();
        step.isChild = isChild;
        const std::size_t before = selector.size();
        if (selector.front() == '*')
            selector.remove_prefix(1);
        else
            step.type = takeName(selector);
        rule.specificity += step.type.empty() ? 0 : 1;
        while (!selector.empty() && (selector.front() == '.' || selector.front() == '#')) {
            const bool isId = selector.front() == '#';
            selector.remove_prefix(1);
            const std::string_view name = takeName(selector);
            if (name.empty()) break;
            (isId ? step.ids : step.classes).emplace_back(name);
            rule.specificity += isId ? kIdWeight : kClassWeight;
        }
        const bool isSpaced = !selector.empty() && isSpace(selector.front());
        selector = trimmed(selector);
        isChild = !selector.empty() && selector.front() == '>';
        if (isChild) selector = trimmed(selector.substr(1));
        const bool goesOn = isSpaced || isChild;
        if (selector.size() == before || (!selector.empty() && !goesOn) || (selector.empty() && isChild)) {
            understood_ = false;
            return;
        }
    }
    if (rule.steps.empty()) return;
    const Step& last = rule.steps.back();
    const std::string key = !last.ids.empty()       ? '#' + last.ids.front()
                            : !last.classes.empty() ? '.' + last.classes.front()
                            : !last.type.empty()    ? last.type
                                                    : "*";
    byKey_[key].push_back(rules_.size());
    rules_.push_back(std::move(rule));
}

bool StyleSheet::fits(const Step& step, const Styled& element) {
    const auto has = [&](const std::string& name) {
        return std::find(element.classes.begin(), element.classes.end(), name) != element.classes.end();
    };
    return (step.type.empty() || step.type == element.type) &&
           std::all_of(step.ids.begin(), step.ids.end(), [&](const std::string& id) { return id == element.id; }) &&
           std::all_of(step.classes.begin(), step.classes.end(), has);
}

bool StyleSheet::maySeeAround(std::string_view type) const {
    const Styled bare{std::string(type), {}, {}};
    const auto sees = [&](const Step& step) { return step.isChild || fits(step, bare); };
    return !understood_ || std::any_of(rules_.begin(), rules_.end(), [&](const Rule& rule) {
        return std::any_of(rule.steps.begin(), rule.steps.end(), sees);
    });
}

/// Steps that are children of one another are matched together, in the innermost elements that they fit: that leaves
/// the most to the steps before, so that nothing is tried twice.
bool StyleSheet::selects(const Rule& rule, const std::vector<Styled>& path) {
    std::size_t inner = path.size(); // the next step matches further out than this
    for (std::size_t end = rule.steps.size(); end > 0;) {
        std::size_t begin = end - 1;
        while (rule.steps[begin].isChild) --begin;
        const std::size_t count = end - begin;
        const auto fitsAt = [&](std::size_t last) {
            if (last + 1 < count) return false;
            for (std::size_t i = 0; i < count; ++i)
                if (!fits(rule.steps[begin + i], path[last + 1 - count + i])) return false;
            return true;
        };
        if (inner == 0) return false;
        std::size_t last = inner - 1;
        const bool isInnermost = end == rule.steps.size();
        while (!fitsAt(last)) {
            if (isInnermost || last == 0) return false;
            --last;
        }
        inner = last + 1 - count;
        end = begin;
    }
    return true;
}

std::vector<const StyleSheet::Declaration*> StyleSheet::declarationsFor(const std::vector<Styled>& path) const {
    const Styled& element = path.back();
    std::vector<std::size_t> selecting;
    const auto look = [&](std::string_view key) {
        const auto found = byKey_.find(key);
        if (found == byKey_.end()) return;
        for (const std::size_t rule : found->second)
            if (selects(rules_[rule], path)) selecting.push_back(rule);
    };
    look("*");
    look(element.type);
    if (!element.id.empty()) look('#' + element.id);
    for (const std::string& name : element.classes) look('.' + name);
    std::sort(selecting.begin(), selecting.end(), [this](std::size_t a, std::size_t b) {
        return std::pair(rules_[a].specificity, a) < std::pair(rules_[b].specificity, b);
    });
    std::vector<const Declaration*> declarations;
    for (const std::size_t rule : selecting)
        for (const Declaration& declaration : blocks_[rules_[rule].declarations]) declarations.push_back(&declaration);
    return declarations;
}

} // namespace easel::svg
