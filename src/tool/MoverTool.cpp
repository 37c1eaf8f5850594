// The mover tool's handlers: press, drag, release. Each drag and the release find the document as the press left it
// (the tool asks the host for buffered dragging), so each moves the selection by the whole way from the press, and the
// guide of the last drag is gone.
#include <unordered_map>
#include <vector>

#include "core/app/Illustrator.h"
#include "core/document/Draw.h"
#include "maker/Globals.h"
#include "tool/Plugin.h"

namespace ortho {

using kzo::core::Art;
using kzo::core::ArtAttribute;
using kzo::core::ArtboardPoint;
using kzo::core::ArtType;
using kzo::core::Illustrator;
using kzo::core::PathArt;

namespace {

constexpr double kGuideReach = 7200; // points to each side of the press

constexpr auto kOutOfReach = ArtAttribute::Locked | ArtAttribute::Hidden;

/// Moves the points whose anchors are selected, with their handles.
void movePoints(PathArt& path, const ArtboardPoint& way) {
    PathArt::SegPoints points = path.segPoints(0, path.segPointCount());
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!any(path.segPointSelected(static_cast<std::int16_t>(i)) & kzo::core::SegPointSelectionState::Anchor))
            continue;
        points[i].p += way;
        points[i].in += way;
        points[i].out += way;
    }
    path.setSegPoints(0, points);
}

/// Moves the selected art by one way. A container moves as what it is, with all that it holds, only when all of that is
/// selected; else its selected members move by themselves. What is locked or hidden stays.
class Selection {
  public:
    void move(const ArtboardPoint& way) {
        auto* const document = Illustrator::instance()->currentDocument();
        if (!document) return;
        const auto selected = document->selectedArt();
        for (Art& art : *selected) move(art, way);
    }

  private:
    void move(Art& art, const ArtboardPoint& way) {
        const ArtAttribute attributes = art.allAttributes(); // in one call: there may be many objects
        if (any(attributes & kOutOfReach)) return;
        const bool whole = any(attributes & ArtAttribute::FullySelected);
        if (!whole && art.artType() != ArtType::Path) return; // what it holds is selected in part
        const auto holder = art.parent();
        if (holder && !leavesFree(*holder)) return;
        if (whole)
            art.offset(way.x(), way.y(), true);
        else
            movePoints(*art.path(), way);
    }

    /// Whether what the container holds can move by itself: nothing around it is out of reach or moves as a whole.
    bool leavesFree(const Art& container) {
        std::vector<ArtObject*> unknown; // from the inside out
        bool free = true;
        auto holder = std::make_unique<Art>(container);
        for (; holder; holder = holder->parent()) {
            const auto known = leavesFree_.find(holder->aiArtHandle());
            if (known != leavesFree_.end()) {
                free = known->second;
                break;
            }
            unknown.push_back(holder->aiArtHandle());
        }
        for (auto at = unknown.rbegin(); at != unknown.rend(); ++at) {
            const Art art(*at);
            free = free && !any(art.allAttributes() & (kOutOfReach | ArtAttribute::FullySelected));
            leavesFree_[*at] = free;
        }
        return free;
    }

    std::unordered_map<ArtObject*, bool> leavesFree_; // asked once of each container, however much it holds
};

} // namespace

void Plugin::__tool2MouseDownCB() {
    dropGesture();
    vlGlobals& globals = *vlGlobals::instance();
    moverCursor_.enable();
    globals.startPoint = globals.endPoint = corePlugin_->currentTool().cursorLoc();
    globals.pressed = true;
}

void Plugin::__tool2DragCB() {
    vlGlobals& globals = *vlGlobals::instance();
    if (!globals.pressed) return;
    readKeys();
    globals.rawLocation = corePlugin_->currentTool().cursorLoc();
    const kzo::core::Angle direction = heldDirection(globals.startPoint ^ globals.rawLocation);
    globals.endPoint = globals.startPoint.move(globals.startPoint | globals.rawLocation, direction);
    // A single drag message is no more than a nudge: a guide would only flash up.
    const auto group = globals.dragged ? drawingGroup() : nullptr;
    if (group) {
        const ArtboardPoint far = globals.startPoint.move(kGuideReach, direction);
        kzo::core::draw::line(far, far.rotate(globals.startPoint, kzo::core::Angle::Pi()), group.get());
    }
    if (!(globals.endPoint == globals.startPoint)) Selection().move(globals.endPoint - globals.startPoint);
    globals.dragged = true;
}

void Plugin::__tool2MouseUpCB() {
    vlGlobals& globals = *vlGlobals::instance();
    if (globals.dragged && !corePlugin_->currentTool().gestureTakenBack()) {
        globals.dragged = false; // so that no guide stays behind
        __tool2DragCB();
    }
    corePlugin_->currentTool().resetCursorLocs();
    penCursor_.enable();
    globals.resetGesture();
}

void Plugin::__tool2MouseMovedCB() { corePlugin_->currentTool().trackCursor(); }

} // namespace ortho
