// Draws a staircase of joined strokes: one path, that grows from its last end and then from its first.
//
//   easel run examples/stairs.js --plugin build/release/Ortholine.aip

var step = 36;
var axes = {right: 30, up: 90, left: 150}; // degrees, counter-clockwise as seen
var doc = app.newDocument(400, 320);
app.selectTool("Isometric Line Tool");

function along(point, axis) {
    var angle = axes[axis] * Math.PI / 180;
    return [point.x + step * Math.cos(angle), point.y - step * Math.sin(angle)];
}

// Command at the release joins, whatever the setting says against it; the first stroke has nothing to join to.
function draw(from, axis, sense) {
    var to = along({x: 0, y: 0}, axis);
    mouse.stroke([[from.x, from.y], [from.x + sense * to[0], from.y + sense * to[1]]], {command: true});
}

draw({x: 190, y: 190}, "up", 1);
assert(doc.paths.length === 1, "the first stroke is a line");
var stairs = doc.paths[0];

// Upwards from the last end.
["right", "up", "right", "up", "right"].forEach(function (axis) {
    draw(stairs.points[stairs.points.length - 1], axis, 1);
});
// Downwards from the first: a press there turns the path round, so that it always goes on from its last anchor.
var foot = stairs.points[0];
["right", "up", "right", "up"].forEach(function (axis) {
    draw(foot, axis, -1);
    foot = stairs.points[stairs.points.length - 1];
});

assert(doc.paths.length === 1, "all strokes are one path, not " + doc.paths.length);
assert(stairs.points.length === 11, "a staircase of ten strokes has eleven anchors, not " + stairs.points.length);
assert(!stairs.closed && doc.undoDepth === 10, "each stroke is one step of undo");
print(stairs.points.length, "anchors in one path");

app.exportPNG("out/stairs.png", 2);
app.save("out/stairs.svg");
assert(app.reports.length === 0, "nothing was amiss: " + app.reports.join("; "));
