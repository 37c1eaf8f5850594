// One row a layer, the topmost first.
#include "app/LayersPanel.h"

#include <QAction>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

#include <functional>
#include <optional>
#include <utility>

#include "app/Application.h"
#include "app/Look.h"

namespace easel::app {

namespace {

/// A bar in the layer's colour, in a chosen row too.
QIcon bar(const QColor& color) {
    return painted([color](QPainter& painter, const QRect& rect, QIcon::Mode /*mode*/) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        const double wide = rect.width() / 3.0;
        painter.drawRoundedRect(QRectF(rect.left() + wide, rect.top(), wide, rect.height()), wide / 3, wide / 3);
    });
}

/// Rows are carried to another place by mouse, or by Alt and an arrow key. The row that other keys go to is chosen.
class LayerList final : public QTreeWidget {
  public:
    LayerList(QWidget* parent, std::function<void(int from, int to)> move, std::function<void(int row)> choose,
              std::function<void()> settle, std::function<void(QKeyEvent& event)> pass)
        : QTreeWidget(parent),
          move_(std::move(move)),
          choose_(std::move(choose)),
          settle_(std::move(settle)),
          pass_(std::move(pass)) {
        setDragDropMode(QAbstractItemView::InternalMove);
        invisibleRootItem()->setFlags(Qt::ItemIsDropEnabled);
    }

  protected:
    void dropEvent(QDropEvent* event) override {
        event->setDropAction(Qt::IgnoreAction); // the list moves no rows itself
        event->accept();
        const QPoint place = event->position().toPoint();
        const QTreeWidgetItem* const under = itemAt(place);
        int to = topLevelItemCount();
        if (under) to = row(under) + (place.y() > visualItemRect(under).center().y() ? 1 : 0);
        const int from = carried_ ? *carried_ : row(currentItem());
        if (from >= 0) move_(from, to > from ? to - 1 : to);
    }
    /// A plug-in may choose another layer meanwhile.
    void startDrag(Qt::DropActions actions) override {
        carried_ = row(currentItem());
        QTreeWidget::startDrag(actions);
        carried_.reset();
    }
    void keyPressEvent(QKeyEvent* event) override {
        const int way = event->key() == Qt::Key_Up ? -1 : event->key() == Qt::Key_Down ? 1 : 0;
        const int from = row(currentItem());
        if (way != 0 && (event->modifiers() & Qt::AltModifier)) {
            if (from >= 0) move_(from, from + way);
            return;
        }
        if (event->key() == Qt::Key_Space) return pass_(*event);
        QTreeWidget::keyPressEvent(event);
        if (const int now = row(currentItem()); now >= 0 && now != from) choose_(now);
    }
    /// The menu is about a row, which is chosen by that.
    void mousePressEvent(QMouseEvent* event) override {
        QTreeWidget::mousePressEvent(event);
        if (const int now = row(currentItem()); event->button() == Qt::RightButton && now >= 0) choose_(now);
    }
    /// A press on the pictures of a row chooses nothing.
    void mouseReleaseEvent(QMouseEvent* event) override {
        QTreeWidget::mouseReleaseEvent(event);
        if (event->button() == Qt::LeftButton) settle_();
    }

  private:
    [[nodiscard]] int row(const QTreeWidgetItem* item) const {
        return indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(item));
    }

    std::optional<int> carried_;
    std::function<void(int from, int to)> move_;
    std::function<void(int row)> choose_;
    std::function<void()> settle_; ///< called when the mouse is through with a row
    std::function<void(QKeyEvent& event)> pass_;
};

} // namespace

LayersPanel::LayersPanel(Actions& actions)
    : actions_(actions),
      list_(*new LayerList(this, guarded([this](int from, int to) { move(from, to); }),
                           guarded([this](int row) { choose(row); }), guarded([this] { markCurrent(); }),
                           guarded([this](QKeyEvent& event) {
                               if (passedOn) passedOn(event);
                           }))) {
    setUpList();
    addActions();
    auto* const buttons = new QHBoxLayout;
    addButtons(*buttons);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    auto* const title = new QLabel("Layers", this);
    title->setForegroundRole(QPalette::PlaceholderText); // faint
    title->setContentsMargins(10, 8, 10, 4);
    column->addWidget(title);
    column->addWidget(&list_, 1);
    column->addLayout(buttons);
}

void LayersPanel::setUpList() {
    list_.setObjectName("layers");
    list_.setAccessibleName("Layers");
    list_.setFrameShape(QFrame::NoFrame);
    list_.header()->setMinimumSectionSize(20);
    list_.setColumnCount(4);
    list_.setHeaderHidden(true);
    list_.setRootIsDecorated(false);
    list_.setIndentation(0);
    list_.setIconSize({18, 18});
    list_.setEditTriggers(QAbstractItemView::EditKeyPressed);
    QHeaderView* const header = list_.header();
    header->setStretchLastSection(false);
    for (const int column : {Shown, Locked}) {
        header->setSectionResizeMode(column, QHeaderView::Fixed);
        header->resizeSection(column, 26);
    }
    header->setSectionResizeMode(Title, QHeaderView::Stretch);
    header->setSectionResizeMode(Count, QHeaderView::ResizeToContents);
    connect(&list_, &QTreeWidget::itemClicked, this,
            guarded([this](const QTreeWidgetItem* row, int at) { clicked(*row, at); }));
    connect(&list_, &QTreeWidget::itemDoubleClicked, this, guarded([this](QTreeWidgetItem* row, int at) {
        if (at == Title) list_.editItem(row, Title);
    }));
    connect(&list_, &QTreeWidget::itemChanged, this, guarded([this](const QTreeWidgetItem* row, int at) {
        if (!filling_ && at == Title) edited(*row);
    }));
}

void LayersPanel::addButtons(QHBoxLayout& buttons) {
    const auto addButton = [&](Symbol symbol, const char* name, const char* tip, auto what) {
        auto* const button = new QToolButton(this);
        button->setIcon(icon(symbol));
        button->setIconSize(kButtonIcon);
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        button->setObjectName(name);
        buttons.addWidget(button);
        connect(button, &QToolButton::clicked, this, guarded([this, what] {
                    if (acts) acts();
                    what();
                }));
    };
    addButton(Symbol::Plus, "addLayer", "Add a layer above all", [this] { addLayer(); });
    addButton(Symbol::Up, "layerUp", "Move the current layer up (Alt+Up in the list)", [this] { moveCurrent(-1); });
    addButton(Symbol::Down, "layerDown", "Move the current layer down (Alt+Down in the list)",
              [this] { moveCurrent(1); });
    buttons.addStretch();
    addButton(Symbol::Trash, "removeLayer", "Remove the current layer with all that it holds",
              [this] { actions_.removeLayer(currentIndex()); });
}

/// What the pictures in the rows do, for whoever does not see them or uses no mouse.
void LayersPanel::addActions() {
    list_.setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto add = [&](const char* text, auto what) {
        auto* const action = new QAction(text, &list_);
        list_.addAction(action);
        connect(action, &QAction::triggered, this, guarded([this, what] {
                    if (acts) acts();
                    if (QTreeWidgetItem* const row = list_.currentItem()) what(*row);
                }));
    };
    add("Show or Hide the Layer", [this](const QTreeWidgetItem& row) { clicked(row, Shown); });
    add("Lock or Unlock the Layer", [this](const QTreeWidgetItem& row) { clicked(row, Locked); });
    add("Rename the Layer...", [this](QTreeWidgetItem& row) { list_.editItem(&row, Title); });
    add("Remove the Layer", [this](const QTreeWidgetItem& row) { actions_.removeLayer(indexOf(row)); });
}

/// Each layer keeps its colour wherever it goes.
QColor LayersPanel::colorOf(const model::Node& layer) {
    const model::NodeId id = layer.id();
    return layerColor(colors_.emplace(std::pair(id.slot, id.generation), colors_.size()).first->second);
}

void LayersPanel::fill(QTreeWidgetItem& row, const model::Node& layer) {
    row.setIcon(Shown, icon(layer.hidden() ? Symbol::NoEye : Symbol::Eye));
    row.setToolTip(Shown, layer.hidden() ? "Show the layer" : "Hide the layer");
    row.setData(Shown, Qt::AccessibleTextRole, layer.hidden() ? "Hidden" : "Shown");
    row.setData(Locked, Qt::AccessibleTextRole, layer.locked() ? "Locked" : "Unlocked");
    row.setIcon(Locked, icon(layer.locked() ? Symbol::Lock : Symbol::NoLock));
    row.setToolTip(Locked, layer.locked() ? "Unlock the layer" : "Lock the layer");
    row.setText(Count, QString::number(layer.childCount()) + "  ");
    row.setTextAlignment(Count, Qt::AlignRight | Qt::AlignVCenter);
    row.setForeground(Count, look().colors.faint);
    if (list_.isPersistentEditorOpen(&row, Title)) return; // any change here would undo what is half typed
    row.setIcon(Title, bar(colorOf(layer)));
    row.setText(Title, QString::fromStdString(layer.name()));
    row.setForeground(Title, layer.hidden() ? look().colors.faint : look().colors.text);
    QFont font = row.font(Title);
    font.setBold(&layer == &actions_.document()->currentLayer());
    row.setFont(Title, font);
}

void LayersPanel::refresh() {
    const bool filledBefore = std::exchange(filling_, true);
    const model::Document* const document = actions_.document();
    const int count = document ? static_cast<int>(document->layerCount()) : 0;
    if (std::exchange(shown_, actions_.documentNumber()) != actions_.documentNumber()) colors_.clear();
    while (list_.topLevelItemCount() > count) delete list_.takeTopLevelItem(count);
    while (list_.topLevelItemCount() < count) {
        auto* const row = new QTreeWidgetItem(&list_);
        row->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsDragEnabled);
    }
    for (int i = 0; i < count; ++i)
        fill(*list_.topLevelItem(i), *actions_.document()->layerAt(static_cast<std::size_t>(i)));
    markCurrent();
    filling_ = filledBefore;
}

void LayersPanel::markCurrent() {
    if (!actions_.document()) return;
    QTreeWidgetItem* const row = list_.topLevelItem(static_cast<int>(currentIndex()));
    if (list_.currentItem() != row || !row->isSelected()) list_.setCurrentItem(row);
}

/// The row's place, which is its layer's.
std::size_t LayersPanel::indexOf(const QTreeWidgetItem& row) const {
    return static_cast<std::size_t>(list_.indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(&row)));
}

void LayersPanel::clicked(const QTreeWidgetItem& row, int column) {
    const std::size_t index = indexOf(row);
    const model::Node* const layer = actions_.document() ? actions_.document()->layerAt(index) : nullptr;
    if (!layer) return;
    if (column == Shown)
        actions_.setLayerVisible(index, layer->hidden());
    else if (column == Locked)
        actions_.setLayerLocked(index, !layer->locked());
    else if (layer != &actions_.document()->currentLayer())
        actions_.setCurrentLayer(index);
}

void LayersPanel::edited(const QTreeWidgetItem& row) {
    const std::size_t index = indexOf(row);
    const std::string title = row.text(Title).toStdString();
    const model::Node* const layer = actions_.document() ? actions_.document()->layerAt(index) : nullptr;
    if (layer && !title.empty() && title != layer->name())
        actions_.setLayerTitle(index, title);
    else
        refresh();
}

std::size_t LayersPanel::currentIndex() const {
    if (!actions_.document()) throw session::Error("no document is open");
    std::size_t index = 0;
    while (actions_.document()->layerAt(index) != &actions_.document()->currentLayer()) ++index;
    return index;
}

void LayersPanel::choose(int row) {
    if (actions_.document() && row != static_cast<int>(currentIndex()))
        actions_.setCurrentLayer(static_cast<std::size_t>(row));
}

void LayersPanel::moveCurrent(int by) {
    const int from = static_cast<int>(currentIndex());
    move(from, from + by);
}

/// What is carried becomes the current layer.
void LayersPanel::move(int from, int to) {
    if (!actions_.document() || to < 0 || to >= static_cast<int>(actions_.document()->layerCount())) return;
    choose(from);
    actions_.moveLayer(static_cast<std::size_t>(from), static_cast<std::size_t>(to));
}

void LayersPanel::addLayer() {
    if (!actions_.document()) return;
    const auto isTaken = [this](const std::string& title) {
        for (std::size_t i = 0; const model::Node* const layer = actions_.document()->layerAt(i); ++i)
            if (layer->name() == title) return true;
        return false;
    };
    std::size_t number = actions_.document()->layerCount() + 1;
    while (isTaken("Layer " + std::to_string(number))) ++number;
    actions_.addLayer("Layer " + std::to_string(number));
}

} // namespace easel::app
