// Makes the pictures of docs/line-tool.md. In each drawing the dashed paths are ways of the hand: the mouse is pressed at
// their beginning and released at their end, with the keys that their name tells, and the tool draws its lines.
//
//   easel run examples/line-tool.js --plugin build/release/Ortholine.aip

function isHand(path) {
    return path.id !== null && path.id.indexOf("hand") === 0;
}

function stroke(doc, hand) {
    var modifiers = {shift: hand.id === "hand shift", option: hand.id === "hand option"};
    var points = hand.points.map(function (point) { return [point.x, point.y]; });
    mouse.stroke(points, modifiers);

    var a = doc.paths[0].points[0], b = doc.paths[0].points[1];
    var degrees = (Math.atan2(a.y - b.y, b.x - a.x) * 180 / Math.PI + 360) % 360;
    var length = Math.sqrt(Math.pow(b.x - a.x, 2) + Math.pow(b.y - a.y, 2));
    print(hand.id + ": " + degrees.toFixed(1) + " degrees, " + length.toFixed(1) + " points");
    return degrees;
}

["axes", "keys", "ends"].forEach(function (name) {
    var doc = app.open("examples/line-tool-" + name + ".svg");
    app.selectTool("Isometric Line Tool");
    var hands = doc.paths.filter(isHand).reverse();
    var guides = hands[0].layer;
    guides.visible = false; // or the mouse would snap onto the hands
    doc.addLayer("Lines");
    hands.forEach(function (hand) {
        var degrees = stroke(doc, hand);
        var step = hand.id === "hand option" ? 0 : hand.id === "hand shift" ? 45 : 60;
        var from = step === 60 ? 30 : 0;
        var off = step === 0 ? 0 : Math.abs((degrees - from + step / 2 + 360) % step - step / 2);
        assert(off < 1e-6, hand.id + " went " + degrees + " degrees");
    });
    guides.visible = true;
    doc.deselectAll();
    app.save("out/line-tool-" + name + ".svg");
    app.exportPNG("out/line-tool-" + name + ".png", 2);
});
