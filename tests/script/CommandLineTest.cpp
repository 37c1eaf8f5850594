// The program as it is called: exit codes, the one line on standard error, and files that stay as they are. Runs the
// built program.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <array>
#include <cstdio>

#include "places/Places.h"
#include "support/Folder.h"

namespace {

struct Ended {
    int code = -1;
    std::string output; ///< standard output and error together
};

class CommandLine : public testing::Test {
  protected:
    /// `first` is what the shell does before.
    [[nodiscard]] Ended easel(const std::string& arguments, const std::string& first = ":") const {
        const std::string command = "cd '" + folder.path() + "' && export EASEL_PLUGINS= && " + first +
                                    " && '" EASEL_BINARY "' 2>&1 " + arguments;
        Ended ended;
        std::FILE* const pipe = popen(command.c_str(), "r");
        std::array<char, 4096> buffer{};
        while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
            ended.output.append(buffer.data(), count);
        const int status = pclose(pipe);
        if (WIFEXITED(status)) ended.code = WEXITSTATUS(status);
        return ended;
    }

    desk::Folder folder;
};

void expectFailure(const Ended& ended, int code, const std::string& line) {
    EXPECT_EQ(ended.code, code) << line;
    EXPECT_EQ(ended.output, line + "\n");
}

TEST_F(CommandLine, PlaysAScriptAndSavesWhatItDrew) {
    folder.write("draw.js", "var doc = app.newDocument(40, 30);\n"
                            "doc.addPath([[1, 2], [30, 20]]);\n"
                            "app.save('drawn.svg');\n"
                            "app.exportPNG('drawn.png', 2);\n"
                            "print(app.open('drawn.svg').paths[0].points[1].x);\n");
    const Ended ended = easel("run draw.js");
    EXPECT_EQ(ended.code, 0);
    EXPECT_EQ(ended.output, "30\n");
    EXPECT_EQ(folder.content("drawn.png").substr(1, 3), "PNG");
}

TEST_F(CommandLine, WhatItDoesNotKnowIsNamed) {
    const std::pair<const char*, const char*> rows[] = {
        {"", "A subcommand is required"},
        {"draw x.js", "there is no command \"draw\""},
        {"--sped", "there is no option --sped"},
        {"run", "SCRIPT is required"},
        {"run x.js y.js", "\"y.js\" is one argument too many"},
        {"run x.js --plugin", "--plugin: 1 required TEXT missing"},
        {"run --speed 5", "there is no option --speed"},
        {"info", "FILE is required"},
        {"render a.svg", "-o is required"},
        {"render a.svg -o b.gif", "-o: the name of a picture ends in .png or .pdf"},
        {"render a.svg -o -", "-o -: which format? --format png or --format pdf"},
        {"render a.svg -o b.png --format pdf", "-o and --format differ"},
        {"render a.svg -o b --format gif", "--format: must be png or pdf, not \"gif\""},
        {"render a.svg -o b.pdf --dpi 72", "--dpi is for PNG: a PDF has no pixels"},
        {"render a.svg -o b.png --scale 0", "--scale: must be a number greater than 0, not \"0\""},
        {"render a.svg -o b.png --scale inf", "--scale: must be a number greater than 0, not \"inf\""},
        {"render a.svg -o b.png --dpi 9x", "--dpi: must be a number greater than 0, not \"9x\""},
        {"render a.svg -o b.png --dpi 9 --scale 2", "--scale excludes --dpi"},
    };
    for (const auto& [arguments, what] : rows) {
        const Ended ended = easel(arguments);
        EXPECT_EQ(ended.code, 2) << arguments;
        EXPECT_EQ(ended.output.rfind(std::string("easel: ") + what + "; see easel ", 0), 0U) << ended.output;
        EXPECT_EQ(ended.output.find('\n'), ended.output.size() - 1) << ended.output;
    }
}

TEST_F(CommandLine, TellsOfItself) {
    EXPECT_EQ(easel("--version").output, "Easel 16.0.0\n");
    const std::string help = easel("--help").output;
    for (const char* word : {"run", "render", "info", "plugins", "Exit codes", "EASEL_PLUGINS", "EASEL_RENDER_SECONDS"})
        EXPECT_NE(help.find(word), help.npos) << word;
}

TEST_F(CommandLine, ReadsStandardInputAndWritesStandardOutput) {
    folder.write("d.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='4'/>");
    folder.write("s.js", "#!/usr/bin/easel\nprint('here');\nthrow 1;\n");
    EXPECT_EQ(easel("info - < d.svg").output, easel("info d.svg").output);
    expectFailure(easel("run - < s.js"), 1, "here\neasel: standard input:3: 1");
    EXPECT_EQ(easel("render - -o - --format png < d.svg > p.png").code, 0);
    EXPECT_EQ(folder.content("p.png").substr(16, 8), std::string("\0\0\0\x08\0\0\0\x04", 8));
    EXPECT_EQ(easel("render d.svg -o - --format pdf").output.substr(0, 5), "%PDF-");
    expectFailure(easel("info - < s.js"), 1, "easel: standard input:1:2: not well-formed (invalid token)");
}

TEST_F(CommandLine, AnOutputThatIsFullIsAnError) {
    folder.write("d.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='4'/>");
    folder.write("s.js", "\nprint('here');\n");
    const std::string full = "standard output: No space left on device";
    for (const char* arguments : {"--help", "--version", "info d.svg", "render d.svg -o - --format png", "plugins"})
        expectFailure(easel(arguments + std::string(" > /dev/full")), 1, "easel: " + full);
    expectFailure(easel("run s.js > /dev/full"), 1, "easel: s.js:2: print: No space left on device");
}

TEST_F(CommandLine, ADrawingThatTheRendererDiesOfIsOneLine) {
    folder.write("d.svg",
                 "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='4'><filter id='f'><feFlood width='0' "
                 "height='0'/><feTile/></filter><rect width='8' height='4' filter='url(#f)'/></svg>");
    const std::string why = "d.svg: cannot be drawn: the renderer gave up: assertion failed: width > 0 && height > 0";
    expectFailure(easel("render d.svg -o d.PDF"), 1, "easel: " + why);
    folder.write("s.js", "app.open('d.svg');\ntry { app.exportPNG('d.png'); } catch (e) { print(e.message); }\n"
                         "app.newDocument(72, 36);\napp.exportPDF('e.Pdf', 2);\napp.exportPDF('e.png');\n");
    expectFailure(easel("run s.js"), 1,
                  "app.exportPNG: " + why +
                      "\neasel: s.js:5: app.exportPDF: e.png: the name of such a picture ends in .pdf");
    EXPECT_NE(folder.content("e.Pdf").find("/MediaBox [ 0 0 144 72 ]"), std::string::npos);
    EXPECT_EQ(folder.fileCount(), 3);
}

TEST_F(CommandLine, TellsWhatADrawingHoldsAndMakesPicturesOfIt) {
    folder.write("d.svg",
                 "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 20 10'>\n<text>a</text><path d='M0 0 L9 9 L'/>"
                 "<path d='M0 0 L1 1 M2 2 L3 3'/></svg>");
    const std::string warning =
        "easel: user data: d.svg:2:15: the outline is damaged; what comes before that is kept\n";
    const Ended info = easel("info d.svg");
    EXPECT_EQ(info.code, 0);
    EXPECT_EQ(info.output, warning + "page: 20 x 10 points\nsheet: 7.06 x 3.53 mm (a point for each unit, since the "
                                     "file leaves it open)\nlayer: Layer 1, 3 objects\n"
                                     "objects: 0 groups, 1 path, 1 compound path, 1 opaque\n"
                                     "shapes: 2, 0 of them opaque\nopaque: 1 <text>: shown, not edited\n");
    EXPECT_EQ(easel("render d.svg -o d.png --scale 3").output, warning);
    EXPECT_EQ(easel("render d.svg -o d.pdf").code, 0);
    EXPECT_EQ(folder.content("d.png").substr(16, 8), std::string("\0\0\0\x3c\0\0\0\x1e", 8)); // 60 by 30
    EXPECT_EQ(folder.content("d.pdf").substr(0, 5), "%PDF-");
    expectFailure(easel("info none.svg"), 1, "easel: none.svg: No such file or directory");
}

TEST_F(CommandLine, FindsPluginsByNameAndInFolders) {
    const std::string tools = "Ortholine\n  tool: Isometric Line Tool\n  tool: Isometric Mover Tool\n";
    const Ended named = easel("plugins None.aip " ORTHOLINE_BUNDLE);
    EXPECT_EQ(named.code, 1);
    EXPECT_EQ(named.output.rfind("easel: None.aip: no such plug-in\n" + tools, 0), 0U) << named.output;

    // The one that was named comes before the one that was found.
    folder.write("own/Text.aip/Contents/Linux/Text", "no library");
    std::filesystem::create_directory_symlink(ORTHOLINE_BUNDLE, folder.path("own/Ortholine.aip"));
    const std::string folders = "export EASEL_PLUGINS=none::own";
    for (const char* arguments : {"plugins", "plugins --plugin " ORTHOLINE_BUNDLE}) {
        const Ended found = easel(arguments, folders);
        EXPECT_EQ(found.code, 1);
        EXPECT_EQ(found.output.rfind("easel: plug-in: own/Text.aip: cannot be loaded: ", 0), 0U) << found.output;
        EXPECT_NE(found.output.find(tools), found.output.npos) << found.output;
    }
    folder.write("s.js", "print(app.plugins.length, app.reports.length)");
    EXPECT_NE(easel("run s.js", folders).output.find("\n1 1\n"), std::string::npos); // what does not load is told

    const std::string usual = "unset EASEL_PLUGINS && export HOME=/h XDG_DATA_HOME=";
    EXPECT_NE(easel("plugins", usual).output.find("\n  /h/.local/share/easel/plug-ins\n"), std::string::npos);
    EXPECT_NE(easel("plugins", usual + "/d").output.find("\n  /d/easel/plug-ins\n"), std::string::npos);
}

TEST_F(CommandLine, WhatIsNoFileOfADrawingIsRefusedAtOnce) {
    ASSERT_EQ(std::system(("mkfifo " + folder.path("pipe")).c_str()), 0);
    std::filesystem::create_directory(folder.path("folder.svg"));
    expectFailure(easel("info pipe"), 1, "easel: pipe: Not a regular file");
    expectFailure(easel("info folder.svg"), 1, "easel: folder.svg: Is a directory");
    folder.write("disk.js", "app.newDocument(1e9, 1);\n['/dev/full', 'pipe'].forEach(function (name) {\n"
                            "try { app.save(name); } catch (error) { print(error.message); } });\n"
                            "app.newDocument(1e308, 5); app.save('big.svg');\n");
    const Ended disk = easel("run disk.js");
    EXPECT_NE(disk.output.find("/dev/full: Not a regular file\n"), std::string::npos) << disk.output;
    EXPECT_NE(disk.output.find("pipe: Not a regular file\n"), std::string::npos) << disk.output;
    EXPECT_NE(disk.output.find("big.svg: a page of this size cannot be saved\n"), std::string::npos) << disk.output;
    EXPECT_FALSE(std::filesystem::exists(folder.path("big.svg")));
}

TEST_F(CommandLine, AScriptThatFailsAnswersOneWithItsLine) {
    folder.write("fails.js", "print('before');\nassert(false, 'no');\nprint('after');\n");
    expectFailure(easel("run fails.js"), 1, "before\neasel: fails.js:2: assert: failed: no");
    expectFailure(easel("run none.js"), 1, "easel: none.js: cannot be read: No such file or directory");
    expectFailure(easel("run ."), 1, "easel: .: cannot be read: Is a directory");
}

TEST_F(CommandLine, WhatIsNoPluginIsRefusedBeforeTheScriptRuns) {
    folder.write("script.js", "print('ran');\n");
    folder.write("Folder.aip/readme", "nothing");
    folder.write("Text.aip/Contents/Linux/Text", "no library");
    const std::string noEntry = TEST_BUILD_DIR "/NoEntry.aip";
    const std::string declining = TEST_BUILD_DIR "/Declining.aip";
    const std::string noBundle = ": not a plug-in bundle (a folder NAME.aip with Contents/Linux/NAME in it)";
    const auto refusal = [&](const std::string& bundle) { return easel("run script.js --plugin " + bundle); };
    expectFailure(refusal("None.aip"), 1, "easel: None.aip: no such plug-in");
    expectFailure(refusal("script.js"), 1, "easel: script.js" + noBundle);
    expectFailure(refusal("Folder.aip"), 1, "easel: Folder.aip" + noBundle);
    expectFailure(refusal(ORTHOLINE_BUNDLE "/Contents"), 1, "easel: " ORTHOLINE_BUNDLE "/Contents" + noBundle);
    expectFailure(refusal(noEntry + '/'), 1, "easel: " + noEntry + "/: exports no PluginMain");
    EXPECT_EQ(refusal(declining).output.rfind("easel: " + declining + ": the plug-in declined to start: ", 0), 0U);
    EXPECT_EQ(refusal(declining).code, 1);
    EXPECT_EQ(refusal("Text.aip").output.rfind("easel: Text.aip: cannot be loaded: ", 0), 0U);
}

TEST_F(CommandLine, ADiskThatFillsUpLeavesTheFileAsItWas) {
    const std::string drawing = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>\n";
    folder.write("drawing.svg", drawing);
    folder.write("fill.js", "var doc = app.open('drawing.svg');\n"
                            "for (var i = 0; i < 500; i++) doc.addPath([[i, 2], [3, 4]]);\n"
                            "app.save('drawing.svg');\n");
    // No file may grow beyond some kilobytes; that is as good as a full disk.
    const std::string small = "ulimit -c 0 && ulimit -f 8";
    expectFailure(easel("run fill.js", small), 1, "easel: fill.js:3: app.save: drawing.svg: File too large");
    expectFailure(easel("render drawing.svg -o p.png --scale 300", small), 1, "easel: p.png: File too large");
    EXPECT_EQ(folder.content("drawing.svg"), drawing);
    EXPECT_EQ(folder.fileCount(), 2);
    // A disk of three pages, where one may be mounted.
    folder.write("full.sh", "mkdir disk && mount -t tmpfs -o size=12k none disk || exit 1\n"
                            "cp drawing.svg fill.js disk && cd disk\n'" EASEL_BINARY "' run fill.js > ../told 2>&1\n"
                            "cmp drawing.svg ../drawing.svg >> ../told; ls -A >> ../told\n");
    if (easel("--version", "unshare -m sh full.sh").code != 0) return;
    EXPECT_EQ(folder.content("told"), "easel: fill.js:3: app.save: drawing.svg: No space left on device\n"
                                      "drawing.svg\nfill.js\n");
}

TEST_F(CommandLine, UndoStepsTakeTheMemoryThatTheUserSays) {
    // Each move keeps 5,000 points of 48 bytes as they were: of 20, four fit into a megabyte.
    folder.write("s.js", "var doc = app.newDocument(9, 9), points = [];\n"
                         "for (var i = 0; i < 5000; i++) points.push([i, i]);\ndoc.addPath(points);\n"
                         "for (i = 0; i < 20; i++) doc.move(doc.paths[0], 1, 1);\n"
                         "print(app.undoMegabytes, doc.undoDepth);\napp.undoMegabytes = 0;\nprint(doc.undoDepth);\n");
    EXPECT_EQ(easel("run s.js").output, "256 21\n1\n");
    EXPECT_EQ(easel("run s.js", "export EASEL_UNDO_MEGABYTES=1").output, "1 4\n1\n");
    expectFailure(easel("run s.js", "export EASEL_UNDO_MEGABYTES=lots"), 1,
                  "easel: EASEL_UNDO_MEGABYTES must be a whole number from 1 to 1000000, not \"lots\"");
}

TEST_F(CommandLine, KeepsSettingsInAProfile) {
    folder.write("script.js", "print('played');\n");
    const std::string welcome = "message: Welcome to Ortholine! \nPlugin successfully installed.\n";
    const std::string run = "run script.js --plugin " ORTHOLINE_BUNDLE;
    const std::string first = "export TMPDIR=" + folder.path() + " XDG_CONFIG_HOME=" + folder.path("own");
    const std::string file = "profiles/mine/Velloran/Ortholine 16/Preferences";
    EXPECT_EQ(easel(run + " --profile profiles/mine", first).output, welcome + "played\n");
    EXPECT_NE(folder.content(file).find("\"zAxis\":30"), std::string::npos);
    folder.write(file, "{\"Prefs\":{\"zAxis\":45}}");
    EXPECT_EQ(easel(run + " --profile profiles/mine", first).output, "played\n");
    EXPECT_NE(folder.content(file).find("\"zAxis\":45"), std::string::npos);
    // Without one, a temporary one, which is gone afterwards; the user's own is left alone.
    EXPECT_EQ(easel(run, first).output, welcome + "played\n");
    EXPECT_EQ(folder.fileCount(), 2);
    expectFailure(easel(run + " --profile script.js", first), 1,
                  "easel: script.js: cannot be the profile: Not a directory");
}

TEST_F(CommandLine, AStrokeTellsWhatBecameOfIt) {
    folder.write("s.js", R"js(
        var layer = app.newDocument(99, 99).layers[0];
        app.selectTool("Isometric Line Tool");
        function stroke() { return mouse.stroke([[10, 50], [30, 40], [60, 30]]); }
        print(stroke(), layer);
        layer.locked = true;
        print(stroke(), layer);
        layer.locked = false;
        layer.visible = false;
        print(stroke(), app.reports.length);
        layer.visible = true;
        mouse.press(10, 60);
        keys.press("Escape");
        mouse.drag(50, 60);
        print(mouse.release(60, 60), app.document.undoDepth);
        mouse.release(60, 60);
    )js");
    const std::string remark = "easel: user data: \"Isometric Line Tool\" cannot draw: the current layer is ";
    expectFailure(easel("run s.js --plugin " ORTHOLINE_BUNDLE), 1,
                  "message: Welcome to Ortholine! \nPlugin successfully installed.\n"
                  "done layer \"Layer 1\" of 1 object\n" +
                      remark + "locked\nlocked layer \"Layer 1\" of 1 object, locked\n" + remark +
                      "hidden\nhidden 2\ntaken back 5\neasel: s.js:16: mouse.release: no mouse button is down");
}

TEST_F(CommandLine, TheExamplesRunToTheirEnd) {
    std::filesystem::create_directories(folder.path("out"));
    std::filesystem::copy(PROJECT_DIR "/examples", folder.path("examples"));
    for (const std::string name :
         {"cube", "shift-and-option", "select", "line-tool", "stairs", "bracket", "move", "measure", "shapes"}) {
        const std::string bundle = name == "measure"  ? TEST_BUILD_DIR "/Measure.aip"
                                   : name == "shapes" ? TEST_BUILD_DIR "/Shapes.aip"
                                                      : ORTHOLINE_BUNDLE;
        const Ended ended = easel("run examples/" + name + ".js --plugin " + bundle);
        EXPECT_EQ(ended.code, 0) << ended.output;
    }
    // What the bracket's script draws is what the mover's script starts from.
    EXPECT_EQ(folder.content("out/bracket.svg"), folder.content("examples/bracket.svg"));
    for (const std::string name : {"cube", "measure", "shapes"})
        EXPECT_EQ(folder.content("out/" + name + ".png").substr(1, 3), "PNG") << name;
    EXPECT_NE(folder.content("out/cube.svg").find("inkscape:label=\"Cube\""), std::string::npos);
}

} // namespace
