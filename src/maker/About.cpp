// Builds the About box and opens the maker's addresses.
#include "maker/About.h"

#include "core/app/Illustrator.h"
#include "core/app/Plugin.h"
#include "core/dialogs/Alerts.h"
#include "maker/BasePrefs.h"
#include "maker/MakersMenu.h"
#include "maker/Product.h"
#include "maker/Web.h"

namespace vl {

namespace {

using kzo::core::Button;
using kzo::core::ButtonStyle;
using kzo::core::Illustrator;
using kzo::core::Label;
using kzo::core::Point;
using kzo::core::Size;
using Bound = kzo::core::__Callback<About>;

constexpr const char* kMenuGroup = "About Velloran Plugins";
constexpr const char* kNotice = "\xc2\xa9 Velloran. All rights reserved.";
constexpr const char* kAcknowledgement =
    "This plugin is built on the kzo plug-in framework, with thanks to its authors.";

// Points
const Size kSize{300, 264};
constexpr double kLeft = 20;
constexpr double kRight = 185;
constexpr double kLabelWidth = 260;
constexpr double kLeftWidth = 150;
constexpr double kRightWidth = 95;
constexpr double kGap = 8;

} // namespace

// Life

void About::startup() {
    const auto group = sharedMenuGroup(kMenuGroup, kzo::core::BuiltinMenuGroup::About);
    menuItem_ = kzo::core::MenuItem(group, std::string(product::kName) + "...", Bound(this, &About::__aboutBoxCB));
    kzo::core::Plugin::instance()->setAboutMenuItem(menuItem_);
}

void About::postStartup() {
    dialog_ = kzo::core::ModalDialog(std::string("About ") + product::kName, kSize);
    addLabels();
    addButtons();
    // The host may ask for the box by itself.
    dialog_.setShowCallback(Bound(this, &About::updateUserLabel));
    kzo::core::Plugin::instance()->setAboutBox(dialog_);
}

void About::addLabels() {
    dialog_.addWidget(Label(Point(kLeft, 116), std::string("Version ") + product::kShownVersion, kLabelWidth));
    dialog_.addWidget(Label(Point(kLeft, 130), kNotice, kLabelWidth));
    userLabel_ = Label(Point(kLeft, 154), "", kLabelWidth);
    dialog_.addWidget(userLabel_);
}

void About::addButtons() {
    const auto add = [this](const Point& origin, const std::string& text, double width, ButtonStyle style,
                            void (About::*callback)()) {
        Button button(origin, text, width);
        button.setStyle(style);
        button.setClickCallback(Bound(this, callback));
        dialog_.addWidget(button);
        return button;
    };
    // Out of sight beyond the box's right edge: it gives Escape something to click.
    add(Point(310, 0), "Close", kRightWidth, ButtonStyle::Cancel, &About::__aboutOKbtnCB);
    const Button check =
        add(Point(kLeft, 196), "Check for updates", kLeftWidth, ButtonStyle::Plain, &About::__checkUpdatesBtnCB);
    add(Point(kRight, 196), "Web site", kRightWidth, ButtonStyle::Plain, &About::__URLbtnCB);
    const double below = check.frame().bottomLeft().y() + kGap;
    ackButton_ = add(Point(kLeft, below), "Acknowledgements", kLeftWidth, ButtonStyle::Plain, &About::__ackKZOBtnCB);
    add(Point(kRight, below), "OK", kRightWidth, ButtonStyle::Default, &About::__aboutOKbtnCB);
}

void About::preShutdown() { dialog_.destroy(); }
void About::shutdown() { menuItem_.destroy(); }

// Callbacks

void About::updateUserLabel() {
    const auto& host = *Illustrator::instance();
    const std::string organization = host.userOrganization();
    userLabel_.setText(host.userName() + (organization.empty() ? "" : " - " + organization));
}

void About::__aboutBoxCB() { dialog_.show(); }

void About::__checkUpdatesBtnCB() {
    dialog_.dismiss();
    prefs_.GETversion(true);
}

void About::__URLbtnCB() { Illustrator::instance()->openURL(web::homePage()); }

void About::__ackKZOBtnCB() {
    kzo::core::alerts::message(kAcknowledgement);
    ackButton_.blur();
}

void About::__aboutOKbtnCB() { dialog_.dismiss(); }

} // namespace vl
