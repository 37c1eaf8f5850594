// Dialogs of plug-ins: what they show, and what the user does to them, whoever draws them. The host moves no focus,
// checks no default button and closes nothing by itself: it tells the plug-in, which decides.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hostapi/Stage.h"
#include "session/base/Handles.h"
#include "session/frame/Messenger.h"
#include "session/frame/Plugins.h"

namespace easel::session {

// Keys of a field, as characters: those that have none of their own have one of the private use area.
inline constexpr std::string_view kDeleteKey = "\x7f";
inline constexpr std::string_view kUpKey = "\xEF\x9C\x80"; // U+F700
inline constexpr std::string_view kDownKey = "\xEF\x9C\x81";
inline constexpr std::string_view kLeftKey = "\xEF\x9C\x82";
inline constexpr std::string_view kRightKey = "\xEF\x9C\x83";
inline constexpr std::string_view kF1Key = "\xEF\x9C\x84"; // U+F704, with the others behind it
inline constexpr std::string_view kHomeKey = "\xEF\x9C\xA9";
inline constexpr std::string_view kEndKey = "\xEF\x9C\xAB";

/// A widget as it was handed over, with texts of its own.
struct Widget {
    std::int32_t id = 0;
    std::int32_t kind = 0; ///< kStageLabel ...
    AIRealRect frame{};
    std::string text;
    std::string tooltip;
    bool visible = true;
    bool enabled = true;
    bool checked = false;
    bool bold = false;
    bool italic = false;
    std::int16_t image = 0; ///< a resource of the plug-in's, to be shown in place of the text; 0 for none
    std::int16_t rolloverImage = 0;
    std::int16_t pressedImage = 0;
    std::int32_t alignment = kStageAlignLeft;
    std::int32_t style = kStagePlainButton;
    std::int32_t linked = 0;
    std::int32_t tabPlace = 0;       ///< of a field, from 1
    std::int32_t selectionStart = 0; ///< characters
    std::int32_t selectionEnd = 0;
};

/// The size of a PNG picture among the plug-in's resources, a pixel a point; nothing where there is no such picture.
[[nodiscard]] std::optional<AIRealPoint> imageSize(const Plugin& plugin, std::int16_t number);

/// The size that fits the text of the plug-in's widget, at an average width of characters, or its picture.
[[nodiscard]] AIRealPoint fittingSize(const Plugin& plugin, const Widget& widget);

struct Dialog {
    StageDialogRef handle = nullptr;
    Plugin* owner = nullptr;
    std::string title;
    AIReal width = 0;
    AIReal height = 0;
    std::vector<Widget> widgets; ///< in the order in which they were added
    std::int32_t focus = 0;      ///< the field that the keys go to; 0: none
    bool running = false;
    bool ended = false;
    bool disposed = false; ///< gone for plug-ins, as soon as it no longer runs for good

    [[nodiscard]] Widget* find(std::int32_t id);
    /// Whether the user can see the widget: it shows, and not beside the content.
    [[nodiscard]] bool shows(const Widget& widget) const;
};

class Dialogs {
  public:
    /// Shows a dialog, and returns when it has ended. One that returns before cancels the dialog.
    using Face = std::function<void(Dialog&)>;

    explicit Dialogs(Messenger& messenger) : messenger_(messenger) {}

    Face face;
    /// Told of everything that the user does to a dialog, before its plug-in is.
    std::function<void(Dialog&, const StageDialogMessage&)> heard;
    /// Off, the host shows neither dialogs nor alerts, and refuses what is about them.
    bool staged = true;

    // What plug-ins do; throws HostError
    Dialog& add(Plugin& owner, std::string_view title, AIReal width, AIReal height);
    void remove(Dialog& dialog);
    void setFrame(Dialog& dialog, std::string_view title, AIReal width, AIReal height) const;
    static void setWidget(Dialog& dialog, const Widget& widget);
    static void removeWidget(Dialog& dialog, std::int32_t id);
    static void setFocus(Dialog& dialog, std::int32_t id);
    void run(Dialog& dialog);
    static void end(Dialog& dialog) { dialog.ended = true; }
    [[nodiscard]] Dialog* find(StageDialogRef handle) const;
    void forget(const Plugin& plugin);
    void requireStaged() const;

    // What the user does; the plug-in hears of it and may do anything then, so that a widget may be gone afterwards
    /// One keystroke: the characters take the place of the selection, or a key of a field does what it is for.
    void type(Dialog& dialog, std::int32_t field, const std::string& characters);
    /// One that left the text as it was, whatever it did to the caret.
    void typeNothing(Dialog& dialog, std::int32_t field, const std::string& key);
    void moveFocus(Dialog& dialog, std::int32_t field);
    void commit(Dialog& dialog, std::int32_t field);
    void click(Dialog& dialog, std::int32_t widget);
    void doubleClick(Dialog& dialog, std::int32_t widget); ///< the second click of one
    void press(Dialog& dialog, std::int32_t key);          ///< kStageReturnKey ...
    void close(Dialog& dialog);

  private:
    void tell(Dialog& dialog, StageDialogMessage message);

    Messenger& messenger_;
    Registry<Dialog, StageDialogRef> dialogs_;
};

} // namespace easel::session
