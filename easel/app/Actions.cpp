// Acts as calls of the session, with the statements that do the same in a script.
#include "app/Actions.h"

#include <QCursor>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QScopedValueRollback>

#include <algorithm>
#include <filesystem>
#include <tuple>
#include <utility>
#include <vector>

#include "session/input/Editing.h"
#include "session/input/Keys.h"
#include "svg/Picture.h"

namespace easel::app {

namespace {

using session::Error;

std::string layerAt(std::size_t index) { return "app.document.layers[" + std::to_string(index) + ']'; }

// Those of the selected objects that are neither locked nor hidden, nor in anything that is
constexpr const char* kEditable = "app.document.selection.filter(function (art) { for (var at = art; at; at = "
                                  "at.parent) if (at.locked || at.hidden) return false; "
                                  "return !art.layer.locked && art.layer.visible; })";

std::string assignment(const char* property, bool value) {
    return property + std::string(value ? " = true" : " = false");
}

/// The pointer shows that an act with much art takes its time.
class Waiting {
  public:
    explicit Waiting(model::Document* document) : isMuch_(document && document->selection().size() > kMuch) {
        if (isMuch_) QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    }
    ~Waiting() {
        if (isMuch_) QGuiApplication::restoreOverrideCursor();
    }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

  private:
    static constexpr std::size_t kMuch = 5000; // selected objects
    bool isMuch_;
};

std::string absolute(const std::string& path) { return std::filesystem::absolute(path).string(); }

} // namespace

template <class Act> void Actions::act(const std::string& statement, Act what, Time before) {
    // A dialog that opens during an act may end a gesture: that is an act of the dialog's user.
    const bool isWithin = acting_;
    const QScopedValueRollback<bool> acting(acting_, true);
    if (!isWithin) dialogs.startAct();
    try {
        what();
    } catch (...) {
        if (done) done(); // part of it may have happened
        throw;
    }
    if (done) done(); // before it is recorded, which may fail
    isWithin ? dialogs.didMeanwhile(statement) : record(statement, before);
}

void Actions::record(const std::string& statement, Time before) {
    const int passed = before == Time::Recorded ? std::exchange(passed_, 0) : 0;
    const std::string user = dialogs.statement();
    passed_ += dialogs.takePassed();
    if (passed > 0) recorder_.add("app.runFor(" + Recorder::seconds(passed) + ')');
    if (!user.empty()) recorder_.add(user);
    recorder_.add(statement);
    if (!user.empty()) recorder_.add("app.onDialog(null)");
}

/// What a window shows of the session, to be compared with what it was.
auto Actions::shown() const {
    const session::ToolChanges& tools = session_.toolbox.changes();
    const StageCursor& cursor = session_.screen.cursor;
    std::size_t annotators = 0; // that draw
    std::size_t invalid = 0;
    for (const session::Annotator* const each : session_.annotations.all()) {
        annotators += each->active;
        invalid += each->active && !each->invalid.isEmpty();
    }
    return std::tuple(documentNumber(), document() ? document()->journal().changeCount() : 0,
                      document() ? document()->view : model::View(), path(), unsavedWork(), annotators, invalid,
                      tools.members + tools.titles + tools.tips + tools.looks, session_.toolbox.current(),
                      session_.toolbox.axes(), cursor.number, cursor.plugin, cursor.resource,
                      session_.reports.lines().size());
}

void Actions::passTime(int milliseconds) {
    constexpr int kMost = 100; // a burst of all the messages missed would keep the window busy once more
    constexpr int kStep = 16;  // a message of each timer at most
    constexpr int kLongest = 50;
    const auto before = shown();
    const bool isWithin = acting_;
    const QScopedValueRollback<bool> acting(acting_, true);
    if (!isWithin) dialogs.startAct();
    QElapsedTimer clock;
    clock.start();
    // Time in a dialog that a timer opens is told by the runs during that.
    const auto isOver = [&] { return clock.hasExpired(kLongest) || (!isWithin && dialogs.anyShown()); };
    for (int left = std::min(milliseconds, kMost); left > 0 && !isOver(); left -= kStep) {
        const int step = std::min(left, kStep);
        // Where there is no timer no script needs to know how long nothing happened.
        const int counted = session_.timers.anyActive() ? step : 0;
        isWithin ? dialogs.pass(counted) : static_cast<void>(passed_ += counted);
        session_.timers.runFor(step / 1000.0);
    }
    if (done && shown() != before) done();
    if (isWithin || !dialogs.anyShown()) return;
    record("app.runFor(" + Recorder::seconds(std::exchange(passed_, 0)) + ')', Time::Kept);
}

/// One step of the document in front.
template <class Edit> void Actions::edit(const std::string& statement, Edit what) {
    if (session_.pointer.pressed()) throw Error("a gesture is running");
    model::Document& document = session_.documents.needFront();
    act(statement, [&] {
        session_.messenger.batch([&] {
            const model::Journal::Scope step(document.journal());
            what(document);
        });
    });
}

/// One step with what is selected: whole objects, none of them locked or hidden.
template <class Edit> void Actions::editSelected(const char* call, const std::string& arguments, Edit what) {
    const auto isKept = [](const model::Node* node) { return node->effectivelyLocked() || node->effectivelyHidden(); };
    const std::vector<model::Node*> selection = session_.documents.needFront().selection();
    const Waiting waiting(document());
    const bool anyKept = std::any_of(selection.begin(), selection.end(), isKept);
    edit(std::string("app.document.") + call + '(' + (anyKept ? kEditable : "app.document.selection") + ", " +
             arguments + ')',
         [&](model::Document& document) {
             for (model::Node* const node : selection)
                 if (!isKept(node) && !node->parent()->selected()) what(document, *node);
         });
}

// Documents

std::vector<std::uint32_t> Actions::numbersOfDrawing() const {
    std::vector<std::uint32_t> numbers;
    for (std::uint32_t number = documentNumber(); session_.documents.byNumber(number);) {
        numbers.push_back(number);
        const auto* const part = session_.documents.editedAs(*session_.documents.byNumber(number));
        number = part ? part->owner : 0;
    }
    return numbers;
}

model::Document* Actions::drawing() const { return document() ? &session_.documents.wholeOf(*document()) : nullptr; }

const std::string& Actions::path() const {
    static const std::string kNone;
    const model::Document* const open = drawing();
    return open ? session_.documents.pathOf(*open) : kNone;
}

bool Actions::isModified() const {
    const std::vector<model::Document*> unsaved = session_.documents.unsaved();
    return std::find(unsaved.begin(), unsaved.end(), drawing()) != unsaved.end();
}

std::vector<std::uint64_t> Actions::unsavedWork() const {
    std::vector<std::uint64_t> work;
    const session::Documents& documents = session_.documents;
    for (const model::Document* const drawing : documents.unsaved()) work.push_back(documents.numberOf(*drawing));
    if (work.empty()) return work;
    for (std::size_t i = 0; model::Document* const open = documents.at(i); ++i) work.push_back(open->journal().state());
    return work;
}

void Actions::bringToFront(const model::Document& drawing) {
    std::size_t index = 0;
    while (&session_.documents.wholeOf(*session_.documents.at(index)) != &drawing) ++index;
    act("app.document = app.documents[" + std::to_string(index) + ']',
        [&] { session_.bringToFront(*session_.documents.at(index)); });
}

void Actions::disown(const std::string& path) {
    session_.documents.setPath(*drawing(), path);
    session_.documents.setModified(*drawing(), true);
}

/// What is in front and what it is a part of, as far as that is open still: plug-ins hear of each, and may do as they
/// like. Returns the statements that do the same.
std::string Actions::closeDrawing() {
    std::string statements;
    for (const std::uint32_t number : numbersOfDrawing()) {
        const model::Document* const open = session_.documents.byNumber(number);
        if (!open) continue;
        std::size_t index = 0;
        while (session_.documents.at(index) != open) ++index;
        if (index > 0) {
            statements += "app.document = app.documents[" + std::to_string(index) + "];\n";
            session_.bringToFront(*open);
        }
        statements += "app.close();\n";
        session_.close();
    }
    return statements;
}

/// One drawing is in front at a time: a script closes the one before too.
template <class Make> void Actions::replaceDrawing(const std::string& call, Make make) {
    std::string statement;
    act(statement, [&] {
        session_.documents.requireFreeNumber(); // before anything is closed
        statement = closeDrawing() + call;
        make();
        recordedView_ = {};
    });
}

void Actions::newDocument(double width, double height) {
    replaceDrawing("app.newDocument(" + Recorder::number(width) + ", " + Recorder::number(height) + ')',
                   [&] { session_.newDocument(width, height); });
}

void Actions::open(std::unique_ptr<model::Document> read, const std::string& path) {
    replaceDrawing("app.open(" + Recorder::quoted(absolute(path)) + ')', [&] { session_.open(std::move(read), path); });
}

void Actions::openRecovered(std::unique_ptr<model::Document> read, const std::string& copy, const std::string& path) {
    replaceDrawing("app.open(" + Recorder::quoted(recorder_.kept(copy)) + ')', [&] {
        session_.open(std::move(read), copy);
        disown(path);
    });
}

void Actions::save(const std::string& path, bool force) {
    act("app.save(" + Recorder::quoted(absolute(path)) + (force ? ", {force: true})" : ")"), [&] {
        session_.save(path, force);
        recordedView_ = {};
    });
}

void Actions::exportPicture(const std::string& path, double scale) {
    if (!svg::formatOf(path)) // no picture: a copy
        return act("app.exportSVG(" + Recorder::quoted(absolute(path)) + ')', [&] { session_.exportSvg(path); });
    const bool isPdf = svg::formatOf(path) == svg::PictureFormat::Pdf;
    act(std::string(isPdf ? "app.exportPDF(" : "app.exportPNG(") + Recorder::quoted(absolute(path)) + ", " +
            Recorder::number(scale) + ')',
        [&] { isPdf ? session_.exportPdf(path, scale) : session_.exportPng(path, scale); });
}

// Mouse

/// How far the mouse reaches and snaps depends on the zoom.
void Actions::recordView() {
    const model::View& view = session_.documents.needFront().view;
    if (view.zoom != recordedView_.zoom) recorder_.add("app.document.view.zoom = " + Recorder::number(view.zoom));
    if (view.center != recordedView_.center)
        recorder_.add("app.document.view.center = [" + Recorder::at(view.center, 0) + ']');
    recordedView_ = view;
}

void Actions::press(model::Point location, session::Modifiers modifiers) {
    recordView();
    act("mouse.press(" + Recorder::at(location, modifiers) + ')', [&] { session_.pointer.press(location, modifiers); });
}

void Actions::drag(model::Point location, session::Modifiers modifiers) {
    recordView();
    act(
        "mouse.drag(" + Recorder::at(location, modifiers) + ')', [&] { session_.pointer.drag(location, modifiers); },
        Time::Kept); // no timer is heard while the button is down
}

void Actions::release(model::Point location, session::Modifiers modifiers) {
    recordView();
    act("mouse.release(" + Recorder::at(location, modifiers) + ')',
        [&] { session_.pointer.release(location, modifiers); });
}

void Actions::rightClick(model::Point location, session::Modifiers modifiers) {
    recordView();
    act("mouse.rightClick(" + Recorder::at(location, modifiers) + ')',
        [&] { session_.pointer.rightClick(location, modifiers); });
}

void Actions::holdLength(std::optional<double> length) {
    if (!session_.pointer.pressed()) return;
    session_.pointer.holdLength(length);
    recorder_.add("mouse.holdLength(" + (length ? Recorder::number(*length) : "") + ')');
}

// Keys, tools, menus

void Actions::key(const std::string& name, session::Modifiers modifiers) {
    const auto code = session::keyCode(name);
    if (!code) return;
    const std::string keys = Recorder::modifiers(modifiers);
    const Waiting waiting(document());
    act("keys.press(" + Recorder::quoted(name) + (keys.empty() ? "" : ", " + keys) + ')',
        [&] { session_.input.pressKey(*code, modifiers); });
}

void Actions::setClipboard(const std::string& svg) {
    act("app.clipboard = " + Recorder::quoted(svg), [&] { session_.clipboard.setText(svg); });
}

void Actions::selectTool(session::Tool& tool) {
    act("app.selectTool(" + Recorder::quoted(tool.title) + ')', [&] { session_.input.selectTool(tool); });
}

void Actions::editTool(session::Tool& tool) {
    act("app.editTool(" + Recorder::quoted(tool.title) + ')', [&] { session_.input.editTool(tool); });
}

/// Several may look alike: the group's name and the number tell them apart.
void Actions::chooseMenu(AIMenuItemHandle handle) {
    const session::MenuItem* const item = session_.menus.find(handle);
    if (!item) throw Error("the plug-in has taken this menu item away");
    const std::size_t number = session::Menus::numberOf(*item);
    act("app.chooseMenu(" + Recorder::quoted(item->text) + ", " + Recorder::quoted(item->group->name) +
            (number > 1 ? ", " + std::to_string(number) : "") + ')',
        [&] { session_.input.chooseMenu(handle); });
}

// Editing

void Actions::undo() {
    if (session_.pointer.pressed()) return;
    const Waiting waiting(document());
    act("app.document.undo()",
        [&] { session_.messenger.batch([&] { session_.documents.needFront().journal().undo(); }); });
}

void Actions::redo() {
    if (session_.pointer.pressed()) return;
    const Waiting waiting(document());
    act("app.document.redo()",
        [&] { session_.messenger.batch([&] { session::redo(session_.documents.needFront()); }); });
}

void Actions::nudge(double dx, double dy) {
    editSelected("move", Recorder::number(dx) + ", " + Recorder::number(dy),
                 [&](model::Document& document, model::Node& art) { document.offset(art, dx, dy); });
}

void Actions::scale(double across, double down, model::Point about) {
    const model::Affine by{across, 0, 0, down, about.x - across * about.x, about.y - down * about.y};
    editSelected("scale", Recorder::number(across) + ", " + Recorder::number(down) + ", " + Recorder::at(about, 0),
                 [&](model::Document& document, model::Node& art) { document.transform(art, by); });
}

void Actions::setOpacity(double opacity) {
    editSelected("setOpacity", Recorder::number(opacity),
                 [&](model::Document& document, model::Node& art) { document.setOpacity(art, opacity); });
}

void Actions::setStyle(const std::string& scriptStyle, const std::function<void(model::Style&)>& change) {
    editSelected("setStyle", scriptStyle, [&](model::Document& document, model::Node& art) {
        for (model::Node* at = &art; at; at = model::nextWithin(art, *at)) {
            if (!at->content().style) continue;
            model::Style style = at->style();
            change(style);
            document.setStyle(*at, style);
        }
    });
}

// Layers

model::Node& Actions::layer(std::size_t index) const {
    model::Node* const found = session_.documents.needFront().layerAt(index);
    if (!found) throw Error("there is no such layer");
    return *found;
}

void Actions::addLayer(const std::string& title) {
    edit("app.document.addLayer(" + Recorder::quoted(title) + ')',
         [&](model::Document& document) { document.addLayer(title); });
}

void Actions::setCurrentLayer(std::size_t index) {
    edit("app.document.currentLayer = " + layerAt(index),
         [&](model::Document& document) { document.setCurrentLayer(layer(index)); });
}

void Actions::setLayerTitle(std::size_t index, const std::string& title) {
    edit(layerAt(index) + ".title = " + Recorder::quoted(title),
         [&](model::Document& document) { document.setName(layer(index), title); });
}

void Actions::setLayerLocked(std::size_t index, bool locked) {
    edit(layerAt(index) + ".locked = " + (locked ? "true" : "false"),
         [&](model::Document& document) { document.setLocked(layer(index), locked); });
}

void Actions::setLayerVisible(std::size_t index, bool visible) {
    edit(layerAt(index) + ".visible = " + (visible ? "true" : "false"),
         [&](model::Document& document) { document.setHidden(layer(index), !visible); });
}

void Actions::removeLayer(std::size_t index) {
    if (session_.documents.needFront().layerCount() == 1) throw Error("the last layer cannot be removed");
    edit("app.document.removeLayer(" + layerAt(index) + ')',
         [&](model::Document& document) { document.remove(layer(index)); });
}

void Actions::moveLayer(std::size_t index, std::size_t to) {
    if (index == to) return;
    edit("app.document.moveLayer(" + layerAt(index) + ", " + std::to_string(to) + ')', [&](model::Document& document) {
        document.place(layer(index), to < index ? model::Placement::Above : model::Placement::Below, layer(to));
    });
}

// View

void Actions::setSnapping(bool toPoint) {
    act(assignment("app.snapToPoint", toPoint), [&] { session_.pointer.snapping.toPoint = toPoint; });
}

void Actions::setAxisGrid(bool shown) {
    act(assignment("app.axisGrid", shown), [&] { session_.pointer.snapping.axisGrid = shown; });
}

void Actions::setAxisGridSnapping(bool on) {
    act(assignment("app.snapToAxisGrid", on), [&] { session_.pointer.snapping.toAxisGrid = on; });
}

void Actions::setGridSpacing(double spacing) {
    act("app.gridSpacing = " + Recorder::number(spacing), [&] { session_.pointer.snapping.gridSpacing = spacing; });
}

} // namespace easel::app
