// Compares the session with its last snapshot and raises one notifier per difference.
#include "session/frame/Events.h"

#include <iterator>
#include <utility>

#include "hostapi/AINotifierSuite.h"

namespace easel::session {

Events::Snapshot Events::take() const {
    Snapshot snapshot{.document = 0,
                      .layer = {},
                      .view = {},
                      .tool = toolbox_.current()->handle,
                      .modifiers = held_.modifiers,
                      .tools = toolbox_.changes(),
                      .menus = menus_.changes()};
    if (model::Document* const front = documents_.front()) {
        snapshot.document = documents_.numberOf(*front);
        snapshot.layer = front->currentLayer().id();
        snapshot.view = front->view;
    }
    return snapshot;
}

bool Events::notify(Notified& notified) {
    if (held_.button) return false;
    const Snapshot now = take();
    const Snapshot before = std::exchange(previous_, now);
    model::Document* const front = documents_.front();
    const model::Changes taken = front ? front->journal().takeChanges() : model::Changes{};
    if (!running) return false;

    // Whoever hears of another document looks at all of it anew.
    const bool same = now.document == before.document;
    const model::Changes changes = same ? taken : model::Changes{};
    const bool otherTool = now.tool != before.tool;
    const bool titles = now.tools.titles != before.tools.titles;
    const bool tips = now.tools.tips != before.tools.tips;
    const struct {
        bool happened;
        const char* type;
    } events[] = {
        {!same && now.document != 0, kAIDocumentChangedNotifier},
        {changes.layerRemoved, kAILayerDeletionNotifier},
        {changes.layers, kAILayerSetNotifier},
        {changes.layerOptions, kAILayerOptionsNotifier},
        {same && now.layer != before.layer, kAICurrentLayerNotifier},
        {changes.art, kAIArtPropertiesChangedNotifier},
        {changes.styles, kAIUpdatePathStyleNotifier},
        {changes.names, kAIXMLNameChangedNotifier},
        {changes.selection, kAIArtSelectionChangedNotifier},
        {same && now.view != before.view, kAIDocumentViewChangedNotifier},
        {same && now.view.center != before.view.center, kAIInvalidateByScrollNotifier},
        {otherTool, kAIToolDeselectedNotifier},
        {otherTool, kAIToolSelectedNotifier},
        {otherTool, kAIUserToolChangedNotifier},
        {titles, kAIToolTitleChangedNotifier},
        {tips, kAIToolTooltipChangedNotifier},
        {titles || tips || now.tools.looks != before.tools.looks, kAIToolChangedNotifier},
        {now.tools.members != before.tools.members, kAIToolWindowChangedNotifier},
        {now.menus != before.menus, kAIMenuChangedNotifier},
        {now.modifiers != before.modifiers, kAIToolModifiersChangedNotifier},
    };
    static_assert(std::size(events) <= kMaxTypes);
    bool any = false;
    for (std::size_t i = 0; i < std::size(events); ++i) {
        if (!events[i].happened || notified[i]) continue;
        notified.set(i);
        any = true;
        notifiers_.raise(events[i].type);
    }
    return any;
}

} // namespace easel::session
