// Start and end of the application, its documents, and the choice of tools.
#include "session/Session.h"

#include <algorithm>
#include <cassert>
#include <cstdio>

#include "session/Keys.h"
#include "suites/Suites.h"
#include "svg/Picture.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace easel::session {

Session* Session::current_ = nullptr;

namespace {

std::string fourCharacters(SPErr code) {
    std::string text = "\"";
    for (int shift = 24; shift >= 0; shift -= 8) text += static_cast<char>(code >> shift & 0xFF);
    return text + '"';
}

/// Files speak of their own errors; the session's faces know one kind.
template <class Work> auto withFile(Work work) {
    try {
        return work();
    } catch (const svg::FileError& error) {
        throw Error(error.what());
    }
}

} // namespace

Session::Session() {
    assert(!current_ && "one session at a time");
    current_ = this;
    suites::fill(tables);
}

Session::~Session() {
    try {
        quit();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "easel: host: the session did not end well: %s\n", error.what());
    }
    current_ = nullptr;
}

// Plug-ins

std::vector<std::string> Session::start() {
    std::vector<std::string> declined;
    bool anyNew = !running_;
    for (Plugin* plugin : plugins.all()) {
        if (plugin->started || plugin->broken) continue;
        anyNew = true;
        SPMessageData message{};
        plugin->started = true;
        messenger.send(*plugin, kSPAccessCaller, kSPAccessReloadSelector, message);
        const SPErr answer = messenger.send(*plugin, kSPInterfaceCaller, kSPInterfaceStartupSelector, message);
        if (answer == kNoErr) continue;
        plugin->started = false;
        plugin->broken = true;
        forget(*plugin);
        declined.push_back((plugin->file.empty() ? plugin->name : plugin->file) +
                           ": the plug-in declined to start: error " + fourCharacters(answer));
    }
    running_ = true;
    if (anyNew) {
        notify(kAIAllPluginsStartedNotifier);
        notify(kAIApplicationStartedNotifier);
    }
    return declined;
}

void Session::quit() {
    pointer.cancel();
    if (running_) {
        notify(kAIApplicationShutdownNotifier);
        notify(kAIAllPluginsStoppingNotifier);
    }
    running_ = false;
    std::vector<Plugin*> started = plugins.all();
    for (auto at = started.rbegin(); at != started.rend(); ++at) {
        if (!(*at)->started) continue;
        SPMessageData message{};
        messenger.send(**at, kSPInterfaceCaller, kSPInterfaceShutdownSelector, message);
        messenger.send(**at, kSPAccessCaller, kSPAccessUnloadSelector, message);
        (*at)->started = false;
        forget(**at);
    }
    while (document()) close();
    tables.each([this](auto& suite) {
        if (suite.acquired != 0) report(Blame::Plugin, std::string(suite.name) + " was not released at shut-down");
        suite.acquired = 0;
    });
    if (memory.blocksInUse() != 0) report(Blame::Plugin, "memory of the host was not freed at shut-down");
    memory = {};
}

void Session::reload(Plugin& plugin) {
    SPMessageData message{};
    messenger.send(plugin, kSPAccessCaller, kSPAccessUnloadSelector, message);
    messenger.send(plugin, kSPAccessCaller, kSPAccessReloadSelector, message);
}

void Session::forget(Plugin& plugin) {
    const auto owned = [&](const auto& object) { return object.owner == &plugin; };
    notifiers.removeIf(owned);
    pluginGroups.removeIf(owned);
    toolbox.removeIf(owned);
    timers.removeIf(owned);
    annotations.removeIf(owned);
    menus.forget(plugin);
    if (cursor_.plugin == plugin.handle) cursor_ = {};
    plugin.toolSnapping = 0;
    plugin.monitorsInput = false;
}

void Session::notify(std::string_view type) {
    // Subscriptions may come and go while subscribers are told; what they read lives as long as the message.
    const std::string text(type);
    std::vector<AINotifierHandle> subscribed;
    for (const Notifier* notifier : notifiers.all())
        if (notifier->type == type) subscribed.push_back(notifier->handle);
    // One batch, so that nothing else is told before all of them know.
    messenger.batch([&] {
        for (const AINotifierHandle handle : subscribed) {
            const Notifier* const notifier = notifiers.find(handle);
            if (!notifier) continue;
            AINotifierMessage message{.d = {}, .notifier = handle, .type = text.c_str()};
            messenger.send(*notifier->owner, kCallerAINotify, kSelectorAINotify, message.d);
        }
    });
}

// Documents

model::Document& Session::adopt(std::unique_ptr<model::Document> document, const char* event) {
    if (lastDocumentNumber_ + 1 >= 1U << HandleParts::kDocumentBits)
        throw Error("too many documents have been opened; start Easel anew");
    // One batch, so that no posted press begins a gesture in the document that goes behind.
    model::Document& adopted = *document;
    messenger.batch([&] {
        pointer.cancel();
        documents_.push_back({++lastDocumentNumber_, std::move(document)});
        notify(event);
    });
    return adopted;
}

model::Document& Session::newDocument(double width, double height) {
    auto made = std::make_unique<model::Document>(width, height);
    return adopt(std::move(made), kAIDocumentNewNotifier);
}

model::Document& Session::open(const std::string& path) {
    const auto warn = [this](const std::string& line) { report(Blame::UserData, line); };
    return adopt(withFile([&] { return svg::open(path, warn); }), kAIDocumentOpenedNotifier);
}

void Session::save(const std::string& path) {
    model::Document& front = needDocument();
    pointer.cancel();
    notify(kAIDocumentWritePreprocessNotifier);
    withFile([&] { svg::save(front, path); });
    messenger.batch([&] {
        notify(kAIDocumentWritePostprocessNotifier);
        notify(kAIDocumentSavedNotifier);
    });
}

void Session::exportPng(const std::string& path, double scale, Overlay overlay) {
    model::Document& front = needDocument();
    svg::PictureOptions options{.scale = scale, .waiting = whileDrawing};
    if (overlay == Overlay::None) {
        pointer.cancel();
    } else {
        updateAnnotations();
        for (const Annotator* annotator : annotations.all())
            options.marks.insert(options.marks.end(), annotator->marks.begin(), annotator->marks.end());
    }
    withFile([&] { svg::exportPicture(front, svg::PictureFormat::Png, options, path); });
}

void Session::exportPdf(const std::string& path, double scale) {
    model::Document& front = needDocument();
    pointer.cancel();
    const svg::PictureOptions options{.scale = scale, .waiting = whileDrawing};
    withFile([&] { svg::exportPicture(front, svg::PictureFormat::Pdf, options, path); });
}

void Session::close() {
    static_cast<void>(needDocument());
    // One batch, so that no posted press begins a gesture in the document that goes.
    messenger.batch([&] {
        pointer.cancel();
        notify(kAIDocumentAboutToCloseNotifier);
        documents_.pop_back();
        notify(kAIDocumentClosedNotifier);
    });
}

model::Document* Session::document() const { return documents_.empty() ? nullptr : documents_.back().document.get(); }

model::Document& Session::needDocument() const {
    if (documents_.empty()) throw Error("no document is open");
    return *documents_.back().document;
}

model::Document* Session::documentByNumber(std::uint32_t number) const {
    for (const OpenDocument& open : documents_)
        if (open.number == number) return open.document.get();
    return nullptr;
}

std::uint32_t Session::numberOf(const model::Document& document) const {
    for (const OpenDocument& open : documents_)
        if (open.document.get() == &document) return open.number;
    return 0;
}

AIDocumentViewHandle Session::viewOf(const model::Document& document) const {
    return makeHandle<AIDocumentViewHandle>(numberOf(document), 1, 0);
}

// Tools

void Session::selectTool(Tool& tool) {
    // One batch, so that no posted press begins a gesture of one tool that another ends.
    messenger.batch([&] {
        pointer.cancel();
        const AIToolHandle handle = tool.handle;
        if (&tool == toolbox.current()) return sendToTool(tool, kSelectorAIReselectTool);
        sendToTool(*toolbox.current(), kSelectorAIDeselectTool);
        if (toolbox.find(handle) != &tool) return; // its plug-in took it away meanwhile
        toolbox.setCurrent(tool);
        if (tool.builtin) setCursor({});
        sendToTool(tool, kSelectorAISelectTool);
    });
}

void Session::editTool(Tool& tool) { sendToTool(tool, kSelectorAIEditToolOptions); }

void Session::sendToTool(Tool& tool, const char* selector, std::uint32_t flags) {
    if (!tool.owner) return;
    const model::Point location = pointer.location();
    AIToolMessage message{.d = {},
                          .tool = tool.handle,
                          .cursor = {location.x, location.y},
                          .modifiers = pointer.modifiers(),
                          .flags = flags};
    messenger.send(*tool.owner, kCallerAITool, selector, message.d);
    pointer.hold({message.cursor.h, message.cursor.v});
}

// Keys

void Session::notifyInput(const char* selector, std::int32_t code) {
    for (Plugin* plugin : plugins.all()) {
        if (!plugin->monitorsInput) continue;
        StageInputMessage message{.d = {}, .code = code};
        messenger.send(*plugin, kCallerStage, selector, message.d);
    }
}

void Session::pressKey(std::int32_t code, Modifiers modifiers) {
    pointer.setModifiers(modifiers);
    notifyInput(kSelectorStageKeyPressed, code);
    if (code == key::kEscape) pointer.cancel();
    if (code == key::kLeftBracket) sendToTool(*toolbox.current(), kSelectorAIDecreaseDiameter);
    if (code == key::kRightBracket) sendToTool(*toolbox.current(), kSelectorAIIncreaseDiameter);
}

// Menus and time

void Session::updateMenus() {
    if (pointer.pressed()) return;
    for (Plugin* plugin : plugins.all()) {
        const std::vector<MenuItem*> items = menus.items();
        if (std::none_of(items.begin(), items.end(), [&](const MenuItem* item) { return item->owner == plugin; }))
            continue;
        AIMenuMessage message{.d = {}, .menuItem = nullptr};
        messenger.send(*plugin, kCallerAIMenu, kSelectorAIUpdateMenuItem, message.d);
    }
}

void Session::chooseMenu(const std::string& text) {
    pointer.cancel();
    updateMenus();
    const MenuItem* const item = menus.findItem(text);
    if (!item) throw Error("no menu item has the text \"" + text + '"');
    if (item->opens) throw Error("the menu item \"" + text + "\" opens a submenu");
    if (!Menus::isEnabled(*item)) throw Error("the menu item \"" + text + "\" is disabled");
    AIMenuMessage message{.d = {}, .menuItem = item->handle};
    messenger.send(*item->owner, kCallerAIMenu, kSelectorAIGoMenuItem, message.d);
}

void Session::runFor(double seconds) {
    const double end = timers.now() + seconds * double{kTicksPerSecond};
    while (!pointer.pressed()) {
        const Timer* const timer = timers.takeDue(end);
        if (!timer) break;
        AITimerMessage message{.d = {}, .timer = timer->handle};
        messenger.send(*timer->owner, kCallerAITimer, kSelectorAIGoTimer, message.d);
    }
    timers.setNow(end);
}

// Interface

void Session::setBrightness(double brightness) {
    if (brightness == brightness_) return;
    brightness_ = brightness;
    notify(kAIUIBrightnessChangedNotifier);
}

// Annotations

void Session::updateAnnotations() {
    if (annotations.drawing()) return;
    model::Document* const front = document();
    const ViewState before = annotations.view();
    const ViewState now =
        front ? ViewState{numberOf(*front), front->journal().changeCount(), front->view} : ViewState{};
    annotations.setView(now);
    if (!front) return;
    messenger.batch([&] {
        const model::Journal::ReadOnly whileDrawn(front->journal());
        AIAnnotatorMessage common{};
        common.view = viewOf(*front);
        common.triggeredByDragScroll = pointer.pressed() && now.document == before.document &&
                                       now.view.zoom == before.view.zoom && now.view.center != before.view.center;
        common.showEdges = 1;
        // Annotators may come and go while others draw.
        std::vector<AIAnnotatorHandle> handles;
        for (const Annotator* annotator : annotations.all()) handles.push_back(annotator->handle);
        const auto eachActive = [&](auto work) {
            for (const AIAnnotatorHandle handle : handles) {
                Annotator* const annotator = annotations.find(handle);
                if (!annotator || !annotator->active) continue;
                AIAnnotatorMessage message = common;
                message.annotator = handle;
                work(*annotator, message);
            }
        };
        if (now != before)
            eachActive([&](Annotator& annotator, AIAnnotatorMessage& message) {
                messenger.send(*annotator.owner, kCallerAIAnnotation, kSelectorAIInvalAnnotation, message.d);
            });
        eachActive([&](Annotator& annotator, AIAnnotatorMessage& message) {
            if (annotator.invalid.isEmpty()) return;
            Plugin& owner = *annotator.owner;
            annotations.draw(annotator, front->visibleBox(), [&](const Drawing& drawing) {
                std::vector<AIRealRect> places;
                for (const model::Box& box : drawing.places)
                    places.push_back({box.left, box.top, box.right, box.bottom});
                message.context = drawing.handle;
                message.invalidationRectCount = static_cast<std::int32_t>(places.size());
                message.invalidationRects = places.data();
                messenger.send(owner, kCallerAIAnnotation, kSelectorAIDrawAnnotation, message.d);
            });
        });
    });
}

// Diagnostics

void Session::report(Blame blame, const std::string& text) {
    static constexpr const char* kNames[] = {"host", "plug-in", "user data"};
    reports_.push_back(std::string(kNames[static_cast<int>(blame)]) + ": " + text);
    std::fprintf(stderr, "easel: %s\n", reports_.back().c_str());
}

} // namespace easel::session
