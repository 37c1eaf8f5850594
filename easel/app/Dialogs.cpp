// The widgets hold nothing of their own: before each event the session learns what is selected in a field, and after it
// all of them are brought to what the session says.
#include "app/Dialogs.h"

#include <QApplication>
#include <QBasicTimer>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDialog>
#include <QIcon>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimerEvent>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>

#include "app/Application.h"
#include "app/Look.h"
#include "hostapi/Stage.h"

namespace easel::app {

namespace {

QString textOf(const session::Widget& widget) { return QString::fromStdString(widget.text); }

/// A title as it is: no character of it stands for a key.
QString titleOf(const std::string& text) { return literal(QString::fromStdString(text)); }

/// A tooltip as it is: Qt would show what looks like HTML as such.
QString tooltipOf(const std::string& text) {
    return text.empty() ? QString() : "<qt>" + QString::fromStdString(text).toHtmlEscaped() + "</qt>";
}

/// Characters before a place of a text, and the other way round: Qt counts those beyond U+FFFF twice.
std::int32_t charactersBefore(const QString& text, int place) {
    return static_cast<std::int32_t>(text.left(place).toUcs4().size());
}
int placeOf(const QString& text, std::int32_t characters) {
    const QList<uint> codes = text.toUcs4().mid(0, characters);
    return static_cast<int>(
        QString::fromUcs4(reinterpret_cast<const char32_t*>(codes.constData()), codes.size()).size());
}

/// The picture of that number among the plug-in's resources, sharp on dense displays too; null where there is none.
QPixmap imageOf(const session::Plugin& plugin, std::int16_t number, qreal pixelsAPoint) {
    const auto size = number == 0 ? std::nullopt : session::imageSize(plugin, number);
    if (!size) return {};
    const std::string file = plugin.filePath + "/Contents/Resources/" + std::to_string(number) + ".png";
    const QIcon icon(QString::fromStdString(file)); // Qt finds the one of double resolution beside it
    return icon.pixmap(QSizeF(size->h, size->v).toSize(), pixelsAPoint);
}

/// Narrows the font of a title that is too wide for its frame, as far as it can still be read.
void fitTitle(QWidget& shown) {
    constexpr int kLeastStretch = 75; // percent
    QFont font = shown.font();
    for (int stretch = QFont::Unstretched; stretch >= kLeastStretch; stretch -= 5) {
        font.setStretch(stretch);
        shown.setFont(font);
        if (shown.sizeHint().width() <= shown.width()) break;
    }
}

/// The same for one that may have several lines.
void fitText(QLabel& label) {
    constexpr int kLeastStretch = 75; // percent
    QFont font = label.font();
    for (int stretch = QFont::Unstretched; stretch >= kLeastStretch; stretch -= 5) {
        font.setStretch(stretch);
        label.setFont(font);
        if (label.heightForWidth(label.width()) <= label.height()) break;
    }
}

/// All that shows of a widget.
auto lookOf(const session::Widget& widget) {
    const AIRealRect& frame = widget.frame;
    return std::tie(widget.id, widget.kind, frame.left, frame.top, frame.right, frame.bottom, widget.text,
                    widget.tooltip, widget.visible, widget.enabled, widget.checked, widget.bold, widget.italic,
                    widget.image, widget.rolloverImage, widget.pressedImage, widget.alignment, widget.style,
                    widget.linked, widget.selectionStart, widget.selectionEnd);
}

QString deleteKey() { return QString::fromUtf8(session::kDeleteKey.data(), session::kDeleteKey.size()); }

/// What a key is told as that moves the caret or has a function; 0 for others.
int codeWithoutCharacter(int key) {
    switch (key) {
    case Qt::Key_Up: return 0xF700;
    case Qt::Key_Down: return 0xF701;
    case Qt::Key_Left: return 0xF702;
    case Qt::Key_Right: return 0xF703;
    case Qt::Key_Home: return 0xF729;
    case Qt::Key_End: return 0xF72B;
    case Qt::Key_PageUp: return 0xF72C;
    case Qt::Key_PageDown: return 0xF72D;
    default: return key >= Qt::Key_F1 && key <= Qt::Key_F35 ? 0xF704 + key - Qt::Key_F1 : 0;
    }
}

QWidget& parentFor(QWidget& window) {
    QWidget* const modal = QApplication::activeModalWidget();
    return modal ? *modal : window;
}

/// Without a window manager nobody else brings the window back in front.
class Activating {
  public:
    ~Activating() {
        if (before_) before_->activateWindow();
    }
    explicit Activating(QWidget& window) {
        if (!before_) before_ = &window;
    }
    Activating(const Activating&) = delete;
    Activating& operator=(const Activating&) = delete;

  private:
    QPointer<QWidget> before_ = QApplication::activeWindow();
};

class StagedDialog final : public QDialog {
  public:
    StagedDialog(session::Dialogs& dialogs, session::Dialog& dialog, QWidget& parent)
        : QDialog(&parent), dialogs_(dialogs), dialog_(dialog) {
        setObjectName("staged");
        sync();
        constexpr int kLookMilliseconds = 50;
        lookTimer_.start(kLookMilliseconds, this);
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        const int id = object->property("id").toInt();
        switch (event->type()) {
        case QEvent::ShortcutOverride: event->accept(); return true;
        case QEvent::KeyPress: return id != 0 && hearKey(id, static_cast<QKeyEvent&>(*event));
        case QEvent::InputMethod: {
            const QString typed = static_cast<QInputMethodEvent&>(*event).commitString();
            if (typed.isEmpty() || !fieldOf(id)) return false;
            type(id, typed);
            return true;
        }
        case QEvent::FocusIn: {
            const Qt::FocusReason reason = static_cast<QFocusEvent&>(*event).reason();
            if (fieldOf(id) && reason == Qt::MouseFocusReason) act([&] { dialogs_.moveFocus(dialog_, id); });
            return false;
        }
        case QEvent::Enter: return point(&pointed_, id);
        case QEvent::Leave: return point(&pointed_, 0);
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick: return id != 0 && hearMouse(id, static_cast<QMouseEvent&>(*event));
        default: return false;
        }
    }

    void reject() override {
        act([&] { dialogs_.press(dialog_, kStageEscapeKey); });
    }

  protected:
    void closeEvent(QCloseEvent* event) override {
        if (!dialog_.ended) act([&] { dialogs_.close(dialog_); });
        if (!dialog_.ended) event->ignore();
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (const int key = dialogKey(*event); key != 0) act([&] { dialogs_.press(dialog_, key); });
    }
    bool focusNextPrevChild(bool /*next*/) override { return false; }
    /// Plug-ins change and end dialogs in timers too.
    void timerEvent(QTimerEvent* event) override {
        if (event->timerId() != lookTimer_.timerId()) return QDialog::timerEvent(event);
        if (dialog_.ended || !isShownAsItIs()) act([] {});
    }

  private:
    /// What of the keyboard is the dialog's; 0 for the rest.
    static int dialogKey(const QKeyEvent& event) {
        switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter: return kStageReturnKey;
        case Qt::Key_Escape: return kStageEscapeKey;
        case Qt::Key_Tab: return kStageTabKey;
        case Qt::Key_Backtab: return kStageBackTabKey;
        default: return 0;
        }
    }

    [[nodiscard]] int kindOf(int id) const {
        const session::Widget* const widget = dialog_.find(id);
        return widget ? widget->kind : 0;
    }
    [[nodiscard]] QLineEdit* fieldOf(int id) const {
        const auto found = widgets_.find(id);
        return found == widgets_.end() ? nullptr : qobject_cast<QLineEdit*>(found->second);
    }

    /// Buttons and checkboxes tell of their clicks themselves.
    bool hearMouse(int id, const QMouseEvent& event) {
        if (event.button() == Qt::MiddleButton && fieldOf(id)) return hearMiddleButton(id, event);
        if (event.button() != Qt::LeftButton) return false;
        const bool isLabel = kindOf(id) == kStageLabel;
        switch (event.type()) {
        case QEvent::MouseButtonPress: inDoubleClick_ = false; return point(&held_, id);
        case QEvent::MouseButtonDblClick:
            if (!isLabel && kindOf(id) != kStageButton) return false;
            inDoubleClick_ = true;
            act([&] { dialogs_.doubleClick(dialog_, id); });
            return true;
        default:
            point(&held_, 0);
            if (std::exchange(inDoubleClick_, false)) return true; // its end is no click
            if (isLabel && widgets_[id]->rect().contains(event.position().toPoint()))
                act([&] { dialogs_.click(dialog_, id); });
            return false;
        }
    }

    /// Pastes what is selected elsewhere, as X11 has it.
    bool hearMiddleButton(int id, const QMouseEvent& event) {
        if (event.type() != QEvent::MouseButtonRelease) return false; // which puts the caret there
        fieldOf(id)->deselect();
        const QString text = QApplication::clipboard()->text(QClipboard::Selection);
        if (!text.isEmpty()) type(id, text);
        return true;
    }

    /// Shows the picture that belongs to where the pointer is and what it holds down. False: the event goes on.
    bool point(int* place, int id) {
        const int before = std::exchange(*place, id);
        for (const int each : {before, id})
            if (const session::Widget* const widget = dialog_.find(each)) showText(*widgets_[each], *widget);
        return false;
    }

    bool hearKey(int id, QKeyEvent& event) {
        if (const int key = dialogKey(event); key != 0) {
            act([&] { dialogs_.press(dialog_, key); });
            return true;
        }
        QLineEdit* const field = fieldOf(id);
        if (!field) return false;
        if (event.matches(QKeySequence::Paste)) {
            if (const QString text = QApplication::clipboard()->text(); !text.isEmpty()) type(id, text);
        } else if (event.matches(QKeySequence::Cut)) {
            field->copy();
            if (field->hasSelectedText()) type(id, deleteKey());
        } else if (event.key() == Qt::Key_Backspace) {
            type(id, deleteKey());
        } else if (event.key() == Qt::Key_Delete) {
            if (!field->hasSelectedText()) field->cursorForward(true);
            field->hasSelectedText() ? type(id, deleteKey()) : typeNothing(id, deleteKey());
        } else if (const int code = codeWithoutCharacter(event.key()); code != 0) {
            field->event(&event); // moves the caret, selects
            typeNothing(id, QChar(code));
        } else if (!event.text().isEmpty() && event.text()[0].isPrint() && !(event.modifiers() & Qt::ControlModifier)) {
            type(id, event.text());
        } else if (event.matches(QKeySequence::DeleteCompleteLine) || event.matches(QKeySequence::DeleteEndOfLine)) {
            const int from = event.matches(QKeySequence::DeleteEndOfLine) ? field->cursorPosition() : 0;
            field->setSelection(from, static_cast<int>(field->text().size()) - from);
            if (field->hasSelectedText()) type(id, deleteKey());
        } else {
            // Nothing else may change the field, which the plug-in would not hear of.
            return (event.modifiers() & Qt::ControlModifier) && !event.matches(QKeySequence::SelectAll) &&
                   !event.matches(QKeySequence::Copy);
        }
        return true;
    }

    void type(int id, const QString& characters) {
        act([&] { dialogs_.type(dialog_, id, characters.toStdString()); });
    }
    void typeNothing(int id, const QString& key) {
        act([&] { dialogs_.typeNothing(dialog_, id, key.toStdString()); });
    }

    /// Passes on what the user did. The dialog may have ended by then, or be another.
    template <class Act> void act(Act what) {
        guarded([&] {
            for (session::Widget& widget : dialog_.widgets) {
                const QLineEdit* const field = fieldOf(widget.id);
                if (!field) continue;
                const int start = field->hasSelectedText() ? field->selectionStart() : field->cursorPosition();
                const int end = field->hasSelectedText() ? field->selectionEnd() : start;
                widget.selectionStart = charactersBefore(field->text(), start);
                widget.selectionEnd = charactersBefore(field->text(), end);
            }
            what();
        })();
        if (dialog_.ended) return done(0);
        sync();
    }

    QWidget* make(const session::Widget& widget) {
        QWidget* made = nullptr;
        const int id = widget.id;
        const auto clicked = guarded([this, id] { act([&] { dialogs_.click(dialog_, id); }); });
        if (widget.kind == kStageLabel) {
            auto* const label = new QLabel(this);
            label->setTextFormat(Qt::PlainText);
            label->setWordWrap(true);
            made = label;
        } else if (widget.kind == kStageTextField) {
            auto* const field = new QLineEdit(this);
            field->setAcceptDrops(false);
            field->setContextMenuPolicy(Qt::NoContextMenu);
            made = field;
        } else if (widget.kind == kStageCheckbox) {
            auto* const box = new QCheckBox(this);
            connect(box, &QCheckBox::clicked, this, clicked);
            made = box;
        } else {
            auto* const button = new QPushButton(this);
            button->setAutoDefault(false);
            connect(button, &QPushButton::clicked, this, clicked);
            made = button;
        }
        if (widget.kind != kStageTextField) made->setFocusPolicy(Qt::NoFocus); // a click leaves the field in focus
        made->setProperty("id", id);
        made->installEventFilter(this);
        return made;
    }

    void show(QWidget& shown, const session::Widget& widget) {
        const AIRealRect& frame = widget.frame;
        shown.setGeometry(QRectF(QPointF(frame.left, frame.top), QPointF(frame.right, frame.bottom)).toRect());
        shown.setToolTip(tooltipOf(widget.tooltip));
        QFont font = QApplication::font();
        font.setBold(widget.bold);
        font.setItalic(widget.italic);
        shown.setFont(font);
        shown.setEnabled(widget.enabled);
        shown.setVisible(widget.visible);
        showText(shown, widget);
        const Qt::Alignment side = widget.alignment == kStageAlignRight    ? Qt::AlignRight
                                   : widget.alignment == kStageAlignCenter ? Qt::AlignHCenter
                                                                           : Qt::AlignLeft;
        if (auto* const label = qobject_cast<QLabel*>(&shown)) {
            label->setAlignment(side | Qt::AlignTop);
            if (label->pixmap(Qt::ReturnByValue).isNull()) fitText(*label);
        } else if (auto* const field = qobject_cast<QLineEdit*>(&shown)) {
            field->setAlignment(side | Qt::AlignVCenter);
            if (field->text() != textOf(widget)) field->setText(textOf(widget));
            const int start = placeOf(field->text(), widget.selectionStart);
            const int end = placeOf(field->text(), widget.selectionEnd);
            end > start ? field->setSelection(start, end - start) : field->setCursorPosition(start);
        } else if (auto* const box = qobject_cast<QCheckBox*>(&shown)) {
            box->setText(titleOf(widget.text));
            fitTitle(shown);
            box->setChecked(widget.checked);
        } else if (auto* const button = qobject_cast<QPushButton*>(&shown)) {
            if (button->icon().isNull()) fitTitle(shown);
            button->setDefault(widget.style == kStageDefaultButton);
        }
        // Names for whoever hears the window read, and for tests.
        shown.setObjectName(textOf(widget));
        if (widget.kind == kStageTextField) shown.setAccessibleName(QString::fromStdString(labelOf(widget)));
    }

    /// Its text, or the picture in place of it.
    void showText(QWidget& shown, const session::Widget& widget) {
        const std::int16_t number = widget.id == pointed_ && widget.id == held_ ? widget.pressedImage
                                    : widget.id == pointed_                     ? widget.rolloverImage
                                                                                : widget.image;
        const bool mayHave = widget.kind == kStageLabel || widget.kind == kStageButton;
        const QPixmap image = mayHave ? imageOf(*dialog_.owner, number, devicePixelRatio()) : QPixmap();
        if (auto* const label = qobject_cast<QLabel*>(&shown)) {
            image.isNull() ? label->setText(textOf(widget)) : label->setPixmap(image);
        } else if (auto* const push = qobject_cast<QPushButton*>(&shown)) {
            push->setText(image.isNull() ? titleOf(widget.text) : QString());
            push->setIcon(image);
            push->setIconSize(image.deviceIndependentSize().toSize());
            push->setFlat(!image.isNull());
        }
        if (mayHave) shown.setAccessibleName(image.isNull() ? QString() : textOf(widget));
    }

    /// What stands before a field: the label that is linked with it, else the one on its left in the same line.
    [[nodiscard]] std::string labelOf(const session::Widget& field) const {
        const auto middle = [](const session::Widget& widget) { return (widget.frame.top + widget.frame.bottom) / 2; };
        const session::Widget* nearest = nullptr;
        for (const session::Widget& each : dialog_.widgets) {
            if (each.kind != kStageLabel) continue;
            if (each.linked == field.id) return each.text;
            const double away = std::abs(middle(each) - middle(field));
            const bool isBeside = each.frame.right <= field.frame.left && away < field.frame.bottom - field.frame.top;
            if (isBeside && (!nearest || away < std::abs(middle(*nearest) - middle(field)))) nearest = &each;
        }
        return nearest ? nearest->text : std::string();
    }

    [[nodiscard]] bool isShownAsItIs() const {
        const auto same = [](const session::Widget& a, const session::Widget& b) { return lookOf(a) == lookOf(b); };
        return shown_.title == dialog_.title && shown_.width == dialog_.width && shown_.height == dialog_.height &&
               shown_.focus == dialog_.focus &&
               std::equal(shown_.widgets.begin(), shown_.widgets.end(), dialog_.widgets.begin(), dialog_.widgets.end(),
                          same);
    }

    void sync() {
        shown_ = dialog_;
        setWindowTitle(QString::fromStdString(dialog_.title));
        setFixedSize(static_cast<int>(dialog_.width), static_cast<int>(dialog_.height));
        for (auto at = widgets_.begin(); at != widgets_.end();) {
            if (dialog_.find(at->first)) {
                ++at;
                continue;
            }
            at->second->hide();
            at->second->deleteLater();
            at = widgets_.erase(at);
        }
        for (const session::Widget& widget : dialog_.widgets) {
            QWidget*& place = widgets_[widget.id];
            if (!place) place = make(widget);
        }
        for (const session::Widget& widget : dialog_.widgets) show(*widgets_[widget.id], widget);
        QLineEdit* const focused = fieldOf(dialog_.focus);
        if (focused && focusWidget() != focused) {
            focused->setFocus(Qt::OtherFocusReason);
            focused->selectAll();
        } else if (!focused && focusWidget()) {
            focusWidget()->clearFocus();
        }
    }

    session::Dialogs& dialogs_;
    session::Dialog& dialog_;
    session::Dialog shown_; ///< when it was shown last
    QBasicTimer lookTimer_;
    std::map<int, QWidget*> widgets_; // by the plug-in's number
    int pointed_ = 0;                 // the widget under the pointer, by its number
    int held_ = 0;                    // that the mouse button is down on
    bool inDoubleClick_ = false;      // and its button still down
};

} // namespace

void connectDialogs(Actions& actions, QWidget& window) {
    session::Session& session = actions.session();
    session.alerts.handler = [&](const session::Alert& alert) {
        actions.dialogs.opened(nullptr);
        const std::size_t chosen = showAlert(alert, window);
        actions.dialogs.chosen(alert, chosen);
        actions.dialogs.closed();
        return chosen;
    };
    session.dialogs.face = [&](session::Dialog& dialog) {
        actions.dialogs.opened(&dialog);
        showDialog(session.dialogs, dialog, window);
        actions.dialogs.closed();
    };
    session.dialogs.heard = [&](session::Dialog& dialog, const StageDialogMessage& message) {
        actions.dialogs.heard(dialog, message);
    };
}

std::size_t showAlert(const session::Alert& alert, QWidget& window) {
    using Kind = session::Alert::Kind;
    const Activating activating(window);
    QMessageBox box(&parentFor(window));
    box.setObjectName("alert");
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(alert.text));
    box.setIcon(alert.kind == Kind::Error     ? QMessageBox::Critical
                : alert.kind == Kind::Message ? QMessageBox::Information
                                              : QMessageBox::Question);
    std::vector<QAbstractButton*> buttons;
    for (const std::string& title : alert.buttons) {
        const bool isLast = buttons.size() + 1 == alert.buttons.size();
        const QMessageBox::ButtonRole role = buttons.empty() ? QMessageBox::AcceptRole
                                             : isLast        ? QMessageBox::RejectRole
                                                             : QMessageBox::DestructiveRole;
        buttons.push_back(box.addButton(titleOf(title), role));
    }
    box.setDefaultButton(qobject_cast<QPushButton*>(buttons.front()));
    box.setEscapeButton(buttons.back());
    box.exec();
    const auto chosen = std::find(buttons.begin(), buttons.end(), box.clickedButton());
    return chosen == buttons.end() ? buttons.size() - 1 : static_cast<std::size_t>(chosen - buttons.begin());
}

void showDialog(session::Dialogs& dialogs, session::Dialog& dialog, QWidget& window) {
    const Activating activating(window);
    StagedDialog shown(dialogs, dialog, parentFor(window));
    shown.exec();
}

void openAddress(const std::string& address) {
    const QUrl url(QString::fromStdString(address));
    if (url.scheme() == "http" || url.scheme() == "https") QDesktopServices::openUrl(url);
}

} // namespace easel::app
