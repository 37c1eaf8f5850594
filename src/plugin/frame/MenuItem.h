// One item of the host's menus: the calls behind core::MenuItem.
#pragma once

#include <memory>
#include <string>

#include "core/values/Callback.h"
#include "plugin/host/Object.h"

struct SPPlugin;
struct _t_MenuGroupOpaque;
struct _t_MenuItemOpaque;

namespace kzo::plugin {

class MenuItem : public host::Object<_t_MenuItemOpaque> {
  public:
    /// An item that is there already.
    explicit MenuItem(_t_MenuItemOpaque* handle);
    /// Adds an item to the end of the group of this name, and a line between items; null when the host refuses.
    [[nodiscard]] static std::shared_ptr<MenuItem> add(SPPlugin* plugin, const std::string& group,
                                                       const std::string& text, const core::CallbackSlot& callback);
    [[nodiscard]] static std::shared_ptr<MenuItem> addDivider(SPPlugin* plugin, const std::string& group);

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

    void destroy(); ///< removes the item from its menu; no handle is left, whatever the host returns

  private:
    MenuItem(_t_MenuItemOpaque* handle, const core::CallbackSlot& callback) : Object(handle), callback_(callback) {}

    static std::shared_ptr<MenuItem> add(SPPlugin* plugin, const std::string& group, const std::string& text,
                                         std::int32_t options, const core::CallbackSlot& callback);

    core::CallbackSlot callback_;
    bool opensGroup_ = false; // for life
};

} // namespace kzo::plugin
