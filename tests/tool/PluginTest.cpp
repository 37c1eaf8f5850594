// The main object's place among the maker's plug-ins: which group of the toolbox its tools go to, and what it records.
#include <gmock/gmock.h>

#include "session/app/Session.h"
#include "support/Folder.h"
#include "tool/Plugin.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace {

using namespace easel;

const desk::Folder* maker = nullptr; // where the file with the base tool's number is
std::string recorded;                // what stood in it when the next plug-in started

SPErr nextPlugin(const char* caller, const char* selector, void*) {
    const bool starts =
        std::string_view(caller) == kSPInterfaceCaller && std::string_view(selector) == kSPInterfaceStartupSelector;
    if (starts) recorded = maker->content("Velloran/Base tool");
    return kNoErr;
}

TEST(ProductLife, PutsTheToolsBesideTheBaseToolOrRecordsThem) {
    constexpr int kDirectSelection = 2; // the host's own two tools are 1 and 2, ours the next
    const struct {
        std::string file;
        int group;
        std::string recorded;
    } rows[] = {{"", 3, "3\n"},
                {"2", kDirectSelection, "2"},
                {"2\n", kDirectSelection, "2\n"},
                {"99", 3, "3\n"},
                {"x2", 3, "3\n"},
                {"2x", 3, "3\n"},
                {"-7", 3, "3\n"},
                {"65538", 3, "3\n"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.file);
        const desk::Folder folder;
        maker = &folder;
        if (!row.file.empty()) folder.write("Velloran/Base tool", row.file);
        session::Session session;
        session.profile.use(folder.path());
        session.alerts.handler = [](const session::Alert&) { return std::size_t{0}; };
        session.plugins.attach("Product under test", PluginMain);
        session.plugins.attach("Next", nextPlugin);
        EXPECT_THAT(session.start(), testing::IsEmpty());
        EXPECT_EQ(recorded, row.recorded);
        const auto& line = *session.toolbox.findByTitle("Isometric Line Tool");
        const auto& mover = *session.toolbox.findByTitle("Isometric Mover Tool");
        EXPECT_EQ(line.group, row.group);
        EXPECT_EQ(mover.group, row.group);
        EXPECT_EQ(mover.toolset, line.number);
        EXPECT_EQ(line.toolset, line.number);
        EXPECT_EQ(line.options & mover.options, 33);
        EXPECT_EQ(folder.content("Velloran/Base tool"), ""); // every plug-in has started
        session.quit();
        EXPECT_EQ(ortho::Plugin::instance(), nullptr);
        EXPECT_THAT(session.reports.lines(), testing::IsEmpty());
    }
}

} // namespace
