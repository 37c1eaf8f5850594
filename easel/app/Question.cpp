// A question as the toolkit's box.
#include "app/Question.h"

#include <QPushButton>

#include <algorithm>

namespace easel::app {

std::size_t ask(QWidget& window, const Question& question) {
    QMessageBox box(question.icon, "Easel", question.text, QMessageBox::NoButton, &window);
    box.setObjectName(question.name);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(question.more);
    std::vector<QPushButton*> buttons;
    for (const Choice& choice : question.choices) buttons.push_back(box.addButton(choice.text, choice.role));
    box.setDefaultButton(buttons[question.usual]);
    box.setEscapeButton(buttons.back());
    box.exec();
    window.activateWindow(); // without a window manager nobody else gives the window its keys back
    const auto chosen = std::find(buttons.begin(), buttons.end(), box.clickedButton());
    return chosen == buttons.end() ? buttons.size() - 1 : static_cast<std::size_t>(chosen - buttons.begin());
}

} // namespace easel::app
