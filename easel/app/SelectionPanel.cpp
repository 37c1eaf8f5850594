// Fields that show the selection and change it.
#include "app/SelectionPanel.h"

#include <QVBoxLayout>

#include <utility>

#include "app/Application.h"
#include "app/Look.h"

namespace easel::app {

namespace {

constexpr double kFarthest = 1e6; // points
constexpr double kWhole = 100;    // percent

model::Box boundsOf(const model::Node& top) {
    model::Box box;
    for (const model::Node* at = &top; at; at = model::nextWithin(top, *at)) {
        if (at->type() == model::NodeType::Path) box.include(at->path().bounds());
        if (at->type() == model::NodeType::Opaque) box.include(at->hull());
    }
    return box;
}

Paint paintOf(bool painted, const model::Color& color, const std::string& server) {
    if (!server.empty()) return {Paint::Served};
    if (!painted) return {};
    return {Paint::Plain, QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                                           static_cast<float>(color.blue))};
}

/// A property of several objects.
template <class Value> struct Common {
    std::optional<Value> value{}; ///< of the first
    bool differs = false;

    void add(const Value& next) {
        differs = differs || (value && *value != next);
        if (!value) value = next;
    }
    [[nodiscard]] std::optional<Value> shown() const { return differs ? std::nullopt : value; }
};

/// What is selected, and what all of it has in common.
struct Selected {
    std::vector<model::Node*> outermost{};
    model::Box box{}; ///< empty for too many
    bool isStroked = false;
    Common<Paint> fill{};
    Common<Paint> stroke{};
    Common<double> strokeWidth{};
    Common<double> opacity{}; ///< percent
};

Selected selectedIn(model::Document& document) {
    Selected found;
    for (model::Node* const node : document.selection()) {
        if (!node->parent()->selected()) found.outermost.push_back(node);
        if (!node->content().style) continue;
        const model::Style& style = node->style();
        found.fill.add(paintOf(style.fill, style.fillColor, style.fillServer()));
        found.stroke.add(paintOf(style.stroke, style.strokeColor, style.strokeServer()));
        found.strokeWidth.add(style.isStroked() ? style.strokeWidth : 0);
        if (!found.isStroked) found.isStroked = style.isStroked() && !node->effectivelyLocked();
    }
    constexpr std::size_t kMostMeasured = 20'000;
    for (const model::Node* const node : found.outermost) {
        if (found.outermost.size() <= kMostMeasured) found.box.include(boundsOf(*node));
        found.opacity.add(node->extras().opacity * kWhole);
    }
    return found;
}

Paint shown(const Common<Paint>& paint) { return paint.differs ? Paint{Paint::Mixed} : paint.value.value_or(Paint()); }

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
    title_.setForegroundRole(QPalette::PlaceholderText); // faint
    column->addWidget(&title_);
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    column->addLayout(grid);
    x_ = &addField({"x", "X", "Left edge, X", 0, 0, -kFarthest, kFarthest}, *grid);
    y_ = &addField({"y", "Y", "Top edge, Y", 0, 2, -kFarthest, kFarthest}, *grid);
    width_ = &addField({"width", "W", "Width", 1, 0, 0, kFarthest}, *grid);
    height_ = &addField({"height", "H", "Height", 1, 2, 0, kFarthest}, *grid);
    stroke_ = &addField({"stroke", "Stroke", "Stroke width", 2, 0, 0, kFarthest}, *grid);
    strokeColor_ = &addSwatch("strokeColor", "Stroke colour", *grid, 2);
    opacity_ = &addField({"opacity", "Opacity", "Opacity", 3, 0, 0, kWhole}, *grid);
    grid->addWidget(new QLabel("Fill", this), 3, 2);
    fillColor_ = &addSwatch("fillColor", "Fill colour", *grid, 3);
    opacity_->setDecimals(0);
    opacity_->setSuffix(" %");
    connectFields();
}

NumberField& SelectionPanel::addField(const Field& field, QGridLayout& grid) {
    auto* const box = new NumberField(field.least, field.most, this);
    box->setObjectName(field.name);
    box->setAccessibleName(field.spoken);
    box->setToolTip(field.spoken);
    box->setSuffix(" pt");
    box->setMinimumWidth(64);
    box->left = [this] {
        if (entered) entered();
    };
    box->refused = [this](const QString& why) {
        if (refused) refused(why);
    };
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
    const auto when = [this](NumberField& field, auto what) {
        connect(&field, &QDoubleSpinBox::valueChanged, this, guarded([this, what](double value) {
            if (!filling_) what(value);
        }));
    };
    when(*x_, [this](double left) { actions_.nudge(left - box_.left, 0); });
    when(*y_, [this](double top) { actions_.nudge(0, top - box_.top); });
    when(*width_, [this](double size) { resize(true, size); });
    when(*height_, [this](double size) { resize(false, size); });
    when(*stroke_, [this](double width) { setStrokeWidth(width); });
    when(*opacity_, [this](double percent) { actions_.setOpacity(percent / 100); });
    const auto choose = [this](bool stroke, const std::optional<QColor>& color) {
        if (entered) entered();
        setColor(stroke, color);
    };
    strokeColor_->chosen = [choose](const std::optional<QColor>& color) { choose(true, color); };
    fillColor_->chosen = [choose](const std::optional<QColor>& color) { choose(false, color); };
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
    constexpr double kMost = 255; // exactly what is recorded
    if (color) paint = {color->red() / kMost, color->green() / kMost, color->blue() / kMost};
    actions_.setStyle(std::string(stroke ? "{stroke: " : "{fill: ") + value + '}',
                      [&](model::Style& style) { stroke ? style.setStroke(paint) : style.setFill(paint); });
}

// Showing

void SelectionPanel::refresh() {
    const bool filledBefore = std::exchange(filling_, true);
    const Selected selected = actions_.document() ? selectedIn(*actions_.document()) : Selected();
    isStroked_ = selected.isStroked;
    box_ = selected.box;
    title_.setText(titleOf(selected.outermost));
    const bool placed = !box_.isEmpty();
    const auto show = [](NumberField& field, bool known, std::optional<double> value) {
        field.setEnabled(known);
        field.showNumber(known ? value : std::nullopt);
    };
    show(*x_, placed, box_.left);
    show(*y_, placed, box_.top);
    show(*width_, placed, box_.right - box_.left);
    show(*height_, placed, box_.bottom - box_.top);
    show(*stroke_, selected.strokeWidth.value.has_value(), selected.strokeWidth.shown());
    show(*opacity_, selected.opacity.value.has_value(), selected.opacity.shown());
    for (Swatch* const swatch : {fillColor_, strokeColor_}) swatch->setEnabled(selected.fill.value.has_value());
    fillColor_->setPaint(shown(selected.fill));
    strokeColor_->setPaint(shown(selected.stroke));
    filling_ = filledBefore;
}

} // namespace easel::app
