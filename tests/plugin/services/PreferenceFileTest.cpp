// Rewriting a file in place: whatever fails and whenever the process dies, the
// old text or the new one is there.
#include "plugin/services/PreferenceFile.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <gtest/gtest.h>

#include "places/Places.h"
#include "support/Folder.h"
#include "json/Text.h"

namespace {

using kzo::plugin::PreferenceFile;
using State = PreferenceFile::State;

/// A preferences file of that many values.
std::string preferences(int count, int value) {
    std::string members;
    for (int i = 0; i < count; ++i)
        members += (i > 0 ? "," : "") + ("\"key " + std::to_string(i) + "\":" + std::to_string(value));
    const kzo::json::Owned root(kzo::json::parse("{\"Prefs\":{" + members + "}}"));
    return kzo::json::serialize(root.get(), true, 0);
}

/// What a reader makes of a file.
std::string meaning(const std::string& text) {
    const kzo::json::Owned root(kzo::json::parse(text));
    return root ? kzo::json::serialize(root.get(), true, 0) : "nothing";
}

TEST(PreferenceFile, IsRewrittenInPlace) {
    const desk::Folder folder;
    const std::string path = folder.path("Preferences");
    for (const std::string text : {"first", "a longer one", "short", ""}) {
        EXPECT_TRUE(PreferenceFile::rewrite(path, text));
        EXPECT_EQ(folder.content("Preferences"), text);
    }
    struct stat before {
    }, after{};
    stat(path.c_str(), &before);
    EXPECT_TRUE(PreferenceFile::rewrite(path, "again"));
    stat(path.c_str(), &after);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_EQ(folder.fileCount(), 1);
}

TEST(PreferenceFile, TellsWhatCannotBeRead) {
    const desk::Folder folder;
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    std::filesystem::create_directory(folder.path("folder"));
    std::filesystem::create_symlink("loop", folder.path("loop"));
    std::filesystem::create_symlink("/dev/full", folder.path("device"));
    folder.write("file", "text");
    for (const char* name : {"pipe", "folder", "loop", "device", "file/below"}) {
        EXPECT_EQ(PreferenceFile::read(folder.path(name)).state, State::Unreadable) << name;
        EXPECT_FALSE(PreferenceFile::rewrite(folder.path(name), "text")) << name;
    }
    EXPECT_EQ(PreferenceFile::read(folder.path("none")).state, State::Missing);
    EXPECT_EQ(PreferenceFile::read(folder.path("none/below")).state, State::Missing);
    EXPECT_FALSE(PreferenceFile::rewrite(folder.path("none/below"), "text"));
    EXPECT_EQ(PreferenceFile::read(folder.path("file")).text, "text");
}

TEST(PreferenceFile, DoesNotTakeAGigabyteIntoMemory) {
    const desk::Folder folder;
    folder.write("huge", "old");
    std::filesystem::resize_file(folder.path("huge"), std::uintmax_t{1} << 30);
    rusage before{}, after{};
    getrusage(RUSAGE_SELF, &before);
    const PreferenceFile file = PreferenceFile::read(folder.path("huge"));
    EXPECT_EQ(file.state, State::TooLarge);
    EXPECT_EQ(file.text, "");
    EXPECT_TRUE(PreferenceFile::rewrite(folder.path("huge"), "new"));
    getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 64 * 1024);
    EXPECT_EQ(folder.content("huge"), "new");
}

/// Files may not grow beyond so many bytes while it lives; that is as good as a
/// full disk.
class FullDisk {
  public:
    explicit FullDisk(rlim_t size) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit now{size, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &now);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    rlimit before_{};
    void (*handler_)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

TEST(PreferenceFile, KeepsTheOldTextOnAFullDisk) {
    const desk::Folder folder;
    const std::string before = preferences(10, 1);
    folder.write("Preferences", before);
    const rlim_t length = before.size();
    // No room at all, some of it, and not even for what is there already.
    for (const rlim_t room : {length, length + 40, length / 2}) {
        const FullDisk disk(room);
        EXPECT_FALSE(PreferenceFile::rewrite(folder.path("Preferences"), preferences(100, 2))) << room;
        EXPECT_EQ(folder.content("Preferences"), before) << room;
    }
    const FullDisk disk(length / 2);
    EXPECT_FALSE(PreferenceFile::rewrite(folder.path("Preferences"), preferences(9, 2)));
    EXPECT_EQ(folder.content("Preferences"), before);
    std::filesystem::create_symlink("none", folder.path("link"));
    for (const char* missing : {"none", "link"})
        EXPECT_FALSE(PreferenceFile::rewrite(folder.path(missing), preferences(100, 2)));
    EXPECT_FALSE(std::filesystem::exists(folder.path("none")));
}

TEST(PreferenceFile, IsOldOrNewWhereverTheProcessIsKilled) {
    const desk::Folder folder;
    const std::string small = preferences(3, 1);
    const std::string large = preferences(40, 2);
    const std::string trace = folder.path("trace");
    const auto rewrite = [&](const std::string& options) {
        // What is traced cannot be looked through for leaks at its end.
        const std::string command = "ASAN_OPTIONS=detect_leaks=0 strace -qq -o " + trace + " " + options +
                                    " '" TEST_BUILD_DIR "/tests/rewrite' " + folder.path("Preferences") + " " +
                                    folder.path("new") + " >/dev/null 2>&1";
        return std::system(command.c_str());
    };
    const char* const missing = "none";
    const auto start = [&](const std::string& before) {
        std::filesystem::remove(folder.path("Preferences"));
        if (before != missing) folder.write("Preferences", before);
    };
    for (const auto& [before, after] :
         {std::pair{small, large}, {large, small}, {small, preferences(3, 7)}, {"", large}, {missing, large}}) {
        folder.write("new", after);
        start(before);
        ASSERT_EQ(rewrite(""), 0);
        // Every call behind the mark that can touch a file, by its name and how many of that name there were. How often
        // a process asks for memory differs from one run to the next.
        static const std::set<std::string> files{"openat", "open",  "read",       "pread64", "write",  "pwrite64",
                                                 "lseek",  "fstat", "newfstatat", "close",   "fsync",  "fdatasync",
                                                 "flock",  "fcntl", "ftruncate",  "rename",  "unlink", "fallocate"};
        std::map<std::string, int> counts;
        std::vector<std::pair<std::string, int>> calls;
        std::istringstream lines(folder.content("trace"));
        bool rewriting = false;
        for (std::string line; std::getline(lines, line);) {
            const std::string name = line.substr(0, line.find('('));
            const int count = ++counts[name];
            if (rewriting && files.count(name)) calls.emplace_back(name, count);
            rewriting = rewriting || line.find("rewriting") != std::string::npos;
        }
        ASSERT_GT(calls.size(), 5U);
        EXPECT_EQ(std::count_if(calls.begin(), calls.end(), [](const auto& call) { return call.first == "fsync"; }), 1);
        int changed = 0;
        for (const auto& [name, count] : calls) {
            start(before);
            EXPECT_NE(rewrite("-e inject=" + name + ":signal=KILL:when=" + std::to_string(count)), 0) << name << count;
            const std::string left = meaning(folder.content("Preferences"));
            EXPECT_TRUE(left == meaning(before) || left == after) << name << ' ' << count << '\n'
                                                                  << folder.content("Preferences");
            changed += left == after ? 1 : 0;
        }
        EXPECT_GT(changed, 0);
        EXPECT_LT(changed, static_cast<int>(calls.size()));
    }
}

} // namespace
