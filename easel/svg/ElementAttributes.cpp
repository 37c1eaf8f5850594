// How single attributes are set: where the tag has them already, in place, else where they win over a style sheet.
#include <algorithm>
#include <optional>
#include <utility>

#include "svg/ElementParts.h"
#include "svg/ElementText.h"
#include "svg/Extras.h"
#include "svg/FileError.h"
#include "svg/Names.h"
#include "svg/Outlines.h"
#include "svg/Reach.h"
#include "svg/Values.h"

namespace easel::svg {

using model::Affine;
using model::Node;
using model::NodeType;
using model::PathData;
using model::Style;

namespace {

/// Names can be ids when XML takes them for such.
bool canBeId(std::string_view name) {
    const auto startsName = [](unsigned char c) {
        return c == '_' || c >= 0x80 || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    };
    const auto inName = [&](unsigned char c) {
        return startsName(c) || c == '-' || c == '.' || (c >= '0' && c <= '9');
    };
    return !name.empty() && startsName(static_cast<unsigned char>(name.front())) &&
           std::all_of(name.begin(), name.end(), inName);
}

} // namespace

void ElementText::setExtras(Tag& tag, const Node& node, const model::Extras& was) {
    setExtras(tag, node.extras(), was);
    setOwnMask(tag, node);
}

void ElementText::setExtras(Tag& tag, const model::Extras& is, const model::Extras& was) const {
    if (is.opacity != was.opacity) setProperty(tag, "opacity", opacityText(is.opacity));
    if (is.blendMode != was.blendMode) setProperty(tag, "mix-blend-mode", std::string(blendModeText(is.blendMode)));
    if (is.knockout != was.knockout) setOwn(tag, "knockout", knockoutText(is.knockout));
    if (is.centerPoint != was.centerPoint) setOwn(tag, "center-point", is.centerPoint ? "visible" : "");
    if (kindText(is) != kindText(was)) setOwn(tag, "kind", kindText(is));
    const auto shownMask = [](const model::Extras& extras) {
        return extras.maskDisabled ? std::string() : extras.mask;
    };
    const auto keptMask = [](const model::Extras& extras) { return extras.maskDisabled ? extras.mask : std::string(); };
    if (shownMask(is) != shownMask(was))
        setProperty(tag, "mask", is.maskDisabled || is.mask.empty() ? "none" : is.mask);
    if (keptMask(is) != keptMask(was)) setOwn(tag, "disabled-mask", keptMask(is));
    if (is.artboards != was.artboards) setOwn(tag, "artboards", artboardsText(is.artboards));
    if (is.dictionary != was.dictionary) setOwn(tag, "data", dataText(is.dictionary));
}

void ElementText::setOverprint(Tag& tag, const Style& style) const { setOwn(tag, "overprint", overprintText(style)); }

void ElementText::setOwn(Tag& tag, std::string_view local, std::string_view value) const {
    const std::string old = tag.find(source_.easelPrefixes, local);
    if (!value.empty())
        setForeign(tag, source_.easelPrefixes, "easel", kEaselNamespace, local, value);
    else if (!old.empty())
        tag.remove(old);
}

/// A declaration wins over an attribute, and a style sheet lies between the two.
void ElementText::setProperty(Tag& tag, std::string_view name, const std::string& value) const {
    const std::optional<std::string_view> style = tag.find("style");
    const auto declared = declaration(style.value_or(""), name);
    if (declared) {
        std::string changed(*style);
        changed.replace(declared->first, declared->second - declared->first, value);
        tag.set("style", std::move(changed));
    } else if (style || source_.hasStyleSheet || name == "display" || name == "mix-blend-mode" || name == "font") {
        std::string changed(style.value_or(""));
        std::vector<std::size_t> offsets;
        const std::string plain = unescaped(changed, &offsets); // a reference ends as a declaration does
        const std::string_view text = trimmed(plain);
        if (!text.empty() && text.back() != ';') changed += ';';
        tag.set("style", changed.append(name) + ':' + value + (source_.sheetInsists ? " !important" : ""));
    } else {
        tag.set(name, value);
    }
}

void ElementText::setLocked(Tag& tag, bool locked) const {
    if (!locked) tag.remove(tag.find(source_.sodipodiPrefixes, "insensitive"));
    const bool says = !tag.find(source_.sodipodiPrefixes, "insensitive").empty(); // as all of this name may
    if (!locked && !says) return;
    setForeign(tag, source_.sodipodiPrefixes, "sodipodi", kSodipodiNamespace, "insensitive", locked ? "true" : "false");
}

void ElementText::setForeign(Tag& tag, const std::vector<std::string>& prefixes, std::string_view usualPrefix,
                             std::string_view uri, std::string_view local, std::string_view value) const {
    std::string name = tag.find(prefixes, local);
    if (name.empty()) {
        const bool bound = !prefixes.empty() && source_.prefixesAtRoot;
        const std::string prefix = bound ? prefixes.front() : std::string(usualPrefix);
        if (!bound) tag.set("xmlns:" + prefix, std::string(uri));
        name = prefix + ':' + std::string(local);
    }
    tag.set(name, escaped(value));
}

void ElementText::setName(Tag& tag, const Node& node) {
    const auto hadId = [&] { // what it stands in for
        return node.taken() && Tag(source_.startTag(source_.elements[node.taken() - 1])).find("id") == node.name();
    };
    if (node.type() != NodeType::Layer && canBeId(node.name()) && (takeId(node.name()) || hadId())) {
        tag.set("id", escaped(node.name()));
    } else {
        setForeign(tag, source_.inkscapePrefixes, "inkscape", kInkscapeNamespace, "label", node.name());
    }
}

void ElementText::setOutline(Tag& tag, const Node& node, const Affine& toPage) const {
    requireInReach(node);
    std::vector<PathData> subpaths;
    for (const model::Shared<PathData>& outline : node.outlines())
        transformBy(subpaths.emplace_back(*outline), inverse(toPage));
    tag.set("d", pathData(subpaths));
    const std::string types = nodeTypes(subpaths);
    const std::string oldTypes = tag.find(source_.sodipodiPrefixes, "nodetypes");
    if (!types.empty()) {
        setForeign(tag, source_.sodipodiPrefixes, "sodipodi", kSodipodiNamespace, "nodetypes", types);
    } else if (!oldTypes.empty()) {
        tag.remove(oldTypes);
    }
    const std::string ends = outerHandles(subpaths);
    const std::string oldEnds = tag.find(source_.easelPrefixes, "ends");
    if (!ends.empty()) {
        setForeign(tag, source_.easelPrefixes, "easel", kEaselNamespace, "ends", ends);
    } else if (!oldEnds.empty()) {
        tag.remove(oldEnds);
    }
}

/// Whether something in the file is called so. What only extras like an id, in a comment, counts as well.
bool ElementText::hasId(const std::string& name) {
    if (!ids_) {
        ids_.emplace();
        const std::string_view text(source_.text);
        for (std::size_t at = text.find("id"); at != std::string_view::npos; at = text.find("id", at + 2)) {
            const std::size_t equals = text.find_first_not_of(kSpace, at + 2);
            if (equals == std::string_view::npos || text[equals] != '=') continue;
            const std::size_t quote = text.find_first_not_of(kSpace, equals + 1);
            if (quote == std::string_view::npos || (text[quote] != '"' && text[quote] != '\'')) continue;
            const std::size_t end = text.find(text[quote], quote + 1);
            if (end != std::string_view::npos) ids_->insert(text.substr(quote + 1, end - quote - 1));
        }
    }
    return ids_->count(name) > 0;
}

bool ElementText::takeId(const std::string& name) { return !hasId(name) && ids_->insert(name).second; }

Tag ElementText::tagOf(std::string_view text) const {
    const std::string name(text.substr(1, text.find_first_of(" \t\r\n/>") - 1));
    const auto defaults = source_.defaults.find(name);
    return defaults == source_.defaults.end() ? Tag(text) : Tag(text, defaults->second);
}

std::string ElementText::escaped(std::string_view text) const {
    std::string result;
    source_.encoding == Encoding::OtherAscii ? appendAsciiEscaped(result, text) : appendEscaped(result, text);
    return result;
}

} // namespace easel::svg
