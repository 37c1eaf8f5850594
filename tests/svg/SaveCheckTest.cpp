// What a text must be before it may replace a file.
#include "svg/SaveCheck.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/Drawing.h"
#include "support/Folder.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace easel::svg {
namespace {

TEST(SaveCheck, RefusesWhatLosesOrRepeatsOrBreaksAnything) {
    const std::string old = "<svg><g/>&#13;<path d='M0 0'/><rect></rect></svg>";
    const auto document = read(old, "t.svg");
    const auto& source = dynamic_cast<const Source&>(*document->origin);
    ASSERT_EQ(source.elements.size(), 3U); // a rect without extent is none
    const auto kept = Fate::Kept;
    const auto changed = Fate::Changed;
    using Pieces = std::vector<std::tuple<std::size_t, std::size_t, const char*>>; // copied, then added
    const struct {
        const char* what;
        Pieces pieces;
        std::vector<Fate> fates;
        const char* refusal;
    } rows[] = {
        {"all", {{0, 49, ""}}, {kept, kept, kept}, ""},
        {"a tag opened up", {{0, 5, "<g>new</g>"}, {9, 49, ""}}, {kept, changed, kept}, ""},
        {"an element removed", {{0, 14, ""}, {30, 49, ""}}, {kept, kept, Fate::Removed}, ""},
        {"an element lost", {{0, 14, ""}, {30, 49, ""}}, {kept, kept, kept}, "bytes lost at 1:15"},
        {"an element changed by mistake", {{0, 14, "<path/>"}, {30, 49, ""}}, {kept, kept, kept}, "bytes lost at 1:15"},
        {"a reference lost with an element",
         {{0, 9, ""}, {30, 49, ""}},
         {kept, kept, Fate::Removed},
         "bytes lost at 1:10"},
        {"foreign bytes lost", {{0, 30, ""}, {43, 49, ""}}, {kept, kept, changed}, "bytes lost at 1:31"},
        {"the end lost", {{0, 43, ""}}, {kept, kept, kept}, "bytes lost at 1:44"},
        {"bytes repeated", {{0, 49, " "}, {9, 49, ""}}, {kept, kept, kept}, "bytes written twice at 1:10"},
        {"a tag that is not closed", {{0, 5, "<g>"}, {9, 49, ""}}, {kept, changed, kept}, "mismatched tag"},
        {"a prefix without a namespace", {{0, 5, "<g i:x=''/>"}, {9, 49, ""}}, {kept, changed, kept}, "unbound prefix"},
    };
    for (const auto& row : rows) {
        SplicedText text(source.text);
        for (const auto& [from, to, added] : row.pieces) {
            text.copy(from, to);
            text.add(added);
        }
        const std::string error = desk::errorOf<DamageError>([&] { checkBeforeSaving(text, row.fates, source); });
        const std::string start = "nothing was saved, because saving would damage the drawing: ";
        EXPECT_EQ(error, *row.refusal ? start + row.refusal : "") << row.what;
    }
}

TEST(SaveCheck, RequiresOfARemovedElementWhatOthersMayNeed) {
    const auto document = read("<svg><g><path/><style/></g></svg>", "t.svg");
    const auto& source = dynamic_cast<const Source&>(*document->origin);
    const std::vector<Fate> fates{Fate::Kept, Fate::Removed, Fate::Removed};
    for (const bool isThere : {true, false}) {
        SplicedText text(source.text);
        text.copy(0, 5);
        if (isThere) text.copy(15, 23, true);
        text.copy(27, 33);
        const std::string error = desk::errorOf<DamageError>([&] { checkBeforeSaving(text, fates, source); });
        EXPECT_EQ(error.find("bytes lost at 1:16") == error.npos, isThere) << error;
    }
}

// The end of an empty element was once taken for a place in the entity behind it, and the rest written twice.
TEST(SaveCheck, ReferencesBehindEmptyElementsAreNotTheirs) {
    const std::string doctype = "<!DOCTYPE svg [<!ENTITY x 'y'><!ENTITY p '<path d=\"M1 1\"/>'>]>";
    for (const std::string content : {"<g/>&#13;", "<rect width='1' height='1'/>&x;", "<path d='M0 0'/>&p;&x;",
                                      "<g><g/>&#xD;</g>&x;", "<text/>&lt;<a/>&x;", "<metadata/>&x;<g/>&p;"}) {
        SCOPED_TRACE(content);
        const std::string bytes = doctype + "<svg>" + content + "\n</svg>\n<!-- -->";
        const auto document = read(bytes, "t.svg");
        EXPECT_EQ(write(*document), bytes);
        const std::string line = R"(<path d="M0 0 L1 1" fill="none" stroke="#000000" stroke-miterlimit="10"/>)";
        model::addLine(*document, document->currentLayer(), {0, 0}, {1, 1});
        std::string without = write(*document);
        ASSERT_NE(without.find(line), std::string::npos);
        without.erase(without.find(line), line.size());
        without.erase(std::remove(without.begin(), without.end(), '\n'), without.end());
        EXPECT_EQ(without, doctype + "<svg>" + content + "</svg><!-- -->");
        model::Node& first = *document->currentLayer().lastChild();
        document->offset(first, 1, 1);
        document->setHidden(first, true);
        EXPECT_EQ(read(write(*document), "t.svg")->currentLayer().childCount(), document->currentLayer().childCount());
    }
}

} // namespace
} // namespace easel::svg
