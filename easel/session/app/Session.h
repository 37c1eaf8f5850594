// The running application without a face, put together from documents, frame and input. Window, scripts and tests are
// faces on it. One session at a time lives in a process, since a suite's functions carry no session of their own.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "session/base/Error.h"
#include "session/base/Fonts.h"
#include "session/base/HostPreferences.h"
#include "session/base/Identity.h"
#include "session/base/Profile.h"
#include "session/base/Reports.h"
#include "session/documents/Documents.h"
#include "session/frame/Alerts.h"
#include "session/frame/Annotations.h"
#include "session/frame/Dialogs.h"
#include "session/frame/Events.h"
#include "session/frame/Memory.h"
#include "session/frame/Menus.h"
#include "session/frame/Messenger.h"
#include "session/frame/Notifiers.h"
#include "session/frame/Plugins.h"
#include "session/frame/Screen.h"
#include "session/frame/Suites.h"
#include "session/frame/Timers.h"
#include "session/frame/Toolbox.h"
#include "session/input/Input.h"
#include "session/input/Pointer.h"

namespace easel::session {

/// What a picture shows besides the drawing.
enum class Overlay { None, Annotations };

class Session {
  public:
    Session();
    ~Session(); ///< quits first if that has not been done
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// The session of this process. There must be one.
    [[nodiscard]] static Session& current() { return *current_; }

    // Start and end
    /// Starts every plug-in not started yet, then tells them that the application has started. Returns one line for
    /// each that declined.
    std::vector<std::string> start();
    /// Tells plug-ins that the application ends, shuts them down in reverse order and closes the documents.
    void quit();
    [[nodiscard]] bool running() const { return events.running; } ///< between start and quit
    /// Has a running plug-in get ready to leave memory, and come back. It stays mapped.
    void reload(Plugin& plugin);

    // The life of documents, with the events that go with it; the last one opened is in front
    model::Document& newDocument(double width, double height);
    model::Document& open(const std::string& path);                                        ///< throws Error
    model::Document& open(std::unique_ptr<model::Document> read, const std::string& path); ///< read from there already
    /// A symbol or pattern of an open document, as a document in front; and back into its document, which is in front
    /// then. Nothing happens when the document, given by its number, is no longer in front. Throws Error.
    void edit(std::uint32_t number, const std::string& kind, const std::string& name);
    void endEditing(std::uint32_t number);
    /// The document in front; throws Error. A gesture is cancelled first, except that annotations show it under way.
    /// Not onto a file that another program has changed, unless by `force`.
    void save(const std::string& path, bool force = false);
    void exportSvg(const std::string& path); ///< a copy, which does not become the document's file
    void exportPng(const std::string& path, double scale, Overlay overlay = Overlay::None);
    void exportPdf(const std::string& path, double scale);
    void bringToFront(const model::Document& document);
    void close();                                                                 ///< with its unsaved changes
    [[nodiscard]] model::Document* document() const { return documents.front(); } ///< in front, or null

    Reports reports;
    Profile profile;
    HostPreferences preferences{profile, reports};
    Identity identity;
    Fonts fonts;
    Browser browser;
    Documents documents{reports};
    Clipboard clipboard{documents};

    // Frame
    Memory memory;
    const std::unique_ptr<Suites> suites = makeSuites();
    Messenger messenger{documents, reports, suites->basic(), events};
    Plugins plugins;
    Notifiers notifiers{messenger};
    PluginGroups pluginGroups;
    Toolbox toolbox;
    Menus menus;
    Held held;
    Alerts alerts;
    Dialogs dialogs{messenger};
    Timers timers{messenger, held};
    Annotations annotations{messenger, documents, held};
    Events events{documents, toolbox, menus, held, notifiers};
    Screen screen{notifiers};

    // Input
    Monitors monitors{plugins, messenger};
    Pointer pointer{documents, toolbox, messenger, monitors, reports, held};
    Input input{documents, plugins, messenger, toolbox, menus, screen, monitors, pointer, clipboard, reports};

  private:
    /// Drops what a plug-in that has ended or declined had registered.
    void forget(Plugin& plugin);
    /// Brings the document to the front and raises the event.
    model::Document& adopt(std::unique_ptr<model::Document> document, const char* event, const std::string& path = {});

    static Session* current_;
};

} // namespace easel::session
