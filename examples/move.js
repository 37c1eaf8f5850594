// Moves parts of the bracket along its axes: pins and washers upwards, for a picture of how it is put together, and the top
// of the upright, so that it grows.
//
//   easel run examples/move.js --plugin build/release/Ortholine.aip

var doc = app.open("examples/bracket.svg");
app.selectTool("Isometric Mover Tool");
app.snapToPoint = false;

// A drag upwards as a hand makes it, some degrees off. The tool moves what is selected straight up, as far as the hand
// went.
function lift(by) {
    var aside = Math.sin(4 * Math.PI / 180) * by, up = Math.cos(4 * Math.PI / 180) * by;
    var steps = doc.undoDepth;
    mouse.stroke([[60, 100], [60 + aside / 2, 100 - up / 3], [60 + aside, 100 - up]]);
    assert(doc.undoDepth === steps + 1, "a drag is one step of undo");
    doc.deselectAll();
}

doc.select([doc.find("pin-1"), doc.find("pin-2")]); // groups, with what is clipped in them
lift(110);
doc.select([doc.find("washer-1"), doc.find("washer-2")]); // rings: compound paths
lift(55);

// Of the upright only the anchors of its top are selected: its outlines are stretched.
var lines = doc.paths.filter(function (path) { return path.layer.title === "Bracket"; });
var top = 160, anchors = 0;
lines.forEach(function (path) {
    var upper = [];
    path.points.forEach(function (point, i) {
        if (point.y < top) upper.push(i);
    });
    if (upper.length > 0) doc.selectPoints(path, upper);
    anchors += upper.length;
});
var feet = lines.map(function (path) {
    return path.points.map(function (point) { return point.y < top ? point.y - 30 : point.y; });
});
lift(30);
lines.forEach(function (path, l) {
    path.points.forEach(function (point, i) {
        assert(Math.abs(point.y - feet[l][i]) < 1e-9, "what is selected goes up by 30, the rest stays");
    });
});
assert(anchors === 8, "the top of the upright has eight anchors, not " + anchors);
assert(app.reports.length === 0, "nothing was amiss: " + app.reports.join("; "));

app.save("out/move.svg");
app.exportPNG("out/move.png", 2);
print("out/move.svg");
print("out/move.png");
