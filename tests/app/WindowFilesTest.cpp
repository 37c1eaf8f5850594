// Files in the window: what is asked before work is lost, what is kept of it, reading beside everything else.
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QProgressBar>
#include <QStatusBar>
#include <QTreeWidget>

#include <sys/resource.h>

#include <fstream>
#include <map>
#include <utility>

#include "WindowTest.h"
#include "hostapi/AIDocumentSuite.h"
#include "hostapi/AITimer.h"

namespace {

using testing::HasSubstr;

class WindowFiles : public desk::WindowTest {
  protected:
    WindowFiles() {
        window->files().noticed = [this](Notice about, const QString& text) { noticed[about] = text.toStdString(); };
    }
    void typeOver(QWidget& field, const char* digits) {
        field.setFocus();
        for (key(field, Qt::Key_A, {}, Qt::ControlModifier); *digits; ++digits) key(field, *digits, QString(*digits));
    }

    using Notice = easel::app::Files::Notice;
    std::map<Notice, std::string> noticed;
};

TEST_F(WindowFiles, AsksBeforeWorkIsLost) {
    actions->addLayer("New");
    clickWhenAsked("Cancel");
    EXPECT_FALSE(window->close());
    actions->disown(folder.path("none/d.svg")); // no such folder
    clickWhenAsked("Save");
    EXPECT_FALSE(window->close());
    EXPECT_THAT(failures, testing::ElementsAre(HasSubstr("No such file or directory")));
    QTimer::singleShot(0, window.get(), easel::app::guarded([] { throw 1; }));
    settle();
    EXPECT_EQ(failures.back(), "something was thrown that says nothing of itself");
    clickWhenAsked("Discard");
    EXPECT_TRUE(window->close());
    EXPECT_THAT(asked, HasSubstr("Save the changes to d.svg"));
}

TEST_F(WindowFiles, AsksForAllDrawingsBeforeItCloses) {
    for (const char* const each : {"a.svg", "b.svg"}) { // the first stays behind, as where plug-ins open another
        session->newDocument(50, 60);
        actions->save(folder.path(each), false);
        actions->addLayer(std::string("In ") + each);
    }
    window->files().keepWork();
    const std::string mine = folder.path("recovery/" + std::to_string(::getpid()));
    EXPECT_THAT(desk::contents(mine + ".svg"), HasSubstr("In a.svg"));
    EXPECT_THAT(desk::contents(mine + "-1.svg"), HasSubstr("In b.svg"));
    clickWhenAsked("Cancel");
    EXPECT_FALSE(window->close());
    EXPECT_THAT(asked, HasSubstr("\n\na.svg\nb.svg"));
    clickWhenAsked("Discard");
    struct rlimit room {};
    ::getrlimit(RLIMIT_FSIZE, &room);
    const struct rlimit none = {0, room.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &none); // as on a full disk
    choose("&New");                   // asks for the one that goes
    const std::string why = window->files().keepWork();
    ::setrlimit(RLIMIT_FSIZE, &room);
    EXPECT_THAT(asked, HasSubstr("Save the changes to b.svg"));
    EXPECT_FALSE(std::filesystem::exists(mine + "-1.svg"));
    EXPECT_THAT(desk::contents(mine + ".svg"), HasSubstr("In a.svg"));
    EXPECT_THAT(noticed[Notice::NotKept], HasSubstr(why));
    EXPECT_THAT(why, HasSubstr(mine + ".path: File too large"));
    clickWhenAsked("Save");
    EXPECT_TRUE(window->close());
    EXPECT_THAT(folder.content("a.svg"), HasSubstr("In a.svg"));
}

TEST_F(WindowFiles, KeepsUnsavedWorkForTheNextRun) {
    chooseTool("Isometric Line Tool");
    stroke({{100, 100}, {100, 60}});
    window->files().keepWork();
    const std::string mine = folder.path("recovery/" + std::to_string(::getpid()) + ".svg");
    const std::string kept = desk::contents(mine);
    EXPECT_THAT(kept, HasSubstr("<path"));
    EXPECT_TRUE(recovery.left().empty()); // this program runs still
    {
        easel::app::Recovery another(folder.path("recovery"));
        EXPECT_EQ(another.keep(session->documents), "");
        EXPECT_TRUE(recovery.left().empty()); // that one runs too
        another.drop();
    }
    // As if another program had left it, whose number one has that runs by now.
    folder.write("recovery/1.svg", kept);
    folder.write("recovery/1.path", "/somewhere/d.svg");
    folder.write("recovery/1.lock", "");
    window->files().newDocument(10, 10);
    EXPECT_FALSE(std::filesystem::exists(mine)); // it was given up
    folder.write("recovery/7.lock", "");         // of one that kept nothing
    whenAsked<QMessageBox>([&](QMessageBox&) {
        const easel::app::Recovery meanwhile(folder.path("recovery"));
        EXPECT_TRUE(meanwhile.left().empty()); // nobody else is asked
    });
    clickWhenAsked("Open It");
    window->files().offerRecovered();
    EXPECT_FALSE(std::filesystem::exists(folder.path("recovery/7.lock")));
    EXPECT_EQ(std::filesystem::status(folder.path("recovery")).permissions(), std::filesystem::perms::owner_all);
    ASSERT_TRUE(await([&] { return !window->files().isReading(); }));
    EXPECT_THAT(asked,
                HasSubstr("Easel ended without saving a drawing. Open what was kept?/somewhere/d.svg\nKept on "));
    EXPECT_EQ(paths(), 1U);
    EXPECT_EQ(actions->path(), "/somewhere/d.svg");
    EXPECT_TRUE(actions->isModified());
    EXPECT_TRUE(recovery.left().empty());
    EXPECT_EQ(folder.content("recovery/1.svg"), kept); // it is this program's now

    folder.write("recovery/2.svg", "<svg"); // which cannot be read
    window->open(folder.write("asked.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='77' height='9'/>"));
    clickWhenAsked("Open It");
    window->files().offerRecovered();
    clickWhenAsked("Discard");
    ASSERT_TRUE(await([&] { return document().width() == 77; }));
    EXPECT_THAT(failures, testing::ElementsAre(HasSubstr("recovery/2.svg")));
}

TEST_F(WindowFiles, RecoveredWorkKnowsItsFile) {
    const std::string path = folder.path("d.svg");
    actions->save(path, false);
    for (const bool isChanged : {false, true}) {
        actions->addLayer("Ours");
        window->files().keepWork();
        const std::string mine = folder.path("recovery/" + std::to_string(::getpid()));
        for (const char* const end : {".svg", ".path"})
            std::filesystem::copy_file(mine + end, folder.path(std::string("recovery/99999999") + end));
        window->files().newDocument(10, 10);
        if (isChanged) std::ofstream(path, std::ios::app) << "<!-- theirs -->";
        clickWhenAsked("Open It");
        window->files().offerRecovered();
        ASSERT_TRUE(await([&] { return !window->files().isReading(); }));
        EXPECT_EQ(noticed[Notice::FileChanged].empty(), !isChanged);
        if (isChanged) clickWhenAsked("Cancel");
        choose("&Save");
        EXPECT_EQ(actions->isModified(), isChanged);
    }
    EXPECT_THAT(asked, HasSubstr("changed by another program"));
    EXPECT_THAT(folder.content("d.svg"), HasSubstr("theirs"));
}

TEST_F(WindowFiles, FollowsWhatPluginsDoToTheDrawing) {
    static void (*work)(const AIDocumentSuite&) = nullptr;
    auto& plugin = session->plugins.attach("Doing", [](const char*, const char* selector, void* message) -> SPErr {
        const auto& basic = *static_cast<const SPMessageData*>(message)->basic;
        const void* suite = nullptr;
        if (std::string(selector) != kSelectorAIGoTimer || !work) return kNoErr;
        if (basic.AcquireSuite(kAIDocumentSuite, kAIDocumentSuiteVersion, &suite) == kNoErr)
            std::exchange(work, nullptr)(*static_cast<const AIDocumentSuite*>(suite));
        return basic.ReleaseSuite(kAIDocumentSuite, kAIDocumentSuiteVersion);
    });
    session->start();
    session->timers.add(plugin, "Doing", 1);
    const std::string mine = folder.path("recovery/" + std::to_string(::getpid()) + ".svg");
    actions->save(folder.path("d.svg"), false);
    actions->addLayer("Ours");
    window->files().keepWork();
    EXPECT_TRUE(std::filesystem::exists(mine));
    work = [](const AIDocumentSuite& suite) { suite.SaveDocument(); };
    ASSERT_TRUE(await([&] { return !window->isWindowModified(); }));
    EXPECT_THAT(folder.content("d.svg"), HasSubstr("Ours"));
    EXPECT_FALSE(std::filesystem::exists(mine));
    work = [](const AIDocumentSuite& suite) { suite.SetDocumentModified(true); };
    ASSERT_TRUE(await([&] { return window->isWindowModified(); }));
    work = [](const AIDocumentSuite& suite) { suite.CloseDocument(); };
    ASSERT_TRUE(await([&] { return window->windowTitle() == "Easel[*]"; }));
    choose("&Save");
    window->resize(window->size() + QSize(50, 50));
    EXPECT_TRUE(await([&] { return canvas().isTrue(); }));
    EXPECT_TRUE(window->close()); // asks nothing
}

/// Unsaved work is that of the drawing, while a part of it is edited too.
TEST_F(WindowFiles, TakesASymbolForAPartOfItsDrawing) {
    const std::string path = folder.write(
        "d.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='99' height='99'><symbol id='s' viewBox='0 0 9 9'>"
                 "<path d='M1,1 L8,8'/><symbol id='t'><path d='M2,2 L8,8'/></symbol></symbol>"
                 "<use href='#s' width='9' height='9'/></svg>");
    for (const bool opens : {true, false}) {
        open(path);
        actions->addLayer("Ours");
        session->edit(actions->documentNumber(), "symbol", "s");
        actions->addLayer("Within");
        EXPECT_EQ(session->documents.count(), 2U);
        EXPECT_EQ(window->windowTitle(), "d.svg[*] — Easel");
        window->files().keepWork();
        const std::string mine = folder.path("recovery/" + std::to_string(::getpid()));
        EXPECT_THAT(desk::contents(mine + ".svg"), HasSubstr("Ours"));
        EXPECT_THAT(desk::contents(mine + ".path"), testing::StartsWith(path));
        session->documents.setModified(document(), false);
        clickWhenAsked("Cancel");
        choose("&New");
        EXPECT_THAT(asked, HasSubstr("Save the changes"));
        opens ? open(path) : window->files().newDocument(10, 10);
        EXPECT_EQ(session->documents.count(), 1U);
        EXPECT_EQ(document().width(), opens ? 99 : 10);
    }
    open(path);
    for (const char* const name : {"s", "t"}) {
        session->edit(actions->documentNumber(), "symbol", name);
        actions->addLayer(std::string("Within ") + name);
    }
    const std::size_t steps = actions->drawing()->journal().undoDepth();
    window->files().keepWork();
    EXPECT_EQ(actions->drawing()->journal().undoDepth(), steps);
    const std::string kept = folder.content("recovery/" + std::to_string(::getpid()) + ".svg");
    EXPECT_THAT(kept, testing::AllOf(HasSubstr("Within s"), HasSubstr("Within t")));
    for (int i = 0; i < 2; ++i) session->endEditing(actions->documentNumber());
    actions->save(folder.path("ended.svg"), false);
    EXPECT_EQ(folder.content("ended.svg"), kept);
}

/// The drawing in front can be used while another is read.
TEST_F(WindowFiles, ReadsBesideAllElse) {
    constexpr std::size_t kMany = 150'000; // more than are read before the window says that it reads
    std::string large = "<svg xmlns='http://www.w3.org/2000/svg' width='77' height='10'><text>Plain</text>";
    for (std::size_t i = 0; i < kMany; ++i) large += "<path d='M1,1 L" + std::to_string(i % 70) + ",9'/>";
    const std::string path = folder.write("large.svg", large + "</svg>");
    const auto begin = [&] {
        window->open(path);
        EXPECT_TRUE(window->files().isReading());
        chooseTool("Isometric Line Tool");
        stroke({{100, 100}, {100, 60}});
    };
    begin();
    EXPECT_EQ(paths(), 1U);
    for (QAction* const action : window->findChildren<QAction*>())
        if (action->text() == "Stop Rea&ding") action->trigger();
    EXPECT_FALSE(window->files().isReading());
    settle();
    EXPECT_EQ(document().width(), 300);

    begin(); // what was drawn meanwhile is not lost without a question
    clickWhenAsked("Cancel");
    ASSERT_TRUE(await([&] { return !window->files().isReading() && !asked.empty(); }));
    EXPECT_EQ(document().width(), 300);
    begin();
    press({50, 50});
    settle();
    EXPECT_TRUE(window->files().isReading()); // until the gesture has ended
    clickWhenAsked("Discard");
    release({50, 50});
    ASSERT_TRUE(await([&] { return document().width() == 77; }));
    EXPECT_EQ(paths(), kMany + 1);

    // Nor under what is half typed, whose bar is full meanwhile.
    window->files().newDocument(300, 200);
    auto& field = *window->findChild<QComboBox*>("zoom")->lineEdit();
    window->open(path);
    window->findChild<QComboBox*>("zoom")->setFocus();
    field.selectAll();
    for (const char* const typed : {"5", "0", "%"}) key(field, 0, typed);
    const auto* const bar = window->findChild<QProgressBar*>("reading");
    ASSERT_TRUE(await([&] { return bar->value() == 100; }));
    settle();
    EXPECT_TRUE(window->files().isReading());
    key(field, Qt::Key_Return);
    EXPECT_EQ(canvas().zoom(), 0.5);
    ASSERT_TRUE(await([&] { return document().width() == 77; }));

    window->files().newDocument(300, 200);
    auto& layers = *window->findChild<QTreeWidget*>("layers");
    layers.editItem(layers.topLevelItem(0), 2);
    window->open(path);
    ASSERT_TRUE(await([&] { return bar->value() == 100; }));
    settle();
    EXPECT_TRUE(window->files().isReading());
    key(*QApplication::focusWidget(), Qt::Key_Escape);
    ASSERT_TRUE(await([&] { return document().width() == 77; }));
    const auto isTold = [&] {
        const auto* const notice = window->findChild<QLabel*>("notice");
        return notice && notice->text().contains("more than 50,000 objects");
    };
    EXPECT_TRUE(await(isTold));
}

TEST_F(WindowFiles, TheProgramHeedsItsEnvironment) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("EASEL_UNDO_MEGABYTES", "lots");
    program.setProcessEnvironment(environment);
    program.start(TEST_BUILD_DIR "/easel-window", {"--time-start", "--profile", QString::fromStdString(folder.path())});
    EXPECT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_THAT(program.readAllStandardError().toStdString(),
                HasSubstr("easel-window: EASEL_UNDO_MEGABYTES must be a whole number from 1 to 1000000, not \"lots\""));
}

TEST_F(WindowFiles, TellsOfFilesThatCannotBeOpenedOrWereChanged) {
    open(folder.path("none.svg"));
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_EQ(failures[0], folder.path("none.svg") + ": No such file or directory");
    EXPECT_EQ(document().width(), 300); // what was open is still
    const std::string path = folder.path("d.svg");
    actions->save(path, false);
    std::ofstream(path, std::ios::app) << "<!-- theirs -->";
    actions->addLayer("Ours");
    clickWhenAsked("Cancel");
    choose("&Save");
    EXPECT_THAT(asked, HasSubstr("changed by another program"));
    EXPECT_THAT(folder.content("d.svg"), HasSubstr("theirs"));
    EXPECT_TRUE(actions->isModified());
}

TEST_F(WindowFiles, NoticesWhatOtherProgramsDoToTheFileInFront) {
    const auto isNoticed = [&](const std::string& what) {
        return await([&] { return noticed[Notice::FileChanged].find(what) != std::string::npos; });
    };
    const std::string path = folder.path("d.svg");
    actions->save(path, false);
    const std::string saved = folder.content("d.svg");
    std::filesystem::remove(path);
    EXPECT_TRUE(isNoticed("removed " + path));
    std::ofstream(path) << saved << "<!-- theirs -->";
    EXPECT_TRUE(isNoticed("changed " + path));
    const auto& first = document();
    session->newDocument(50, 60);
    actions->save(folder.path("e.svg"), false);
    EXPECT_EQ(noticed[Notice::FileChanged], "");
    actions->bringToFront(first);
    EXPECT_TRUE(isNoticed("changed " + path));
    std::ofstream(path) << saved;
    EXPECT_TRUE(await([&] { return noticed[Notice::FileChanged].empty(); }));
}

/// Plug-ins go on while a name is asked for.
TEST_F(WindowFiles, SavesTheDrawingThatWasAskedAbout) {
    for (const bool closes : {false, true}) {
        const std::string path = folder.path(closes ? "closed.svg" : "behind.svg");
        whenAsked<QFileDialog>([&](QFileDialog& dialog) {
            closes ? session->close() : static_cast<void>(session->newDocument(50, 60));
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path));
            static_cast<QDialog&>(dialog).accept();
        });
        choose("Save &As...");
        EXPECT_EQ(std::filesystem::exists(path), !closes);
    }
    EXPECT_THAT(folder.content("behind.svg"), HasSubstr("width=\"300pt\""));
    EXPECT_THAT(failures, testing::ElementsAre(HasSubstr("was closed before it had a name")));
}

TEST_F(WindowFiles, SavesWhatIsHalfTyped) {
    actions->save(folder.path("d.svg"), false);
    chooseTool("Isometric Line Tool");
    stroke({{100, 100}, {100, 60}});
    actions->key("A", kAICommandKey);
    auto& x = *window->findChild<QDoubleSpinBox*>("x");
    typeOver(*x.findChild<QLineEdit*>(), "77");
    actions->nudge(5, 0); // as a plug-in may
    EXPECT_EQ(x.findChild<QLineEdit*>()->text(), QString("77 pt"));
    choose("&Save");
    EXPECT_EQ(topPath().points[0].anchor.x, 77);
    auto& layers = *window->findChild<QTreeWidget*>("layers");
    layers.editItem(layers.topLevelItem(0), 2);
    typeOver(*layers.findChild<QLineEdit*>(), "123");
    actions->nudge(5, 0);
    choose("&Save");
    EXPECT_THAT(folder.content("d.svg"), HasSubstr("inkscape:label=\"123\""));
}

TEST_F(WindowFiles, MenusGreyWhatCannotAct) {
    const auto greyed = [&] {
        std::string all;
        for (const QAction* const title : window->menuBar()->actions()) {
            QMenu* const menu = title->menu();
            Q_EMIT menu->aboutToShow();
            for (const QAction* const action : menu->actions())
                if (!action->isEnabled()) all += action->text().remove('&').section('\t', 0, 0).toStdString() + ' ';
            Q_EMIT menu->aboutToHide();
        }
        return all;
    };
    EXPECT_THAT(greyed(), HasSubstr("Undo Redo Cut Copy Delete Duplicate Deselect All Group Ungroup"));
    chooseTool("Isometric Line Tool");
    stroke({{100, 100}, {100, 60}});
    EXPECT_THAT(greyed(), HasSubstr("Redo Ungroup"));
}

/// Of a name without its end, which the dialog cannot have asked about.
TEST_F(WindowFiles, AsksBeforeAFileIsReplaced) {
    const std::string path = folder.write("there.svg", "<svg xmlns='http://www.w3.org/2000/svg'/>");
    for (const char* const answer : {"Cancel", "Replace It"}) {
        whenAsked<QFileDialog>([&](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(folder.path("there")));
            static_cast<QDialog&>(dialog).accept();
            clickWhenAsked(answer);
        });
        choose("Save &As...");
        EXPECT_EQ(asked, path + " is there already.");
        EXPECT_EQ(actions->path(), std::string(answer) == "Cancel" ? "" : path);
    }
    // A copy has a name of its own; what it ends in may be in capitals.
    whenAsked<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.selectedFiles().constFirst().toStdString(), folder.path("there copy.svg"));
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("COPY.SVG");
        static_cast<QDialog&>(dialog).accept();
    });
    choose("&SVG Copy...");
    EXPECT_TRUE(std::filesystem::exists(folder.path("COPY.SVG")));
    EXPECT_TRUE(failures.empty());
}

} // namespace
