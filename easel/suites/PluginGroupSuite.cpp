// The plug-in group suite: kinds of custom art, and such art.
#include "hostapi/AIPluginGroupSuite.h"

#include "session/frame/Notifiers.h"
#include "session/frame/Plugins.h"
#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

namespace {

using model::GroupKind;
using model::Node;
using model::NodeType;
using session::Plugin;
using session::PluginGroup;
using session::PluginGroups;

struct PluginArt : Art {};

} // namespace

template <> struct Argument<PluginArt> {
    static PluginArt from(AIArtHandle handle) {
        const Art art = resolveArt(handle);
        require(art.node.type() == NodeType::Group && art.node.extras().groupKind == GroupKind::Plugin);
        return {art};
    }
};

namespace {

PluginGroup& addPluginGroup(Plugin& self, std::string_view name, std::int32_t options) {
    for (const PluginGroup* other : host<PluginGroups>().all()) require(other->name != name);
    auto group = std::make_unique<PluginGroup>();
    group->owner = &self;
    group->name = name;
    group->options = options;
    return host<PluginGroups>().add(std::move(group));
}

AIArtHandle newArt(Plugin& self, std::int16_t paintOrder, std::optional<Art> prep) {
    const Place place = placeFor(paintOrder, prep);
    require(place.parent().mayHold(NodeType::Group));
    model::Document& document = place.document;
    Node& art = document.create(NodeType::Group, place.placement, place.anchor);
    document.setExtras(art, {.groupKind = GroupKind::Plugin, .plugin = self.name});
    Node& edit = document.create(NodeType::Group, model::Placement::OnTopInside, art);
    document.setExtras(edit, {.groupKind = GroupKind::EditArt});
    document.setHidden(edit, true);
    document.create(NodeType::Group, model::Placement::OnTopInside, art);
    return artHandle(document, &art);
}

/// The first group in it that is the one of what is edited, or that is not.
AIArtHandle groupIn(const PluginArt& art, bool isEdited) {
    Node* at = art.node.firstChild();
    while (at && (at->type() != NodeType::Group || (at->extras().groupKind == GroupKind::EditArt) != isEdited))
        at = at->next();
    return artHandle(art.document, at);
}

} // namespace

template <> void fill(AIPluginGroupSuite& suite) {
    using Suite = AIPluginGroupSuite;
    enter<&Suite::AddAIPluginGroup, addPluginGroup>(suite);
    enter<&Suite::NewPluginArt, newArt>(suite);
    enter<&Suite::GetPluginArtPluginName>(suite, [](PluginArt art) { return art.node.extras().plugin.c_str(); });
    enter<&Suite::GetPluginArtName>(suite, [](PluginArt art) { return art.node.name().c_str(); });
    enter<&Suite::SetPluginArtName>(suite, [](PluginArt art, std::string_view name) {
        require(isPlainText(name));
        art.document.setName(art.node, name);
    });
    enter<&Suite::GetPluginArtEditArt>(suite, [](PluginArt art) { return groupIn(art, true); });
    enter<&Suite::GetPluginArtResultArt>(suite, [](PluginArt art) { return groupIn(art, false); });
}

} // namespace easel::suites
