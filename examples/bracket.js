// Draws a bracket under its pins, in dimetric projection, as workshops do: 7 degrees to the right, 42 to the left and
// there half as long. The axes are set in the tools' preferences; each outline is one path of joined strokes.
//
//   easel run examples/bracket.js --plugin build/release/Ortholine.aip

var axes = {right: 7, up: 90, left: 138}; // degrees, counter-clockwise as seen
var scale = {right: 1, up: 1, left: 0.5};
var origin = [90, 330];

// A place on the bracket, in points along the three axes, as one on the page.
function place(right, left, up) {
    var at = origin.slice();
    [["right", right], ["left", left], ["up", up]].forEach(function (part) {
        var angle = axes[part[0]] * Math.PI / 180, length = part[1] * scale[part[0]];
        at[0] += length * Math.cos(angle);
        at[1] -= length * Math.sin(angle);
    });
    return at;
}

// Strokes as a hand makes them, two degrees off. Command at the release joins each to the one before.
function outline(corners) {
    for (var i = 1; i < corners.length; ++i) {
        var from = place.apply(null, corners[i - 1]), to = place.apply(null, corners[i]);
        var angle = Math.atan2(to[1] - from[1], to[0] - from[0]) + 2 * Math.PI / 180;
        var length = Math.sqrt(Math.pow(to[0] - from[0], 2) + Math.pow(to[1] - from[1], 2));
        mouse.stroke([from, [from[0] + length * Math.cos(angle), from[1] + length * Math.sin(angle)]], {command: i > 1});
    }
    assert(lines()[0].points.length === corners.length, "one path of " + corners.length + " anchors");
}

function lines() {
    return doc.paths.filter(function (path) { return path.layer.title === "Bracket"; });
}

var width = 220, depth = 160, height = 150, thick = 26;
var doc = app.open("examples/bracket-parts.svg");
doc.currentLayer = doc.layers.filter(function (layer) { return layer.title === "Bracket"; })[0];
app.onDialog(function (dialog) {
    dialog.type("Z (right) axis angle:", "7");
    dialog.type("X (left) axis angle:", "-42");
    dialog.press("Return");
});
app.editTool("Isometric Line Tool"); // a double-click
app.onDialog(null);
app.selectTool("Isometric Line Tool");
app.snapToPoint = true;

outline([[0, 0, 0], [width, 0, 0], [width, 0, height], [width - thick, 0, height],
                       [width - thick, 0, thick], [0, 0, thick], [0, 0, 0]]);
outline([[0, depth, 0], [0, depth, thick], [width - thick, depth, thick], [width - thick, depth, height],
                    [width, depth, height]]);
[[0, 0], [0, thick], [width - thick, thick], [width - thick, height], [width, height]].forEach(function (at) {
    outline([[at[0], 0, at[1]], [at[0], depth, at[1]]]);
});

// Each stroke lies along an axis, though the hand was off.
lines().forEach(function (path) {
    for (var i = 1; i < path.points.length; ++i) {
        var a = path.points[i - 1], b = path.points[i];
        var degrees = (Math.atan2(a.y - b.y, b.x - a.x) * 180 / Math.PI + 360) % 180;
        assert(Object.keys(axes).some(function (axis) { return Math.abs(degrees - axes[axis]) < 1e-6; }),
               "a stroke at " + degrees + " degrees is along no axis");
    }
});
assert(lines().length === 7, "two outlines and five edges, not " + lines().length);
assert(doc.undoDepth === 15, "each stroke is one step of undo, not " + doc.undoDepth);

doc.deselectAll();
assert(app.reports.length === 0, "nothing was amiss: " + app.reports.join("; "));
app.save("out/bracket.svg");
app.exportPNG("out/bracket.png", 2);
print("out/bracket.svg");
print("out/bracket.png");
