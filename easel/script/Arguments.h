// What a script passes to a call, checked and turned into plain values; and what the call returns, turned back.
// One reader a type: `read(value, slot)` fills the slot or throws BadArgument. Reading never lets the engine jump over
// C++ objects: whatever can run code of the script goes through Value, which turns a jump into Thrown.
#pragma once

#include <concepts>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "model/Mark.h"
#include "script/Objects.h"
#include "session/frame/Held.h"

namespace easel::script {

/// The script passed something else than the call wants; what() says what and where.
class BadArgument : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Code of the script threw while a value was read. What it threw is on top of the engine's stack.
struct Thrown {};

/// A value on the engine's stack, with the way that leads to it, for the message when it is not what it must be.
class Value {
  public:
    Value(duk_context* engine, duk_idx_t index, std::string_view role) : engine_(engine), index_(index), role_(role) {}

    [[nodiscard]] duk_context* engine() const { return engine_; }
    [[nodiscard]] duk_idx_t index() const { return index_; }
    [[nodiscard]] bool isMissing() const { return duk_is_undefined(engine_, index_) != 0; }

    /// Throws BadArgument "ROLE must be WHAT, not VALUE".
    [[noreturn]] void fail(std::string_view what) const;
    [[noreturn]] void refuse(std::string_view why) const; ///< "ROLE: WHY"

    /// Reads one member of an object or list, which may be missing.
    template <class T> [[nodiscard]] T member(const char* key) const;
    template <class T> [[nodiscard]] T item(std::size_t at) const;
    [[nodiscard]] std::size_t itemCount() const; ///< of a list

    /// Throws unless this is an object all of whose own keys are known.
    void mustHaveOnly(std::span<const std::string_view> known) const;

  private:
    template <class T> T readTop(const char* key, std::size_t at) const;
    void pushMember(const char* key, std::size_t at) const;
    [[nodiscard]] std::string where() const;

    duk_context* engine_;
    duk_idx_t index_;
    std::string_view role_;
    const Value* outer_ = nullptr; ///< what this is a part of
    const char* key_ = nullptr;    ///< ... by this name, or else by this number
    std::size_t at_ = 0;
};

struct Positive {
    double value = 1;
};
/// A point of a path as a script sees it.
struct PointRecord {
    model::PathPoint point;
    bool corner = true;
    bool selected = false;
};
/// Menus as a script sees them.
struct MenuItemRecord {
    std::string text;
    bool enabled = false;
    bool checked = false;
    bool divider = false;
    std::optional<std::string> opens; ///< the name of a group
};
struct MenuGroupRecord {
    std::string group;
    std::vector<MenuItemRecord> items;
};
/// A plug-in as a script sees it.
struct PluginRecord {
    std::string name;
    std::string file;
    bool started = false;
    bool broken = false;
};
/// An image that shows as the cursor.
struct CursorImageRecord {
    std::string plugin;
    std::int16_t resource = 0;
    model::Point hotSpot;
    double scale = 1;
};
/// A mark over the view as a script sees it.
struct AnnotationRecord {
    std::string annotator;
    model::Mark mark;
};
/// Pictures in place of a widget's text, by the numbers of resources.
struct WidgetImagesRecord {
    std::int16_t normal = 0;
    std::int16_t rollover = 0;
    std::int16_t pressed = 0;
};
/// A widget of a dialog as a script sees it.
struct WidgetRecord {
    std::string_view kind;
    std::string text;
    std::string tooltip;
    std::vector<double> frame; ///< x, y, width, height
    bool enabled = true;
    bool visible = true;
    bool checked = false;
    std::string_view style;
    bool bold = false;
    bool italic = false;
    std::string_view alignment;
    std::optional<std::vector<std::int32_t>> selection; ///< of a field: first character, and the one behind the last
    std::optional<std::size_t> linked;                  ///< the number in the list of the field that a label is for
    std::optional<std::int32_t> tabPlace;               ///< of a field, from 1
    std::optional<WidgetImagesRecord> images;
};
struct ArtboardRecord {
    std::string title;
    std::array<double, 4> place{}; ///< x, y, width, height
};
/// A colour, or null where nothing is painted.
struct PaintRecord {
    std::optional<model::Color> color;
};
/// What a script says of paint; what it leaves out stays.
struct StyleRecord {
    std::optional<PaintRecord> fill;
    std::optional<PaintRecord> stroke;
    std::optional<double> width;
};
/// Any value at all: true, or what counts as true.
struct Truthy {
    bool holds = false;
};
/// Any value at all, as the engine writes it.
struct AnyAsText {
    std::string text;
};
/// {shift, option, control, command}, each true or false.
struct ModifierKeys {
    session::Modifiers bits = 0;
};
void read(const Value& value, double& slot);
void read(const Value& value, Positive& slot);
void read(const Value& value, std::size_t& slot);
void read(const Value& value, bool& slot);
void read(const Value& value, Truthy& slot);
void read(const Value& value, AnyAsText& slot);
void read(const Value& value, std::string& slot);
void read(const Value& value, ModifierKeys& slot);
void read(const Value& value, model::Point& slot); ///< [x, y]
void read(const Value& value, PointRecord& slot);  ///< [x, y] or {x, y, inX, inY, outX, outY, corner}
void read(const Value& value, PaintRecord& slot);  ///< "#rrggbb" or null
void read(const Value& value, StyleRecord& slot);  ///< {fill, stroke, width}
void read(const Value& value, Document& slot);
void read(const Value& value, View& slot);
void read(const Value& value, Layer& slot);
void read(const Value& value, Art& slot);

template <class T> void read(const Value& value, std::optional<T>& slot) {
    if (!value.isMissing()) read(value, slot.emplace());
}

template <class T> void read(const Value& value, std::vector<T>& slot) {
    const std::size_t count = value.itemCount();
    for (std::size_t i = 0; i < count; ++i) slot.push_back(value.item<T>(i));
}

template <class T> T Value::readTop(const char* key, std::size_t at) const {
    Value part(engine_, duk_get_top_index(engine_), {});
    part.outer_ = this;
    part.key_ = key;
    part.at_ = at;
    T slot{};
    read(part, slot);
    duk_pop(engine_);
    return slot;
}

template <class T> T Value::member(const char* key) const {
    pushMember(key, 0);
    return readTop<T>(key, 0);
}

template <class T> T Value::item(std::size_t at) const {
    pushMember(nullptr, at);
    return readTop<T>(nullptr, at);
}

/// The result of a call, pushed on the stack.
void push(duk_context* engine, double number);
void push(duk_context* engine, bool flag);
void push(duk_context* engine, const char* text) = delete; // would be taken for a flag
void push(duk_context* engine, std::string_view text);
void push(duk_context* engine, model::Point point);
void push(duk_context* engine, const model::Color& color); ///< "#rrggbb"
void push(duk_context* engine, const model::Style& style); ///< {fill, stroke, width}
void push(duk_context* engine, const PointRecord& record);
void push(duk_context* engine, const ArtboardRecord& record);
void push(duk_context* engine, const MenuItemRecord& record);
void push(duk_context* engine, const MenuGroupRecord& record);
void push(duk_context* engine, const PluginRecord& record);
void push(duk_context* engine, const WidgetImagesRecord& record);
void push(duk_context* engine, const WidgetRecord& record);
void push(duk_context* engine, const CursorImageRecord& record);
void push(duk_context* engine, const AnnotationRecord& record);
void push(duk_context* engine, const Document& document);
void push(duk_context* engine, const View& view);
void push(duk_context* engine, const Object& object);
inline void push(duk_context* engine, const NodeList& list) { pushList(engine, list); }

inline void push(duk_context* engine, std::integral auto number) { push(engine, static_cast<double>(number)); }
inline void push(duk_context* engine, const std::string& text) { push(engine, std::string_view(text)); }

// Items are defined, never assigned: a setter that the script hung on a prototype must not run in here.
template <class T> void push(duk_context* engine, const std::vector<T>& list) {
    duk_push_array(engine);
    for (std::size_t i = 0; i < list.size(); ++i) {
        duk_push_number(engine, static_cast<double>(i));
        push(engine, list[i]);
        duk_def_prop(engine, -3, DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_SET_WEC);
    }
}

template <class T> void push(duk_context* engine, const std::optional<T>& answer) {
    if (answer)
        push(engine, *answer);
    else
        duk_push_null(engine);
}

template <class... T> void push(duk_context* engine, const std::variant<T...>& answer) {
    std::visit([engine](const auto& held) { push(engine, held); }, answer);
}

} // namespace easel::script
