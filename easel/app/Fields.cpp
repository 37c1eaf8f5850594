// The stock fields leave out signs that they do not know: 10+5 would become 105.
#include "app/Fields.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "app/Application.h"
#include "app/Look.h"

namespace easel::app {

namespace {

struct Unit {
    const char* name;
    double size; ///< points, of a length
    bool isLength;
};
constexpr double kInch = 72;
constexpr Unit kUnits[] = {
    {"pt", 1, true}, {"mm", kInch / 25.4, true}, {"cm", kInch / 2.54, true}, {"in", kInch, true}, {"%", 1, false}};

/// Whether the event is an Escape that a shortcut would take.
bool isEscape(QEvent& event) {
    return event.type() == QEvent::ShortcutOverride && static_cast<QKeyEvent&>(event).key() == Qt::Key_Escape;
}

} // namespace

NumberField::NumberField(double least, double most, QWidget* parent)
    : QDoubleSpinBox(parent), least_(least), most_(most) {
    setRange(least - 1, most); // the number below all others stands for none
    setSpecialValueText(" ");
    setDecimals(2);
    setLocale(QLocale::c());
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    setAlignment(Qt::AlignRight);
    setKeyboardTracking(false); // a number counts when it is whole
    setFocusPolicy(Qt::StrongFocus);
    connect(lineEdit(), &QLineEdit::returnPressed, this, guarded([this] {
                if (left) left();
            }));
    connect(lineEdit(), &QLineEdit::textChanged, this, guarded([this](const QString& text) {
                const bool isWrong = lineEdit()->isModified() && !numberIn(text);
                QPalette colors;
                if (isWrong) colors.setColor(QPalette::Text, look().colors.wrong);
                if (isWrong || lineEdit()->testAttribute(Qt::WA_SetPalette)) lineEdit()->setPalette(colors);
            }));
}

void NumberField::showNumber(std::optional<double> number) {
    const bool isHalfTyped = hasFocus() && lineEdit()->isModified() && numberIn(lineEdit()->text()) != value();
    if (number && isHalfTyped) return;
    const double shown = number ? std::max(*number, least_) : minimum();
    if (value() != shown) setValue(shown);
}

std::optional<double> NumberField::numberIn(QString text) const {
    if (text.endsWith(suffix())) text.chop(suffix().size());
    text = text.trimmed();
    double unit = 1;
    for (const Unit& each : kUnits) {
        const bool isMeant = suffix().trimmed() == (each.isLength ? "pt" : each.name) && text.endsWith(each.name);
        if (!isMeant) continue;
        text.chop(static_cast<int>(std::strlen(each.name)));
        unit = each.size;
        break;
    }
    bool isNumber = false;
    const double number = unit * text.trimmed().replace(',', '.').toDouble(&isNumber);
    if (!isNumber || !(number >= least_ && number <= most_)) return {};
    return number;
}

QValidator::State NumberField::validate(QString& text, int& /*place*/) const {
    return numberIn(text) ? QValidator::Acceptable : QValidator::Intermediate;
}

/// Of what does not count when the entry ends: the number from before comes back.
void NumberField::fixup(QString& text) const {
    QString typed = text;
    if (typed.endsWith(suffix())) typed.chop(suffix().size());
    if (typed.trimmed().isEmpty() || !refused) return;
    refused('"' + typed.trimmed() + "\" is no number from " + textFromValue(least_) + " to " + textFromValue(most_));
}

double NumberField::valueFromText(const QString& text) const { return numberIn(text).value_or(value()); }

QString NumberField::textFromValue(double value) const { return QString::number(value, 'f', decimals()); }

bool NumberField::event(QEvent* event) {
    if (isEscape(*event) && hasFocus()) {
        event->accept();
        return true;
    }
    return QDoubleSpinBox::event(event);
}

void NumberField::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return QDoubleSpinBox::keyPressEvent(event);
    setValue(value()); // shows it again
    if (left) left();
}

void NumberField::wheelEvent(QWheelEvent* event) { hasFocus() ? QDoubleSpinBox::wheelEvent(event) : event->ignore(); }

QAbstractSpinBox::StepEnabled NumberField::stepEnabled() const {
    if (value() < least_) return StepNone;
    return value() <= least_ ? StepEnabled(StepUpEnabled) : QDoubleSpinBox::stepEnabled();
}

ZoomField::ZoomField(QWidget* parent) : QComboBox(parent) {
    setAccessibleName("Zoom");
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr); // which makes 5 into 50 %, and the field one that nobody has typed into
    setFixedWidth(84);
    for (const char* const each : {"25%", "50%", "100%", "200%", "400%", "800%"}) addItem(each);
    const auto take = guarded([this] {
        bool isNumber = false;
        const double percent = currentText().remove('%').replace(',', '.').trimmed().toDouble(&isNumber);
        if (entered) entered(isNumber && percent > 0 ? std::optional(percent / 100) : std::nullopt);
    });
    connect(this, &QComboBox::textActivated, this, take);
    connect(lineEdit(), &QLineEdit::returnPressed, this, take); // of what is not in the list
}

void ZoomField::showZoom(double zoom) {
    if (lineEdit()->hasFocus()) return;
    constexpr double kWhole = 100; // percent
    const double percent = zoom * kWhole;
    setEditText((percent < kWhole ? QString::number(percent, 'g', 3) : QString::number(percent, 'f', 0)) + '%');
}

bool ZoomField::event(QEvent* event) {
    if (isEscape(*event) && hasFocus()) {
        event->accept();
        return true;
    }
    return QComboBox::event(event);
}

void ZoomField::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return QComboBox::keyPressEvent(event);
    if (entered) entered({});
}

void ZoomField::wheelEvent(QWheelEvent* event) {
    constexpr double kNotch = 120; // what a wheel's notch says of itself
    event->accept();
    if (wheeled) wheeled(event->angleDelta().y() / kNotch);
}

} // namespace easel::app
