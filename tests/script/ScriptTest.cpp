// Session scripts: what a failing line says, and what scripts do to a document, all without a plug-in.
#include "support/Playing.h"
#include "svg/Writer.h"

namespace {

using ScriptTest = desk::Playing;

struct Line {
    const char* source;
    const char* error;
};

TEST_F(ScriptTest, AnUncaughtErrorNamesItsLineAndReason) {
    const Line lines[] = {
        {"\nvar a = [1,\n;",
         "3: empty expression not allowed (scripts are JavaScript ES5: no let, const, => or class)"},
        {"var a;\nb = 1;", "2: identifier 'b' undefined"},
        {"\n\nthrow new Error('mine');", "3: mine"},
        {"\nthrow 'just words';", "2: just words"},
        {"throw {toString: function () { throw 1; }};", "1: an error that cannot be told"},
        {"\nthrow new Error('two\\nlines');", "2: two lines"},
        {"function f() {\n  null.x;\n}\nf();", "2: cannot read property 'x' of null (called from 4)"},
        {"var e = new Error('early');\n\ntry { throw e; } finally { e = 1; }", "1: early"},
        {"\neval('\\n\\n\\nnowhere()');", "2: identifier 'nowhere' undefined"},
        {"#!/usr/bin/easel\nfunction f() {\n  assert(0);\n}\n\nf();", "3: assert: failed (called from 6)"},
        {"function f() {\n  keys.press(5); }\n[1].forEach(f);",
         "2: keys.press: argument 1 (name) must be a text, not 5 (called from 3)"},
        {"\nlet a = 1;", "2: parse error (scripts are JavaScript ES5: no let, const, => or class)"},
        {"\nassert(1 > 2, 'one is less');", "2: assert: failed: one is less"},
        {"assert(0);", "1: assert: failed"},
        {"TypeError = Error = null;\nkeys.press(5);", "2: keys.press: argument 1 (name) must be a text, not 5"},
        {"\xff\xfe", " source decode failed"},
    };
    for (const Line& line : lines) EXPECT_EQ(play(line.source), line.error) << line.source;
}

TEST_F(ScriptTest, WrongArgumentsAreNamed) {
    const Line lines[] = {
        {"mouse.press('abc', 1)", "mouse.press: argument 1 (x) must be a finite number, not \"abc\""},
        {"mouse.press(1, 0 / 0)", "mouse.press: argument 2 (y) must be a finite number, not NaN"},
        {"mouse.move(1)", "mouse.move: argument 2 (y) is missing"},
        {"mouse.move(1, 2, {}, 3)", "mouse.move: takes no more than 3 arguments, not 4"},
        {"mouse.move(1, 2, {shfit: true})", "mouse.move: argument 3 (modifiers): \"shfit\" means nothing here"},
        {"mouse.move(1, 2, {shift: 1})", "mouse.move: argument 3 (modifiers), shift must be true or false, not 1"},
        {"mouse.move(1, 2, 3)", "mouse.move: argument 3 (modifiers) must be an object like {shift: true}, not 3"},
        {"mouse.stroke([[1, 2], [3]])", "mouse.stroke: argument 1 (points), item 1 must be [x, y], not a list"},
        {"mouse.drag(1, 1)", "mouse.drag: no mouse button is down"},
        {"mouse.release(1, 1)", "mouse.release: no mouse button is down"},
        {"mouse.holdLength(1)", "mouse.holdLength: no mouse button is down"},
        {"mouse.holdLength(-1)", "mouse.holdLength: argument 1 (length) must not be negative"},
        {"mouse.press(1, 1)", "mouse.press: no document is open"},
        {"doc.undo(); mouse.press(1, 1); mouse.press(1, 1)", "mouse.press: the mouse button is down already"},
        {"doc.undo(); mouse.press(1, 1); mouse.move(1, 1)", "mouse.move: the mouse button is down; a move is a drag"},
        {"mouse.stroke([])", "mouse.stroke: argument 1 (points) must have a point"},
        {"keys.press('Enter')",
         "keys.press: argument 1 (name) must be the name of a key, not \"Enter\"; is it \"Return\"?"},
        {"keys.press('\u00e9')",
         "keys.press: argument 1 (name) must be the name of a key, not \"\u00e9\"; docs/session-scripts.md lists them"},
        {"app.newDocument(-1, 5)", "app.newDocument: argument 1 (width) must be a number greater than 0, not -1"},
        {"app.selectTool('Lasso')", "app.selectTool: no tool has the title \"Lasso\""},
        {"app.tools = []", "app.tools: cannot be set"},
        {"app.close()", "app.close: no document is open"},
        {"app.save('x.svg')", "app.save: no document is open"},
        {"doc.addPath([])", "doc.addPath: argument 1 (points) must have a point"},
        {"doc.addPath([{x: 1}])", "doc.addPath: argument 1 (points), item 0, y must be a finite number, not undefined"},
        {"doc.addPath([[1, 2]], {closd: 1})", "doc.addPath: argument 2 (options): \"closd\" means nothing here"},
        {"doc.addPath([{x: 1, get y() { throw new Error('mine'); }}])", "mine"},
        {"doc.selectPoints(doc.addPath([[1, 2]]), [1])",
         "doc.selectPoints: argument 2 (indices): the path has no point 1"},
        {"doc.select(doc.layers[0])", "doc.select: argument 1 (objects) must be a path, not an object"},
        {"doc.move([doc.addPath([[1, 2]]), 5], 1, 1)", "doc.move: argument 1 (objects), item 1 must be a path, not 5"},
        {"doc.move(app.newDocument(5, 5).addPath([[1, 2]]), 1, 1)",
         "doc.move: argument 1 (objects) belongs to another document"},
        {"doc.move(doc.addPath([[1e308, 2]]), 1e308, 0)", "doc.move: that is too far"},
        {"doc.scale(doc.addPath([[1, 2]]), 1e-200, 1, 0, 0)", "doc.scale: that is too large or too small"},
        {"doc.layers[0].locked = 'yes'", "layer.locked: argument 1 (value) must be true or false, not \"yes\""},
        {"doc.addLayer('two\\nlines')",
         "doc.addLayer: argument 1 (title) must be a text of one line in whole characters, not \"two lines\""},
        {"doc.addLayer('half \\ud83d'.substr(0, 4) + '\\ud83d')",
         "doc.addLayer: argument 1 (title) must be a text of one line in whole characters, not \"half\xed\xa0\xbd\""},
        {"doc.view.zoom = 0", "view.zoom: argument 1 (value) must be a number greater than 0, not 0"},
        {"var undo = doc.undo; undo()", "doc.undo: the object of the call must be a document, not undefined"},
    };
    for (const Line& line : lines) {
        const std::string call = line.source;
        const bool onDocument = call.find("doc.") != std::string::npos;
        EXPECT_EQ(play((onDocument ? "var doc = app.newDocument(9, 9);\n" : "\n") + call),
                  "2: " + std::string(line.error))
            << call;
        while (session.document() != nullptr) session.close();
        EXPECT_FALSE(session.pointer.pressed()); // closing ends a gesture
    }
}

TEST_F(ScriptTest, EditsADocumentInUndoSteps) {
    EXPECT_EQ(play(R"js(
        var doc = app.newDocument(200, 100);
        print(doc.width, doc.height, app.document === doc, doc.layers.length, doc.undoDepth);

        var low = doc.addPath([[10, 10], [40, 10]]);
        var layer = doc.addLayer("Ende \ud83d\ude80");
        var high = doc.addPath([[0, 0], {x: 5, y: 5, outX: 7, corner: false}], {closed: true});
        var inLow = doc.addPath([[1, 1]], {layer: low.layer});
        print(doc.paths.map(function (path) { return [high, inLow, low].indexOf(path); }), doc.undoDepth);
        print(layer.title, doc.currentLayer === layer, doc.layers.indexOf(layer), high.layer === layer);
        print(high.id, high.type, high.closed, low.closed, JSON.stringify(high.points[1]), JSON.stringify(low.style));

        doc.move([low, high, low], 100, -1);
        print(low.points[1].x, low.points[1].y, high.points[1].outX, doc.undoDepth);
        print(doc.undo(), low.points[1].x, doc.redo(), low.points[1].x, doc.redo());

        doc.select(low);
        doc.selectPoints(high, [1]);
        print(doc.selection.length, doc.selection[0] === high, high.points[0].selected, high.points[1].selected);
        doc.deselectAll();
        print(doc.selection.length, doc.undoDepth);

        layer.locked = true;
        layer.visible = false;
        layer.title = "Other";
        print(layer.locked, layer.visible, layer.title, doc.undoDepth);
        doc.undo();
        print(layer.locked, layer.visible, layer.title);

        doc.view.zoom = 2;
        doc.view.center = [3, 4];
        print(doc.view.zoom, doc.view.center, doc.undoDepth, doc.find("nobody"));
    )js"),
              "200 100 true 1 0\n"
              "0,1,2 4\n"
              "Ende \xf0\x9f\x9a\x80 true 0 true\n"
              "null path true false "
              "{\"x\":5,\"y\":5,\"inX\":5,\"inY\":5,\"outX\":7,\"outY\":5,\"corner\":false,\"selected\":false} "
              "{\"fill\":null,\"stroke\":\"#000000\",\"width\":1}\n"
              "140 9 107 5\n"
              "true 40 true 140 false\n"
              "2 true false true\n"
              "0 5\n"
              "true false Other 8\n"
              "true false Ende \xf0\x9f\x9a\x80\n"
              "2 3,4 7 null\n");
}

TEST_F(ScriptTest, SubpathsAreReachedThroughTheirCompoundPath) {
    session.open(
        folder.write("d.svg", "<svg><path id='ring' d='M0 0h9v9z M3 3h3v3z'/><g id='g'><path d='M1 1h1'/></g></svg>"));
    EXPECT_EQ(play(R"js(
        var doc = app.document, ring = doc.find('ring'), hole = ring.children[0];
        print(ring, ring.type, ring.parent, ring.points, ring.style.fill, hole, hole.parent === ring, hole.children);
        print(doc.find('g').children[0].parent, doc.paths.length);
        doc.move(hole, 1, 0);
        print(hole.points[0].x, ring.children[1].points[0].x);
    )js"),
              "compound path \"ring\" of 2 subpaths compound null null #000000 closed path of 3 points true null\n"
              "group \"g\" of 1 object 3\n"
              "4 0\n");
}

TEST_F(ScriptTest, AFileThatAnotherProgramChangedIsReplacedByForceAlone) {
    const std::string name = folder.write("d.svg", "<svg xmlns='http://www.w3.org/2000/svg'/>");
    session.open(name);
    folder.write("d.svg", "<svg xmlns='http://www.w3.org/2000/svg' id='theirs'/>");
    const std::string save = "app.save('" + name + "'";
    EXPECT_EQ(play(save + ")"), "1: app.save: " + name + ": Another program has changed the file since it was opened");
    EXPECT_NE(folder.content("d.svg").find("theirs"), std::string::npos);
    EXPECT_EQ(play(save + ", {force: true}); " + save + ")"), "");
    EXPECT_EQ(folder.content("d.svg").find("theirs"), std::string::npos);
}

TEST_F(ScriptTest, ThingsSayWhatTheyAre) {
    EXPECT_EQ(play(R"js(
        var doc = app.newDocument(99, 2.5);
        doc.addLayer("L").locked = true;
        print(doc, doc.view, doc.addPath([[0, 0], [9, 0]], {closed: true}), [doc.layers[0]]);
    )js"),
              "document of 99 x 2.5 points view at zoom 1 closed path of 2 points layer \"L\" of 1 object, locked\n");
}

TEST_F(ScriptTest, BytesThatAreNoTextAreMarked) {
    session.newDocument(9, 9).addLayer("a\xff\xf0\x9f\x9a\x80\xc3\xfc"
                                       "b\xf0\x9f");
    const std::string mark = "\xef\xbf\xbd";
    EXPECT_EQ(play("print(app.document.layers[0].title)"),
              "a" + mark + "\xf0\x9f\x9a\x80" + mark + mark + "b" + mark + "\n");
}

TEST_F(ScriptTest, HoldsGesturesToLengthsAndToTheGrid) {
    // Steps of 10 points at 30 degrees: 5 sqrt(3) across, 5 up.
    EXPECT_EQ(
        play(R"js(
        var doc = app.newDocument(200, 200);
        var line = doc.addPath([[0, 0], [40, 0]]);
        function where() { var p = line.points[0]; return p.x.toFixed(3) + ' ' + p.y.toFixed(3); }
        app.axisGrid = true;
        mouse.press(21, 1);             // picked where it is, though a crossing is elsewhere
        mouse.drag(29, -5);
        print(where());
        app.snapToAxisGrid = false;
        mouse.drag(29, -5);
        print(where());
        mouse.holdLength(0);
        mouse.drag(29, -5);
        print(where());
        mouse.holdLength(5);
        mouse.release(21 + 30, 1 + 40); // 3 to 4 to 5
        print(where());
        mouse.stroke([[100, 100], [300, 300]]); // nothing is there: a marquee
        doc.scale(line, 2, 1, 3, 4);
        print(where(), line.points[1].x, app.axes, app.axisGrid, app.snapToAxisGrid);
        app.axisGrid = false;
        mouse.stroke([[50, 5], [51, 6], [53, 8]]);
        print(where());
    )js"),
        "8.660 -5.000\n8.000 -6.000\n0.000 0.000\n3.000 4.000\n3.000 4.000 83 30,150,90 true false\n6.000 7.000\n");
}

TEST_F(ScriptTest, ACopyThatIsExportedIsNotTheDrawingsFile) {
    const std::string own = folder.path("own.svg");
    const std::string copy = folder.path("copy.svg");
    EXPECT_EQ(play("app.newDocument(9, 9).addPath([[0, 0], [5, 5]]); app.save('" + own +
                   "'); app.document.addPath([[1, "
                   "1], [2, 2]]); app.exportSVG('" +
                   copy + "'); app.exportSVG('" + own + "')"),
              "1: app.exportSVG: " + own + ": is the file of an open drawing; it is saved, not exported");
    EXPECT_TRUE(session.documents.isModified(*session.document()));
    EXPECT_EQ(session.documents.pathOf(*session.document()), own);
    EXPECT_EQ(folder.content("copy.svg"), easel::svg::write(*session.document()));
    // Nor is a part of it that is edited.
    const std::string whole = R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9">)"
                              R"(<symbol id="s"><path d="M1,1 L5,5"/></symbol><use href="#s"/></svg>)";
    const std::string path = folder.write("whole.svg", whole);
    EXPECT_EQ(play("app.open('" + path + "').editSymbol('s'); app.save('" + path + "')"),
              "1: app.save: a part of the drawing is being edited; it is saved with the drawing, once that has ended");
    EXPECT_EQ(play("app.exportSVG('" + path + "')"),
              "1: app.exportSVG: " + path + ": is the file of an open drawing; it is saved, not exported");
    EXPECT_EQ(folder.content("whole.svg"), whole);
    EXPECT_EQ(play("app.exportSVG('x.txt')"), "1: app.exportSVG: x.txt: the name of an SVG file must end in .svg");
}

TEST_F(ScriptTest, ArrangesArtLayersAndArtboards) {
    EXPECT_EQ(play(R"js(
        var doc = app.newDocument(99, 99);
        var pair = [doc.addPath([[0, 0], [1, 1]]), doc.addPath([[2, 2], [3, 3]])];
        doc.group(pair).opacity = 0.5;
        var group = pair[0].layer && doc.duplicate(doc.group(pair))[0];
        group.style = {fill: '#ff8000', width: 3};
        assert(doc.paths[0].style.fill === '#ff8000' && doc.paths[0].style.stroke === '#000000');
        assert(pair[0].style.fill === null, 'what was copied stays');
        assert(doc.ungroup(group).length === 2);
        doc.reorder(doc.paths[0], 'back');
        doc.reorder(pair[0], 'above', pair[1]);
        pair[0].hidden = pair[0].locked = true;
        doc.addArtboard('Side', 10, 20, 30, 40);
        assert(doc.artboards.length === 2 && doc.artboards[1].x === 10 && doc.artboards[1].height === 40);
        doc.removeArtboard(0);
        doc.moveLayer(doc.addLayer('Top'), 1);
        assert(doc.layers[1].title === 'Top');
        doc.removeLayer(doc.layers[1]);
        var depth = doc.undoDepth;
        assert(depth === 17, depth);
        while (doc.undo()) depth -= 1;
        assert(depth === 0 && doc.paths.length === 0 && doc.artboards.length === 1);
    )js"),
              "");
}

TEST_F(ScriptTest, AnObjectWhoseThingIsGoneThrowsUntilUndoBringsItBack) {
    EXPECT_EQ(play(R"js(
        var doc = app.newDocument(9, 9), path = doc.addPath([[1, 2]]), layer = doc.addLayer("L");
        function attempt(what) { try { print(what()); } catch (error) { print(error.message); } }
        doc.remove(path);
        attempt(function () { return path.closed; });
        attempt(function () { doc.move([path], 1, 1); });
        doc.undo();
        attempt(function () { return path.points[0].y; });
        doc.undo();
        attempt(function () { return layer.title; });
        app.close();
        attempt(function () { return path.closed; });
        attempt(function () { return doc.width; });
        attempt(function () { return doc.view.zoom; });
    )js"),
              "path.closed: this path is no longer in the document\n"
              "doc.move: this path is no longer in the document\n"
              "2\n"
              "layer.title: this layer is no longer in the document\n"
              "path.closed: this document is closed\n"
              "doc.width: this document is closed\n"
              "doc.view: this document is closed\n");
}

// A loop over doc.paths[i] took a time that grew with the square of their number.
TEST_F(ScriptTest, ListsAreMadeAnewOnlyWhenSomethingCameOrWent) {
    EXPECT_EQ(play(R"js(
        var doc = app.newDocument(9, 9), path = doc.addPath([[1, 2]]), paths = doc.paths, layers = doc.layers;
        doc.move(path, 1, 1);
        print(paths === doc.paths, layers === doc.layers, Object.isFrozen(paths));
        doc.addLayer("new");
        print(paths.length, doc.layers.length, layers.length);
        doc.undo();
        doc.undo();
        doc.undo();
        print(doc.paths.length, doc.layers.length);
        doc.redo();
        print(doc.paths[0] === path, doc.layers[0] === layers[0]);
        var other = app.newDocument(9, 9);
        print(other.paths.length, doc.paths.length);
        paths.push(1);
    )js"),
              "true true true\n1 2 1\n0 1\ntrue true\n0 1\n15: not extensible");
}

TEST_F(ScriptTest, RefusedCallsLeaveTheDocumentAsItWas) {
    EXPECT_EQ(play(R"js(
        var doc = app.newDocument(9, 9), path = doc.addPath([[1, 2]]);
        var calls = [
            function () { doc.move([path, null], 1, 1); },
            function () { doc.addPath([[1, 2], [3, {}]]); },
            function () { doc.selectPoints(path, [0, 1]); },
            function () { doc.remove([path, doc.layers[0]]); }
        ];
        calls.forEach(function (call) { try { call(); print("done"); } catch (error) { } });
        print(doc.paths.length, path.points[0].x, path.selected, doc.undoDepth);
    )js"),
              "1 1 false 1\n");
}

} // namespace
