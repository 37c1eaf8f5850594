// The list of layers: which is current, shown, locked; titles can be edited in place.
#pragma once

#include <QTreeWidget>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <map>
#include <utility>

#include "app/Actions.h"

class QHBoxLayout;

namespace easel::app {

class LayersPanel final : public QWidget {
  public:
    explicit LayersPanel(Actions& actions);

    /// Shows the layers as they are now.
    void refresh();
    std::function<void()> acts;                     ///< called before a button does something
    std::function<void(QKeyEvent& event)> passedOn; ///< told of keys that the list has no use for

  private:
    enum Column { Shown, Locked, Title, Count };

    void clicked(const QTreeWidgetItem& row, int column);
    void edited(const QTreeWidgetItem& row);
    void setUpList();
    void addButtons(QHBoxLayout& buttons);
    void addActions();
    void addLayer();
    void choose(int row); ///< makes its layer the current one
    void markCurrent();
    void moveCurrent(int by); ///< places, down is positive
    void move(int from, int to);
    [[nodiscard]] std::size_t currentIndex() const;
    [[nodiscard]] std::size_t indexOf(const QTreeWidgetItem& row) const;
    void fill(QTreeWidgetItem& row, const model::Node& layer);
    [[nodiscard]] QColor colorOf(const model::Node& layer);

    Actions& actions_;
    QTreeWidget& list_;
    std::map<std::pair<std::uint32_t, std::uint32_t>, std::size_t> colors_; ///< of layers, by what tells nodes apart
    std::uint32_t shown_ = 0;                                               ///< number of the document
    bool filling_ = false; ///< what changes in the list is no act of the user
};

} // namespace easel::app
