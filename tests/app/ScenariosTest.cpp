// The table of dialog scenarios in the window: a hand's keys and clicks, and what the plug-in's callbacks heard.
#include <QCheckBox>
#include <QLineEdit>

#include <cstdlib>
#include <fstream>

#include "support/Shown.h"

namespace {

struct Scenario {
    std::string name;
    std::vector<std::string> steps;
    std::string transcript;
};

std::vector<Scenario> scenarios() {
    std::ifstream in(PROJECT_DIR "/tests/dialogs/scenarios.txt");
    std::vector<Scenario> all;
    bool steps = true;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("[")) {
            all.push_back({line, {}, {}});
            steps = true;
        } else if (line == "=") {
            steps = false;
        } else if (!line.empty() && line[0] != '#') {
            if (steps)
                all.back().steps.push_back(line);
            else
                all.back().transcript += line + '\n';
        }
    }
    return all;
}

class ScenariosTest : public desk::Shown {
  protected:
    /// Step by step, with the next one due before each: one that opens an alert is through only after that. What is
    /// open after the last is closed.
    void play(std::vector<std::string> steps, int round) {
        if (round != round_) return;
        QWidget* const top = QApplication::activeModalWidget();
        const bool isAlert = dynamic_cast<QMessageBox*>(top) != nullptr;
        const std::string step = steps.empty() ? "close" : steps.front();
        const bool isReady = top && (steps.empty() || isAlert == (step == "answer"));
        if (isReady && !steps.empty()) steps.erase(steps.begin());
        constexpr int kPatience = 5; // ms
        QTimer::singleShot(kPatience, window.get(),
                           [this, steps = std::move(steps), round]() mutable { play(std::move(steps), round); });
        if (isReady) take(*top, step);
    }

    void take(QWidget& top, const std::string& step) {
        const std::size_t space = step.find(' ');
        const std::string verb = step.substr(0, space);
        const std::string rest = space == std::string::npos ? "" : step.substr(space + 1);
        if (verb == "answer") return press(top, "Return");
        if (verb == "close") return static_cast<void>(top.close());
        if (verb == "press") return press(top, rest);
        if (verb == "type") return typeInto(top, rest.substr(0, rest.find(' ')), rest.substr(rest.find(' ') + 1));
        auto* const part = top.findChild<QWidget*>(QString::fromStdString(rest));
        if (!part) return ADD_FAILURE() << "there is no " << rest, static_cast<void>(top.close());
        click(*part, verb == "twice" ? 2 : 1);
    }

    static void press(QWidget& top, const std::string& name) {
        static const std::map<std::string, Qt::Key> kKeys{
            {"Return", Qt::Key_Return},   {"Escape", Qt::Key_Escape}, {"Tab", Qt::Key_Tab},
            {"BackTab", Qt::Key_Backtab}, {"Left", Qt::Key_Left},     {"Delete", Qt::Key_Backspace},
            {"Right", Qt::Key_Right},     {"Up", Qt::Key_Up},         {"Down", Qt::Key_Down},
            {"Home", Qt::Key_Home},       {"End", Qt::Key_End},       {"F1", Qt::Key_F1}};
        key(top.focusWidget() ? *top.focusWidget() : top, kKeys.at(name));
    }

    static void click(QWidget& part, int times) {
        const bool isBox = dynamic_cast<QCheckBox*>(&part) != nullptr; // of which the frame beside the text is no part
        const QPointF middle(isBox ? 10 : part.width() / 2., part.height() / 2.);
        for (int i = 0; i < times; ++i) {
            for (const auto type :
                 {i % 2 == 0 ? QEvent::MouseButtonPress : QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
                const bool down = type != QEvent::MouseButtonRelease;
                QMouseEvent event(type, middle, part.mapToGlobal(middle), Qt::LeftButton,
                                  down ? Qt::LeftButton : Qt::NoButton, {});
                QApplication::sendEvent(&part, &event);
            }
        }
    }

    static void typeInto(QWidget& top, const std::string& label, const std::string& text) {
        for (QLineEdit* const field : top.findChildren<QLineEdit*>()) {
            if (field->accessibleName().toStdString() != label) continue;
            click(*field, 3);
            for (const char letter : text) key(*field, std::toupper(letter), QString(QChar(letter)));
        }
    }

    int round_ = 0; ///< which scenario is played
};

TEST_F(ScenariosTest, AreHeardAsEverywhere) {
    easel::session::Plugin& plugin = session->plugins.load(TEST_BUILD_DIR "/Questionnaire.aip");
    session->start();
    const std::string file = folder.path("transcript");
    setenv("QUESTIONNAIRE", file.c_str(), 1);
    const std::vector<Scenario> table = scenarios();
    EXPECT_GE(table.size(), 15U);
    for (const Scenario& scenario : table) {
        std::filesystem::remove(file);
        play(scenario.steps, ++round_);
        SPMessageData message{};
        session->messenger.send(plugin, "Questionnaire", "Show", message);
        EXPECT_EQ(desk::contents(file), scenario.transcript) << scenario.name;
    }
    ++round_;
    unsetenv("QUESTIONNAIRE");
    EXPECT_TRUE(failures.empty());
}

} // namespace
