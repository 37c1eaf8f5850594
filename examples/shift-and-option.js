// How modifier keys change the direction of the Isometric Line Tool: none holds it to the axes, Shift to steps of 45
// degrees, Option leaves it free, and Shift wins over Option.
//
//   easel run examples/shift-and-option.js --plugin build/release/Ortholine.aip

var doc = app.newDocument(300, 200);
app.selectTool("Isometric Line Tool");

function degreesOf(path) {
    var a = path.points[0], b = path.points[1];
    return Math.atan2(a.y - b.y, b.x - a.x) * 180 / Math.PI;
}

// Every stroke goes the same way, 48 points to the right and 64 up, from places far enough apart not to meet.
function stroke(x, modifiers, expected, what) {
    mouse.stroke([[x, 150], [x + 30, 110], [x + 48, 86]], modifiers);
    var line = doc.paths[0];
    var degrees = degreesOf(line);
    assert(Math.abs(degrees - expected) < 1e-9, what + ": " + expected + " degrees, not " + degrees);
    print(what + ": " + degrees.toFixed(2) + " degrees");
}

var drawn = Math.atan2(64, 48) * 180 / Math.PI;
stroke(20, {}, 30, "no key");
stroke(90, {shift: true}, 45, "Shift");
stroke(160, {option: true}, drawn, "Option");
stroke(230, {shift: true, option: true}, 45, "Shift and Option");

assert(doc.paths.length === 4 && doc.undoDepth === 4, "four lines, four steps");
while (doc.undo()) {}
assert(doc.paths.length === 0, "undo takes them all back");
