// Start and end of the application, and the events in the life of its documents.
#include "session/app/Session.h"

#include <cassert>
#include <cstdio>

#include "session/base/HostError.h"

namespace easel::session {

Session* Session::current_ = nullptr;

Session::Session() {
    assert(!current_ && "one session at a time");
    current_ = this;
}

Session::~Session() {
    try {
        quit();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "easel: host: the session did not end well: %s\n", error.what());
    }
    current_ = nullptr;
}

// Start and end

std::vector<std::string> Session::start() {
    std::vector<std::string> declined;
    bool anyNew = !running();
    for (Plugin* plugin : plugins.all()) {
        if (plugin->started || plugin->broken) continue;
        anyNew = true;
        SPMessageData message{};
        plugin->started = true;
        messenger.send(*plugin, kSPAccessCaller, kSPAccessReloadSelector, message);
        const SPErr result = messenger.send(*plugin, kSPInterfaceCaller, kSPInterfaceStartupSelector, message);
        if (result == kNoErr) continue;
        plugin->started = false;
        plugin->broken = true;
        forget(*plugin);
        declined.push_back((plugin->file.empty() ? plugin->name : plugin->file) +
                           ": the plug-in declined to start: error " + fourCharacters(result));
    }
    events.running = true;
    if (anyNew) {
        notifiers.raise(kAIAllPluginsStartedNotifier);
        notifiers.raise(kAIApplicationStartedNotifier);
    }
    return declined;
}

void Session::quit() {
    pointer.cancel();
    if (running()) {
        notifiers.raise(kAIApplicationShutdownNotifier);
        notifiers.raise(kAIAllPluginsStoppingNotifier);
    }
    events.running = false;
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
    for (const std::string& name : suites->takeUnreleased())
        reports.add(Blame::Plugin, name + " was not released at shut-down");
    if (memory.blocksInUse() != 0) reports.add(Blame::Plugin, "memory of the host was not freed at shut-down");
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
    dialogs.forget(plugin);
    if (screen.cursor.plugin == plugin.handle) screen.cursor = {};
    plugin.toolSnapping = 0;
    plugin.axes.clear();
    plugin.monitorsInput = false;
}

// The life of documents

model::Document& Session::adopt(std::unique_ptr<model::Document> document, const char* event, const std::string& path) {
    documents.requireFreeNumber();
    // One batch, so that no posted press begins a gesture in the document that goes behind.
    model::Document& adopted = *document;
    messenger.batch([&] {
        pointer.cancel();
        documents.add(std::move(document), path);
        notifiers.raise(event);
    });
    return adopted;
}

model::Document& Session::newDocument(double width, double height) {
    auto made = std::make_unique<model::Document>(width, height);
    return adopt(std::move(made), kAIDocumentNewNotifier);
}

model::Document& Session::open(const std::string& path) { return open(documents.read(path), path); }

model::Document& Session::open(std::unique_ptr<model::Document> read, const std::string& path) {
    return adopt(std::move(read), kAIDocumentOpenedNotifier, path);
}

void Session::edit(std::uint32_t number, const std::string& kind, const std::string& name) {
    model::Document* const owner = documents.byNumber(number);
    if (!owner || owner != documents.front()) return;
    pointer.cancel();
    documents.edit(*owner, kind, name);
}

void Session::endEditing(std::uint32_t number) {
    const model::Document* const front = documents.front();
    if (!front || documents.numberOf(*front) != number || !documents.editedAs(*front)) return;
    pointer.cancel();
    documents.endEditing();
}

void Session::save(const std::string& path, bool force) {
    model::Document& front = documents.needFront();
    if (documents.editedAs(front))
        throw Error("a part of the drawing is being edited; it is saved with the drawing, once that has ended");
    pointer.cancel();
    notifiers.raise(kAIDocumentWritePreprocessNotifier);
    Documents::write(front, path, force);
    documents.setPath(front, path);
    messenger.batch([&] {
        notifiers.raise(kAIDocumentWritePostprocessNotifier);
        notifiers.raise(kAIDocumentSavedNotifier);
    });
}

void Session::exportPng(const std::string& path, double scale, Overlay overlay) {
    model::Document& front = documents.needFront();
    std::vector<model::Mark> marks;
    if (overlay == Overlay::None) {
        pointer.cancel();
    } else {
        annotations.update();
        for (const Annotator* annotator : annotations.all())
            marks.insert(marks.end(), annotator->marks.begin(), annotator->marks.end());
    }
    documents.exportPng(front, path, scale, marks);
}

void Session::exportSvg(const std::string& path) {
    model::Document& front = documents.needFront();
    pointer.cancel();
    documents.exportSvg(front, path);
}

void Session::exportPdf(const std::string& path, double scale) {
    model::Document& front = documents.needFront();
    pointer.cancel();
    documents.exportPdf(front, path, scale);
}

void Session::bringToFront(const model::Document& document) {
    pointer.cancel();
    documents.bringToFront(document);
}

void Session::close() {
    static_cast<void>(documents.needFront());
    // One batch, so that no posted press begins a gesture in the document that goes.
    messenger.batch([&] {
        pointer.cancel();
        notifiers.raise(kAIDocumentAboutToCloseNotifier);
        documents.closeFront();
        notifiers.raise(kAIDocumentClosedNotifier);
    });
}

} // namespace easel::session
