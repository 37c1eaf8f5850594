// Annotators of a plug-in that is a function: when they are asked to draw, where, and that they can change nothing.
#include <gmock/gmock.h>

#include "session/app/Session.h"
#include "suites/Tables.h"

namespace {

using namespace easel::session;
using easel::model::Box;
using easel::model::Mark;
using testing::ElementsAre;
using testing::IsEmpty;

/// What the plug-in of these tests got, "draw NAME" or "invalidate NAME", and what it does then.
std::vector<std::string> got;
std::function<void(const AIAnnotatorMessage&)> whenDrawing;
std::function<void(const AIAnnotatorMessage&)> whenInvalidating;

SPErr entry(const char* caller, const char* selector, void* record) {
    if (std::string(caller) != kCallerAIAnnotation) return kNoErr;
    const auto& message = *static_cast<AIAnnotatorMessage*>(record);
    const bool draws = std::string(selector) == kSelectorAIDrawAnnotation;
    const Annotator* const annotator = Session::current().annotations.find(message.annotator);
    got.push_back((draws ? "draw " : "invalidate ") + (annotator ? annotator->name : "nobody"));
    EXPECT_EQ(draws, message.context != nullptr);
    const auto& work = draws ? whenDrawing : whenInvalidating;
    if (work) work(message);
    return kNoErr;
}

class Annotations : public testing::Test {
  protected:
    Annotations() {
        got.clear();
        whenDrawing = whenInvalidating = nullptr;
        session.start();
        session.newDocument(300, 200);
    }

    std::vector<std::string> update() {
        got.clear();
        session.annotations.update();
        return got;
    }
    [[nodiscard]] const AIAnnotatorDrawerSuite& drawer() { return tables.get<AIAnnotatorDrawerSuite>(); }

    Session session;
    easel::suites::Tables& tables = easel::suites::Tables::of(*session.suites);
    Plugin& plugin = session.plugins.attach("Test", entry);
    Annotator& one = session.annotations.add(plugin, "one");
};

TEST_F(Annotations, AreDrawnWhenSomethingIsInvalid) {
    whenDrawing = [&](const AIAnnotatorMessage& message) {
        const AIRealPoint from{10, 20};
        const AIRealPoint to{30, 20};
        EXPECT_EQ(drawer().SetLineWidth(message.context, 4), kNoErr);
        EXPECT_EQ(drawer().DrawLine(message.context, &from, &to), kNoErr);
    };
    EXPECT_THAT(update(), ElementsAre("invalidate one", "draw one"));
    EXPECT_THAT(one.marks, ElementsAre(Mark{.kind = Mark::Kind::Line,
                                            .points = {{10, 20}, {30, 20}},
                                            .pen = {.color = {}, .lineWidth = 4},
                                            .filled = false,
                                            .text = {}}));
    EXPECT_THAT(update(), IsEmpty());

    // A change of the document leaves the marks to the plug-in.
    session.document()->addLayer("new");
    EXPECT_THAT(update(), ElementsAre("invalidate one"));
    whenInvalidating = [&](const AIAnnotatorMessage& message) {
        const AIRealRect place{110, 60, 100, 50}; // corners in any order
        EXPECT_EQ(tables.get<AIAnnotatorSuite>().InvalAnnotationRect(message.view, &place), kNoErr);
    };
    session.document()->view = {.zoom = 2, .center = {150, 100}};
    const auto draw = whenDrawing;
    std::vector<Box> places;
    whenDrawing = [&](const AIAnnotatorMessage& message) {
        for (int i = 0; i < message.invalidationRectCount; ++i) {
            const AIRealRect& rect = message.invalidationRects[i];
            places.push_back({rect.left, rect.top, rect.right, rect.bottom});
        }
        draw(message);
    };
    EXPECT_THAT(update(), ElementsAre("invalidate one", "draw one"));
    // What was asked for, and where the old line was: 4 screen units wide, hence 1 point to each side at this zoom.
    EXPECT_THAT(places, ElementsAre(Box{100, 50, 110, 60}, Box{9, 19, 31, 21}));
    EXPECT_EQ(one.marks.size(), 1u);

    // Also the view behind, as long as the marks are the ones over it.
    AIAnnotatorMessage behind{};
    behind.view = session.documents.viewOf(*session.document());
    session.newDocument(1, 1);
    session.messenger.send(plugin, kCallerAIAnnotation, kSelectorAIInvalAnnotation, behind.d);
    session.close();
    EXPECT_THAT(update(), ElementsAre("draw one"));

    session.newDocument(50, 40);
    places.clear();
    EXPECT_THAT(update(), ElementsAre("invalidate one", "draw one"));
    EXPECT_THAT(places, ElementsAre(Box{0, 0, 50, 40}));
    session.close();
    session.close();
    EXPECT_THAT(update(), IsEmpty());
    EXPECT_THAT(one.marks, IsEmpty());
}

TEST_F(Annotations, OfInactiveAnnotatorsAreGone) {
    whenDrawing = [&](const AIAnnotatorMessage& message) {
        const AIRealPoint at{1, 2};
        EXPECT_EQ(drawer().DrawText(message.context, "here", &at), kNoErr);
    };
    Annotator& two = session.annotations.add(plugin, "two");
    update();
    EXPECT_EQ(one.marks.size() + two.marks.size(), 2u);
    session.annotations.setActive(one, false);
    session.annotations.invalidateAll();
    EXPECT_THAT(one.marks, IsEmpty());
    EXPECT_THAT(update(), ElementsAre("draw two"));
    session.annotations.setActive(one, true);
    EXPECT_THAT(update(), ElementsAre("draw one"));
    EXPECT_EQ(one.marks.size(), 1u);
    // One that goes, or goes inactive, while it draws.
    whenDrawing = [&](const AIAnnotatorMessage& message) {
        session.annotations.setActive(two, false);
        session.annotations.remove(*session.annotations.find(message.annotator));
    };
    session.annotations.invalidateAll();
    EXPECT_THAT(update(), ElementsAre("draw one"));
    EXPECT_THAT(session.annotations.all(), ElementsAre(&two));
    session.quit();
    EXPECT_THAT(session.annotations.all(), IsEmpty());
}

TEST_F(Annotations, ChangeNeitherTheDocumentNorItsHistory) {
    easel::model::Document& document = *session.document();
    document.addLayer("first step");
    const auto layers = document.layerCount();
    const auto depth = document.journal().undoDepth();
    int tries = 0;
    whenDrawing = whenInvalidating = [&](const AIAnnotatorMessage&) {
        ++tries;
        AIArtHandle art = nullptr;
        AILayerHandle layer = nullptr;
        EXPECT_EQ(tables.get<AIArtSuite>().NewArt(kPathArt, kPlaceAboveAll, nullptr, &art), kRefusedErr);
        EXPECT_EQ(tables.get<AILayerSuite>().GetNthLayer(1, &layer), kNoErr);
        EXPECT_EQ(tables.get<AILayerSuite>().SetCurrentLayer(layer), kRefusedErr);
        EXPECT_EQ(tables.get<AIUndoSuite>().SetKind(kAISilentUndoContext), kRefusedErr);
        session.annotations.update(); // is going on already
    };
    // Also in the middle of a gesture, to whose step messages belong.
    document.journal().begin();
    document.addLayer("second step");
    update();
    document.journal().end();
    EXPECT_EQ(tries, 2);
    EXPECT_EQ(document.layerCount(), layers + 1);
    EXPECT_EQ(document.journal().undoDepth(), depth + 1);
    EXPECT_THAT(session.reports.lines(), IsEmpty());
}

TEST_F(Annotations, AreDrawnWithGoodNumbersInTheContextOfTheMessageOnly) {
    AIDrawingContextHandle kept = nullptr;
    whenDrawing = [&](const AIAnnotatorMessage& message) {
        const AIAnnotatorDrawerSuite& draw = drawer();
        const AIColor color{0, 1.5, 0};
        const AIRealPoint nowhere{NAN, 0};
        const AIRealPoint at{0, 0};
        const AIRealRect endless{0, 0, INFINITY, 1};
        kept = message.context;
        const AIErr errors[] = {
            draw.SetColor(kept, &color),        draw.SetColor(kept, nullptr),
            draw.SetOpacity(kept, 1.01),        draw.SetLineWidth(kept, 0),
            draw.SetLineDash(kept, -1),         draw.SetFontSize(kept, NAN),
            draw.DrawLine(kept, &at, &nowhere), draw.DrawRect(kept, &endless, 1),
            draw.DrawEllipse(kept, nullptr, 1), draw.DrawPolygon(kept, &at, 1, 0),
            draw.DrawText(kept, nullptr, &at),  tables.get<AIAnnotatorSuite>().InvalAnnotationRect(nullptr, &endless)};
        EXPECT_THAT(errors, testing::Each(kBadParameterErr));
    };
    update();
    EXPECT_THAT(one.marks, IsEmpty());
    EXPECT_THAT(session.reports.lines(), IsEmpty());
    whenDrawing = [&](const AIAnnotatorMessage& message) {
        const AIRealPoint at{0, 0};
        for (const AIDrawingContextHandle dead :
             {kept, AIDrawingContextHandle{}, reinterpret_cast<AIDrawingContextHandle>(message.annotator)})
            EXPECT_EQ(drawer().DrawText(dead, "x", &at), kUnknownHandleErr);
    };
    session.annotations.invalidateAll();
    update();
    EXPECT_THAT(one.marks, IsEmpty());
    EXPECT_EQ(session.reports.lines().size(), 3u);
}

} // namespace
