// Undo, redo, roll-back: what they bring back, what makes a step, what becomes of identities.
#include "model/Journal.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>

#include "model/Clip.h"
#include "support/Drawing.h"

namespace easel::model {
namespace {

class JournalTest : public testing::Test {
  protected:
    Document document{100, 100};
    Journal& journal = document.journal();
    Node& layer = document.currentLayer();

    void changeAs(UndoKind kind, const std::function<void()>& change) {
        journal.begin();
        journal.setKind(kind);
        change();
        journal.end();
    }
};

// Random histories

class History : public testing::TestWithParam<std::uint32_t> {};

TEST_P(History, IsWalkedBackAndForthExactly) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    RandomEditor random(GetParam());
    Document document(100, 100);
    Journal& journal = document.journal();
    std::vector<Listing> states; // states[i]: with i steps done, just before the next one begins
    for (int round = 0; round < 120; ++round) {
        const Listing before = listing(document);
        const std::size_t depth = journal.undoDepth();
        journal.begin();
        for (std::size_t i = random.below(4); i-- > 0;) random.edit(document);
        if (random.below(3) == 0) {
            journal.mark();
            const Listing marked = listing(document);
            for (int drag = 0; drag < 3; ++drag) {
                for (std::size_t i = random.below(6); i-- > 0;) random.edit(document);
                journal.rollBackToMark();
                ASSERT_EQ(listing(document), marked);
            }
            for (std::size_t i = random.below(3); i-- > 0;) random.edit(document);
        }
        switch (random.below(8)) {
        case 0: journal.setKind(UndoKind::Silent); break;
        case 1: journal.setKind(UndoKind::Append); break;
        case 2:
            journal.abandon();
            ASSERT_EQ(listing(document), before);
            break;
        default: break;
        }
        journal.end();
        if (journal.undoDepth() > depth) states.push_back(before);
        if (random.below(10) == 0 && journal.undo()) {
            ASSERT_EQ(listing(document), states.back());
            if (random.below(2) == 0) {
                ASSERT_TRUE(journal.redo());
            } else {
                states.pop_back();
            }
        }

        std::vector<Node*> selected;
        for (Node* node : allNodes(document)) {
            ASSERT_EQ(document.find(node->id()), node);
            if (node->selected()) selected.push_back(node);
        }
        ASSERT_EQ(document.selection(), selected);
    }
    ASSERT_EQ(journal.undoDepth(), states.size());
    states.push_back(listing(document));
    for (std::size_t i = states.size() - 1; i-- > 0;) {
        ASSERT_TRUE(journal.undo());
        ASSERT_EQ(listing(document), states[i]);
    }
    EXPECT_FALSE(journal.undo());
    for (std::size_t i = journal.undoDepth() + 1; i < states.size(); ++i) {
        ASSERT_TRUE(journal.redo());
        ASSERT_EQ(listing(document), states[i]);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, History, testing::Range(1U, 41U));

// Steps

TEST_F(JournalTest, KindDecidesWhatBecomesOfAChange) {
    const auto draw = [&] { addLine(document, layer, {0, 0}, {1, 1}); };
    changeAs(UndoKind::Append, draw);
    EXPECT_EQ(journal.undoDepth(), 0U); // nothing to append to
    const Listing first = listing(document);
    // What the kind was set to since a mark is rolled back too.
    journal.begin();
    journal.mark();
    journal.setKind(UndoKind::Silent);
    journal.rollBackToMark();
    draw();
    journal.end();
    EXPECT_EQ(journal.undoDepth(), 1U);
    for (const UndoKind kind : {UndoKind::Append, UndoKind::Silent}) {
        changeAs(kind, draw);
        EXPECT_EQ(journal.undoDepth(), 1U);
    }
    EXPECT_EQ(allNodes(document).size(), 5U); // four lines in the layer
    ASSERT_TRUE(journal.undo());
    EXPECT_EQ(listing(document), first);
    EXPECT_FALSE(journal.undo());
}

TEST_F(JournalTest, NoNetChangeMakesNoStepAndKeepsRedo) {
    Node& line = addLine(document, layer, {0, 0}, {1, 1});
    Node& other = addLine(document, layer, {5, 5}, {6, 6});
    document.setName(line, "redone");
    journal.undo();
    const Listing before = listing(document);
    const std::size_t depth = journal.undoDepth();

    journal.begin();
    Node& group = document.create(NodeType::Group, Placement::OnTopInside, layer);
    addLine(document, group, {3, 3}, {4, 4});
    document.place(line, Placement::OnTopInside, group);
    document.place(line, Placement::Below, other);
    document.remove(group);
    document.offset(other, 10, 0);
    document.offset(other, -10, 0);
    document.place(other, Placement::Below, line);
    document.place(other, Placement::Above, line);
    journal.end();
    EXPECT_EQ(listing(document), before);
    EXPECT_EQ(journal.undoDepth(), depth);
    EXPECT_TRUE(journal.redo());
    EXPECT_EQ(line.name(), "redone");
}

TEST_F(JournalTest, SelectionAloneMakesNoStepAndKeepsRedo) {
    Node& line = addLine(document, layer, {0, 0}, {1, 1});
    document.offset(line, 1, 0);
    document.offset(line, 1, 0);
    journal.undo();
    const std::size_t depth = journal.undoDepth();
    document.select(line, true);
    EXPECT_EQ(journal.undoDepth(), depth);
    EXPECT_EQ(journal.redoDepth(), 1U);
    ASSERT_TRUE(journal.redo());
    EXPECT_EQ(line.path().points[0].anchor.x, 2);
    ASSERT_TRUE(journal.undo());
    EXPECT_TRUE(line.selected());
    ASSERT_TRUE(journal.undo());
    EXPECT_FALSE(line.selected());
}

TEST_F(JournalTest, UndoAndRedoAreRefusedInsideATransaction) {
    addLine(document, layer, {0, 0}, {1, 1});
    addLine(document, layer, {0, 0}, {2, 2});
    journal.undo();
    journal.begin();
    journal.begin();
    journal.end();
    EXPECT_TRUE(journal.running());
    EXPECT_FALSE(journal.undo());
    EXPECT_FALSE(journal.redo());
    journal.end();
    EXPECT_FALSE(journal.running());
    EXPECT_TRUE(journal.redo());
    journal.undo();
    addLine(document, layer, {0, 0}, {3, 3});
    EXPECT_FALSE(journal.redo()); // a change ends it
}

// How much is kept

TEST_F(JournalTest, OldestStepsGoWhenTheHistoryIsFull) {
    Node& group = document.create(NodeType::Group, Placement::OnTopInside, layer);
    addLine(document, group, {0, 0}, {1, 1});
    const NodeId id = group.firstChild()->id();
    const Listing whole = listing(document);
    document.remove(group);
    const std::size_t depth = journal.undoDepth();
    journal.setHistoryLimit(Journal::kHistoryBytes);
    EXPECT_EQ(journal.undoDepth(), depth);
    journal.setHistoryLimit(0);
    EXPECT_EQ(journal.undoDepth(), 1U); // the last one stays
    ASSERT_TRUE(journal.undo());
    EXPECT_EQ(listing(document), whole); // with what the steps that are gone had put into the group
    EXPECT_FALSE(journal.undo());
    ASSERT_TRUE(journal.redo());
    document.setName(layer, "x"); // now the removal is forgotten, and with it the group and its line
    EXPECT_EQ(journal.undoDepth(), 1U);
    std::vector<NodeId> reused;
    for (int i = 0; i < 2; ++i) reused.push_back(addLine(document, layer, {0, 0}, {1, 1}).id());
    EXPECT_NE(std::find(reused.begin(), reused.end(), NodeId{id.slot, id.generation + 1}), reused.end());
}

TEST_F(JournalTest, StepsOfOnePathFitByItsPoints) {
    const std::size_t points = 1000;
    Node& path = addPath(document, layer, RandomEditor(1).points(points));
    journal.setHistoryLimit(500'000);
    // Each keeps the points as they were, 48,000 bytes, and something of its own: ten go in.
    for (int i = 0; i < 30; ++i) document.offset(path, 1, 0);
    EXPECT_EQ(journal.undoDepth(), 10U);
    while (journal.undo()) {
    }
    EXPECT_EQ(journal.redoDepth(), 10U);
    document.setLocked(path, true); // what could be redone counted too
    EXPECT_EQ(journal.undoDepth(), 1U);
    for (int i = 0; i < 30; ++i) document.setLocked(path, i % 2 == 0);
    EXPECT_GT(journal.undoDepth(), 20U);
    for (int i = 0; i < 30; ++i)
        document.setExtras(path, {.dictionary = {{"text", std::string(100'000, static_cast<char>('a' + i))}}});
    EXPECT_EQ(journal.undoDepth(), 4U);
}

// A big selection once left its storage with the journal for good.
TEST_F(JournalTest, StorageOfABigChangeIsGivenBack) {
    journal.beginUnrecorded();
    for (int i = 0; i < 20'000; ++i) document.create(NodeType::Group, Placement::OnTopInside, layer);
    journal.end();
    const auto inUse = [] {
        const struct mallinfo2 info = mallinfo2();
        return info.uordblks + info.hblkhd;
    };
    const std::size_t before = inUse();
    changeAs(UndoKind::Standard, [&] {
        document.select(layer, true);
        document.deselectAll();
    });
    EXPECT_LT(inUse(), before + 500'000); // the list of the selected keeps 160,000 bytes; the notes took 1.7 million
}

// Identities

// A node's mask once stayed with its slot, and hid parts of whatever came there next.
TEST_F(JournalTest, SlotIsReusedByANewGenerationOnceNobodyKnowsTheNode) {
    journal.begin();
    journal.mark();
    const NodeId rolledBack = addLine(document, layer, {0, 0}, {1, 1}).id();
    journal.rollBackToMark();
    Node& masked = addLine(document, layer, {0, 0}, {1, 1});
    const NodeId next = masked.id();
    Document::setClip(masked, Shared(Clip()));
    journal.end();
    EXPECT_EQ(next, (NodeId{rolledBack.slot, rolledBack.generation + 1}));
    EXPECT_EQ(document.find(rolledBack), nullptr);

    journal.undo();
    addLine(document, layer, {2, 2}, {3, 3}); // forgets what could be redone
    const Node& last = addLine(document, layer, {4, 4}, {5, 5});
    EXPECT_EQ(last.id(), (NodeId{next.slot, next.generation + 1}));
    EXPECT_EQ(last.clip(), nullptr);
}

TEST_F(JournalTest, SilentRemovalWithoutHistoryFreesAllThatWasInside) {
    changeAs(UndoKind::Silent, [&] {
        Node& group = document.create(NodeType::Group, Placement::OnTopInside, layer);
        Node& inner = document.create(NodeType::Group, Placement::OnTopInside, group);
        for (int i = 0; i < 2; ++i) addLine(document, inner, {0, 0}, {1, 1});
    });
    changeAs(UndoKind::Silent, [&] { document.remove(*layer.firstChild()); });
    for (int i = 0; i < 4; ++i) EXPECT_EQ(addLine(document, layer, {0, 0}, {1, 1}).id().generation, 2U);
}

TEST_F(JournalTest, SlotWithoutGenerationsLeftIsNeverUsedAgain) {
    journal.begin();
    journal.mark();
    const std::uint32_t slot = document.create(NodeType::Path, Placement::OnTopInside, layer).id().slot;
    std::uint32_t last = 0;
    for (NodeId id{slot, 1}; id.slot == slot; last = std::max(last, id.generation * (id.slot == slot))) {
        journal.rollBackToMark();
        id = document.create(NodeType::Path, Placement::OnTopInside, layer).id();
    }
    EXPECT_EQ(last, (1U << 20) - 1);
}

// Layers

TEST_F(JournalTest, CurrentLayerIsAlwaysALivingOne) {
    Node& added = document.addLayer("second");
    EXPECT_EQ(&document.currentLayer(), &added);
    journal.undo();
    EXPECT_EQ(&document.currentLayer(), &layer);
    EXPECT_EQ(document.layerCount(), 1U);
    journal.redo();
    EXPECT_EQ(document.layerAt(0), &added);
    document.remove(layer);
    document.remove(added); // the last one stays
    EXPECT_EQ(document.layerCount(), 1U);
    EXPECT_EQ(&document.currentLayer(), &added);
}

} // namespace
} // namespace easel::model
