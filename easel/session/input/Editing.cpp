// Removing objects and anchors.
#include "session/input/Editing.h"

#include <algorithm>
#include <unordered_set>
#include <utility>
#include <vector>

#include "session/frame/PathPieces.h"

namespace easel::session {

namespace {

using model::Document;
using model::Node;
using model::PathData;

void removeAnchors(Document& document, Node& path) {
    std::vector<PathData> runs = piecesOf(path, false);
    if (runs.empty()) return document.remove(path);
    Node* above = &path;
    document.setPath(path, std::move(runs.front()));
    document.select(path, false);
    for (auto run = runs.begin() + 1; run != runs.end(); ++run) {
        Node& piece = document.duplicate(path, model::Placement::Below, *above);
        document.setPath(piece, std::move(*run));
        above = &piece;
    }
}

} // namespace

std::vector<Node*> selectedObjects(Document& document) {
    std::vector<Node*> objects;
    std::unordered_set<const Node*> compounds; // met already, in one of their pieces
    for (Node* node : document.selection()) {
        if (node->isSubpath()) node = node->parent();
        const bool inside = node->parent()->selected() && node->parent()->type() != model::NodeType::Layer;
        if (inside || node->effectivelyLocked() || node->effectivelyHidden()) continue;
        if (node->type() != model::NodeType::Compound || compounds.insert(node).second) objects.push_back(node);
    }
    return objects;
}

bool redo(Document& document) {
    if (!document.journal().redo()) return false;
    const model::Journal::Scope joined(document.journal());
    for (Node* const node : document.selection())
        if (node->effectivelyLocked() || node->effectivelyHidden()) document.select(*node, false);
    return true;
}

void selectAll(Document& document) {
    const model::Journal::Scope oneStep(document.journal());
    for (Node* layer = document.root().firstChild(); layer; layer = layer->next()) {
        for (Node* art = layer->firstChild(); art; art = art->next())
            if (!art->effectivelyLocked() && !art->effectivelyHidden()) document.select(*art, true);
    }
}

void duplicateSelected(Document& document) {
    constexpr double kAside = 10; // points, down and to the right
    const model::Journal::Scope oneStep(document.journal());
    const std::vector<Node*> objects = selectedObjects(document);
    document.deselectAll();
    for (Node* const object : objects) {
        Node& copy = document.duplicate(*object, model::Placement::Above, *object);
        document.offset(copy, kAside, kAside);
        document.select(copy, true);
    }
}

void groupSelected(Document& document) {
    const model::Journal::Scope oneStep(document.journal());
    const std::vector<Node*> objects = selectedObjects(document);
    if (objects.empty() || (objects.size() == 1 && objects[0]->type() == model::NodeType::Group)) return;
    Node& group = document.create(model::NodeType::Group, model::Placement::Above, *objects.front());
    for (Node* const object : objects) document.place(*object, model::Placement::AtBottomInside, group);
    document.select(group, true);
}

void ungroupSelected(Document& document) {
    const model::Journal::Scope oneStep(document.journal());
    for (Node* const group : selectedObjects(document)) {
        if (group->type() != model::NodeType::Group) continue;
        while (Node* const child = group->firstChild()) {
            document.place(*child, model::Placement::Above, *group);
            document.select(*child, true);
        }
        document.remove(*group);
    }
}

void arrangeSelected(Document& document, Order order) {
    const model::Journal::Scope oneStep(document.journal());
    std::vector<Node*> objects = selectedObjects(document);
    // The last one to go lies outermost; of steps the first, so that neighbours do not change places.
    if (order == Order::Front || order == Order::Backward) std::reverse(objects.begin(), objects.end());
    for (Node* const object : objects) {
        Node* const above = object->previous();
        Node* const below = object->next();
        if (order == Order::Front) document.place(*object, model::Placement::OnTopInside, *object->parent());
        if (order == Order::Back) document.place(*object, model::Placement::AtBottomInside, *object->parent());
        if (order == Order::Forward && above && !above->selected())
            document.place(*object, model::Placement::Above, *above);
        if (order == Order::Backward && below && !below->selected())
            document.place(*object, model::Placement::Below, *below);
    }
}

void removeSelected(Document& document) {
    const model::Journal::Scope oneStep(document.journal());
    for (Node* const node : document.selection()) {
        // A group takes along what is in it.
        if (!node->alive() || node->effectivelyLocked() || node->effectivelyHidden()) continue;
        Node* const compound = node->isSubpath() ? node->parent() : nullptr;
        if (node->type() == model::NodeType::Path && !node->allPointsSelected())
            removeAnchors(document, *node);
        else
            document.remove(*node);
        if (compound && !compound->firstChild()) document.remove(*compound);
    }
}

} // namespace easel::session
