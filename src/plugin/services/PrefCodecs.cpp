// Each kind of preference to JSON and back.
#include "plugin/services/PrefCodecs.h"

#include <algorithm>
#include <initializer_list>
#include <type_traits>
#include <utility>
#include <vector>

#include "json/Children.h"

namespace kzo::plugin {

namespace {

using core::PrefType;
using json::Node;
using json::Owned;

// Members of the compound kinds. A list names and reads or writes them, as the `Members` that it is given does.

template <class Members> void list(Members& members, core::ArtboardPoint& value) {
    double x = value.x();
    double y = value.y();
    members("h", x);
    members("v", y);
    value = {x, y};
}

template <class Members> void list(Members& members, core::ArtboardRect& value) {
    members("left", value.left);
    members("top", value.top);
    members("right", value.right);
    members("bottom", value.bottom);
}

template <class Members> void list(Members& members, core::ArtColor& value) {
    members("r", value.red);
    members("g", value.green);
    members("b", value.blue);
}

template <class Members> void list(Members& members, core::Color& value) {
    members("red", value.red);
    members("green", value.green);
    members("blue", value.blue);
    members("alpha", value.alpha);
}

template <class Members> void list(Members& members, core::Point& value) {
    double x = value.x();
    double y = value.y();
    members("x", x);
    members("y", y);
    value = {x, y};
}

template <class Members> void list(Members& members, core::Size& value) {
    double width = value.width();
    double height = value.height();
    members("width", width);
    members("height", height);
    value = {width, height};
}

template <class Members> void list(Members& members, core::Rect& value) {
    list(members, value.origin);
    list(members, value.size);
}

template <class Members> void list(Members& members, core::Font& value) {
    members("fontName", value.name);
    members("fontSize", value.size);
}

template <class Members> void list(Members& members, core::TransformMatrix& value) {
    members("a", value.a);
    members("b", value.b);
    members("c", value.c);
    members("d", value.d);
    members("tx", value.tx);
    members("ty", value.ty);
}

template <class Members> void list(Members& members, core::DashStyle& value) {
    std::vector<double> lengths(value.lengths.begin(), value.lengths.begin() + static_cast<std::ptrdiff_t>(std::min(
                                                                                   value.count, value.lengths.size())));
    members("dashes", lengths);
    members("dashOffset", value.offset);
    value.count = std::min(lengths.size(), value.lengths.size());
    std::copy_n(lengths.begin(), value.count, value.lengths.begin());
}

template <class Members> void list(Members& members, core::DashStyleMap& value) {
    members("dashes", value.lengths);
    members("dashOffset", value.offset);
}

template <class Members> void list(Members& members, core::FillStyle& value) {
    members("fillPainted", value.painted);
    members("fillColor", value.color);
    members("fillOverprint", value.overprint);
}

template <class Members> void list(Members& members, core::FillStyleMap& value) {
    members("fillPainted", value.painted);
    members("fillColor", value.color);
    members("fillOverprint", value.overprint);
}

/// A style and its map have the same members; the map's are switches.
template <class Members, class Style> void listStroke(Members& members, Style& value) {
    members("strokePainted", value.painted);
    members("strokeColor", value.color);
    members("strokeWidth", value.width);
    members("miterLimit", value.miterLimit);
    members("cap", value.cap);
    members("join", value.join);
    members("dash", value.dash);
    members("strokeOverprint", value.overprint);
}

template <class Members> void list(Members& members, core::StrokeStyle& value) { listStroke(members, value); }
template <class Members> void list(Members& members, core::StrokeStyleMap& value) { listStroke(members, value); }

// Plain values

Owned made(const std::string& name, bool value) { return Owned(Node::createBool(name, value)); }
Owned made(const std::string& name, double value) { return Owned(Node::createFloat(name, value)); }
Owned made(const std::string& name, const std::string& value) { return Owned(Node::createStr(name, value)); }
Owned made(const std::string& name, core::StrokeCap value) {
    return Owned(Node::createInt(name, static_cast<int>(value)));
}
Owned made(const std::string& name, core::StrokeJoin value) {
    return Owned(Node::createInt(name, static_cast<int>(value)));
}

Owned made(const std::string& name, const std::vector<double>& values) {
    Owned array(Node::create(Node::Type::Array, name));
    for (const double value : values) array->addElement(made("", value).get());
    return array;
}

bool taken(const Node& node, bool& value) {
    value = node.boolValue();
    return node.nodeType() == Node::Type::Bool;
}

bool taken(const Node& node, double& value) {
    value = node.doubleValue();
    return node.nodeType() == Node::Type::Number;
}

bool taken(const Node& node, std::string& value) {
    value = node.stringValue();
    return node.nodeType() == Node::Type::String;
}

template <class Enumeration>
bool takenAmong(const Node& node, Enumeration& value, std::initializer_list<Enumeration> all) {
    value = static_cast<Enumeration>(node.intValue());
    return node.nodeType() == Node::Type::Number && std::find(all.begin(), all.end(), value) != all.end();
}

bool taken(const Node& node, core::StrokeCap& value) {
    return takenAmong(node, value, {core::StrokeCap::Butt, core::StrokeCap::Round, core::StrokeCap::Projecting});
}

bool taken(const Node& node, core::StrokeJoin& value) {
    return takenAmong(node, value, {core::StrokeJoin::Miter, core::StrokeJoin::Round, core::StrokeJoin::Bevel});
}

bool taken(const Node& node, std::vector<double>& values) {
    if (!node.elements() || node.elementsCount() > core::DashStyle().lengths.size()) return false;
    values.assign(node.elementsCount(), 0);
    return std::equal(node.elements()->begin(), node.elements()->end(), values.begin(),
                      [](const Node* element, double& value) { return taken(*element, value); });
}

// Compound values

template <class Kind> Owned made(const std::string& name, const Kind& value);
template <class Kind> bool taken(const Node& node, Kind& value);

/// Adds each member to an object.
class Writing {
  public:
    explicit Writing(Node& object) : object_(object) {}
    template <class Value> void operator()(const char* name, const Value& value) {
        object_.addMember(made(name, value).get());
    }

  private:
    Node& object_;
};

/// Reads each member, and notes whether the object has all of them and nothing else.
class Reading {
  public:
    explicit Reading(const Node& object) : object_(object) {}
    template <class Value> void operator()(const char* name, Value& value) {
        const Owned member(object_.member(name));
        ++count_;
        fits_ = fits_ && member && taken(*member, value);
    }
    [[nodiscard]] bool fits() const { return fits_ && object_.membersCount() == count_; }

  private:
    const Node& object_;
    std::size_t count_ = 0;
    bool fits_ = true;
};

template <class Kind> Owned made(const std::string& name, const Kind& value) {
    Owned object(Node::create(Node::Type::Object, name));
    Writing members(*object);
    Kind copy = value;
    list(members, copy);
    return object;
}

template <class Kind> bool taken(const Node& node, Kind& value) {
    if (!node.members()) return false;
    Reading members(node);
    list(members, value);
    return members.fits();
}

// Kinds by their tags

template <class... Kinds> struct KindList {};
/// In the order in which an object is asked what it is.
constexpr KindList<core::ArtboardPoint, core::ArtboardRect, core::ArtColor, core::Color, core::Point, core::Rect,
                   core::Size, core::Font, core::TransformMatrix, core::DashStyle, core::FillStyle, core::StrokeStyle,
                   core::DashStyleMap, core::FillStyleMap, core::StrokeStyleMap>
    kCompoundKinds;

template <class Kind> bool holds(const Node& node) {
    Kind value;
    return taken(node, value);
}

template <class... Kinds> PrefType compoundTypeOf(const Node& node, KindList<Kinds...>) {
    PrefType found = PrefType::Dictionary;
    static_cast<void>(((holds<Kinds>(node) && (found = core::kPrefType<Kinds>, true)) || ...));
    return found;
}

/// A backslash before the closing quote would be read as part of what follows.
std::string readable(const std::string& text) { return text.substr(0, text.find_last_not_of('\\') + 1); }

bool endsInBackslash(const std::string& text) { return !text.empty() && text.back() == '\\'; }

bool isReadable(const Node& node) {
    return node.name().find('"') == std::string::npos && !endsInBackslash(node.name()) &&
           !endsInBackslash(node.stringValue());
}

} // namespace

template <class Kind> Owned Codec<Kind>::encode(const std::string& name, const Kind& value) {
    return made(name, value);
}
template <class Kind> bool Codec<Kind>::decode(const Node& node, Kind& value) { return taken(node, value); }

template <class Kind> void Codec<Kind>::store(Node& node, const Kind& value) {
    if constexpr (std::is_same_v<Kind, bool>) {
        node.setBoolValue(value);
    } else if constexpr (std::is_same_v<Kind, double>) {
        node.setDoubleValue(value);
    } else if constexpr (std::is_same_v<Kind, std::string>) {
        node.setStringValue(readable(value));
    } else {
        while (node.membersCount() > 0) node.removeMember(node.members()->begin()->second);
        Writing members(node);
        Kind copy = value;
        list(members, copy);
        for (const auto& [name, member] : *node.members()) member->setStringValue(readable(member->stringValue()));
    }
}

PrefType typeOf(const Node& node) {
    switch (node.nodeType()) {
    case Node::Type::Bool: return PrefType::Bool;
    case Node::Type::Number: return PrefType::Number;
    case Node::Type::String: return PrefType::String;
    case Node::Type::Array: return PrefType::Array;
    case Node::Type::Object: return compoundTypeOf(node, kCompoundKinds);
    default: return PrefType::None;
    }
}

bool fits(const Node& node, PrefType type) {
    const bool isDictionary = type == PrefType::Dictionary || type == PrefType::Preferences;
    return isDictionary ? node.members() != nullptr : type != PrefType::None && typeOf(node) == type;
}

bool canBeReadBack(const Node& node, std::size_t deepest) {
    const auto isContainer = [](const Node& some) { return some.elements() || some.members(); };
    if (!isReadable(node) || (isContainer(node) && deepest == 0)) return false;
    std::vector<json::Children> open{json::Children(node)};
    while (!open.empty()) {
        const Node* const child = open.back().next();
        if (!child) {
            open.pop_back();
            continue;
        }
        if (!isReadable(*child) || (isContainer(*child) && open.size() >= deepest)) return false;
        if (isContainer(*child)) open.emplace_back(*child);
    }
    return true;
}

void makeReadable(Node& container) {
    std::vector<Node*> all;
    for (json::Children children(container); Node* const child = children.next();) all.push_back(child);
    for (Node* const child : all) {
        makeReadable(*child);
        std::string name = child->name();
        if (std::erase(name, '"') > 0 && !child->setName(readable(name))) container.removeMember(child);
    }
}

template struct Codec<bool>;
template struct Codec<double>;
template struct Codec<std::string>;
template struct Codec<core::ArtboardPoint>;
template struct Codec<core::ArtboardRect>;
template struct Codec<core::ArtColor>;
template struct Codec<core::Color>;
template struct Codec<core::Point>;
template struct Codec<core::Rect>;
template struct Codec<core::Size>;
template struct Codec<core::Font>;
template struct Codec<core::TransformMatrix>;
template struct Codec<core::DashStyle>;
template struct Codec<core::FillStyle>;
template struct Codec<core::StrokeStyle>;
template struct Codec<core::DashStyleMap>;
template struct Codec<core::FillStyleMap>;
template struct Codec<core::StrokeStyleMap>;

} // namespace kzo::plugin
