// Measures two edges of the desk with the plug-in of examples/measure, and draws what it shows into a picture.
//
//   ./run --plugin build/release/Measure.aip examples/measure.js

var doc = app.open("examples/desk.svg");
app.selectTool("Measure Tool");
var depth = doc.undoDepth;

function texts() {
    return app.annotations.filter(function (mark) { return mark.kind === "text"; })
                          .map(function (mark) { return mark.text; });
}

mouse.press(100, 300);
mouse.drag(150, 260);
mouse.drag(100 + 60 * Math.cos(Math.PI / 6), 270);
assert(texts().join() === "60.00 pt, 30.0\u00b0", "the tool shows length and angle, not " + texts());
mouse.release(100 + 60 * Math.cos(Math.PI / 6), 270);
assert(texts().length === 1, "what was measured stays until the next press");
print("measured", texts()[0]);

mouse.press(100, 300);
mouse.drag(130, 340);
keys.press("Escape");
assert(app.annotations.length === 0, "a gesture taken back leaves no mark");

// The height of the desk's side, held upright.
mouse.stroke([[128, 290], [130, 420]], {shift: true});
assert(texts()[0].indexOf("270.0\u00b0") > 0, "downwards is 270 degrees, not " + texts());
print("measured", texts()[0]);
app.exportPNG("out/measure.png", 1, {annotations: true});

assert(doc.undoDepth === depth, "measuring changes nothing");
assert(app.reports.length === 0, "nothing was amiss: " + app.reports.join("; "));
