// The one record of change: before a node changes, its state is noted once per transaction. Undo, redo and roll-back
// replay notes, so their cost is that of the change.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <stdexcept>
#include <vector>

#include "model/Node.h"

namespace easel::model {

/// What becomes of the changes of a transaction.
enum class UndoKind : std::uint8_t {
    Standard, ///< a step of its own
    Silent,   ///< no step; undone together with the step before
    Append    ///< part of the last step
};

/// What has happened to a document, one flag for each kind of event that is raised for it.
struct Changes {
    bool selection = false;
    bool art = false;    ///< anything about art but its selection; art that came or went
    bool styles = false; ///< of art that was there before and after, as are names
    bool names = false;  ///< of art
    bool layers = false; ///< came, went, or stand in another order
    bool layerRemoved = false;
    bool layerOptions = false; ///< title, locked, hidden
};

/// Thrown by what tries to change a document that may only be read at the moment. Nothing has happened then.
class ReadOnlyError : public std::runtime_error {
  public:
    ReadOnlyError() : std::runtime_error("the document cannot be changed while it is being drawn") {}
};

class Tree;

class Journal {
  public:
    explicit Journal(Tree& tree);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// While one lives, the document may only be read.
    class ReadOnly {
      public:
        explicit ReadOnly(Journal& journal) : journal_(journal) { ++journal_.readers_; }
        ~ReadOnly() { --journal_.readers_; }
        ReadOnly(const ReadOnly&) = delete;
        ReadOnly& operator=(const ReadOnly&) = delete;

      private:
        Journal& journal_;
    };

    /// A transaction for as long as one lives.
    class Scope {
      public:
        explicit Scope(Journal& journal) : journal_(journal) { journal_.begin(); }
        ~Scope() { journal_.end(); }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

      private:
        Journal& journal_;
    };

    // Transactions. An inner one joins the outer one; the outermost decides what is kept.
    void begin();
    /// Begins a transaction of which nothing is noted, hence nothing can be undone: for making a document.
    void beginUnrecorded();
    void end();                  ///< a change of selection alone, or no net change, makes no step
    void setKind(UndoKind kind); ///< of the running transaction; Standard at its begin
    [[nodiscard]] bool running() const;

    // Gestures, inside a running transaction
    /// Opens an inner record on top of what has been noted so far (what a press left). A second mark joins the first.
    void mark();
    /// Brings the document back to its state at `mark`, and remembers which nodes that changed (see
    /// Document::snapPoint). Nodes made since then are gone for good.
    void rollBackToMark();
    /// Joins the inner record to the outer one; forgets what the gesture moved.
    void dropMark();
    /// Undoes what the running transaction has changed so far, or since the document was last rolled back to a mark.
    /// The transaction goes on.
    void rollBackTransaction();
    /// Ends the outermost transaction by undoing all of it; ends of inner ones that follow are ignored.
    void abandon();

    // History
    bool undo(); ///< false when there is nothing to undo
    bool redo();
    [[nodiscard]] std::size_t undoDepth() const;
    [[nodiscard]] std::size_t redoDepth() const;
    /// How many bytes the steps may take, those to be redone included. The oldest are forgotten beyond that, but never
    /// the last one.
    void setHistoryLimit(std::size_t bytes);
    static constexpr std::size_t kHistoryBytes = std::size_t{256} << 20;

    /// What transactions, undo and redo did since the last call. Of a transaction only the net effect counts.
    [[nodiscard]] Changes takeChanges();
    /// Grows with every change of the document, whichever way it comes.
    [[nodiscard]] std::uint64_t changeCount() const { return changeCount_; }
    /// Told of each node just before it changes, whichever way the change comes, and often more than once: for whoever
    /// paints what has changed. Changes nothing itself, and knows that removed nodes may be gone later.
    std::function<void(const Node& node)> beforeChange;
    /// Tells apart what the document contains, as far as there are steps: undo and redo come back to what was. What
    /// the running transaction has changed counts, selection does not.
    [[nodiscard]] std::uint64_t state() const;

    // For Document
    void requireWritable() const; ///< throws ReadOnlyError
    /// To be called before a node changes, inside a transaction.
    void note(Node& node);
    [[nodiscard]] bool isRecording() const { return recording_; }
    [[nodiscard]] bool wasRolledBack(const Node& node) const;

  private:
    struct Note {
        Node* node;
        std::uint64_t previous; // the record below this one that has a note of the node; 0: none
        bool alive;
        NodeState state;
    };
    struct Record {
        std::uint64_t id = 0;
        std::vector<Note> notes;
        std::size_t bytes = 0;   ///< of a step: what it takes to keep it
        std::uint64_t state = 0; ///< of a step: what the document contains after it
    };
    enum class Change : std::uint8_t { None, Selection, Order, Real };

    Record& top() { return marked_ ? inner_ : outer_; }
    void exchange(Record& record);
    void unwind(Record& record);
    void forget(Record& record);
    void release(Node& node);
    std::size_t join(Record& upper, Record& lower);
    void forgetRedo();
    void limitHistory();
    [[nodiscard]] static std::size_t bytesOf(const Note& note);
    [[nodiscard]] static std::size_t bytesOf(const Content& content);
    void tidyUp();
    [[nodiscard]] static Change netChange(const Record& record);
    [[nodiscard]] static Change netChange(const Note& note);
    bool restoreOrder(Record& record);
    void dropUnchanged(Record& record);
    void observe(const Record& record);
    void observe(const Note& note);

    Tree& tree_;
    Changes changes_;
    int depth_ = 0;
    int readers_ = 0;
    std::uint64_t changeCount_ = 0;
    bool marked_ = false;
    bool recording_ = true;
    UndoKind kind_ = UndoKind::Standard;
    UndoKind kindAtMark_ = UndoKind::Standard;
    std::uint64_t lastId_ = 0;
    std::uint64_t lastState_ = 0;
    std::uint64_t firstState_ = 0; // below all steps
    std::uint32_t rollBack_ = 1;   // numbers the roll-backs; 0 in a node: none
    Record outer_;
    Record inner_;
    std::deque<Record> undo_;
    std::vector<Record> redo_;
    std::size_t history_ = 0; // bytes of both
    std::size_t limit_ = kHistoryBytes;
};

} // namespace easel::model
