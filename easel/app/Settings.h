// What the window remembers from run to run, in a file of the profile's folder.
#pragma once

#include <QSettings>
#include <QSize>
#include <QStringList>

#include <string>

namespace easel::app {

class Settings {
  public:
    static constexpr int kMostRecent = 10;

    explicit Settings(const std::string& folder);

    /// The drawings opened and saved last, the newest first; those that are gone are left out.
    [[nodiscard]] QStringList recent() const;
    void noteRecent(const std::string& path); ///< absolute

    [[nodiscard]] bool dark() const { return file_.value("dark", false).toBool(); }
    void setDark(bool dark) { file_.setValue("dark", dark); }

    /// Which key is Option besides Alt, which many window managers keep for themselves.
    [[nodiscard]] bool superIsOption() const { return file_.value("superIsOption", false).toBool(); }
    void setSuperIsOption(bool on) { file_.setValue("superIsOption", on); }

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
