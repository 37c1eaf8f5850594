// Fields that show the selection and change it.
#include "app/SelectionPanel.h"

#include <QColorDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

#include "app/Application.h"
#include "app/Look.h"

namespace easel::app {

namespace {

constexpr double kFarthest = 1e6; // points

model::Box boundsOf(const model::Node& top) {
    model::Box box;
    for (const model::Node* at = &top; at; at = model::nextWithin(top, *at)) {
        if (at->type() == model::NodeType::Path) box.include(at->path().bounds());
        if (at->type() == model::NodeType::Opaque) box.include(at->hull());
    }
    return box;
}

QIcon swatch(bool painted, const model::Color& color) {
    QPixmap picture(28, 28);
    picture.fill(painted ? QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                                            static_cast<float>(color.blue))
                         : QColor(Qt::white));
    QPainter painter(&picture);
    painter.setPen(QPen(look().colors.line, 2));
    painter.drawRect(1, 1, 26, 26);
    painter.setPen(QPen(QColor(0xD0, 0x30, 0x30), 3));
    if (!painted) painter.drawLine(3, 25, 25, 3);
    return QIcon(picture);
}

} // namespace

SelectionPanel::SelectionPanel(Actions& actions) : actions_(actions), title_(*new QLabel(this)) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(10, 8, 10, 10);
    column->addWidget(&title_);
    auto* const grid = new QGridLayout;
    column->addLayout(grid);
    x_ = &addField("x", "X", 0, 0);
    y_ = &addField("y", "Y", 0, 2);
    width_ = &addField("width", "W", 1, 0);
    height_ = &addField("height", "H", 1, 2);
    stroke_ = &addField("stroke", "Stroke", 2, 0);
    for (QDoubleSpinBox* const shown : {width_, height_}) shown->setReadOnly(true);
    stroke_->setMinimum(0);

    const auto addColor = [&](const char* name, const char* tip, bool stroke) {
        auto* const button = new QToolButton(this);
        button->setObjectName(name);
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        button->setIconSize({20, 20});
        connect(button, &QToolButton::clicked, this, guarded([this, stroke] { chooseColor(stroke); }));
        return button;
    };
    fillColor_ = addColor("fillColor", "Fill colour; cancelling takes the fill away", false);
    strokeColor_ = addColor("strokeColor", "Stroke colour", true);
    auto* const colors = new QHBoxLayout;
    colors->addWidget(fillColor_);
    colors->addWidget(strokeColor_);
    colors->addStretch();
    grid->addLayout(colors, 2, 3);

    const auto place = guarded([this] {
        if (!filling_ && !box_.isEmpty()) actions_.nudge(x_->value() - box_.left, y_->value() - box_.top);
    });
    connect(x_, &QDoubleSpinBox::valueChanged, this, place);
    connect(y_, &QDoubleSpinBox::valueChanged, this, place);
    connect(stroke_, &QDoubleSpinBox::valueChanged, this, guarded([this] {
                if (filling_) return;
                const double width = stroke_->value();
                const std::string said = width > 0 ? "{width: " + Recorder::number(width) + '}' : "{stroke: null}";
                actions_.setStyle(said, [width](model::Style& style) {
                    style.stroke = width > 0;
                    if (width > 0) style.strokeWidth = width;
                });
            }));
}

QDoubleSpinBox& SelectionPanel::addField(const char* name, const char* label, int row, int column) {
    auto* const field = new QDoubleSpinBox(this);
    field->setObjectName(name);
    field->setAccessibleName(label);
    field->setRange(-kFarthest, kFarthest);
    field->setDecimals(2);
    field->setSuffix(" pt");
    field->setButtonSymbols(QAbstractSpinBox::NoButtons);
    field->setAlignment(Qt::AlignRight);
    field->setKeyboardTracking(false); // a number counts when it is whole
    auto* const grid = static_cast<QGridLayout*>(layout()->itemAt(1)->layout());
    grid->addWidget(new QLabel(label, this), row, column);
    grid->addWidget(field, row, column + 1);
    return *field;
}

void SelectionPanel::refresh() {
    const bool filledBefore = std::exchange(filling_, true);
    const auto selection = actions_.document() ? actions_.document()->selection() : std::vector<model::Node*>();
    box_ = {};
    const model::Style* style = nullptr;
    constexpr std::size_t kMostMeasured = 20'000;
    if (selection.size() <= kMostMeasured)
        for (const model::Node* const node : selection) box_.include(boundsOf(*node));
    for (const model::Node* const node : selection)
        if (!style && node->type() == model::NodeType::Path) style = &node->style();
    const QString what = selection.empty()             ? QString("Nothing selected")
                         : selection.size() > 1        ? QString::number(selection.size()) + " objects"
                         : selection[0]->isContainer() ? QString("Group")
                         : style                       ? QString("Path")
                                                       : QString("Object");
    title_.setText("<b>" + what + "</b>");
    const bool placed = !box_.isEmpty();
    const auto show = [](QDoubleSpinBox& field, bool known, double value) {
        field.setEnabled(known);
        if (!field.hasFocus() || !known || field.value() != value) field.setValue(known ? value : 0);
    };
    show(*x_, placed, placed ? box_.left : 0);
    show(*y_, placed, placed ? box_.top : 0);
    show(*width_, placed, placed ? box_.right - box_.left : 0);
    show(*height_, placed, placed ? box_.bottom - box_.top : 0);
    show(*stroke_, style != nullptr, style && style->stroke ? style->strokeWidth : 0);
    for (QToolButton* const button : {fillColor_, strokeColor_}) button->setEnabled(style != nullptr);
    fillColor_->setIcon(swatch(style && style->fill, style ? style->fillColor : model::Color{}));
    strokeColor_->setIcon(swatch(style && style->stroke, style ? style->strokeColor : model::Color{}));
    filling_ = filledBefore;
}

void SelectionPanel::chooseColor(bool stroke) {
    const QColor chosen = QColorDialog::getColor(Qt::black, this, stroke ? "Stroke colour" : "Fill colour");
    if (!chosen.isValid() && stroke) return;
    std::optional<model::Color> color;
    if (chosen.isValid()) color = {chosen.redF(), chosen.greenF(), chosen.blueF()};
    const std::string value = chosen.isValid() ? Recorder::quoted(chosen.name().toStdString()) : "null";
    actions_.setStyle(std::string(stroke ? "{stroke: " : "{fill: ") + value + '}',
                      [&](model::Style& style) { stroke ? style.setStroke(color) : style.setFill(color); });
}

} // namespace easel::app
