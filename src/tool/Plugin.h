// The product's main object: makes the tools, binds them to their handlers, and takes them down again.
#pragma once

#include <memory>

#include "core/app/Plugin.h"
#include "core/document/Art.h"
#include "core/frame/Cursor.h"
#include "core/frame/Tool.h"
#include "maker/Prefs.h"

class vlGlobals;

namespace ortho {

class Plugin {
  public:
    static Plugin* create(kzo::core::Plugin* corePlugin);
    [[nodiscard]] static Plugin* instance() { return instance_.get(); } ///< null outside of the plug-in's life
    static void destroy() { instance_.reset(); }

    ~Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    [[nodiscard]] const kzo::core::Tool& lineTool() const { return lineTool_; }

    // Life
    void startup();
    void postStartup();
    void preShutdown();
    void shutdown();

    // The line tool
    void __toolSelectedCB();
    void __toolDeselectedCB();
    void __toolMouseMovedCB();
    void __toolMouseDownCB();
    void __toolDragCB();
    void __toolMouseUpCB();

  private:
    explicit Plugin(kzo::core::Plugin* corePlugin);

    /// Reads keys and cursor, and sets the line's end from them. False when the cursor told nothing.
    bool aim();
    static void readKeys();
    static void finishLine(vlGlobals& globals);

    kzo::core::Plugin* corePlugin_; // not owned
    std::unique_ptr<vl::vlPrefs> prefs_;
    kzo::core::Cursor penCursor_{kzo::core::AdobeCursor::Pen};
    kzo::core::Cursor lineCursor_{kzo::core::AdobeCursor::PenContinue};
    kzo::core::Tool lineTool_;

    static inline std::unique_ptr<Plugin> instance_;
};

} // namespace ortho
