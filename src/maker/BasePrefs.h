// What the preferences of all of the maker's plug-ins have in common: where the file is, the greeting at the first
// launch, and the schedule of update checks.
#pragma once

#include <cstdint>
#include <string>

#include "core/services/Preferences.h"

namespace vl {

/// The plain values are what counts while the plug-in runs; `getPrefs` fills them from the store, `setPrefs` writes
/// them to the store and to the file. Where the file cannot be had they are the defaults, and nothing is written.
class vlBasePrefs {
  public:
    virtual ~vlBasePrefs() = default;

    // Life
    virtual void init();
    virtual void startup(); ///< finds and loads the file, greets at the first launch, and writes all keys
    virtual void postStartup() {}
    virtual void preShutdown(); ///< writes the file
    virtual void shutdown() {}

    // Between the values, the store and the file
    virtual void getPrefs();
    virtual void setPrefs();
    virtual void readPrefs();
    virtual void writePrefs();
    virtual void doFirstLaunch();

    // The schedule of update checks
    [[nodiscard]] const std::string& nextCheckDate() const { return nextCheck_; } ///< "Y-m-d"
    [[nodiscard]] std::int32_t checkInterval() const { return interval_; }        ///< days
    [[nodiscard]] bool checksAutomatically() const { return automatic_; }
    [[nodiscard]] bool checkDue() const { return due_; } ///< today is the date or later

    [[nodiscard]] const std::string& path() const { return path_; } ///< of the file; empty without one
    [[nodiscard]] bool firstLaunch() const { return firstLaunch_; } ///< the file was missing

  protected:
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

    std::string path_;
    bool firstLaunch_ = false;
    kzo::core::StringPref nextCheckPref_;
    kzo::core::NumberPref intervalPref_;
    kzo::core::BoolPref automaticPref_;
};

} // namespace vl
