// The program as it is called: exit codes, the one line on standard error, and files that stay as they are. Runs the
// built program.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

struct Ended {
    int code = -1;
    std::string output; ///< standard output and error together
};

class CommandLine : public testing::Test {
  protected:
    CommandLine() { fs::create_directories(folder); }
    ~CommandLine() override { fs::remove_all(folder); }

    /// `first` is what the shell does before.
    [[nodiscard]] Ended easel(const std::string& arguments, const std::string& first = ":") const {
        const std::string command =
            "cd '" + folder.string() + "' && " + first + " && '" EASEL_BINARY "' " + arguments + " 2>&1";
        Ended ended;
        std::FILE* const pipe = popen(command.c_str(), "r");
        std::array<char, 4096> buffer{};
        while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
            ended.output.append(buffer.data(), count);
        const int status = pclose(pipe);
        if (WIFEXITED(status)) ended.code = WEXITSTATUS(status);
        return ended;
    }

    void write(const std::string& name, const std::string& content) const {
        fs::create_directories((folder / name).parent_path());
        std::ofstream(folder / name, std::ios::binary) << content;
    }

    [[nodiscard]] std::string content(const std::string& name) const {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    fs::path folder = fs::path(testing::TempDir()) / ("easel-" + std::to_string(getpid()));
};

void expectFailure(const Ended& ended, int code, const std::string& line) {
    EXPECT_EQ(ended.code, code) << line;
    EXPECT_EQ(ended.output, line + "\n");
}

TEST_F(CommandLine, PlaysAScriptAndSavesWhatItDrew) {
    write("draw.js", "var doc = app.newDocument(40, 30);\n"
                     "doc.addPath([[1, 2], [30, 20]]);\n"
                     "app.save('drawn.svg');\n"
                     "app.exportPNG('drawn.png', 2);\n"
                     "print(app.open('drawn.svg').paths[0].points[1].x);\n");
    const Ended ended = easel("run draw.js");
    EXPECT_EQ(ended.code, 0);
    EXPECT_EQ(ended.output, "30\n");
    EXPECT_EQ(content("drawn.png").substr(1, 3), "PNG");
}

TEST_F(CommandLine, AnswersTwoWhenItIsCalledWrongly) {
    for (const char* arguments : {"", "draw x.js", "run", "run x.js y.js", "run x.js --plugin", "run x.js --speed 5",
                                  "render a.svg", "render a.svg -o b.gif", "render a.svg -o b.png --scale 0", "info"}) {
        const Ended ended = easel(arguments);
        EXPECT_EQ(ended.code, 2) << arguments;
        EXPECT_EQ(ended.output.rfind("easel: ", 0), 0U) << ended.output;
        EXPECT_EQ(ended.output.find('\n'), ended.output.size() - 1) << ended.output;
    }
    EXPECT_EQ(easel("draw x.js").output, "easel: there is no command \"draw\"; see easel --help\n");
}

TEST_F(CommandLine, TellsWhatADrawingHoldsAndMakesPicturesOfIt) {
    write("d.svg", "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 20 10'>\n<text>a</text><path d='M0 0 L9 9 L'/>"
                   "<path d='M0 0 L1 1 M2 2 L3 3'/></svg>");
    const std::string warning =
        "easel: user data: d.svg:2:15: the outline is damaged; what comes before that is kept\n";
    const Ended info = easel("info d.svg");
    EXPECT_EQ(info.code, 0);
    EXPECT_EQ(info.output, warning + "page: 20 x 10 points\nlayer: Layer 1, 3 objects\n"
                                     "objects: 0 groups, 1 path, 2 opaque\n"
                                     "opaque: 1 <path>: several subpaths\nopaque: 1 <text>: shown, not edited\n");
    EXPECT_EQ(easel("render d.svg -o d.png --scale 3").output, warning);
    EXPECT_EQ(easel("render d.svg -o d.pdf").code, 0);
    EXPECT_EQ(content("d.png").substr(16, 8), std::string("\0\0\0\x3c\0\0\0\x1e", 8)); // 60 by 30
    EXPECT_EQ(content("d.pdf").substr(0, 5), "%PDF-");
    EXPECT_NE(easel("info --help").output.find("FILE"), std::string::npos);
    expectFailure(easel("info none.svg"), 1, "easel: none.svg: No such file or directory");
}

TEST_F(CommandLine, ListsPluginsThatStartAndNamesThoseThatDoNot) {
    const Ended ended = easel("plugins --plugin " ORTHOLINE_BUNDLE " --plugin None.aip");
    EXPECT_EQ(ended.code, 1);
    EXPECT_NE(ended.output.find("easel: None.aip: no such plug-in\n"), std::string::npos) << ended.output;
    EXPECT_NE(ended.output.find("Ortholine\n  tool: Isometric Line Tool\n"), std::string::npos) << ended.output;
}

TEST_F(CommandLine, WhatIsNoFileOfADrawingIsRefusedAtOnce) {
    ASSERT_EQ(std::system(("mkfifo " + (folder / "pipe").string()).c_str()), 0);
    fs::create_directory(folder / "folder.svg");
    std::string many = "<svg>";
    for (int i = 0; i < 2'000'000; ++i) many += "<g/>";
    write("many.svg", many + "</svg>");
    std::string deep = "<svg>";
    for (int i = 0; i < 300'000; ++i) deep += "<g>";
    write("deep.svg", deep);
    std::string path;
    while (path.size() < 2'000'000) path += " L5.25 7.5";
    write("path.svg", "<svg><path d='M0 0" + path + "'/></svg>");
    expectFailure(easel("info pipe"), 1, "easel: pipe: Not a regular file");
    expectFailure(easel("info folder.svg"), 1, "easel: folder.svg: Is a directory");
    expectFailure(easel("info many.svg"), 1, "easel: many.svg:1:4000002: more than 1000000 elements");
    expectFailure(easel("info deep.svg"), 1, "easel: deep.svg:1:771: elements nest deeper than 256");
    EXPECT_NE(easel("info path.svg").output.find("<path>: more than 32000 anchors"), std::string::npos);
    write("disk.js", "app.newDocument(1e9, 1);\n['/dev/full', 'pipe'].forEach(function (name) {\n"
                     "try { app.save(name); } catch (error) { print(error.message); } });\n"
                     "app.newDocument(1e308, 5); app.save('big.svg');\n");
    const Ended disk = easel("run disk.js");
    EXPECT_NE(disk.output.find("/dev/full: Not a regular file\n"), std::string::npos) << disk.output;
    EXPECT_NE(disk.output.find("pipe: Not a regular file\n"), std::string::npos) << disk.output;
    EXPECT_NE(disk.output.find("big.svg: a page of this size cannot be saved\n"), std::string::npos) << disk.output;
    EXPECT_FALSE(fs::exists(folder / "big.svg"));
}

TEST_F(CommandLine, AScriptThatFailsAnswersOneWithItsLine) {
    write("fails.js", "print('before');\nassert(false, 'no');\nprint('after');\n");
    expectFailure(easel("run fails.js"), 1, "before\neasel: fails.js:2: assert: failed: no");
    expectFailure(easel("run none.js"), 1, "easel: none.js: cannot be read: No such file or directory");
}

TEST_F(CommandLine, WhatIsNoPluginIsRefusedBeforeTheScriptRuns) {
    write("script.js", "print('ran');\n");
    write("Folder.aip/readme", "nothing");
    write("Text.aip/Contents/Linux/Text", "no library");
    const std::string noEntry = TEST_BUILD_DIR "/NoEntry.aip";
    const std::string declining = TEST_BUILD_DIR "/Declining.aip";
    const std::string noBundle = ": not a plug-in bundle (a folder NAME.aip with Contents/Linux/NAME in it)";
    const auto refusal = [&](const std::string& bundle) { return easel("run script.js --plugin " + bundle); };
    expectFailure(refusal("None.aip"), 1, "easel: None.aip: no such plug-in");
    expectFailure(refusal("script.js"), 1, "easel: script.js" + noBundle);
    expectFailure(refusal("Folder.aip"), 1, "easel: Folder.aip" + noBundle);
    expectFailure(refusal(noEntry + '/'), 1, "easel: " + noEntry + "/: exports no PluginMain");
    EXPECT_EQ(refusal(declining).output.rfind("easel: " + declining + ": the plug-in declined to start: ", 0), 0U);
    EXPECT_EQ(refusal(declining).code, 1);
    EXPECT_EQ(refusal("Text.aip").output.rfind("easel: Text.aip: cannot be loaded: ", 0), 0U);
}

TEST_F(CommandLine, AFailureLeavesFilesAsTheyWere) {
    const std::string drawing = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>\n";
    write("drawing.svg", drawing);
    write("broken.svg", drawing.substr(0, 30));
    write("edit.js", "var doc = app.open('drawing.svg');\n"
                     "doc.addPath([[1, 2], [3, 4]]);\n"
                     "try { app.save('none/drawing.svg'); } catch (error) { print('refused'); }\n"
                     "app.open('broken.svg');\n"
                     "app.save('drawing.svg');\n");
    const Ended ended = easel("run edit.js");
    EXPECT_EQ(ended.code, 1);
    EXPECT_EQ(ended.output.rfind("refused\neasel: edit.js:4: app.open: broken.svg:", 0), 0U) << ended.output;
    EXPECT_EQ(content("drawing.svg"), drawing);
    EXPECT_EQ(content("broken.svg"), drawing.substr(0, 30));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 3);
}

TEST_F(CommandLine, ADiskThatFillsUpLeavesTheFileAsItWas) {
    const std::string drawing = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>\n";
    write("drawing.svg", drawing);
    write("fill.js", "var doc = app.open('drawing.svg');\n"
                     "for (var i = 0; i < 500; i++) doc.addPath([[i, 2], [3, 4]]);\n"
                     "app.save('drawing.svg');\n");
    // No file may grow beyond some kilobytes; that is as good as a full disk.
    const Ended ended = easel("run fill.js", "trap '' XFSZ && ulimit -f 8");
    EXPECT_EQ(ended.code, 1);
    EXPECT_EQ(ended.output, "easel: fill.js:3: app.save: drawing.svg: File too large\n");
    EXPECT_EQ(content("drawing.svg"), drawing);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2);
}

TEST_F(CommandLine, TheExamplesRunToTheirEnd) {
    fs::create_directories(folder / "out");
    fs::copy(PROJECT_DIR "/examples", folder / "examples");
    for (const std::string name : {"cube", "shift-and-option", "select"}) {
        const Ended ended = easel("run examples/" + name + ".js --plugin " ORTHOLINE_BUNDLE);
        EXPECT_EQ(ended.code, 0) << ended.output;
    }
    EXPECT_EQ(content("out/cube.png").substr(1, 3), "PNG");
    EXPECT_NE(content("out/cube.svg").find("inkscape:label=\"Cube\""), std::string::npos);
}

} // namespace
