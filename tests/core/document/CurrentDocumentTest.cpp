// What is done with a whole document: when it happens, and what it leaves.
#include "core/document/CurrentDocument.h"

#include <gtest/gtest.h>

#include "core/app/Illustrator.h"
#include "core/app/Plugin.h"
#include "core/document/Dictionary.h"
#include "core/document/Draw.h"
#include "core/document/Layer.h"
#include "core/frame/Annotator.h"
#include "core/frame/Dispatcher.h"
#include "core/values/TransformMatrix.h"
#include "hostapi/AIArtSuite.h"
#include "hostapi/AIExpandSuite.h"
#include "hostapi/AITransformArtSuite.h"
#include "support/Desk.h"
#include "support/Folder.h"
#include "support/Receiver.h"

namespace {

using namespace kzo::core;
using desk::Desk;

class CurrentDocumentTest : public testing::Test {
  protected:
    bool does(const std::function<bool(CurrentDocument&)>& work) {
        bool done = false;
        desk.inMessage([&] { done = work(*Illustrator::instance()->currentDocument()); });
        return done;
    }
    static bool draw(CurrentDocument& /*document*/) { return draw::line({0, 0}, {10, 10}) != nullptr; }

    desk::Receiver receiver;
    desk::Folder folder;
    Desk desk;
};

TEST_F(CurrentDocumentTest, IsUndoneAndRedoneAfterTheMessage) {
    const auto undo = [](CurrentDocument& d) { return d.undo() && d.anyArtSelected(); };
    EXPECT_FALSE(does([](CurrentDocument& d) { return d.undo() || d.redo(); })) << "nothing to undo";
    EXPECT_TRUE(
        does([](CurrentDocument& d) { return draw(d) && (d.artOfType(MatchArtType::Path)->front().select(), true); }));
    const std::string drawn = desk.svg();
    EXPECT_TRUE(does(undo)) << "what there is stays until the end";
    EXPECT_TRUE(desk.paths().empty());
    EXPECT_FALSE(does(&CurrentDocument::undo));
    EXPECT_TRUE(does(&CurrentDocument::redo));
    EXPECT_EQ(desk.svg(), drawn);
    EXPECT_FALSE(does(&CurrentDocument::redo));
    EXPECT_TRUE(does([](CurrentDocument& d) { return d.undo() && draw(d); }))
        << "what the message did is the last step";
    EXPECT_EQ(desk.svg(), drawn);
}

TEST_F(CurrentDocumentTest, IsSavedAsItIsInTheMessage) {
    EXPECT_TRUE(does(draw));
    EXPECT_FALSE(does(&CurrentDocument::save)) << "it has no file";
    desk.session().save(folder.path("drawing.svg"));
    EXPECT_TRUE(does([](CurrentDocument& d) { return draw(d) && d.modified() && d.save() && !d.modified(); }));
    EXPECT_EQ(folder.content("drawing.svg"), desk.svg());
    EXPECT_FALSE(does(&CurrentDocument::modified));
    EXPECT_TRUE(does(&CurrentDocument::undo) && does(&CurrentDocument::modified));
    EXPECT_TRUE(does(&CurrentDocument::redo) && !does(&CurrentDocument::modified)) << "as in the file again";
    EXPECT_TRUE(does([](CurrentDocument& d) { return d.save() && draw(d); }));
    EXPECT_TRUE(does(&CurrentDocument::modified)) << "what came after that is not in the file";
    EXPECT_NE(folder.content("drawing.svg"), desk.svg());
    EXPECT_TRUE(does([](CurrentDocument& d) { return draw(d) && d.setModified(false); }));
    EXPECT_FALSE(does(&CurrentDocument::modified));
    desk.expectReports();
    folder.write("drawing.svg", "another program's");
    EXPECT_FALSE(does(&CurrentDocument::save));
    EXPECT_EQ(folder.content("drawing.svg"), "another program's");
}

TEST_F(CurrentDocumentTest, IsDrawnAndClosedAfterTheMessage) {
    EXPECT_TRUE(does([&](CurrentDocument&) {
        const Annotator marks("Marks", receiver.callback());
        return Plugin::instance()->dispatcher()->registerAnnotator(marks), !marks.isEmpty();
    }));
    for (const auto redraw : {&CurrentDocument::redraw, &CurrentDocument::syncAndRedraw}) {
        const int runs = receiver.runs;
        EXPECT_TRUE(does([&](CurrentDocument& d) { return draw(d) && (d.*redraw)() && receiver.runs == runs; }));
        EXPECT_GT(receiver.runs, runs);
    }
    EXPECT_TRUE(does(&CurrentDocument::sync));
    EXPECT_TRUE(does([](CurrentDocument& d) {
        const auto second = d.insertArtboard({10, 10, 50, 50});
        return second && d.setCurrentArtboard(*second) && *d.currentArtboard() == *second && d.artboardCount() == 2;
    }));
    easel::model::Document& first = desk.document();
    desk.session().newDocument(10, 10);
    EXPECT_TRUE(does([](CurrentDocument& d) {
        return d.close() && Illustrator::instance()->documentCount() == 2 && d.setup().width == 10;
    }));
    EXPECT_EQ(&desk.document(), &first);
    EXPECT_TRUE(does(&CurrentDocument::close));
    EXPECT_EQ(desk.session().documents.count(), 0U);
}

// What stood behind a zero byte was lost without a word.
TEST_F(CurrentDocumentTest, TakesNoTextThatTheHostWouldCutOff) {
    const std::string cut("a\0b", 3);
    EXPECT_TRUE(does(draw));
    const std::string before = desk.svg();
    EXPECT_TRUE(does([&](CurrentDocument& d) {
        const auto line = d.artOfType(MatchArtType::Path);
        Dictionary own = line->front().dictionary();
        EXPECT_FALSE(own.setString("key", cut) || own.setString(cut, "value") || own.setBool(cut, true));
        EXPECT_FALSE(d.firstLayer()->setTitle(cut));
        EXPECT_EQ(d.layerByTitle(std::string("Layer 1\0", 8)), nullptr);
        EXPECT_FALSE(d.setDefaultTextStyle({.font = {cut, 9}}));
        EXPECT_FALSE(Illustrator::instance()->preferences()->setStringPref("section", "key", cut));
        EXPECT_TRUE(own.setString("key", "J\xc3\xb6rg") && own.remove("key"));
        return true;
    }));
    EXPECT_EQ(desk.svg(), before);
}

TEST_F(CurrentDocumentTest, KeepsLinksToFilesOfAnyName) {
    for (const char* const name : {"J\xc3\xb6rg.png", "J\xf6rg 100%.png"}) { // the latter is no UTF-8
        const std::string png("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\3\0\0\0\2\x8\2\0\0\0", 29);
        const std::string path = folder.write(name, png);
        EXPECT_TRUE(does(
            [&](CurrentDocument&) { return Art(ArtType::Placed, PaintOrder::AboveAll).placed()->setFilePath(path); }));
        const std::string drawing = folder.path("drawing.svg");
        desk.session().save(drawing);
        desk.session().open(drawing);
        EXPECT_TRUE(does([&](CurrentDocument& d) {
            return d.artOfType(MatchArtType::Placed)->front().placed()->filePath() == path;
        }));
        desk.session().newDocument(10, 10);
    }
}

// Bits that the host does not have are dropped.
TEST_F(CurrentDocumentTest, HandsOptionsOverBitByBit) {
    static std::int32_t flags;
    desk.tables().get<AIArtSuite>().GetArtTransformBounds = [](AIArtHandle, const AIRealMatrix*, std::int32_t given,
                                                               AIRealRect*) -> AIErr {
        flags = given;
        return kNoErr;
    };
    desk.tables().get<AITransformArtSuite>().TransformArt = [](AIArtHandle, const AIRealMatrix*, AIReal,
                                                               std::int32_t given) -> AIErr {
        flags = given;
        return kNoErr;
    };
    desk.tables().get<AIExpandSuite>().Expand = [](AIArtHandle, std::int32_t given, std::int32_t) -> AIErr {
        flags = given;
        return kNoErr;
    };
    EXPECT_TRUE(does([](CurrentDocument&) {
        const auto line = draw::line({0, 0}, {10, 10});
        static_cast<void>(line->bounds(Art::BoundsOptions(-1)));
        EXPECT_EQ(flags, kStrokeBounds | kControlBounds | kExcludeHiddenBounds | kExcludeUnselectedBounds |
                             kExcludeUnpaintedBounds);
        static_cast<void>(line->bounds(Art::BoundsOptions::ExcludeHidden));
        EXPECT_EQ(flags, kExcludeHiddenBounds);
        line->offset(1, 1, false);
        EXPECT_EQ(flags & (kTransformFillPatterns | kTransformStrokePatterns | kTransformObjects), kTransformObjects);
        line->transformWithOptions(TransformMatrix(), 1, Art::TransformOptions(-1));
        EXPECT_EQ(flags, 255);
        line->expand(Art::ExpandOptions(-1));
        EXPECT_EQ(flags, 1023);
        return true;
    }));
}

} // namespace
