// What the window remembers from run to run, in a file of the profile's folder.
#pragma once

#include <QSettings>
#include <QSize>
#include <QStringList>

#include <array>
#include <string>

#include "hostapi/SPTypes.h"
#include "session/frame/Held.h"

namespace easel::app {

/// Which modifiers of plug-ins the keys of this keyboard are; 0 for none. Many window managers keep Alt and the mouse
/// for themselves, others Super.
struct KeyMeanings {
    session::Modifiers ctrl = kAICommandKey;
    session::Modifiers alt = kAIOptionKey;
    session::Modifiers super = kAIControlKey;
};

/// A modifier that a key can be, as settings and menus call it.
struct KeyMeaning {
    const char* name;
    session::Modifiers modifier;
};
inline constexpr std::array<KeyMeaning, 4> kKeyMeanings{
    {{"Command", kAICommandKey}, {"Option", kAIOptionKey}, {"Control", kAIControlKey}, {"Nothing", 0}}};

class Settings {
  public:
    static constexpr int kMostRecent = 10;

    explicit Settings(const std::string& folder);

    /// The drawings opened and saved last, the newest first; those that are gone are left out.
    [[nodiscard]] QStringList recent() const;
    void noteRecent(const std::string& path); ///< absolute

    [[nodiscard]] bool dark() const { return file_.value("dark", false).toBool(); }
    void setDark(bool dark) { file_.setValue("dark", dark); }

    [[nodiscard]] KeyMeanings keys() const;
    void setKeys(const KeyMeanings& keys);

    // Switches of the menus, by name
    [[nodiscard]] bool isOn(const char* name, bool usual) const { return file_.value(name, usual).toBool(); }
    void setOn(const char* name, bool on) { file_.setValue(name, on); }

    // The grid along the axes
    [[nodiscard]] bool axisGrid() const { return file_.value("axisGrid", false).toBool(); }
    void setAxisGrid(bool shown) { file_.setValue("axisGrid", shown); }
    [[nodiscard]] bool snapsToAxisGrid() const { return file_.value("snapToAxisGrid", true).toBool(); }
    void setSnapsToAxisGrid(bool on) { file_.setValue("snapToAxisGrid", on); }
    [[nodiscard]] double gridSpacing() const; ///< points
    void setGridSpacing(double spacing) { file_.setValue("gridSpacing", spacing); }

    // Where the window stands is the window manager's.
    [[nodiscard]] QSize windowSize() const { return file_.value("size", QSize(1300, 840)).toSize(); }
    [[nodiscard]] bool maximized() const { return file_.value("maximized").toBool(); }
    void setWindow(QSize size, bool maximized) {
        file_.setValue("size", size);
        file_.setValue("maximized", maximized);
    }

  private:
    QSettings file_;
};

} // namespace easel::app
