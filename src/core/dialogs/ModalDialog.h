// A window with widgets, which keeps the user until it is dismissed.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/dialogs/Button.h"
#include "core/dialogs/TextField.h"

namespace kzo::plugin {
class ModalDialog;
}

namespace kzo::core {

extern template class Handle<plugin::ModalDialog>;

/// Lives until `destroy` or shut-down; then its handles are empty, and `show` does nothing. The widgets that are added
/// stay with it. It is as wide as it is told, and higher than that where its widgets and own buttons need room.
class ModalDialog : public Handle<plugin::ModalDialog> {
  public:
    /// One of the dialog's own buttons, OK and Cancel, in a strip below the content. Without a title it has its usual
    /// one.
    class ButtonOptions {
      public:
        ButtonOptions() = default; ///< no button
        ButtonOptions(bool exists, const Callback& callback, bool closes, std::string title)
            : exists_(exists), callback_(callback), closes_(closes), title_(std::move(title)) {}

        [[nodiscard]] bool exists() const { return exists_; }
        [[nodiscard]] bool closes() const { return closes_; } ///< the dialog, after the callback
        [[nodiscard]] const std::string& title() const { return title_; }
        [[nodiscard]] Callback* callback() const { return callback_.get(); }
        void setCallback(const Callback& callback) { callback_.set(callback); }

      private:
        bool exists_ = false;
        CallbackSlot callback_;
        bool closes_ = true;
        std::string title_;
    };

    // Construction; points
    ModalDialog() = default; ///< empty
    using Handle::Handle;
    ModalDialog(const std::string& title, const Size& size); ///< without buttons of its own
    ModalDialog(const std::string& title, const Size& size, const ButtonOptions& ok, const ButtonOptions& cancel);

    // What it shows
    [[nodiscard]] std::string title() const;
    void setTitle(const std::string& title);
    [[nodiscard]] Size size() const; ///< as told
    void setSize(const Size& size);
    void addWidget(const Widget& widget); ///< takes it from the dialog that it was in
    void removeWidget(const Widget& widget);
    [[nodiscard]] std::vector<Widget> widgets() const; ///< without the dialog's own buttons
    [[nodiscard]] std::vector<TextField> tabOrder() const;
    void setTabOrder(const std::vector<TextField>& fields); ///< empty: all fields, as they were added
    void update();                                          ///< shows everything again

    /// Runs before it shows, whoever asks for that.
    void setShowCallback(const Callback& callback);

    // The user's choice
    void show(); ///< and waits until it is dismissed; nothing while it shows already
    void dismiss();
    [[nodiscard]] bool visible() const;
    [[nodiscard]] Button okButton() const;     ///< empty where there is none
    [[nodiscard]] Button cancelButton() const; ///< empty where there is none
    /// The button whose click dismissed it last; empty when something else did.
    [[nodiscard]] Button chosenButton() const;

    void destroy(); ///< dismisses it first
};

} // namespace kzo::core
