// The window as a hand uses it: drawing, keys, panels, and what it shows.
#include "WindowTest.h"

#include <QAccessible>
#include <QLineEdit>
#include <QStatusBar>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "hostapi/AIAnnotatorSuite.h"
#include "hostapi/Stage.h"
#include "svg/Picture.h"

namespace {

using desk::WindowTest;
using easel::model::Point;
using testing::HasSubstr;

// Gestures

TEST_F(WindowTest, DrawsWhatARecordingDrawsAgain) {
    const std::string script = folder.path("recorded.js");
    show(script);
    for (const double width : {50, 300}) window->files().newDocument(width, 200); // in the place of the one before
    chooseTool("Isometric Line Tool");
    stroke({{100, 150}, {120, 139}, {151, 122}});
    stroke({{151, 122}, {150, 90}, {152, 61}});
    press({30.25, 40.5});
    drag({60, 60});
    type("25.5");
    release({60, 60});
    // Seen from afar the mouse snaps farther: to the line's end.
    press({200, 60});
    drag({190, 90});
    wheel({190, 90}, -1200);
    release({149.5, 123.5});
    wheel({190, 90}, 1200);
    choose("Axonometric &Grid");
    actions->setGridSpacing(12);
    stroke({{61, 151}, {90, 140}, {111, 122}});
    actions->key("A", kAICommandKey);
    key(canvas(), Qt::Key_Right, {}, Qt::ShiftModifier);
    enter("width", 150);
    enter("y", 30);
    enter("opacity", 40);
    actions->addLayer("Other \"one\"");
    actions->setLayerLocked(1, true);
    stroke({{20, 20}, {20, 90}});
    actions->undo();
    actions->moveLayer(1, 0);
    // Several objects at once are one step, and what is locked stays.
    actions->key("A", kAICommandKey);
    stroke({{60, 20}, {60, 90}});
    document().select(*document().layerAt(0)->firstChild(), true);
    const std::size_t steps = document().journal().undoDepth();
    actions->setStyle("{width: 3}", [](auto& style) { style.strokeWidth = 3; });
    actions->nudge(1, 2);
    EXPECT_EQ(document().journal().undoDepth(), steps + 2);
    actions->undo();
    enter("stroke", 0);
    enter("stroke", 2.5);
    const auto isStroked = [](const auto* node) { return !node->effectivelyLocked() && node->style().isStroked(); };
    EXPECT_TRUE(std::ranges::any_of(document().selection(), isStroked));
    actions->save(folder.path("window.svg"), false);
    expectReplayed(script, "window.svg", [](auto& again) { again.start(); });
}

/// Of the line that is drawn, and of the way that it is moved, with every tool.
TEST_F(WindowTest, HoldsTypedLengthsUntilTheGestureEnds) {
    const auto anchor = [&](std::size_t index) { // of the line; a guide of the mover's may lie above it
        const auto* line = document().currentLayer().firstChild();
        while (line && line->next()) line = line->next();
        return line ? line->path().points[index].anchor : Point();
    };
    for (const char* const tool :
         {"Isometric Line Tool", "Isometric Mover Tool", "Selection Tool", "Direct Selection Tool"}) {
        SCOPED_TRACE(tool);
        chooseTool(tool);
        const bool draws = paths() == 0;
        const Point before = anchor(0);
        const Point end = draws ? Point() : anchor(1);
        const Point from = draws ? Point{100, 100} : Point{(before.x + end.x) / 2, (before.y + end.y) / 2};
        const auto length = [&] {
            const Point a = draws ? anchor(0) : before;
            const Point b = draws ? anchor(1) : anchor(0);
            return std::hypot(b.x - a.x, b.y - a.y);
        };
        press(from);
        const auto label = [&] {
            const QPoint beside = canvas().fromDocument(from).toPoint() + QPoint(17, -25);
            return canvas().grab().toImage().pixelColor(beside).lightness();
        };
        EXPECT_GT(label(), 200);
        type("0"); // shows before the mouse moves, as does the length that it leads
        EXPECT_LT(label(), 80);
        drag({from.x + 50, from.y});
        EXPECT_NEAR(length(), 0, 1e-9);
        key(canvas(), Qt::Key_Backspace);
        key(canvas(), Qt::Key_unknown, QString(QChar(0x664))); // a four of another alphabet
        type("05,");
        key(canvas(), Qt::Key_Backspace);
        key(canvas(), Qt::Key_Backspace);
        EXPECT_NEAR(length(), 40, 1e-9);
        drag({from.x + 80, from.y + 9}, Qt::ShiftModifier);
        EXPECT_NEAR(length(), 40, 1e-9);
        drag({from.x + 80, from.y});
        type(".5");
        EXPECT_NEAR(length(), 40.5, 1e-9);
        key(canvas(), Qt::Key_Return);
        EXPECT_FALSE(session->pointer.pressed());
        EXPECT_NEAR(length(), 40.5, 1e-9);
        EXPECT_EQ(paths(), 1U);
        release({from.x + 80, from.y}); // the button comes up later
        actions->undo();
        actions->redo();
        EXPECT_NEAR(length(), 40.5, 1e-9);
        if (draws) actions->key("A", kAICommandKey);
    }
    EXPECT_TRUE(failures.empty());

    // With Shift, whose keys have other signs, the length is that of the way which the tool then takes.
    const Point before = anchor(0);
    press(before);
    drag({before.x + 50, before.y + 12}, Qt::ShiftModifier);
    constexpr quint32 kFour = 13; // on X11
    QKeyEvent four(QEvent::KeyPress, Qt::Key_Dollar, Qt::ShiftModifier, kFour, 0, 0, "$");
    QApplication::sendEvent(&canvas(), &four);
    key(canvas(), '0', {}, Qt::ControlModifier | Qt::ShiftModifier);
    drag({before.x + 60, before.y + 12}, Qt::ShiftModifier);
    EXPECT_NEAR(anchor(0).x - before.x, 40, 1e-9);
    EXPECT_EQ(anchor(0).y, before.y);
    type("00000"); // further than anything can be
    EXPECT_LE(session->pointer.heldLength(), 1e6);
    key(canvas(), Qt::Key_Escape);
    release(before);
    chooseTool("Isometric Line Tool");
    stroke({{100, 190}, {140, 190}, {190, 190}});
    EXPECT_NEAR(topPath().points[1].anchor.x - topPath().points[0].anchor.x, 90 * std::sqrt(0.75),
                1e-9); // nothing is held any more
}

TEST_F(WindowTest, TheGridFollowsTheAxesOfThePlugin) {
    const auto pixel = [&](Point at) {
        return canvas().grab().toImage().pixelColor(canvas().fromDocument(at).toPoint());
    };
    canvas().zoomTo(3);
    const Point crossing{10 * std::sqrt(0.75) * 4, 60};
    EXPECT_EQ(pixel(crossing), QColor(Qt::white));
    choose("Axonometric &Grid");
    EXPECT_NE(pixel(crossing), QColor(Qt::white));
    EXPECT_EQ(pixel({crossing.x + 2.9, crossing.y}), QColor(Qt::white)); // amid three lines
    chooseTool("Isometric Line Tool");
    stroke({{crossing.x + 1, crossing.y + 2}, {60, 50}, {crossing.x + 26, crossing.y - 17}});
    EXPECT_NEAR(topPath().points[0].anchor.x, crossing.x, 1e-9);
    EXPECT_NEAR(topPath().points[1].anchor.x, crossing.x + 30 * std::sqrt(0.75), 1e-9);
    EXPECT_NEAR(topPath().points[1].anchor.y, crossing.y - 15, 1e-9);

    // Along axes of 42 degrees to the right and 30 to the left the arrows move it.
    actions->key("A", kAICommandKey);
    session->toolbox.findByTitle("Isometric Line Tool")->owner->axes = {42, 150, 90};
    const struct {
        int key;
        Qt::KeyboardModifiers held;
        double degrees, length;
    } rows[] = {{Qt::Key_Right, {}, 42, 1},
                {Qt::Key_Left, Qt::ShiftModifier, 222, 10},
                {Qt::Key_Left, Qt::ControlModifier, 150, 1},
                {Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier, 330, 10},
                {Qt::Key_Up, {}, 90, 1},
                {Qt::Key_Down, Qt::ShiftModifier, 270, 10}};
    for (const auto& row : rows) {
        const Point before = topPath().points[0].anchor;
        key(canvas(), row.key, {}, row.held);
        const Point after = topPath().points[0].anchor;
        const double angle = row.degrees * std::numbers::pi / 180;
        EXPECT_NEAR(after.x - before.x, row.length * std::cos(angle), 1e-9) << row.degrees;
        EXPECT_NEAR(before.y - after.y, row.length * std::sin(angle), 1e-9) << row.degrees;
    }
    choose("Axonometric &Grid");
    const double height = topPath().points[0].anchor.y;
    key(canvas(), Qt::Key_Right);
    EXPECT_EQ(topPath().points[0].anchor.y, height);
}

TEST_F(WindowTest, EveryControlHasANameAndItsPlaceInTheOrderOfTab) {
    std::string order;
    for (QWidget* at = canvas().nextInFocusChain(); at != &canvas(); at = at->nextInFocusChain()) {
        const bool takesFocus = (at->focusPolicy() & Qt::TabFocus) && at->isVisible() && !at->focusProxy();
        if (!takesFocus) continue;
        const QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(at);
        ASSERT_NE(face, nullptr);
        EXPECT_NE(face->text(QAccessible::Name), "") << at->metaObject()->className();
        if (!at->objectName().isEmpty() && !at->objectName().startsWith("qt_"))
            order += at->objectName().toStdString() + ' ';
    }
    EXPECT_EQ(order,
              "layers addLayer layerUp layerDown removeLayer x y width height stroke strokeColor opacity fillColor "
              "zoom ");
}

TEST_F(WindowTest, ModifiersActAtOnceAndEscapeTakesBack) {
    chooseTool("Isometric Line Tool");
    press({100, 100});
    drag({150, 98});
    const Point held = topPath().points[1].anchor;
    key(canvas(), Qt::Key_Alt); // Qt adds or takes away the key itself
    EXPECT_NE(topPath().points[1].anchor, held);
    EXPECT_NEAR(topPath().points[1].anchor.y, 98, 1e-9); // free of the axes
    key(canvas(), Qt::Key_Alt, {}, Qt::AltModifier, QEvent::KeyRelease);
    EXPECT_EQ(topPath().points[1].anchor, held);
    key(canvas(), Qt::Key_Escape);
    EXPECT_EQ(paths(), 0U);
    EXPECT_EQ(document().journal().undoDepth(), 0U);
    EXPECT_FALSE(actions->isModified());
    release({150, 98}); // the button comes up later
    EXPECT_EQ(paths(), 0U);
    EXPECT_TRUE(failures.empty());
}

TEST_F(WindowTest, AGestureEndsWhenADialogOpensOverIt) {
    chooseTool("Isometric Line Tool");
    press({100, 100});
    drag({150, 80});
    clickWhenAsked("Second");
    const easel::session::Alert alert{easel::session::Alert::Kind::Confirm, "A <b>text</b>?", {"First", "Second"}};
    EXPECT_EQ(session->alerts.handler(alert), 1U);
    EXPECT_EQ(asked, "A <b>text</b>?");
    EXPECT_FALSE(session->pointer.pressed());
    EXPECT_EQ(paths(), 0U);
}

TEST_F(WindowTest, SaysWhyALayerTakesNoArt) {
    chooseTool("Isometric Line Tool");
    auto& list = *window->findChild<QTreeWidget*>("layers");
    Q_EMIT list.itemClicked(list.topLevelItem(0), 1);
    EXPECT_TRUE(document().currentLayer().locked());
    EXPECT_EQ(canvas().cursor().shape(), Qt::ForbiddenCursor);
    stroke({{10, 10}, {60, 60}});
    EXPECT_EQ(paths(), 0U);
    Q_EMIT list.itemClicked(list.topLevelItem(0), 1);
    EXPECT_EQ(canvas().cursor().shape(), Qt::CrossCursor);
    list.topLevelItem(0)->setText(2, "Named");
    EXPECT_EQ(document().currentLayer().name(), "Named");
}

TEST_F(WindowTest, KeysEditWhatIsSelected) {
    chooseTool("Isometric Line Tool");
    stroke({{100, 100}, {100, 60}});
    const auto command = [&](const char* name, easel::session::Modifiers more = 0) {
        actions->key(name, kAICommandKey | more);
    };
    const Point before = topPath().points[0].anchor;
    command("A");
    key(canvas(), Qt::Key_Right);
    key(canvas(), Qt::Key_Up, {}, Qt::ShiftModifier);
    EXPECT_EQ(topPath().points[0].anchor, (Point{before.x + 1, before.y - 10}));
    command("D");
    EXPECT_EQ(paths(), 2U);
    EXPECT_EQ(topPath().points[0].anchor, (Point{before.x + 11, before.y}));
    command("[");
    EXPECT_EQ(topPath().points[0].anchor, (Point{before.x + 1, before.y - 10}));
    command("]");
    EXPECT_EQ(topPath().points[0].anchor, (Point{before.x + 11, before.y}));
    command("[", kAIShiftKey);
    EXPECT_EQ(topPath().points[0].anchor, (Point{before.x + 1, before.y - 10}));
    command("A");
    command("G");
    EXPECT_EQ(paths(), 1U);
    command("G", kAIShiftKey);
    EXPECT_EQ(paths(), 2U);
    EXPECT_EQ(topPath().points[0].anchor, (Point{before.x + 1, before.y - 10})); // still in front
    // A drag with Option leaves the original where it is.
    actions->key("A", kAICommandKey | kAIShiftKey);
    chooseTool("Selection Tool");
    press({101, 70}, Qt::AltModifier);
    drag({141, 70}, Qt::AltModifier);
    drag({151, 70}, Qt::AltModifier);
    release({151, 70}, Qt::AltModifier);
    EXPECT_EQ(paths(), 3U);
    EXPECT_EQ(topPath().points[0].anchor, (Point{before.x + 51, before.y - 10}));
    key(canvas(), Qt::Key_Backspace);
    EXPECT_EQ(paths(), 2U);
    actions->undo();
    EXPECT_EQ(paths(), 3U);
}

/// What is no number is refused as a whole, and what the user gives up does not count.
TEST_F(WindowTest, FieldsTakeNumbersAlone) {
    folder.write("two.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='300' height='200'><path d='M10,20 h10' "
                            "stroke='#f00' stroke-width='3'/><path d='M10,40 h10' stroke='#00f'/></svg>");
    open(folder.path("two.svg"));
    document().select(*document().currentLayer().firstChild(), true);
    actions->key("Tab", 0); // tells the panels
    auto& field = *window->findChild<QDoubleSpinBox*>("x");
    const auto enterText = [&](const char* text, int end) {
        field.setFocus();
        field.selectAll();
        for (const char* sign = text; *sign; ++sign) key(field, 0, QString(QChar(*sign)));
        key(field, end);
        canvas().setFocus();
        return topPath().points[0].anchor.x;
    };
    EXPECT_EQ(enterText("12,5", Qt::Key_Return), 12.5);
    EXPECT_EQ(enterText("10+5", Qt::Key_Return), 12.5);
    EXPECT_THAT(window->statusBar()->currentMessage().toStdString(), HasSubstr("\"10+5\" is no number"));
    EXPECT_EQ(enterText("77", Qt::Key_Escape), 12.5);
    EXPECT_EQ(enterText("2.54cm", Qt::Key_Return), 72);
    EXPECT_EQ(enterText("-3 pt", Qt::Key_Return), -3);
    QWheelEvent wheel({5, 5}, field.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&field, &wheel);
    EXPECT_EQ(topPath().points[0].anchor.x, -3);
    EXPECT_EQ(window->findChild<QToolButton*>("strokeColor")->toolTip(), "Stroke colour: #0000ff");
    actions->key("A", kAICommandKey);
    EXPECT_EQ(window->findChild<QToolButton*>("strokeColor")->toolTip(), "Stroke colour: not the same for all");
    EXPECT_EQ(window->findChild<QDoubleSpinBox*>("stroke")->text(), " ");
}

TEST_F(WindowTest, LayersComeGoAndChangePlaces) {
    actions->addLayer("Upper");
    const auto press = [&](const char* name) { window->findChild<QToolButton*>(name)->click(); };
    press("layerDown");
    EXPECT_EQ(document().layerAt(1)->name(), "Upper");
    press("layerDown");
    press("layerUp");
    EXPECT_EQ(document().layerAt(0)->name(), "Upper");
    actions->addLayer("Third");
    const auto order = [&] {
        std::string names;
        for (std::size_t i = 0; i < document().layerCount(); ++i) names += document().layerAt(i)->name() + ' ';
        return names;
    };
    auto& list = *window->findChild<QTreeWidget*>("layers");
    key(list, Qt::Key_Down, {}, Qt::AltModifier);
    EXPECT_EQ(order(), "Upper Third Layer 1 ");
    actions->undo();
    EXPECT_EQ(order(), "Third Upper Layer 1 ");
    key(list, Qt::Key_Down); // chooses, and what is chosen is what buttons are about
    EXPECT_EQ(document().currentLayer().name(), "Upper");
    press("addLayer");
    EXPECT_EQ(document().layerAt(0)->name(), "Layer 4");
    key(list, Qt::Key_Down);
    key(list, Qt::Key_Down, {}, Qt::AltModifier);
    EXPECT_EQ(list.currentItem()->text(2), "Third");
    press("removeLayer");
    EXPECT_EQ(order(), "Layer 4 Upper Layer 1 ");
    press("removeLayer");
    press("removeLayer");
    press("removeLayer");
    EXPECT_EQ(document().layerCount(), 1U);
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_EQ(failures[0], "the last layer cannot be removed");
}

TEST_F(WindowTest, TheMenuOfALayerIsAboutItsRow) {
    for (const char* const title : {"Middle", "Upper"}) actions->addLayer(title);
    actions->setCurrentLayer(2);
    auto& list = *window->findChild<QTreeWidget*>("layers");
    for (QAction* const action : list.actions()) {
        list.setCurrentItem(list.topLevelItem(1)); // as the right mouse button does
        if (action->text() == "Remove the Layer") {
            EXPECT_TRUE(document().layerAt(1)->hidden());
            EXPECT_TRUE(document().layerAt(1)->locked());
            const auto* const editor = list.findChild<QLineEdit*>();
            ASSERT_NE(editor, nullptr);
            EXPECT_EQ(editor->text(), "Middle");
        }
        action->trigger();
    }
    ASSERT_EQ(document().layerCount(), 2U);
    EXPECT_EQ(document().layerAt(0)->name() + document().layerAt(1)->name(), "UpperLayer 1");
}

TEST_F(WindowTest, AToolboxThatIsFilledAgainKeepsNothingOfBefore) {
    const auto& toolbox = *window->findChild<QToolBar*>("toolbox");
    const auto before = toolbox.findChildren<QAction*>().size();
    choose("&Dark");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(toolbox.findChildren<QAction*>().size(), before);
    choose("&Dark");
}

/// The picture under way is that of the finished gesture, also where others lie above what moves; that of very many
/// objects is kept while they move.
TEST_F(WindowTest, KeepsPaintOrderDuringAGesture) {
    canvas().feedbackShown = false;
    const auto picture = [&] {
        EXPECT_TRUE(await([&] { return canvas().isTrue(); }));
        return canvas().grab().toImage();
    };
    const auto colorAt = [&](const QImage& image, Point at) {
        return image.pixelColor(canvas().fromDocument(at).toPoint()).name().toStdString();
    };
    for (const auto& [lowest, others] : {std::pair{1, ""}, {1, "high"}, {400, ""}, {400, "high"}, {400, "all"}}) {
        std::string drawing = "<svg xmlns='http://www.w3.org/2000/svg' width='300' height='200'>";
        for (int i = 0; i < lowest; ++i) drawing += "<rect x='20' y='60' width='60' height='60' fill='#f00'/>";
        open(folder.write(
            "order.svg", drawing + "<g><circle cx='160' cy='90' r='40' fill='#0f0' stroke='#000' stroke-width='5'/></g>"
                                   "<rect id='high' x='20' y='130' width='60' height='40' fill='#00f'/>"
                                   "<path d='M120,40 h100 v20 h-100 z' fill='#ff0'/></svg>"));
        canvas().zoomTo(1);
        chooseTool("Selection Tool");
        const bool all = others == std::string("all");
        if (all) actions->key("A", kAICommandKey);
        easel::model::Node* low = document().currentLayer().lastChild();
        for (int i = 0; i < lowest; ++i, low = low->previous()) document().select(*low, true);
        if (others == std::string("high")) document().select(*document().findByName(others), true);
        press({30, 70});
        drag({80, 60});
        picture();
        drag({140 + all * 0.4, 40}); // which the high one reaches the ring with
        const QImage during = picture();
        release({140 + all * 0.4, 40});
        const QImage after = picture();
        int off = 0;
        for (int y = 0; y < after.height(); ++y)
            for (int x = 0; x < after.width(); ++x) off += during.pixel(x, y) != after.pixel(x, y);
        EXPECT_LT(off, 20) << lowest << others;                               // where edges of several touch
        EXPECT_EQ(colorAt(during, {135, 35}), "#ff0000") << lowest << others; // the low one, which is there
        if (all) continue;
        EXPECT_EQ(colorAt(during, {160, 80}), "#00ff00") << lowest << others; // above it
        EXPECT_EQ(colorAt(during, {135, 50}), "#ffff00") << lowest << others;
        EXPECT_EQ(colorAt(during, {150, 115}), *others ? "#0000ff" : "#00ff00") << lowest << others;
    }
}

// View

TEST_F(WindowTest, ZoomsAboutThePointer) {
    canvas().zoomTo(1);
    const QPointF place(40, 30);
    const Point under = canvas().toDocument(place);
    drag(under);
    wheel(under, 240);
    EXPECT_NEAR(canvas().zoom(), 1.44, 1e-12);
    EXPECT_NEAR(canvas().toDocument(place).x, under.x, 0.5); // but for whole pixels
    EXPECT_NEAR(canvas().toDocument(place).y, under.y, 0.5);
    wheel(canvas().toDocument(place), 240, Qt::NoModifier);
    EXPECT_EQ(canvas().mouse(), canvas().toDocument(place));
    canvas().zoomTo(1e9);
    EXPECT_EQ(canvas().zoom(), 256);
    window->files().newDocument(1e6, 1e6);
    EXPECT_LT(canvas().fromDocument({1e6, 1e6}).x(), canvas().width()); // all of it
}

TEST_F(WindowTest, PluginsHearOfTheRightButtonAndOfHovering) {
    static std::string heard;
    static unsigned long busy; // milliseconds
    heard.clear();
    auto& plugin = session->plugins.attach("Hearing", [](const char*, const char* selector, void* message) -> SPErr {
        if (std::string(selector) == kSelectorAIGoTimer) {
            heard += 't';
            QThread::msleep(busy);
            easel::session::Session::current().annotations.invalidateAll();
        }
        if (std::string(selector) == kSelectorStageMousePressed)
            heard += std::to_string(static_cast<StageInputMessage*>(message)->code);
        if (std::string(selector) == kSelectorAIDrawAnnotation) heard += " drawn ";
        return kNoErr;
    });
    session->start();
    plugin.monitorsInput = true;
    session->annotations.add(plugin, "Hearing");
    canvas().zoomTo(1);
    chooseTool("Isometric Line Tool");
    heard.clear();
    session->annotations.invalidateAll();
    drag({50, 50});
    EXPECT_EQ(heard, " drawn ");
    const QPointF place = canvas().fromDocument({60, 60});
    QMouseEvent right(QEvent::MouseButtonPress, place, canvas().mapToGlobal(place), Qt::RightButton, Qt::RightButton,
                      {});
    QApplication::sendEvent(&canvas(), &right);
    EXPECT_EQ(heard, " drawn 2");
    EXPECT_FALSE(session->pointer.pressed());

    // The cursor that the tool's plug-in has set.
    const easel::session::Plugin& owner = *session->toolbox.current()->owner;
    EXPECT_EQ(canvas().cursor().shape(), Qt::CrossCursor);
    session->screen.cursor = {.number = 0, .plugin = owner.handle, .resource = 17000, .hotSpot = {3, 4}, .scale = 1};
    actions->undo();
    EXPECT_EQ(canvas().cursor().hotSpot(), QPoint(3, 4));
    EXPECT_EQ(canvas().cursor().pixmap().size(), QSize(24, 24));
    chooseTool("Selection Tool");
    EXPECT_EQ(canvas().cursor().shape(), Qt::ArrowCursor);

    // What a timer invalidates shows at once. After five seconds that the window was busy there is no burst of
    // messages, and one that takes longer than its period is not sent again before the user is heard.
    session->timers.add(plugin, "Hearing", 1);
    heard.clear();
    actions->passTime(20);
    EXPECT_EQ(heard, "t drawn ");
    for (const auto& [each, times] : {std::pair{0, 6}, {100, 1}}) {
        busy = each;
        heard.clear();
        actions->passTime(5000);
        EXPECT_LE(std::ranges::count(heard, 't'), times);
    }
}

/// Where the truth does not reach, and where it is out of date, what is painted here shows.
TEST_F(WindowTest, AMovedViewShowsAllThatIsPainted) {
    folder.write("far.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='4000' height='400'>"
                            "<rect x='100' width='50' height='400' fill='#f00'/><rect x='500' width='3000' "
                            "height='400' fill='#00f'/></svg>");
    open(folder.path("far.svg"));
    canvas().zoomTo(1);
    canvas().panBy(canvas().fromDocument({0, 0}) * -1);
    ASSERT_TRUE(await([&] { return canvas().isTrue(); }));
    canvas().restMilliseconds = 1'000'000;
    document().select(*document().currentLayer().lastChild(), true);
    actions->nudge(300, 0);
    canvas().panBy({-50, 0});
    settle();
    const QImage shown = canvas().grab().toImage();
    for (const auto& [x, color] : {std::pair{125, Qt::white}, {425, Qt::red}, {canvas().width() + 40, Qt::blue}})
        EXPECT_EQ(shown.pixelColor(canvas().fromDocument({double(x), 200}).toPoint()), QColor(color)) << x;
}

QImage image(const std::string& png) {
    return QImage::fromData(reinterpret_cast<const uchar*>(png.data()), static_cast<int>(png.size()));
}

TEST_F(WindowTest, ShowsTheRenderersPicture) {
    // Ours to begin with, then the renderer's: gradients, text, masks and a drawing of plain paths.
    for (const char* const drawing : {"/examples/desk.svg", "/tests/app/looks.svg"}) {
        open(PROJECT_DIR + std::string(drawing));
        canvas().zoomTo(1);
        ASSERT_TRUE(await([&] { return canvas().isTrue(); }));
        const std::string png = easel::svg::picture(document(), easel::svg::PictureFormat::Png, {}, drawing);
        const QPoint corner = canvas().fromDocument({0, 0}).toPoint();
        const QImage shown = canvas().grab().toImage().copy(
            QRect(corner, QSize(static_cast<int>(document().width()), static_cast<int>(document().height()))));
        EXPECT_LT(desk::difference(shown, image(png), 8), 0.001) << drawing;

        chooseTool("Selection Tool");
        actions->key("A", kAICommandKey);
        actions->nudge(7, 5);
        actions->key("A", kAICommandKey | kAIShiftKey);
        ASSERT_TRUE(await([&] { return canvas().isTrue(); }));
        const std::string moved = easel::svg::picture(document(), easel::svg::PictureFormat::Png, {}, drawing);
        EXPECT_LT(desk::difference(canvas().grab().toImage().copy(QRect(corner, shown.size())), image(moved), 8), 0.001)
            << drawing;
        EXPECT_NE(moved, png);
    }
}

} // namespace
