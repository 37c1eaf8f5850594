// Items of the host's menus, and the registry that finds ours when the user chooses one.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/values/Callback.h"

struct SPPlugin;
struct _t_MenuGroupOpaque;
struct _t_MenuItemOpaque;

namespace kzo::plugin {

/// Without a handle (refused, destroyed, or gone with its group) every query answers its neutral value.
class MenuItem {
  public:
    /// Adds an item to the group of this name.
    MenuItem(SPPlugin* plugin, const std::string& group, const std::string& text, const core::CallbackSlot& callback);
    /// An item that is there already.
    explicit MenuItem(_t_MenuItemOpaque* handle);

    /// Adds a line between items.
    [[nodiscard]] static std::shared_ptr<MenuItem> divider(SPPlugin* plugin, const std::string& group);

    [[nodiscard]] _t_MenuItemOpaque* handle() const { return handle_; }
    [[nodiscard]] bool opensGroup() const { return opensGroup_; }
    [[nodiscard]] core::CallbackSlot& callback() { return callback_; }
    [[nodiscard]] std::string text() const;
    void setText(const std::string& text);
    [[nodiscard]] bool enabled() const;
    void setEnabled(bool enabled);
    [[nodiscard]] bool checked() const;
    void setChecked(bool checked);
    [[nodiscard]] bool isDivider() const;
    [[nodiscard]] _t_MenuGroupOpaque* parent() const;

    void destroy(); ///< removes the item from its menu; no handle is left, whatever the host answers
    void forget() { handle_ = nullptr; } ///< the host has taken the item away

  private:
    _t_MenuItemOpaque* handle_ = nullptr;
    core::CallbackSlot callback_;
    bool opensGroup_ = false; // for life
};

/// Owns the items that the plug-in added, together with the handles on them; knows all others that handles are on.
class MenuRegistry {
  public:
    void add(const std::shared_ptr<MenuItem>& item) { items_.push_back(item); }
    void remove(const MenuItem& item);
    void forget(_t_MenuItemOpaque* handle); ///< the host has taken the item away
    void clear();                           ///< removes our items; from here on all handles are empty
    /// The implementation of an item, whoever added it.
    [[nodiscard]] std::shared_ptr<MenuItem> share(_t_MenuItemOpaque* handle);

    /// Runs the callback of the chosen item, then `selected`. An item that is not ours is passed over.
    void choose(_t_MenuItemOpaque* handle) const;
    /// The host keeps the items' states, so what there is to bring up to date is the client's.
    void update() const { updating.run(); }

    core::CallbackSlot selected;
    core::CallbackSlot updating;

  private:
    [[nodiscard]] std::shared_ptr<MenuItem> find(_t_MenuItemOpaque* handle) const;

    std::vector<std::shared_ptr<MenuItem>> items_;
    std::vector<std::weak_ptr<MenuItem>> others_;
};

} // namespace kzo::plugin
