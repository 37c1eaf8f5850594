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

    [[nodiscard]] Ended easel(const std::string& arguments) const {
        const std::string command = "cd '" + folder.string() + "' && '" EASEL_BINARY "' " + arguments + " 2>&1";
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
    for (const char* arguments : {"", "draw x.js", "run", "run x.js y.js", "run x.js --plugin", "run x.js --speed 5"}) {
        const Ended ended = easel(arguments);
        EXPECT_EQ(ended.code, 2) << arguments;
        EXPECT_EQ(ended.output.rfind("easel: ", 0), 0U) << ended.output;
        EXPECT_EQ(ended.output.find('\n'), ended.output.size() - 1) << ended.output;
    }
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

TEST_F(CommandLine, TheExamplesRunToTheirEnd) {
    fs::create_directories(folder / "out");
    fs::copy(PROJECT_DIR "/examples", folder / "examples");
    for (const std::string name : {"cube", "shift-and-option"}) {
        const Ended ended = easel("run examples/" + name + ".js --plugin " ORTHOLINE_BUNDLE);
        EXPECT_EQ(ended.code, 0) << ended.output;
    }
    EXPECT_EQ(content("out/cube.png").substr(1, 3), "PNG");
    EXPECT_NE(content("out/cube.svg").find("inkscape:label=\"Cube\""), std::string::npos);
}

} // namespace
