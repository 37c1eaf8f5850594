// The product's main object: makes the two tools, binds them to their handlers, and takes them down again.
#pragma once

#include <memory>

#include "core/app/Plugin.h"
#include "core/document/Art.h"
#include "core/frame/Cursor.h"
#include "core/frame/Tool.h"
#include "maker/About.h"
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
    [[nodiscard]] const kzo::core::Tool& moverTool() const { return moverTool_; }

    // Life
    void startup();
    void postStartup();
    void preShutdown();
    void shutdown();

    // Axes
    /// Asks the companion plug-in for its version, scale and view, and keeps what it told when it told all, in a
    /// version that is new enough and with angles that can be drawn along. Without a document the standard axes are
    /// applied.
    bool getPWdata();
    void applyPWdata();  ///< draws along the axes that the companion told
    void applyIsoAxes(); ///< draws along the standard axes: 30, 90 and 150 degrees

    // Both tools
    void __toolSelectedCB();
    void __toolDeselectedCB();

    // The line tool
    void __toolMouseMovedCB();
    void __toolMouseDownCB();
    void __toolDragCB();
    void __toolMouseUpCB();

    // The mover tool
    void __tool2MouseMovedCB();
    void __tool2MouseDownCB();
    void __tool2DragCB();
    void __tool2MouseUpCB();

  private:
    explicit Plugin(kzo::core::Plugin* corePlugin);
    void makeTools();
    void attachPrefsDialog(kzo::core::Tool& tool);

    // Shared by both tools
    /// Forgets a gesture whose release got lost. A path that its press turned round is turned back.
    static void dropGesture();
    static void readKeys();
    /// The free direction, held to an axis or to what the keys ask for.
    [[nodiscard]] static kzo::core::Angle heldDirection(const kzo::core::Angle& free);
    /// The group that is drawn in; null when nothing may be drawn: no document, or a locked or hidden current layer.
    [[nodiscard]] static std::unique_ptr<kzo::core::Art> drawingGroup();

    /// Reads keys and cursor, and sets the line's end from them. False when the cursor told nothing.
    bool aim();
    static void finishLine(vlGlobals& globals);

    kzo::core::Plugin* corePlugin_; // not owned
    kzo::core::Cursor penCursor_{kzo::core::AdobeCursor::Pen};
    kzo::core::Cursor lineCursor_{kzo::core::AdobeCursor::PenContinue};
    kzo::core::Cursor moverCursor_{kzo::core::AdobeCursor::Move};
    kzo::core::Tool lineTool_;
    kzo::core::Tool moverTool_;
    std::unique_ptr<vl::vlPrefs> prefs_; // none of the two where the plug-in may not load
    std::unique_ptr<vl::About> about_;

    static inline std::unique_ptr<Plugin> instance_;
};

} // namespace ortho
