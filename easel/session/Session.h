// The running application without a face: plug-ins, toolbox, pointer, documents. Window, scripts and tests are faces on
// it. One session at a time lives in a process, since a suite's functions carry no session of their own.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/Document.h"
#include "session/Annotations.h"
#include "session/Error.h"
#include "session/Events.h"
#include "session/Memory.h"
#include "session/Menus.h"
#include "session/Messenger.h"
#include "session/Notifiers.h"
#include "session/Plugins.h"
#include "session/Pointer.h"
#include "session/Tables.h"
#include "session/Timers.h"
#include "session/Toolbox.h"

namespace easel::session {

/// Whose fault a report is about.
enum class Blame { Host, Plugin, UserData };

/// What a picture shows besides the drawing.
enum class Overlay { None, Annotations };

/// What is said of a plug-in's wrong calls, which are refused in any case.
enum class CheckLevel { Refuse, Full };

class Session {
  public:
    Session();
    ~Session(); ///< quits first if that has not been done
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// The session of this process. There must be one.
    [[nodiscard]] static Session& current() { return *current_; }

    // Plug-ins
    Plugin& attach(const std::string& name, SPEntry entry) { return plugins.attach(name, entry); }
    Plugin& load(const std::string& bundle) { return plugins.load(bundle); }
    /// Starts every plug-in not started yet, then tells them that the application has started. Returns one line for
    /// each that declined.
    std::vector<std::string> start();
    /// Tells plug-ins that the application ends, shuts them down in reverse order and closes the documents.
    void quit();
    /// Between start and quit.
    [[nodiscard]] bool running() const { return running_; }
    /// Has a running plug-in get ready to leave memory, and come back. It stays mapped.
    void reload(Plugin& plugin);
    /// Raises an event: each subscriber of `type` gets its notifier message.
    void notify(std::string_view type);

    // Documents; the last one opened is in front
    model::Document& newDocument(double width, double height);
    model::Document& open(const std::string& path); ///< throws Error
    /// The document in front; throws Error. A gesture is cancelled first, except that annotations show it under way.
    void save(const std::string& path);
    void exportPng(const std::string& path, double scale, Overlay overlay = Overlay::None);
    void exportPdf(const std::string& path, double scale);
    std::function<void(int seconds)> whileDrawing;       ///< called as svg::Waiting while a picture is made
    void close();                                        ///< the document in front, with its unsaved changes
    [[nodiscard]] model::Document* document() const;     ///< in front, or null
    [[nodiscard]] model::Document& needDocument() const; ///< throws Error when none is open
    [[nodiscard]] model::Document* documentByNumber(std::uint32_t number) const;
    [[nodiscard]] std::uint32_t numberOf(const model::Document& document) const;
    [[nodiscard]] AIDocumentViewHandle viewOf(const model::Document& document) const;

    // Tools
    /// Makes a tool current, with the messages that go with it. The current one is reselected. A gesture is cancelled.
    void selectTool(Tool& tool);
    void editTool(Tool& tool); ///< double-click on the tool
    /// Sends the tool's plug-in, if it has one, a message with the pointer's location and modifiers.
    void sendToTool(Tool& tool, const char* selector, std::uint32_t flags = 0);

    // The screen
    [[nodiscard]] const StageCursor& cursor() const { return cursor_; }
    void setCursor(const StageCursor& cursor) { cursor_ = cursor; }
    double displayScale = 1; ///< pixels for a screen unit

    // Keys
    /// Presses and lets go of a key (see keyCode). Plug-ins that monitor input hear of it first; then Escape cancels a
    /// gesture, and the brackets ask the current tool for another diameter.
    void pressKey(std::int32_t code, Modifiers modifiers);
    /// Notifies the plug-ins that monitor input of a key or a mouse button.
    void notifyInput(const char* selector, std::int32_t code);

    // Menus and time
    /// Shows the menus: every plug-in with items in them is asked to bring these up to date. Not during a gesture.
    void updateMenus();
    /// Chooses the first item of this text. Cancels a gesture. Throws Error when there is none or it cannot be chosen.
    void chooseMenu(const std::string& text);
    /// Lets time pass, with the messages of the timers that fall due; no message while a mouse button is down.
    void runFor(double seconds);

    // Interface
    [[nodiscard]] double brightness() const { return brightness_; } ///< 0 dark to 1 light
    void setBrightness(double brightness);

    // Annotations
    /// Brings the marks over the document in front up to date, with the messages that this takes. They change nothing.
    /// Does nothing while that is going on already.
    void updateAnnotations();

    // Diagnostics
    /// Writes one line about misbehaviour to standard error and keeps it.
    void report(Blame blame, const std::string& text);
    [[nodiscard]] const std::vector<std::string>& reports() const { return reports_; }

    Tables tables;
    Memory memory;
    Plugins plugins;
    Notifiers notifiers;
    PluginGroups pluginGroups;
    Toolbox toolbox;
    Menus menus;
    Timers timers;
    Annotations annotations;
    Messenger messenger{*this};
    Pointer pointer{*this};
    Events events{*this};
    CheckLevel checkLevel = CheckLevel::Full;
    bool trace = false; ///< EASEL_TRACE: every message and suite call on standard error

  private:
    struct OpenDocument {
        std::uint32_t number;
        std::unique_ptr<model::Document> document;
    };

    /// Drops what a plug-in that has ended or declined had registered.
    void forget(Plugin& plugin);
    /// Brings the document to the front and raises the event.
    model::Document& adopt(std::unique_ptr<model::Document> document, const char* event);

    static Session* current_;
    std::vector<OpenDocument> documents_;
    std::uint32_t lastDocumentNumber_ = 0;
    StageCursor cursor_{};
    double brightness_ = 1;
    bool running_ = false;
    std::vector<std::string> reports_;
};

} // namespace easel::session
