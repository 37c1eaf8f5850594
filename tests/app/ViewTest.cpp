// The view and its keys, modifiers that are held by a switch, and pictures of the drawing for others.
#include <QClipboard>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QToolButton>

#include <cmath>
#include <numbers>

#include "WindowTest.h"

namespace {

using desk::WindowTest;
using easel::model::Point;
using testing::HasSubstr;
using testing::StartsWith;

class ViewTest : public WindowTest {
  protected:
    /// What a shortcut belongs to, in menus and toolbox.
    void shortcut(const char* keys) {
        for (QAction* const action : window->findChildren<QAction*>())
            if (action->shortcuts().contains(QKeySequence(keys))) return action->trigger();
        ADD_FAILURE() << "nothing has the key " << keys;
    }
    void pull(QPointF from, QPointF to, Qt::MouseButton button, Qt::KeyboardModifiers keys = {}) {
        const auto send = [&](QEvent::Type type, QPointF at, Qt::MouseButton which, Qt::MouseButtons held) {
            QMouseEvent event(type, at, canvas().mapToGlobal(at), which, held, keys);
            QApplication::sendEvent(&canvas(), &event);
        };
        send(QEvent::MouseButtonPress, from, button, button);
        send(QEvent::MouseMove, to, Qt::NoButton, button);
        send(QEvent::MouseButtonRelease, to, button, Qt::NoButton);
    }
    double turnOf(const easel::model::PathData& line) {
        const Point from = line.points.front().anchor;
        const Point to = line.points.back().anchor;
        return std::atan2(from.y - to.y, to.x - from.x) * 180 / std::numbers::pi;
    }
};

TEST_F(ViewTest, IsPulledByAnyToolAndByTheHand) {
    chooseTool("Isometric Line Tool");
    const auto pulls = [&](Qt::MouseButton button) {
        const QPointF before = canvas().fromDocument({0, 0});
        pull({100, 100}, {130, 80}, button);
        return canvas().fromDocument({0, 0}) - before;
    };
    EXPECT_EQ(pulls(Qt::MiddleButton), QPointF(30, -20));
    key(canvas(), Qt::Key_Space, " ");
    EXPECT_EQ(pulls(Qt::LeftButton), QPointF(30, -20));
    key(canvas(), Qt::Key_Space, " ", {}, QEvent::KeyRelease);
    shortcut("H");
    EXPECT_EQ(pulls(Qt::LeftButton), QPointF(30, -20));
    EXPECT_EQ(paths(), 0U);
    shortcut("L"); // whichever tool was there before
    EXPECT_EQ(pulls(Qt::LeftButton), QPointF(0, 0));
    EXPECT_EQ(paths(), 1U);
}

TEST_F(ViewTest, GoesBetweenThePageAndWhatTheToolIsClickedOn) {
    shortcut("Ctrl+0");
    const double whole = canvas().zoom();
    const QPointF corner = canvas().fromDocument({300, 200});
    EXPECT_TRUE(canvas().rect().contains(corner.toPoint()));
    shortcut("Ctrl+1");
    EXPECT_EQ(canvas().zoom(), 1);
    shortcut("Ctrl++");
    const double larger = canvas().zoom();
    EXPECT_GT(larger, 1);
    shortcut("Ctrl+-");
    EXPECT_NEAR(canvas().zoom(), 1, 1e-12);
    shortcut("Z");
    const Point under = canvas().toDocument({200, 150});
    pull({200, 150}, {200, 150}, Qt::LeftButton);
    EXPECT_EQ(canvas().zoom(), 2);
    EXPECT_NEAR(canvas().toDocument({200, 150}).x, under.x, 0.5); // but for whole pixels
    pull({200, 150}, {200, 150}, Qt::LeftButton, Qt::AltModifier);
    EXPECT_EQ(canvas().zoom(), 1);
    shortcut("Ctrl+0");
    EXPECT_EQ(canvas().zoom(), whole);
    EXPECT_EQ(paths(), 0U);
}

TEST_F(ViewTest, SwitchesHoldModifiersForOneHand) {
    chooseTool("Isometric Line Tool");
    const auto lineAt = [&](Qt::KeyboardModifiers keys = {}) {
        press({100, 150}, keys);
        drag({140, 115}, keys); // 41 degrees up
        release({140, 115}, keys);
        return turnOf(topPath());
    };
    const double freely = std::atan2(35, 40) * 180 / std::numbers::pi;
    EXPECT_NEAR(lineAt(), 30, 1e-9);
    for (const auto& [name, turn] : {std::pair("holdShift", 45.0), std::pair("holdOption", freely)}) {
        auto* const held = window->findChild<QToolButton*>(name);
        held->click();
        EXPECT_NEAR(lineAt(), turn, 1e-6) << name;
        held->click();
        EXPECT_NEAR(lineAt(), 30, 1e-9) << name;
    }
    // Keys may be others, in the next window too.
    EXPECT_NEAR(lineAt(Qt::MetaModifier), 30, 1e-9);
    for (QMenu* const menu : window->findChildren<QMenu*>()) {
        if (menu->title() == "Super Is") menu->actions().at(1)->trigger();
        if (menu->title() == "Alt Is") menu->actions().at(3)->trigger();
    }
    for (const bool isLast : {false, true}) {
        EXPECT_NEAR(lineAt(Qt::MetaModifier), freely, 1e-6);
        EXPECT_NEAR(lineAt(Qt::AltModifier), 30, 1e-9);
        if (!isLast) show();
    }
}

/// At twice the density, on the page.
TEST_F(ViewTest, PicturesForOthersShowTheDrawing) {
    actions->selectTool(*session->toolbox.findByTitle("Isometric Line Tool"));
    stroke({{100, 150}, {100, 50}});
    const auto exportAs = [&](const char* item, const char* name) {
        whenAsked<QFileDialog>([&, name](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(folder.path(name)));
            static_cast<QDialog&>(dialog).accept();
        });
        choose(item);
        return folder.content(name);
    };
    EXPECT_THAT(exportAs("P&DF Page...", "drawn.pdf"), StartsWith("%PDF-"));
    exportAs("&PNG Picture...", "drawn.png");
    const QImage picture(QString::fromStdString(folder.path("drawn.png")));
    EXPECT_EQ(picture.size(), QSize(600, 400));
    int ink = 0;
    for (int x = 190; x < 210; ++x) ink += 255 - qGray(picture.pixel(x, 200));
    EXPECT_NEAR(ink, 2 * 255 * document().currentLayer().firstChild()->style().strokeWidth, 2);
    EXPECT_EQ(picture.pixel(300, 200), qRgb(255, 255, 255));
    EXPECT_TRUE(failures.empty());
}

/// Between two windows, and with other programs; played again from a recording.
TEST_F(ViewTest, CopiesComeFromOtherProgramsAndGoToThem) {
    const std::string script = folder.path("copied.js");
    show(script);
    window->files().newDocument(300, 200);
    chooseTool("Isometric Line Tool");
    stroke({{100, 150}, {100, 50}});
    shortcut("Ctrl+A");
    shortcut("Ctrl+X");
    EXPECT_EQ(paths(), 0U);
    const QMimeData* const offered = QGuiApplication::clipboard()->mimeData();
    EXPECT_THAT(offered->data("image/svg+xml").toStdString(), HasSubstr("<path d=\"M"));
    shortcut("Ctrl+V");
    EXPECT_EQ(paths(), 1U);
    QGuiApplication::clipboard()->setText("<svg xmlns='http://www.w3.org/2000/svg'><path d='M1 2 \"3\" 4'/></svg>");
    shortcut("Ctrl+V"); // with quotes that the recording must keep apart
    QGuiApplication::clipboard()->setText(
        "<svg xmlns='http://www.w3.org/2000/svg'><path d='M10 20L30 40'/>\u2028</svg>");
    shortcut("Ctrl+Shift+V");
    EXPECT_EQ(topPath().points[1].anchor, (Point{30, 40}));
    QGuiApplication::clipboard()->setText("no drawing"); // the last one holds
    shortcut("Ctrl+V");
    EXPECT_EQ(topPath().points[1].anchor, (Point{40, 50}));
    actions->save(folder.path("copied.svg"), false);
    expectReplayed(script, "copied.svg", [](auto& again) { again.start(); });
}

} // namespace
