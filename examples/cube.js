// Draws a cube on the desk with the Isometric Line Tool, one stroke an edge, as a hand with a mouse would.
//
//   easel run examples/cube.js --plugin build/release/Ortholine.aip

var edge = 60;
var axes = {right: 30, up: 90, left: 150}; // degrees, counter-clockwise as seen

function along(point, axis, length) {
    var angle = axes[axis] * Math.PI / 180;
    return [point[0] + length * Math.cos(angle), point[1] - length * Math.sin(angle)];
}

// A hand does not hit exactly. The tool holds the direction to the axis; a press or an end near an anchor snaps to it.
function draw(from, axis) {
    var wobble = 4 * Math.PI / 180;
    var angle = axes[axis] * Math.PI / 180 + wobble;
    var to = [from[0] + edge * Math.cos(angle), from[1] - edge * Math.sin(angle)];
    mouse.stroke([from, along(from, axis, edge / 2), to]);
}

function close(from, to) {
    mouse.stroke([[from[0] + 1, from[1] - 0.5], [to[0] - 1, to[1] + 1]]);
}

function near(a, b, tolerance) {
    return Math.abs(a - b) <= tolerance;
}

var doc = app.open("examples/desk.svg");
assert(app.tools.indexOf("Isometric Line Tool") >= 0, "the line tool is in the toolbox");
app.selectTool("Isometric Line Tool");

doc.addLayer("Cube");
var pathsBefore = doc.paths.length;
var depthBefore = doc.undoDepth;

// The corners: the nearest one on the sheet of paper, and the others from there.
var base = [282.5, 318];
var baseRight = along(base, "right", edge), baseLeft = along(base, "left", edge);
var top = along(base, "up", edge);
var topRight = along(baseRight, "up", edge), topLeft = along(baseLeft, "up", edge);

draw(base, "right");
draw(base, "left");
draw(base, "up");
draw(baseRight, "up");
draw(baseLeft, "up");
close(top, topRight);
close(top, topLeft);
draw(topRight, "left");
close(topLeft, along(topLeft, "right", edge));

// What came of it: nine straight lines, each along an axis, each an undo step.
var lines = doc.paths.slice(0, doc.paths.length - pathsBefore);
assert(lines.length === 9, "a cube has nine visible edges, not " + lines.length);
assert(doc.undoDepth === depthBefore + 9, "each edge is one undo step");

var corners = {};
lines.forEach(function (line) {
    var a = line.points[0], b = line.points[1];
    assert(line.points.length === 2 && !line.closed && line.layer.title === "Cube", "an edge is an open line");
    assert(line.style.fill === null && line.style.stroke === "#000000" && line.style.width === 0.5, "a thin black line");

    var length = Math.sqrt(Math.pow(b.x - a.x, 2) + Math.pow(b.y - a.y, 2));
    assert(near(length, edge, 1e-9), "an edge is " + edge + " points long, not " + length);
    var degrees = (Math.atan2(a.y - b.y, b.x - a.x) * 180 / Math.PI + 180) % 180;
    var axis = Object.keys(axes).filter(function (name) { return near(degrees, axes[name], 1e-9); })[0];
    assert(axis, "an edge at " + degrees + " degrees is along no axis");

    [a, b].forEach(function (end) { corners[end.x.toFixed(6) + ", " + end.y.toFixed(6)] = true; });
    print("edge along \"" + axis + "\" from " + a.x.toFixed(2) + ", " + a.y.toFixed(2) +
          " to " + b.x.toFixed(2) + ", " + b.y.toFixed(2));
});
assert(Object.keys(corners).length === 7, "the edges meet in seven corners, not " + Object.keys(corners).length);
assert(app.reports.length === 0, "nothing was amiss: " + app.reports.join("; "));

app.save("out/cube.svg");
app.exportPNG("out/cube.png", 2);
print("out/cube.svg");
print("out/cube.png");
