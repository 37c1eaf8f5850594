// Readers and pushers, and the protected look-ups under them.
#include "script/Arguments.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "hostapi/SPTypes.h"
#include "script/Text.h"

namespace easel::script {

namespace {

constexpr std::size_t kQuotedLength = 40;

duk_ret_t getMember(duk_context* engine, void* /*unused*/) { // object, key -> value
    duk_get_prop(engine, -2);
    return 1;
}

duk_ret_t listKeys(duk_context* engine, void* /*unused*/) { // object -> list of its own keys
    duk_push_array(engine);
    duk_enum(engine, -2, DUK_ENUM_OWN_PROPERTIES_ONLY);
    for (duk_uarridx_t i = 0; duk_next(engine, -1, 0); ++i) {
        duk_push_uint(engine, i);
        duk_insert(engine, -2);
        duk_def_prop(engine, -4, DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_SET_WEC);
    }
    duk_pop(engine);
    return 1;
}

/// Replaces the topmost `inputs` by what `step` makes of them.
void protect(duk_context* engine, duk_safe_call_function step, duk_idx_t inputs) {
    if (duk_safe_call(engine, step, nullptr, inputs, 1) != DUK_EXEC_SUCCESS) throw Thrown{};
}

std::string describe(duk_context* engine, duk_idx_t index) {
    if (duk_is_array(engine, index)) return "a list";
    if (duk_is_function(engine, index)) return "a function";
    if (duk_is_object(engine, index)) return "an object";
    const bool isText = duk_is_string(engine, index) != 0;
    duk_dup(engine, index);
    std::string text = duk_safe_to_string(engine, -1);
    duk_pop(engine);
    if (text.size() > kQuotedLength) {
        std::size_t end = kQuotedLength;
        while ((text[end] & 0xc0) == 0x80) --end; // not inside a character
        text = text.substr(0, end) + "...";
    }
    return isText ? '"' + text + '"' : text;
}

/// Whether a document can hold the text: XML has no words for the characters refused here.
bool isStorable(std::string_view text) {
    const bool plain =
        std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; });
    return plain && text.find("\xef\xbf\xbe") == text.npos && text.find("\xef\xbf\xbf") == text.npos;
}

/// Pushes an object of named members; defined, as the items of a list are.
template <class... T> void pushRecord(duk_context* engine, const std::pair<const char*, T>&... members) {
    duk_push_object(engine);
    const auto define = [engine](const char* key, const auto& member) {
        duk_push_string(engine, key);
        push(engine, member);
        duk_def_prop(engine, -3, DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_SET_WEC);
    };
    (define(members.first, members.second), ...);
}

template <class T> T found(const Value& value, const std::optional<T>& thing, std::string_view what) {
    if (!thing) value.fail(what);
    return *thing;
}

void mustBeObject(const Value& value, std::string_view what) {
    if (!duk_is_object(value.engine(), value.index()) || duk_is_array(value.engine(), value.index())) value.fail(what);
}

} // namespace

std::string Value::where() const {
    if (!outer_) return std::string(role_);
    return outer_->where() + ", " + (key_ ? key_ : "item " + std::to_string(at_));
}

void Value::fail(std::string_view what) const {
    throw BadArgument(where() + " must be " + std::string(what) + ", not " + describe(engine_, index_));
}

void Value::refuse(std::string_view why) const { throw BadArgument(where() + ": " + std::string(why)); }

void Value::pushMember(const char* key, std::size_t at) const {
    duk_dup(engine_, index_);
    if (key)
        duk_push_string(engine_, key);
    else
        duk_push_number(engine_, static_cast<double>(at));
    protect(engine_, getMember, 2);
}

std::size_t Value::itemCount() const {
    if (!duk_is_array(engine_, index_)) fail("a list");
    return member<std::size_t>("length");
}

void Value::mustHaveOnly(std::span<const std::string_view> known) const {
    duk_dup(engine_, index_);
    protect(engine_, listKeys, 1);
    const Value keys(engine_, duk_get_top_index(engine_), {});
    for (std::size_t i = 0, count = keys.itemCount(); i < count; ++i) {
        const auto key = keys.item<AnyAsText>(i).text;
        if (std::find(known.begin(), known.end(), key) == known.end()) refuse('"' + key + "\" means nothing here");
    }
    duk_pop(engine_);
}

void read(const Value& value, double& slot) {
    slot = duk_is_number(value.engine(), value.index()) ? duk_get_number(value.engine(), value.index()) : NAN;
    if (!std::isfinite(slot)) value.fail("a finite number");
}

void read(const Value& value, Positive& slot) {
    const double number = duk_get_number_default(value.engine(), value.index(), 0);
    if (!std::isfinite(number) || number <= 0) value.fail("a number greater than 0");
    slot.value = number;
}

void read(const Value& value, std::size_t& slot) {
    constexpr double kMost = 1e15; // whole numbers are exact up to here
    const double number = duk_get_number_default(value.engine(), value.index(), -1);
    if (!(number >= 0 && number <= kMost) || number != std::floor(number)) value.fail("a whole number");
    slot = static_cast<std::size_t>(number);
}

void read(const Value& value, bool& slot) {
    if (!duk_is_boolean(value.engine(), value.index())) value.fail("true or false");
    slot = duk_get_boolean(value.engine(), value.index()) != 0;
}

void read(const Value& value, Truthy& slot) {
    duk_dup(value.engine(), value.index());
    slot.holds = duk_to_boolean(value.engine(), -1) != 0;
    duk_pop(value.engine());
}

void read(const Value& value, AnyAsText& slot) {
    duk_dup(value.engine(), value.index());
    slot.text = duk_safe_to_string(value.engine(), -1);
    duk_pop(value.engine());
    if (auto text = fromEngine(slot.text)) slot.text = std::move(*text);
}

void read(const Value& value, std::string& slot) {
    duk_size_t size = 0;
    const char* const bytes = duk_get_lstring(value.engine(), value.index(), &size);
    if (!bytes || duk_is_symbol(value.engine(), value.index())) value.fail("a text");
    auto text = fromEngine({bytes, size});
    if (!text || !isStorable(*text)) value.fail("a text of one line in whole characters");
    slot = std::move(*text);
}

void read(const Value& value, ModifierKeys& slot) {
    static constexpr std::array<std::string_view, 4> kNames{"shift", "option", "control", "command"};
    static constexpr std::array<session::Modifiers, 4> kBits{kAIShiftKey, kAIOptionKey, kAIControlKey, kAICommandKey};
    mustBeObject(value, "an object like {shift: true}");
    value.mustHaveOnly(kNames);
    for (std::size_t i = 0; i < kNames.size(); ++i)
        if (value.member<std::optional<bool>>(kNames[i].data()).value_or(false)) slot.bits |= kBits[i];
}

void read(const Value& value, model::Point& slot) {
    if (value.itemCount() != 2) value.fail("[x, y]");
    slot = {value.item<double>(0), value.item<double>(1)};
}

void read(const Value& value, PointRecord& slot) {
    auto& [anchor, in, out] = slot.point;
    if (duk_is_array(value.engine(), value.index())) {
        read(value, anchor);
        in = out = anchor;
        return;
    }
    // "selected" is taken, and passed over, so that the points of one path can be handed on to make another.
    static constexpr std::array<std::string_view, 8> kNames{"x",    "y",    "inX",    "inY",
                                                            "outX", "outY", "corner", "selected"};
    mustBeObject(value, "[x, y] or an object like {x: 1, y: 2}");
    value.mustHaveOnly(kNames);
    const auto optional = [&](const char* key, double missing) {
        return value.member<std::optional<double>>(key).value_or(missing);
    };
    anchor = {value.member<double>("x"), value.member<double>("y")};
    in = {optional("inX", anchor.x), optional("inY", anchor.y)};
    out = {optional("outX", anchor.x), optional("outY", anchor.y)};
    slot.corner = value.member<std::optional<bool>>("corner").value_or(true);
}

void read(const Value& value, PaintRecord& slot) {
    if (duk_is_null(value.engine(), value.index())) return;
    const char* const text = duk_get_string_default(value.engine(), value.index(), "");
    const std::string_view digits = *text ? text + 1 : text;
    const bool isHex = *text == '#' && digits.size() == 6 &&
                       digits.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
    if (!isHex) value.fail("a colour like \"#ff8800\" or null");
    const auto channel = [&](std::size_t at) {
        return std::stoi(std::string(digits.substr(at, 2)), nullptr, 16) / 255.0;
    };
    slot.color = {channel(0), channel(2), channel(4)};
}

void read(const Value& value, StyleRecord& slot) {
    static constexpr std::array<std::string_view, 3> kNames{"fill", "stroke", "width"};
    mustBeObject(value, "an object like {fill: \"#ff8800\", stroke: null, width: 1}");
    value.mustHaveOnly(kNames);
    slot.fill = value.member<std::optional<PaintRecord>>("fill");
    slot.stroke = value.member<std::optional<PaintRecord>>("stroke");
    slot.width = value.member<std::optional<double>>("width");
    if (slot.width && *slot.width < 0) value.refuse("a width cannot be negative");
}

void read(const Value& value, Document& slot) {
    slot = found(value, findDocument(value.engine(), value.index(), Kind::Document), "a document");
}

void read(const Value& value, View& slot) {
    slot.document = found(value, findDocument(value.engine(), value.index(), Kind::View), "a view").open;
}

void read(const Value& value, Layer& slot) {
    static_cast<Object&>(slot) = found(value, findNode(value.engine(), value.index(), Kind::Layer), "a layer");
}

void read(const Value& value, Art& slot) {
    static_cast<Object&>(slot) = found(value, findNode(value.engine(), value.index(), Kind::Art), "a path");
}

void push(duk_context* engine, double number) { duk_push_number(engine, number); }

void push(duk_context* engine, bool flag) { duk_push_boolean(engine, flag ? 1 : 0); }

void push(duk_context* engine, std::string_view text) {
    const std::string encoded = toEngine(text);
    duk_push_lstring(engine, encoded.data(), encoded.size());
}

void push(duk_context* engine, model::Point point) { push(engine, std::vector<double>{point.x, point.y}); }

void push(duk_context* engine, const model::Color& color) {
    const auto byte = [](double part) { return static_cast<unsigned>(std::lround(std::clamp(part, 0.0, 1.0) * 255)); };
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", byte(color.red), byte(color.green), byte(color.blue));
    push(engine, std::string_view(text.data()));
}

void push(duk_context* engine, const model::Style& style) {
    const auto paint = [](bool on, const model::Color& color) { return on ? std::optional(color) : std::nullopt; };
    pushRecord(engine, std::pair("fill", paint(style.fill, style.fillColor)),
               std::pair("stroke", paint(style.stroke, style.strokeColor)), std::pair("width", style.strokeWidth));
}

void push(duk_context* engine, const ArtboardRecord& record) {
    pushRecord(engine, std::pair("title", record.title), std::pair("x", record.place[0]),
               std::pair("y", record.place[1]), std::pair("width", record.place[2]),
               std::pair("height", record.place[3]));
}

void push(duk_context* engine, const PointRecord& record) {
    const auto& [anchor, in, out] = record.point;
    pushRecord(engine, std::pair("x", anchor.x), std::pair("y", anchor.y), std::pair("inX", in.x),
               std::pair("inY", in.y), std::pair("outX", out.x), std::pair("outY", out.y),
               std::pair("corner", record.corner), std::pair("selected", record.selected));
}

void push(duk_context* engine, const MenuItemRecord& record) {
    pushRecord(engine, std::pair("text", record.text), std::pair("enabled", record.enabled),
               std::pair("checked", record.checked), std::pair("divider", record.divider),
               std::pair("opens", record.opens));
}

void push(duk_context* engine, const MenuGroupRecord& record) {
    pushRecord(engine, std::pair("group", record.group), std::pair("items", record.items));
}

void push(duk_context* engine, const PluginRecord& record) {
    pushRecord(engine, std::pair("name", record.name), std::pair("file", record.file),
               std::pair("started", record.started), std::pair("broken", record.broken));
}

void push(duk_context* engine, const WidgetImagesRecord& record) {
    pushRecord(engine, std::pair("normal", record.normal), std::pair("rollover", record.rollover),
               std::pair("pressed", record.pressed));
}

void push(duk_context* engine, const WidgetRecord& record) {
    pushRecord(engine, std::pair("kind", record.kind), std::pair("text", record.text),
               std::pair("tooltip", record.tooltip), std::pair("frame", record.frame),
               std::pair("enabled", record.enabled), std::pair("visible", record.visible),
               std::pair("checked", record.checked), std::pair("style", record.style), std::pair("bold", record.bold),
               std::pair("italic", record.italic), std::pair("alignment", record.alignment),
               std::pair("selection", record.selection), std::pair("linked", record.linked),
               std::pair("tabPlace", record.tabPlace), std::pair("images", record.images));
}

void push(duk_context* engine, const CursorImageRecord& record) {
    pushRecord(engine, std::pair("plugin", record.plugin), std::pair("resource", record.resource),
               std::pair("hotSpot", record.hotSpot), std::pair("scale", record.scale));
}

void push(duk_context* engine, const AnnotationRecord& record) {
    static constexpr std::array<std::string_view, 5> kKinds{"line", "rectangle", "ellipse", "polygon", "text"};
    const model::Mark& mark = record.mark;
    const bool isText = mark.kind == model::Mark::Kind::Text;
    const auto given = [](bool applies, auto value) { return applies ? std::optional(value) : std::nullopt; };
    pushRecord(engine, std::pair("kind", kKinds[static_cast<std::size_t>(mark.kind)]),
               std::pair("annotator", record.annotator), std::pair("points", mark.points),
               std::pair("filled", mark.filled), std::pair("color", mark.pen.color),
               std::pair("opacity", mark.pen.opacity), std::pair("width", given(!mark.filled, mark.pen.lineWidth)),
               std::pair("dash", given(!mark.filled, mark.pen.dash)), std::pair("text", given(isText, mark.text)),
               std::pair("size", given(isText, mark.pen.fontSize)));
}

void push(duk_context* engine, const Document& document) { pushDocument(engine, *document); }

void push(duk_context* engine, const View& view) { pushDocument(engine, *view.document, Kind::View); }

void push(duk_context* engine, const Object& object) { pushNode(engine, *object.document, *object.node); }

} // namespace easel::script
