// Files that others change, and disks that do not take what is written.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>

#include "support/Drawing.h"
#include "support/Folder.h"
#include "svg/Packing.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace easel::svg {
namespace {

using model::Document;

const std::string kChanged = ": Another program has changed the file since it was opened";

class Files : public testing::Test {
  protected:
    static std::string errorOf(const std::function<void()>& work) { return desk::errorOf<FileError>(work); }

    desk::Folder folder;
};

TEST_F(Files, ChangesOfOthersAreOverwrittenOnlyWhenToldTo) {
    const std::string path = folder.write("a.svg", "<svg><g/></svg>");
    const auto document = open(path);
    const auto saving = [&](Overwrite overwrite = Overwrite::IfUnchanged, const std::string& to = "") {
        return errorOf([&] { save(*document, to.empty() ? path : to, overwrite); });
    };
    std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now());
    EXPECT_EQ(saving(), ""); // the bytes are what they were
    folder.write("a.svg", "<svg><a/></svg>");
    std::filesystem::create_symlink("a.svg", folder.path("link.svg"));
    EXPECT_EQ(saving(), path + kChanged);
    EXPECT_EQ(saving(Overwrite::IfUnchanged, folder.path("link.svg")), folder.path("link.svg") + kChanged);
    EXPECT_EQ(folder.content("a.svg"), "<svg><a/></svg>");
    EXPECT_EQ(saving(Overwrite::Always), "");
    EXPECT_EQ(folder.content("a.svg"), "<svg><g/></svg>");
    EXPECT_EQ(saving(), ""); // for it is ours again
    document->setName(*document->root().firstChild()->firstChild(), "g");
    EXPECT_EQ(saving(), "");
    // Once a file that was only touched since it was saved counted as changed, one with another time of its own as not.
    std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now());
    EXPECT_EQ(saving(), "");
    const auto time = std::filesystem::last_write_time(path);
    for (const char* text : {"<svg><g/></svg>", "<svg><g id=\"h\"/></svg>"}) { // as it was read, and as long as ours
        folder.write("a.svg", text);
        std::filesystem::last_write_time(path, time);
        EXPECT_EQ(saving(), path + kChanged);
    }
    EXPECT_EQ(saving(Overwrite::Always), "");
    document->journal().undo();
    EXPECT_EQ(saving(), "");
    const std::string other = folder.write("other.svg", "anything");
    EXPECT_EQ(saving(Overwrite::IfUnchanged, other), ""); // nothing was known of this one
    folder.write("other.svg", "something else");
    EXPECT_EQ(saving(Overwrite::IfUnchanged, other), other + kChanged);
    std::filesystem::remove(path);
    EXPECT_EQ(saving(), "");

    Document made(20, 10);
    save(made, path, Overwrite::Always);
    save(made, path);
    folder.write("a.svg", "<svg/>");
    EXPECT_EQ(errorOf([&] { save(made, path); }), path + kChanged);
}

// A limit on the size of files once ended the program by a signal.
TEST_F(Files, WhatADiskDoesNotTakeLeavesTheOldFileAndNoOther) {
    const std::string path = folder.write("a.svg", "<svg><!--" + std::string(200000, '-') + "x--></svg>");
    const std::string before = folder.content("a.svg");
    const auto document = read("<svg><!-- " + std::string(200000, 'x') + " --></svg>", "t.svg");
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{65536, limit.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const std::string error = errorOf([&] { save(*document, path); });
    ::setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(error, path + ": File too large");
    EXPECT_EQ(folder.content("a.svg"), before);
    EXPECT_EQ(folder.fileCount(), 1);
}

} // namespace
} // namespace easel::svg
