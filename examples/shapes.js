// Chooses every item of the plug-in "Shapes": what it draws fills the upper part of a page, and below, each operation on
// paths works on a path of its own.
//
//   easel run examples/shapes.js --plugin build/release/Shapes.aip

var doc = app.newDocument(400, 760);

function itemsOf(title) {
    return app.menus.filter(function (menu) { return menu.group === title; })[0].items.map(function (item) {
        return item.text;
    });
}

// Every drawing function

itemsOf("KZO Draw").forEach(function (item) {
    var before = doc.undoDepth;
    app.chooseMenu(item);
    assert(doc.undoDepth === before + 1, item + " is one undo step");
});

// Every operation on paths, each on a path in a cell of its own

var column = 0, row = 0;

function place(points) {
    var left = 25 + 72 * column, top = 290 + 66 * row;
    return points.map(function (point) { return [left + point[0], top + point[1]]; });
}

// A closed bow that crosses itself, a zigzag, a line, and a pair of which one crosses the other.
var bow = {points: [[0, 0], [40, 30], [40, 0], [0, 30]], closed: true};
var zigzag = {points: [[0, 25], [15, 5], [30, 25], [45, 5]]};
var twice = {points: [[0, 25], [20, 5], [20, 5], [40, 25]]};
var slope = {points: [[0, 25], [15, 15], [30, 5]]};
var loop = {points: [[20, 0], [40, 20], [20, 40], [0, 20]], closed: true};
var counter = {points: [[20, 0], [0, 20], [20, 40], [40, 20]], closed: true};
var cross = [{points: [[0, 15], [45, 15]]}, {points: [[10, 0], [10, 30]]}, {points: [[35, 0], [35, 30]]}];
var gap = [{points: [[45, 0], [45, 30]]}, {points: [[0, 30], [20, 20]]}]; // the second lies above the first

var subjects = {
    "Close": zigzag, "Open": loop, "Keep Three Points": zigzag, "Keep One Segment": zigzag,
    "Raise Second Point": zigzag, "Raise Last Segment": loop, "Insert Point Above the First": zigzag,
    "Insert Segment Below the First": zigzag, "Insert Point in First Segment": zigzag, "Delete Second Point": zigzag,
    "Delete First Segment": zigzag, "Start at the Second Point": loop, "Reverse": zigzag, "Wind Clockwise": counter,
    "Trim First Segment": cross, "Extend First to Second": gap, "Paint Like a Mark": zigzag,
    "Double the Stroke": zigzag, "Stroke Inside": loop, "Select First Point Only": zigzag, "Mark Ends": zigzag,
    "Mark Phantom Points": twice, "Mark Segments That Show": twice, "Mark Selected Segments": zigzag,
    "Mark Middle": zigzag, "Mark Point Nearest to the Origin": zigzag,
    "Mark Every Quarter of the First Segment": slope, "Mark Intersections": bow, "Mark Points Within": loop,
    "Write Counts": loop, "Write Selection": zigzag, "Write Length": slope, "Write Area": loop, "Write Angle": slope, "Write What It Is": loop
};

itemsOf("KZO Path").forEach(function (item) {
    assert(subjects[item], "there is a path for " + item);
    var paths = [].concat(subjects[item]).map(function (path) {
        return doc.addPath(place(path.points), {closed: path.closed || false});
    });
    doc.select(item === "Trim First Segment" ? [paths[0]] : paths);
    var before = doc.undoDepth;
    app.chooseMenu(item);
    assert(doc.undoDepth === before + 1, item + " is one undo step");
    doc.deselectAll();
    column = (column + 1) % 5;
    if (column === 0) row += 1;
});

assert(app.reports.length === 0, "nothing was amiss: " + app.reports.join("; "));
app.save("out/shapes.svg");
app.exportPNG("out/shapes.png", 2);
print("out/shapes.svg");
print("out/shapes.png");
