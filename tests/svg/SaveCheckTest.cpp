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
    const struct {
        const char* what;
        std::string text;
        std::vector<CopiedBytes> copies;
        std::vector<Fate> fates;
        const char* refusal;
    } rows[] = {
        {"all", old, {{0, 49, 0, false}}, {kept, kept, kept}, ""},
        {"a tag opened up",
         "<svg><g>new</g>" + old.substr(9),
         {{0, 5, 0, false}, {9, 49, 15, false}},
         {kept, Fate::Changed, kept},
         ""},
        {"an element removed",
         "<svg><g/>&#13;<rect></rect></svg>",
         {{0, 14, 0, false}, {30, 49, 14, false}},
         {kept, kept, Fate::Removed},
         ""},
        {"an element lost",
         "<svg><g/>&#13;<rect></rect></svg>",
         {{0, 14, 0, false}, {30, 49, 14, false}},
         {kept, kept, kept},
         "bytes lost at 1:15"},
        {"a reference lost with an element",
         "<svg><g/><rect></rect></svg>",
         {{0, 9, 0, false}, {30, 49, 9, false}},
         {kept, kept, Fate::Removed},
         "bytes lost at 1:10"},
        {"foreign bytes lost",
         "<svg><g/>&#13;<path d='M0 0'/></svg>",
         {{0, 30, 0, false}, {43, 49, 30, false}},
         {kept, kept, Fate::Changed},
         "bytes lost at 1:31"},
        {"bytes repeated",
         old + old.substr(9),
         {{0, 49, 0, false}, {9, 49, 49, false}},
         {kept, kept, kept},
         "bytes written twice at 1:10"},
        {"a byte changed",
         "<svg><G/>" + old.substr(9),
         {{0, 49, 0, false}},
         {kept, kept, kept},
         "bytes changed at 1:1"},
        {"a tag that is not closed",
         "<svg><g>" + old.substr(9),
         {{0, 5, 0, false}, {9, 49, 8, false}},
         {kept, Fate::Changed, kept},
         "mismatched tag"},
        {"a prefix without a namespace",
         "<svg><g i:x=''/>" + old.substr(9),
         {{0, 5, 0, false}, {9, 49, 16, false}},
         {kept, Fate::Changed, kept},
         "unbound prefix"},
    };
    for (const auto& row : rows) {
        const std::string error =
            desk::errorOf<DamageError>([&] { checkBeforeSaving(row.text, row.copies, row.fates, source); });
        const std::string start = "nothing was saved, because saving would damage the drawing: ";
        EXPECT_EQ(error, *row.refusal ? start + row.refusal : "") << row.what;
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
