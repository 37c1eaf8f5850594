// Turns one object, or a list of them, into art of one document.
#include "script/ArtList.h"

#include <unordered_set>

namespace easel::script {

void read(const Value& value, ArtList& slot) {
    if (duk_is_array(value.engine(), value.index()))
        read(value, slot.items);
    else
        read(value, slot.items.emplace_back());
}

void mustBelong(const Object& object, const Document& document, std::string_view argument) {
    if (object.document != document.open) throw BadArgument(std::string(argument) + " belongs to another document");
}

std::vector<Object> objects(const Document& document, const std::vector<model::Node*>& nodes) {
    std::vector<Object> found;
    found.reserve(nodes.size());
    for (auto* node : nodes) found.push_back({document.open, node});
    return found;
}

std::vector<model::Node*> outermost(const ArtList& list, const Document& document) {
    std::unordered_set<const model::Node*> listed;
    for (const Art& art : list.items) {
        mustBelong(art, document, "argument 1 (objects)");
        listed.insert(art.node);
    }
    std::unordered_set<const model::Node*> taken;
    std::vector<model::Node*> nodes;
    for (const Art& art : list.items) {
        const auto* around = art->parent();
        while (around && listed.count(around) == 0) around = around->parent();
        if (!around && taken.insert(art.node).second) nodes.push_back(art.node);
    }
    return nodes;
}

void restyle(model::Document& document, model::Node& art, const StyleRecord& says) {
    for (model::Node* at = &art; at; at = nextWithin(art, *at)) {
        if (!at->content().style) continue;
        model::Style changed = at->style();
        if (says.fill) changed.setFill(says.fill->color);
        if (says.stroke) changed.setStroke(says.stroke->color);
        changed.strokeWidth = says.width.value_or(changed.strokeWidth);
        document.setStyle(*at, changed);
    }
}

} // namespace easel::script
