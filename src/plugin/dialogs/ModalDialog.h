// A modal dialog and all of its behaviour: which callback runs when, the focus and the tab order, the default and the
// cancel button, and how it closes. What it looks like is the platform's (platform/Windows.h).
//
// One commit is reported once: a field's owner hears of a text that it does not know yet, when the editing of the field
// ends by a key, by going elsewhere, or because the owner moves the focus. The commit that a click on the default or
// the cancel button brings along is the button's business, and not reported.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "plugin/dialogs/Widget.h"

namespace kzo::plugin {

/// One of the dialog's own buttons, in a strip below its content.
struct DialogButton {
    bool exists = false;
    core::CallbackSlot callback;
    bool closes = true;
    std::string title; ///< empty: the usual one
};

class ModalDialog final : public std::enable_shared_from_this<ModalDialog>, private WindowOwner {
  public:
    using Widgets = std::vector<std::shared_ptr<Widget>>;

    [[nodiscard]] static std::shared_ptr<ModalDialog>
    make(const std::string& title, const geo::Size& size, const DialogButton& ok = {}, const DialogButton& cancel = {});
    ~ModalDialog();
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;

    [[nodiscard]] bool handle() const { return alive_; } ///< it has not been destroyed

    // What it shows
    [[nodiscard]] const std::string& title() const { return title_; }
    void setTitle(const std::string& title);
    [[nodiscard]] geo::Size size() const { return size_; } ///< as given
    void setSize(const geo::Size& size);
    [[nodiscard]] geo::Size shownSize() const; ///< high enough for its widgets and own buttons
    [[nodiscard]] const Widgets& widgets() const { return widgets_; }
    void add(const std::shared_ptr<Widget>& widget); ///< takes it from the dialog that it was in
    void remove(const Widget& widget);
    [[nodiscard]] const Widgets& tabOrder() const { return tabOrder_; }
    void setTabOrder(const Widgets& fields); ///< empty: all fields, as they were added
    [[nodiscard]] const std::shared_ptr<Widget>& okButton() const { return ok_.widget; }
    [[nodiscard]] const std::shared_ptr<Widget>& cancelButton() const { return cancel_.widget; }
    void update(); ///< shows everything again

    // Life
    core::CallbackSlot showing; ///< brings it up to date before it shows
    void show();                ///< and waits until it is dismissed
    void dismiss();
    [[nodiscard]] bool visible() const { return window_ && !ending_; }
    /// The button whose click closed it last; null when it was none.
    [[nodiscard]] std::shared_ptr<Widget> chosenButton() const { return chosen_.lock(); }
    void destroy();

    // All dialogs of the plug-in
    static void dismissAll();
    static void destroyAll();
    static void adjustBrightness(); ///< of those that are open, to the interface's

  private:
    friend class Widget;

    struct OwnButton {
        std::shared_ptr<Widget> widget;
        bool closes = true;
    };

    ModalDialog(std::string title, const geo::Size& size);
    static OwnButton ownButton(const DialogButton& button, core::ButtonStyle style, const char* usualTitle);

    // What the user does
    void handle(const WindowEvent& event) override;
    void typed(Widget& field, const WindowEvent& event);
    void clicked(Widget& widget, bool checked);
    void pressed(Widget& button);
    void doubleClicked(Widget& widget);
    void keyPressed(WindowEvent::Key key);
    void cancelled();

    // The focus
    [[nodiscard]] std::shared_ptr<Widget> find(WidgetId id) const;
    [[nodiscard]] std::shared_ptr<Widget> buttonOf(core::ButtonStyle style) const;
    [[nodiscard]] Widgets fieldsInOrder() const;
    [[nodiscard]] Widgets usableFields() const;                     ///< in order
    [[nodiscard]] std::int32_t tabPlace(const Widget& field) const; ///< from 1; 0 where it has none
    [[nodiscard]] WidgetId focusAtFirst() const;                    ///< when it opens
    void setFocus(WidgetId id);
    void focusMoved(WidgetId id);
    void focusNext(int step);
    void endEditing();
    static void report(Widget& field);

    // Places
    [[nodiscard]] double shownHeight(const Widget& widget) const;
    void placeOwnButtons();
    void handOver(Widget& widget) const;
    void widgetChanged(Widget& widget);

    bool alive_ = true;
    std::string title_;
    geo::Size size_;
    Widgets widgets_; ///< without its own buttons
    Widgets tabOrder_;
    OwnButton ok_;
    OwnButton cancel_;
    std::weak_ptr<Widget> chosen_;
    std::weak_ptr<Widget> clicking_;     ///< while its callback runs
    std::optional<WidgetId> wantsFocus_; ///< when it opens, said before
    WidgetId focused_ = kNoWidget;
    bool movingFocus_ = false;
    bool ending_ = false;      ///< dismissed, and about to be gone
    Window* window_ = nullptr; ///< while it is open
    geo::Size handedOver_;     ///< the window's size as it knows it

    // With no destructor, since a handle of a client may be the last thing of the process to go.
    inline static std::vector<ModalDialog*>* all_ = nullptr;
};

} // namespace kzo::plugin
