// Fields that show the selection and change it.
#include "app/SelectionPanel.h"

#include <QLineEdit>
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

std::optional<QColor> colorOf(bool painted, const model::Color& color) {
    if (!painted) return {};
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue));
}

QString titleOf(const std::vector<model::Node*>& outermost) {
    if (outermost.empty()) return "Nothing selected";
    if (outermost.size() > 1) return QString::number(outermost.size()) + " objects";
    const model::NodeType type = outermost[0]->type();
    return type == model::NodeType::Group ? "Group" : outermost[0]->isOutlined() ? "Path" : "Object";
}

} // namespace

SelectionPanel::SelectionPanel(Actions& actions) : actions_(actions), title_(*new QLabel(this)) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(10, 8, 10, 10);
    column->setSpacing(8);
    title_.setFont(boldFont());
    column->addWidget(&title_);
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    column->addLayout(grid);
    x_ = &addField({"x", "X", "Left edge, X", 0, 0}, *grid);
    y_ = &addField({"y", "Y", "Top edge, Y", 0, 2}, *grid);
    width_ = &addField({"width", "W", "Width", 1, 0}, *grid);
    height_ = &addField({"height", "H", "Height", 1, 2}, *grid);
    stroke_ = &addField({"stroke", "Stroke", "Stroke width", 2, 0}, *grid);
    strokeColor_ = &addSwatch("strokeColor", "Stroke colour", *grid, 2);
    opacity_ = &addField({"opacity", "Opacity", "Opacity", 3, 0}, *grid);
    grid->addWidget(new QLabel("Fill", this), 3, 2);
    fillColor_ = &addSwatch("fillColor", "Fill colour", *grid, 3);
    for (QDoubleSpinBox* const size : {width_, height_, stroke_}) size->setMinimum(0);
    constexpr double kWhole = 100; // percent
    opacity_->setRange(0, kWhole);
    opacity_->setDecimals(0);
    opacity_->setSuffix(" %");
    connectFields();
}

QDoubleSpinBox& SelectionPanel::addField(const Field& field, QGridLayout& grid) {
    auto* const box = new QDoubleSpinBox(this);
    box->setObjectName(field.name);
    box->setAccessibleName(field.spoken);
    box->setToolTip(field.spoken);
    box->setRange(-kFarthest, kFarthest);
    box->setDecimals(2);
    box->setSuffix(" pt");
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    box->setAlignment(Qt::AlignRight);
    box->setKeyboardTracking(false); // a number counts when it is whole
    box->setMinimumWidth(64);
    auto* const label = new QLabel(field.label, this);
    label->setBuddy(box);
    grid.addWidget(label, field.row, field.column);
    grid.addWidget(box, field.row, field.column + 1);
    return *box;
}

Swatch& SelectionPanel::addSwatch(const char* name, const char* title, QGridLayout& grid, int row) {
    auto* const swatch = new Swatch(title, this);
    swatch->setObjectName(name);
    constexpr int kColumn = 3;
    grid.addWidget(swatch, row, kColumn, Qt::AlignLeft);
    return *swatch;
}

void SelectionPanel::connectFields() {
    const auto when = [this](QDoubleSpinBox& field, auto what) {
        connect(&field, &QDoubleSpinBox::valueChanged, this, guarded([this, what](double value) {
            if (!filling_) what(value);
        }));
        connect(field.findChild<QLineEdit*>(), &QLineEdit::returnPressed, this, guarded([this] {
                    if (entered) entered();
                }));
    };
    when(*x_, [this](double left) { actions_.nudge(left - box_.left, 0); });
    when(*y_, [this](double top) { actions_.nudge(0, top - box_.top); });
    when(*width_, [this](double size) { resize(true, size); });
    when(*height_, [this](double size) { resize(false, size); });
    when(*stroke_, [this](double width) { setStrokeWidth(width); });
    when(*opacity_, [this](double percent) { actions_.setOpacity(percent / 100); });
    strokeColor_->chosen = [this](const std::optional<QColor>& color) { setColor(true, color); };
    fillColor_->chosen = [this](const std::optional<QColor>& color) { setColor(false, color); };
}

// Changing

/// About the left top corner. What is flat has no size that could grow.
void SelectionPanel::resize(bool across, double size) {
    const double before = across ? box_.right - box_.left : box_.bottom - box_.top;
    if (box_.isEmpty() || before <= 0 || size <= 0) return refresh();
    const double factor = size / before;
    actions_.scale(across ? factor : 1, across ? 1 : factor, {box_.left, box_.top});
}

/// Of the strokes that there are; where there is none it makes a black one.
void SelectionPanel::setStrokeWidth(double width) {
    if (width <= 0) return actions_.setStyle("{stroke: null}", [](model::Style& style) { style.setStroke({}); });
    const std::string said =
        (isStroked_ ? "{" : "{stroke: \"#000000\", ") + ("width: " + Recorder::number(width)) + '}';
    actions_.setStyle(said, [this, width](model::Style& style) {
        if (!isStroked_) style.setStroke(model::Color());
        style.strokeWidth = width;
    });
}

void SelectionPanel::setColor(bool stroke, const std::optional<QColor>& color) {
    const std::string value = color ? Recorder::quoted(color->name().toStdString()) : "null";
    std::optional<model::Color> paint;
    if (color) paint = {color->redF(), color->greenF(), color->blueF()};
    actions_.setStyle(std::string(stroke ? "{stroke: " : "{fill: ") + value + '}',
                      [&](model::Style& style) { stroke ? style.setStroke(paint) : style.setFill(paint); });
}

// Showing

void SelectionPanel::refresh() {
    const bool filledBefore = std::exchange(filling_, true);
    std::vector<model::Node*> outermost;
    const model::Style* style = nullptr;
    const model::Style* stroked = nullptr;
    box_ = {};
    constexpr std::size_t kMostMeasured = 20'000;
    if (actions_.document()) {
        for (model::Node* const node : actions_.document()->selection()) {
            if (!node->parent()->selected()) outermost.push_back(node);
            if (!style && node->content().style) style = &node->style();
            const bool isStroked = !stroked && node->content().style && node->style().isStroked();
            if (isStroked && !node->effectivelyLocked()) stroked = &node->style();
        }
    }
    isStroked_ = stroked != nullptr;
    if (outermost.size() <= kMostMeasured)
        for (const model::Node* const node : outermost) box_.include(boundsOf(*node));
    title_.setText(titleOf(outermost));
    const bool placed = !box_.isEmpty();
    const auto show = [](QDoubleSpinBox& field, bool known, double value) {
        field.setEnabled(known);
        field.setSpecialValueText(known ? QString() : QString(' ')); // of the minimum: no number stands there
        if (const double shown = known ? value : field.minimum(); field.value() != shown) field.setValue(shown);
    };
    show(*x_, placed, placed ? box_.left : 0);
    show(*y_, placed, placed ? box_.top : 0);
    show(*width_, placed, placed ? box_.right - box_.left : 0);
    show(*height_, placed, placed ? box_.bottom - box_.top : 0);
    show(*stroke_, style != nullptr, stroked ? stroked->strokeWidth : 0);
    show(*opacity_, !outermost.empty(), outermost.empty() ? 0 : outermost.front()->extras().opacity * 100);
    for (Swatch* const swatch : {fillColor_, strokeColor_}) swatch->setEnabled(style != nullptr);
    fillColor_->setColor(style ? colorOf(style->fill, style->fillColor) : std::nullopt);
    strokeColor_->setColor(stroked ? colorOf(stroked->stroke, stroked->strokeColor) : std::nullopt);
    filling_ = filledBefore;
}

} // namespace easel::app
