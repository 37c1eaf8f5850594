// Records of notes on a stack: the steps that can be undone, then the running transaction, then what a gesture did
// since its mark. A node is noted once per record; `Node::record_` names the newest record that has a note of it, and
// each note names the one below, so that joining two records needs no search.
#include "model/Journal.h"

#include <algorithm>
#include <utility>

#include "model/Tree.h"

namespace easel::model {

namespace {

constexpr std::size_t kKeptNotes = 1024;

/// Whether art that the index knows may be elsewhere; it certainly is not where both share their geometry.
bool mayMove(const Node& node, const Content& was) {
    const Content& is = node.content();
    return !node.isContainer() && !(was.path.isSameAs(is.path) && was.opaque.isSameAs(is.opaque));
}

bool sameSelection(const NodeState& was, const NodeState& is) {
    return was.selected == is.selected && was.pointSelection == is.pointSelection;
}

} // namespace

Journal::Journal(Tree& tree) : tree_(tree) {
    outer_.id = ++lastId_;
    inner_.id = ++lastId_;
}

Journal::~Journal() = default;

// Transactions

void Journal::begin() {
    if (depth_++ == 0) kind_ = UndoKind::Standard;
}

void Journal::beginUnrecorded() {
    begin();
    recording_ = false;
}

void Journal::end() {
    if (depth_ == 0 || --depth_ > 0) return;
    recording_ = true;
    dropMark();
    Change change = netChange(outer_);
    if (change == Change::Order) change = restoreOrder(outer_) ? netChange(outer_) : Change::Real;
    if (change == Change::Real) forgetRedo();
    if (change != Change::None) {
        observe(outer_);
        dropUnchanged(outer_);
    }
    if (change == Change::Real && kind_ == UndoKind::Standard) {
        outer_.bytes = 0;
        for (const Note& note : outer_.notes) outer_.bytes += bytesOf(note);
        history_ += outer_.bytes;
        outer_.state = ++lastState_;
        undo_.push_back(std::exchange(outer_, Record{++lastId_, {}, 0, 0}));
    } else if (change != Change::None && !undo_.empty()) {
        const std::size_t added = join(outer_, undo_.back());
        undo_.back().bytes += added;
        history_ += added;
        if (change == Change::Real) undo_.back().state = ++lastState_;
    } else {
        if (change == Change::Real) firstState_ = ++lastState_;
        forget(outer_);
    }
    limitHistory();
    tidyUp();
}

void Journal::setKind(UndoKind kind) {
    requireWritable();
    kind_ = kind;
}

bool Journal::running() const { return depth_ > 0; }

// Gestures

void Journal::mark() {
    dropMark();
    marked_ = true;
    kindAtMark_ = kind_;
}

void Journal::rollBackToMark() {
    if (!marked_) return;
    ++rollBack_;
    for (const Note& note : inner_.notes) note.node->rolledBackBy_ = rollBack_;
    unwind(inner_);
    kind_ = kindAtMark_;
}

void Journal::dropMark() {
    if (!marked_) return;
    marked_ = false;
    ++rollBack_;
    join(inner_, outer_);
}

void Journal::rollBackTransaction() { unwind(top()); }

void Journal::abandon() {
    if (depth_ == 0) return;
    if (marked_) unwind(inner_);
    unwind(outer_);
    marked_ = false;
    depth_ = 0;
    tidyUp();
}

// History

bool Journal::undo() {
    if (running() || undo_.empty()) return false;
    Record step = std::move(undo_.back());
    undo_.pop_back();
    exchange(step);
    observe(step);
    for (const Note& note : step.notes) note.node->record_ = note.previous;
    redo_.push_back(std::move(step));
    tidyUp();
    return true;
}

bool Journal::redo() {
    if (running() || redo_.empty()) return false;
    Record step = std::move(redo_.back());
    redo_.pop_back();
    exchange(step);
    observe(step);
    for (Note& note : step.notes) note.previous = std::exchange(note.node->record_, step.id);
    undo_.push_back(std::move(step));
    tidyUp();
    return true;
}

std::size_t Journal::undoDepth() const { return undo_.size(); }

std::size_t Journal::redoDepth() const { return redo_.size(); }

Changes Journal::takeChanges() { return std::exchange(changes_, {}); }

std::uint64_t Journal::state() const {
    constexpr std::uint64_t kUnsettled = UINT64_MAX;
    const bool changed = running() && recording_ && std::max(netChange(outer_), netChange(inner_)) >= Change::Order;
    if (changed) return kUnsettled;
    return undo_.empty() ? firstState_ : undo_.back().state;
}

// For Document

void Journal::requireWritable() const {
    if (readers_ > 0) throw ReadOnlyError();
}

void Journal::note(Node& node) {
    ++changeCount_;
    tree_.keptHits.aboutToChange(node);
    if (beforeChange) beforeChange(node);
    if (!recording_) return;
    Record& record = top();
    if (node.record_ == record.id) return;
    record.notes.push_back({&node, node.record_, node.alive_, node.state_});
    node.record_ = record.id;
    ++node.noteCount_;
}

bool Journal::wasRolledBack(const Node& node) const { return node.rolledBackBy_ == rollBack_; }

// Records

/// Swaps the noted states with the present ones. All that change place leave theirs before the first takes its new one,
/// for labels are only unique at the same time.
void Journal::exchange(Record& record) {
    const auto changesPlace = [](const Note& note) {
        return note.state.parent != note.node->state_.parent || note.state.order != note.node->state_.order;
    };
    if (!record.notes.empty()) ++changeCount_;
    tree_.keptHits.forget();
    if (beforeChange)
        for (const Note& note : record.notes) beforeChange(*note.node);
    for (Note& note : record.notes) {
        Node& node = *note.node;
        if (mayMove(node, note.state.content)) tree_.index.markDirty(node);
        if (changesPlace(note)) tree_.detach(node);
        note.alive = node.alive_;
    }
    for (Note& note : record.notes) {
        const bool moves = changesPlace(note);
        std::swap(note.state, note.node->state_);
        if (moves) tree_.attach(*note.node);
    }
    for (const Note& note : record.notes) {
        tree_.updateAlive(*note.node);
        tree_.updateSelected(*note.node);
    }
}

/// Takes back a record on top of the stack. Nodes that were made in it are gone.
void Journal::unwind(Record& record) {
    exchange(record);
    forget(record);
}

/// Empties a record on top of the stack and keeps its storage. Nodes that nobody knows any more are gone.
void Journal::forget(Record& record) {
    for (const Note& note : record.notes) {
        note.node->record_ = note.previous;
        release(*note.node);
    }
    record.notes.clear();
}

void Journal::release(Node& node) {
    if (--node.noteCount_ == 0 && !node.alive_) tree_.destroy(node);
}

/// Moves the notes of the upper record into the one directly below it, which keeps the older of two notes. Returns the
/// bytes that it takes more.
std::size_t Journal::join(Record& upper, Record& lower) {
    std::size_t added = 0;
    for (Note& note : upper.notes) {
        note.node->record_ = lower.id;
        if (note.previous == lower.id) {
            --note.node->noteCount_;
        } else {
            added += bytesOf(note);
            lower.notes.push_back(std::move(note));
        }
    }
    upper.notes.clear();
    return added;
}

void Journal::forgetRedo() {
    for (const Record& step : redo_)
        for (const Note& note : step.notes) release(*note.node);
    for (const Record& step : redo_) history_ -= step.bytes;
    redo_.clear();
}

void Journal::setHistoryLimit(std::size_t bytes) {
    limit_ = bytes;
    limitHistory();
}

/// Forgets the oldest steps, but never the last. Notes above may still name a record that is gone, which tells them
/// what is true: that there is none below. What hangs in a removed group goes when that does.
void Journal::limitHistory() {
    while (history_ > limit_ && undo_.size() > 1) {
        const Record oldest = std::move(undo_.front());
        undo_.pop_front();
        history_ -= oldest.bytes;
        firstState_ = oldest.state;
        for (const Note& note : oldest.notes)
            if (--note.node->noteCount_ == 0 && !note.node->alive_ && !note.node->parent()) tree_.destroy(*note.node);
    }
}

namespace {

/// Of what the extras do not share with those of now.
std::size_t bytesOf(const Extras& was, const Extras& is) {
    std::size_t bytes = sizeof(Extras);
    for (const auto& [key, value] : was.dictionary) {
        const auto* const text = std::get_if<std::string>(&value);
        bytes += sizeof(Dictionary::value_type) + key.size() + (text ? text->size() : 0);
    }
    for (const Shared<Definition>& each : was.definitions) {
        const bool stays = std::any_of(is.definitions.begin(), is.definitions.end(),
                                       [&](const Shared<Definition>& now) { return now.isSameAs(each); });
        if (!stays) bytes += sizeof(Definition) + each->attributes.size() + each->content.size();
    }
    return bytes;
}

} // namespace

/// What a note keeps that the document would not: what the node was like, or the node itself with its descendants.
std::size_t Journal::bytesOf(const Note& note) {
    const Content& was = note.state.content;
    const Content& is = note.node->content();
    std::size_t bytes = sizeof(Note);
    if (!was.path.isSameAs(is.path) || was.special() != is.special()) bytes += bytesOf(was);
    if (was.extras && !was.extras.isSameAs(is.extras))
        bytes += model::bytesOf(*was.extras, is.extras ? *is.extras : Extras());
    if (note.alive && !note.node->alive())
        for (const Node* at = note.node; at; at = nextWithin(*note.node, *at))
            bytes += sizeof(Node) + bytesOf(at->content());
    return bytes;
}

std::size_t Journal::bytesOf(const Content& content) {
    const std::size_t points = content.path ? content.path->points.size() * sizeof(PathPoint) : 0;
    const auto* const image = std::get_if<ImageData>(content.special());
    const auto* const text = std::get_if<TextData>(content.special());
    return points + (content.name ? content.name->size() : 0) + (image ? image->link.size() : 0) +
           (text ? text->contents.size() : 0);
}

/// What can only be done when nothing is running: the index takes in what changed, what the gesture moved is forgotten,
/// and storage that only a big change needs is given back.
void Journal::tidyUp() {
    ++rollBack_;
    for (Record* const record : {&outer_, &inner_})
        if (record->notes.capacity() > kKeptNotes) std::vector<Note>().swap(record->notes);
    tree_.index.reindex();
}

// Comparing with the present

Journal::Change Journal::netChange(const Record& record) {
    Change most = Change::None;
    for (const Note& note : record.notes) most = std::max(most, netChange(note));
    return most;
}

Journal::Change Journal::netChange(const Note& note) {
    const NodeState& was = note.state;
    const NodeState& is = note.node->state_;
    if (note.alive != note.node->alive_) return Change::Real;
    if (!note.alive) return Change::None;
    if (was.parent != is.parent || was.content != is.content) return Change::Real;
    if (was.order != is.order) return Change::Order;
    return sameSelection(was, is) ? Change::None : Change::Selection;
}

void Journal::observe(const Record& record) {
    for (const Note& note : record.notes) observe(note);
}

/// What is known already is not looked for again: a large change costs little more than a small one.
void Journal::observe(const Note& note) {
    const Node& node = *note.node;
    const NodeState& was = note.state;
    const NodeState& is = node.state_;
    const bool stayed = note.alive && node.alive_;
    if (!note.alive && !node.alive_) return;
    if (node.type() == NodeType::Layer) {
        changes_.layers |= !stayed || was.order != is.order || was.parent != is.parent;
        changes_.layerRemoved |= !node.alive_;
        changes_.layerOptions |= stayed && was.content != is.content;
        changes_.art |= !stayed && node.firstChild();
    } else {
        changes_.art = changes_.art || netChange(note) >= Change::Order;
        changes_.styles = changes_.styles || (stayed && was.content.style != is.content.style);
        changes_.names = changes_.names || (stayed && was.content.name != is.content.name);
    }
    if (changes_.selection) return;
    if (stayed) {
        changes_.selection = !sameSelection(was, is);
        return;
    }
    // Its descendants came or went with it, and need not be noted itself.
    for (const Node* at = &node; at && !changes_.selection; at = nextWithin(node, *at))
        changes_.selection = at->selected();
}

/// Labels may differ and still tell the same order. Then the old ones are restored, and nothing has happened.
bool Journal::restoreOrder(Record& record) {
    const auto exchangeOrders = [&] {
        for (const Note& note : record.notes)
            if (note.alive) tree_.detach(*note.node);
        for (Note& note : record.notes) {
            if (!note.alive) continue;
            std::swap(note.state.order, note.node->state_.order);
            tree_.attach(*note.node);
        }
    };
    std::vector<const Node*> followers;
    for (const Note& note : record.notes) followers.push_back(note.node->next());
    exchangeOrders();
    for (std::size_t i = 0; i < followers.size(); ++i) {
        if (record.notes[i].node->next() == followers[i]) continue;
        exchangeOrders();
        return false;
    }
    return true;
}

/// Leaves out the nodes that are as they were. Later ones go first, so that a group made and removed is empty by the
/// time it is looked at; one that is not empty is still somebody's parent, and stays.
void Journal::dropUnchanged(Record& record) {
    for (std::size_t i = record.notes.size(); i-- > 0;) {
        Note& note = record.notes[i];
        if (netChange(note) != Change::None || (!note.alive && note.node->firstChild())) continue;
        note.node->record_ = note.previous;
        release(*note.node);
        note.node = nullptr;
    }
    const auto dropped = [](const Note& note) { return !note.node; };
    record.notes.erase(std::remove_if(record.notes.begin(), record.notes.end(), dropped), record.notes.end());
}

} // namespace easel::model
