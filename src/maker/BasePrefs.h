// What the preferences of all of the maker's plug-ins have in common: where the file is, the greeting at the first
// launch, and the schedule of update checks.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/dialogs/Button.h"
#include "core/dialogs/Checkbox.h"
#include "core/dialogs/Label.h"
#include "core/dialogs/ModalDialog.h"
#include "core/dialogs/TextField.h"
#include "core/frame/MenuItem.h"
#include "core/services/InternetGET.h"
#include "core/services/Preferences.h"

namespace vl {

/// The plain values are what counts while the plug-in runs; `getPrefs` fills them from the store, `setPrefs` writes
/// them to the store and to the file. Where the file cannot be had they are the defaults, and nothing is written.
class vlBasePrefs {
  public:
    virtual ~vlBasePrefs() = default;

    // Life
    virtual void init();
    virtual void startup();     ///< finds and loads the file, greets at the first launch, and writes all keys
    virtual void postStartup(); ///< builds the update dialog, and checks for updates when that is due
    virtual void preShutdown(); ///< writes the file, gives a check up, and takes the dialog down
    virtual void shutdown();

    // Between the values, the store and the file
    virtual void getPrefs();
    virtual void setPrefs();
    virtual void readPrefs();
    virtual void writePrefs();
    virtual void doFirstLaunch();
    virtual void __showPrefsCB() {} ///< shows the dialog of the preferences

    /// Adds the item, with "..." behind its name, to the preferences of all of the maker's plug-ins.
    void makePrefsMenu(const std::string& name);

    // The schedule of update checks
    [[nodiscard]] const std::string& nextCheckDate() const { return nextCheck_; } ///< "Y-m-d"
    [[nodiscard]] std::int32_t checkInterval() const { return interval_; }        ///< days
    [[nodiscard]] bool checksAutomatically() const { return automatic_; }
    [[nodiscard]] bool checkDue() const { return due_; } ///< today is the date or later

    /// Asks the maker's server whether there is a newer version. What comes of it is told in any case to a user who
    /// asked, else only where there is one.
    void GETversion(bool manual);
    void incrementVersCheck();  ///< the next check is due so many days from today
    void processVersionCheck(); ///< a check has been made

    // Callbacks of the request and of the update dialog
    void verifyVersionOKCB();
    void verifyVersionFailCB();
    void __autoVCheckChkCB();
    void __autoVCheckTxtCB();
    void __autoVcheckTxtChangingCB();
    void __updateOKBtnCB();
    void __cancelDLGbtnCB();

    [[nodiscard]] const std::string& path() const { return path_; } ///< of the file; empty without one
    [[nodiscard]] bool firstLaunch() const { return firstLaunch_; } ///< the file was missing

  protected:
    static constexpr const char* kDateFormat = "Y-m-d";

    vlBasePrefs() = default;
    vlBasePrefs(const vlBasePrefs&) = delete;
    vlBasePrefs& operator=(const vlBasePrefs&) = delete;

    bool saveStore() { return store_.save(path_); }

    kzo::core::Preferences store_;
    std::string nextCheck_;
    std::int32_t interval_ = 0;
    bool automatic_ = true;
    bool due_ = false;

  private:
    [[nodiscard]] bool locate();
    void fail();
    void noteWhetherDue();
    void __buildUpdateBox();
    void showUpdateBox(const std::string& message);
    void readInterval();

    std::string path_;
    bool firstLaunch_ = false;
    kzo::core::StringPref nextCheckPref_;
    kzo::core::NumberPref intervalPref_;
    kzo::core::BoolPref automaticPref_;
    kzo::core::MenuItem menuItem_;

    // The update check
    bool manual_ = false;                             ///< the user asked for the check that runs
    std::unique_ptr<kzo::core::InternetGET> request_; ///< null when no check runs
    std::string lastGoodDays_;                        ///< what the days field held before a wrong character
    kzo::core::ModalDialog updateDialog_;
    kzo::core::Label updateMessage_;
    kzo::core::Checkbox automaticCheckbox_;
    kzo::core::TextField daysField_;
};

} // namespace vl
