// Easel's own tools: the Selection Tool moves whole objects, the Direct Selection Tool their anchors.
//
//   easel run examples/select.js

var doc = app.newDocument(200, 120);

function square(left, top) {
    return doc.addPath([[left, top], [left + 30, top], [left + 30, top + 30], [left, top + 30]], {closed: true});
}

var first = square(20, 20);
var second = square(100, 20);
var drawn = doc.undoDepth;

// A marquee over a part of both, then a drag on the outline of one: both go down by 40 points.
assert(app.currentTool === "Selection Tool", "the Selection Tool is there from the start");
mouse.stroke([[10, 30], [110, 40]]);
assert(doc.selection.length === 2, "the marquee selects what it touches");
mouse.stroke([[35, 20], [50, 70], [36, 60]], {shift: true});
assert(first.points[0].y === 60 && second.points[0].x === 100, "Shift keeps the way upright");

// Two opposite anchors of the second square, pulled to the right: it leans.
app.selectTool("Direct Selection Tool");
mouse.stroke([[95, 55], [135, 65]]);
mouse.stroke([[100, 60], [115, 60]]);
assert(second.points[0].x === 115 && second.points[1].x === 145 && second.points[3].x === 100, "the square leans");
assert(doc.undoDepth === drawn + 2, "two moves, two steps; selecting makes none");

// Each has a group of the toolbox to itself.
assert(app.toolbox[0][0][0] === "Selection Tool" && app.toolbox[1][0].length === 1, "two groups of one tool each");
print("groups of the toolbox:", JSON.stringify(app.toolbox));
