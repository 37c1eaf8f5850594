// The mouse and keys objects: what the user's hands do.
#include "script/Calls.h"
#include "session/input/Keys.h"

namespace easel::script {

namespace {

using Modifiers = std::optional<ModifierKeys>;

session::Modifiers bits(const Modifiers& modifiers) { return modifiers.value_or(ModifierKeys{}).bits; }

void move(Host& host, double x, double y, const Modifiers& modifiers) {
    host.session.pointer.move({x, y}, bits(modifiers));
}

void press(Host& host, double x, double y, const Modifiers& modifiers) {
    host.session.pointer.press({x, y}, bits(modifiers));
}

void drag(Host& host, double x, double y, const Modifiers& modifiers) {
    host.session.pointer.drag({x, y}, bits(modifiers));
}

std::string_view outcome(const session::Pointer& pointer) {
    if (pointer.takenBack()) return "taken back";
    if (pointer.remark() == session::Remark::LayerLocked) return "locked";
    return pointer.remark() == session::Remark::LayerHidden ? "hidden" : "done";
}

std::string_view release(Host& host, double x, double y, const Modifiers& modifiers) {
    host.session.pointer.release({x, y}, bits(modifiers));
    return outcome(host.session.pointer);
}

void holdLength(Host& host, const std::optional<double>& length) {
    if (length.value_or(0) < 0) throw BadArgument("argument 1 (length) must not be negative");
    if (!host.session.pointer.pressed()) throw session::Error("no mouse button is down");
    host.session.pointer.holdLength(length);
}

std::string_view stroke(Host& host, const std::vector<model::Point>& points, const Modifiers& modifiers) {
    if (points.empty()) throw BadArgument("argument 1 (points) must have a point");
    auto& pointer = host.session.pointer;
    pointer.press(points.front(), bits(modifiers));
    for (std::size_t i = 1; i < points.size(); ++i) pointer.drag(points[i], bits(modifiers));
    pointer.release(points.back(), bits(modifiers));
    return outcome(pointer);
}

void rightClick(Host& host, double x, double y, const Modifiers& modifiers) {
    host.session.pointer.rightClick({x, y}, bits(modifiers));
}

model::Point location(Host& host) { return host.session.pointer.location(); }

void pressKey(Host& host, const std::string& name, const Modifiers& modifiers) {
    const auto code = session::keyCode(name);
    if (!code) {
        const std::string similar(session::similarKey(name));
        throw BadArgument("argument 1 (name) must be the name of a key, not \"" + name + "\"; " +
                          (similar.empty() ? "docs/session-scripts.md lists them" : "is it \"" + similar + "\"?"));
    }
    host.session.input.pressKey(*code, bits(modifiers));
}

constexpr Row kMouse[] = {
    method<move>("mouse.move", "x, y, modifiers"),
    method<press>("mouse.press", "x, y, modifiers"),
    method<drag>("mouse.drag", "x, y, modifiers"),
    method<release>("mouse.release", "x, y, modifiers"),
    method<stroke>("mouse.stroke", "points, modifiers"),
    method<holdLength>("mouse.holdLength", "length"),
    method<rightClick>("mouse.rightClick", "x, y, modifiers"),
    property<location>("mouse.location"),
};

constexpr Row kKeys[] = {
    method<pressKey>("keys.press", "name, modifiers"),
};

} // namespace

std::span<const Row> mouseRows() { return kMouse; }

std::span<const Row> keysRows() { return kKeys; }

} // namespace easel::script
