// Questions of the window, in a box over it.
#pragma once

#include <QMessageBox>

#include <cstddef>
#include <vector>

namespace easel::app {

struct Choice {
    QString text;
    QMessageBox::ButtonRole role;
};

struct Question {
    QString text; ///< as it is, whatever looks like HTML in it
    QString more; ///< below it
    std::vector<Choice> choices;
    std::size_t usual = 0; ///< what Return chooses; Escape chooses the last
    const char* name = "question";
    QMessageBox::Icon icon = QMessageBox::Warning;
};

/// Returns the place of what was chosen.
std::size_t ask(QWidget& window, const Question& question);

} // namespace easel::app
