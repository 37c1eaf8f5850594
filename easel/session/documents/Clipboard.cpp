// Snapshots for the document that they come from, and text for all others.
#include "session/documents/Clipboard.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "model/Bounds.h"
#include "session/base/Error.h"
#include "svg/Definitions.h"
#include "svg/FileError.h"
#include "svg/Reach.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace easel::session {

using model::Document;
using model::Node;
using model::Placement;

namespace {

/// Symbols and pictures are found from where the file is; what lies too far off cannot be read again.
bool canBeSaidAlone(const Node& art) {
    for (const Node* at = &art; at; at = nextWithin(art, *at)) {
        const model::ImageData* const image = at->image();
        const bool isFoundFromHere = image && !image->link.empty() && image->link.find(':') == std::string::npos;
        if (at->symbol() || isFoundFromHere) return false;
    }
    const model::Box box = boundsOf(art, {});
    return box.isEmpty() || svg::withinReach(box);
}

/// Empty for one that lies too far off to be read again.
std::string textOf(Document& drawing) {
    try {
        return svg::write(drawing);
    } catch (const svg::FileError&) {
        return {};
    }
}

} // namespace

void Clipboard::take(const std::vector<Node*>& art) {
    if (art.empty()) return;
    ++changes_;
    const Document& document = documents_.needFront();
    Document drawing(document.width(), document.height());
    snapshots_.clear();
    taken_.clear();
    missing_ = 0;
    for (auto object = art.rbegin(); object != art.rend(); ++object) {
        snapshots_.push_back(document.snapshotOf(**object));
        taken_.push_back((*object)->id());
        if (!canBeSaidAlone(**object) || !svg::copyInto(drawing, drawing.currentLayer(), **object)) ++missing_;
    }
    text_ = missing_ < art.size() ? textOf(drawing) : "";
    if (text_.empty()) missing_ = art.size();
    from_ = documents_.numberOf(document);
    pasted_ = 0;
}

void Clipboard::setText(std::string text) {
    text_ = std::move(text);
    snapshots_.clear();
    taken_.clear();
    missing_ = 0;
    pasted_ = 0;
}

std::size_t Clipboard::paste(bool inPlace) {
    constexpr double kAside = 10; // points, down and to the right
    Document& document = documents_.needFront();
    const bool comesHome = !snapshots_.empty() && documents_.numberOf(document) == from_;
    std::size_t left = comesHome ? 0 : missing_;
    const model::Journal::Scope oneStep(document.journal());
    const std::vector<Node*> made = comesHome ? makeAgain(document) : makeFromText(document, left);
    if (made.empty()) return left;
    const bool isThere = comesHome && std::any_of(taken_.begin(), taken_.end(), [&](model::NodeId id) {
                             const Node* const node = document.find(id);
                             return node && node->alive();
                         });
    const int there = pasted_++ + (isThere ? 1 : 0);
    const double away = inPlace ? 0 : kAside * there;
    document.deselectAll();
    for (Node* const each : made) {
        document.offset(*each, away, away);
        document.select(*each, true);
    }
    return left;
}

std::vector<Node*> Clipboard::makeAgain(Document& document) const {
    std::vector<Node*> made;
    for (const model::Snapshot& each : snapshots_)
        made.push_back(&document.make(each, Placement::OnTopInside, document.currentLayer()));
    return made;
}

std::vector<Node*> Clipboard::makeFromText(Document& document, std::size_t& left) const {
    std::vector<Node*> made;
    if (text_.empty()) return made;
    try {
        const std::unique_ptr<Document> drawing = svg::read(text_, "clipboard");
        for (const Node* layer = drawing->root().lastChild(); layer; layer = layer->previous()) {
            if (layer->hidden()) continue;
            for (const Node* art = layer->lastChild(); art; art = art->previous()) {
                if (art->hidden()) continue;
                if (canBeSaidAlone(*art) && svg::copyInto(document, document.currentLayer(), *art))
                    made.push_back(document.currentLayer().firstChild());
                else
                    ++left;
            }
        }
    } catch (const svg::FileError& error) {
        throw Error(error.what());
    }
    return made;
}

} // namespace easel::session
