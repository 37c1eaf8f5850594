// The list of layers: which is current, shown, locked; titles can be edited in place.
#pragma once

#include <QTreeWidget>
#include <QWidget>

#include "app/Actions.h"

namespace easel::app {

class LayersPanel final : public QWidget {
  public:
    explicit LayersPanel(Actions& actions);

    /// Shows the layers as they are now.
    void refresh();

  private:
    enum Column { Shown, Locked, Title, Count };

    void clicked(const QTreeWidgetItem& row, int column);
    void edited(const QTreeWidgetItem& row);
    void addActions();
    void addLayer();
    void moveCurrent(int by); ///< places, down is positive
    void move(int from, int to);
    [[nodiscard]] std::size_t currentIndex() const;
    [[nodiscard]] std::size_t indexOf(const QTreeWidgetItem& row) const;
    void fill(QTreeWidgetItem& row, std::size_t index, const model::Node& layer) const;

    Actions& actions_;
    QTreeWidget& list_;
    bool filling_ = false; ///< what changes in the list is no act of the user
};

} // namespace easel::app
