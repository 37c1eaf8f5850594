// The update check: the request, what comes of its reply, and the dialog with the schedule.
#include "maker/BasePrefs.h"

#include <algorithm>
#include <cmath>

#include "core/app/Illustrator.h"
#include "core/dialogs/Alerts.h"
#include "core/services/Date.h"
#include "maker/Numbers.h"
#include "maker/Product.h"
#include "maker/Web.h"

namespace vl {

namespace {

namespace alerts = kzo::core::alerts;
using kzo::core::Button;
using kzo::core::ButtonStyle;
using kzo::core::Checkbox;
using kzo::core::Date;
using kzo::core::InternetGET;
using kzo::core::Label;
using kzo::core::ModalDialog;
using kzo::core::Point;
using kzo::core::Size;
using kzo::core::TextField;
using Bound = kzo::core::__Callback<vlBasePrefs>;

constexpr std::int32_t kLeastInterval = 1; // days
constexpr std::int32_t kMostInterval = 90;
constexpr std::int32_t kUsualInterval = 7;

const std::string kTheProduct = std::string(product::kName) + " plugin";
const std::string kRecommended =
    std::string("Update checks to this version of ") + product::kName + " are recommended at least every 7 days.";

/// What a field holds; false when that is no number.
bool scanDays(const TextField& field, double& days) { return scanNumber(field.text(), days) && std::isfinite(days); }

std::int32_t wholeDays(double days) {
    return static_cast<std::int32_t>(std::clamp(std::trunc(days), double{kLeastInterval}, double{kMostInterval}));
}

/// What a reply says, 0 for what is no number. What is too large for one is infinite, and so newer than any.
double versionOf(const std::string& reply) {
    double version = 0;
    scanNumber(reply, version);
    return version;
}

} // namespace

// The dialog

void vlBasePrefs::__buildUpdateBox() {
    updateDialog_ = ModalDialog(std::string("Update ") + product::kName, Size(320, 150));
    updateMessage_ = Label(Point(20, 20), "An update to " + kTheProduct + " is available.", 270);
    updateMessage_.setBold(true);
    automaticCheckbox_ = Checkbox(Point(20, 76), "Check for updates every", 165,
                                  automatic_ ? Checkbox::StateType::Checked : Checkbox::StateType::Unchecked);
    automaticCheckbox_.setClickCallback(Bound(this, &vlBasePrefs::__autoVCheckChkCB));
    lastGoodDays_ = std::to_string(interval_);
    daysField_ = TextField(Point(184, 74), lastGoodDays_, 40);
    daysField_.setAlignment(kzo::core::TextAlignment::Right);
    daysField_.setEnabled(automatic_);
    daysField_.setValueChangedCallback(Bound(this, &vlBasePrefs::__autoVCheckTxtCB));
    daysField_.setValueChangingCallback(Bound(this, &vlBasePrefs::__autoVcheckTxtChangingCB));
    const Label days(Point(daysField_.frame().topRight().x() + 4, 76), "days", 36);
    Button notNow(Point(20, 108), "Not Now", 135);
    notNow.setStyle(ButtonStyle::Cancel);
    notNow.setClickCallback(Bound(this, &vlBasePrefs::__cancelDLGbtnCB));
    Button getUpdate(Point(165, 108), "Get Update", 135);
    getUpdate.setStyle(ButtonStyle::Default);
    getUpdate.setClickCallback(Bound(this, &vlBasePrefs::__updateOKBtnCB));
    for (const kzo::core::Widget& widget :
         {kzo::core::Widget(updateMessage_), kzo::core::Widget(automaticCheckbox_), kzo::core::Widget(daysField_),
          kzo::core::Widget(days), kzo::core::Widget(notNow), kzo::core::Widget(getUpdate)})
        updateDialog_.addWidget(widget);
}

void vlBasePrefs::showUpdateBox(const std::string& message) {
    updateMessage_.setText(message);
    daysField_.setText(lastGoodDays_);
    daysField_.setEnabled(automatic_);
    automaticCheckbox_.setChecked(automatic_);
    automatic_ ? daysField_.focus() : daysField_.blur();
    updateDialog_.show();
}

// The request

void vlBasePrefs::GETversion(bool manual) {
    // At most one runs; it becomes the user's as soon as he asks.
    manual_ = manual || (request_ && manual_);
    if (request_) return;
    request_ = InternetGET::Async(web::updateQuery(), Bound(this, &vlBasePrefs::verifyVersionOKCB),
                                  Bound(this, &vlBasePrefs::verifyVersionFailCB));
}

void vlBasePrefs::verifyVersionOKCB() {
    const std::string reply = request_->content();
    request_.reset();
    if (reply.size() > 1) {
        const bool newer = versionOf(reply) > product::kVersion;
        if (!newer && !manual_) return;
        showUpdateBox(newer ? "An update to version " + reply + " for " + kTheProduct + " is available."
                            : "Your " + kTheProduct + " is up to date.");
        incrementVersCheck();
        due_ = false;
    } else if (manual_) {
        alerts::message("Software update check for " + kTheProduct + " failed. Please check" + web::kInTextSite +
                        " web site for a product update, then contact" + web::kInTextSupport +
                        " if this problem persists.");
    }
    manual_ = false;
}

void vlBasePrefs::verifyVersionFailCB() {
    const std::string error = request_->error();
    request_.reset();
    // The one failure that a user who asked can mend; all others pass in silence.
    if (manual_ && error.find("Internet appears to be offline.") != std::string::npos)
        alerts::message("Unable to establish internet connection to check for " + kTheProduct + " update: " + error);
}

// The schedule

void vlBasePrefs::incrementVersCheck() {
    interval_ = std::clamp(interval_, kLeastInterval, kMostInterval);
    nextCheck_ = (Date::Current() + kzo::core::Duration::Days(interval_)).format(kDateFormat);
    due_ = false;
    writePrefs();
}

void vlBasePrefs::processVersionCheck() {
    incrementVersCheck();
    due_ = false;
}

/// Takes the interval from the dialog; one that is longer than recommended is warned of, and kept.
void vlBasePrefs::readInterval() {
    double days = 0;
    if (!scanDays(daysField_, days)) days = kUsualInterval;
    if (days > kUsualInterval) alerts::message(kRecommended);
    interval_ = wholeDays(days);
}

// Callbacks of the dialog

void vlBasePrefs::__autoVcheckTxtChangingCB() {
    constexpr unsigned char kDelete = 127;
    constexpr unsigned char kFunctionKey = 239; // the first byte of arrows and their like
    const std::string typed = daysField_.lastCharTyped();
    const auto first = static_cast<unsigned char>(typed.empty() ? 0 : typed.front());
    if ((first >= '0' && first <= '9') || first == kDelete || first == kFunctionKey)
        lastGoodDays_ = daysField_.text();
    else
        daysField_.setText(lastGoodDays_);
}

void vlBasePrefs::__autoVCheckTxtCB() { daysField_.blur(); }

void vlBasePrefs::__autoVCheckChkCB() {
    automatic_ = automaticCheckbox_.checked();
    daysField_.setEnabled(automatic_);
    if (automatic_) return daysField_.focus();
    daysField_.blur();
    alerts::message("Are you sure you want to disable this? " + kRecommended);
}

void vlBasePrefs::__updateOKBtnCB() {
    readInterval();
    incrementVersCheck();
    automatic_ = automaticCheckbox_.checked();
    updateDialog_.dismiss();
    writePrefs();
    auto& host = *kzo::core::Illustrator::instance();
    host.openURL(web::downloadAddress(host.majorVersion()));
}

void vlBasePrefs::__cancelDLGbtnCB() {
    readInterval();
    incrementVersCheck();
    automatic_ = automaticCheckbox_.checked();
    if (double days = 0; scanDays(daysField_, days)) interval_ = wholeDays(days);
    incrementVersCheck();
    setPrefs();
    writePrefs();
    updateDialog_.dismiss();
}

} // namespace vl
