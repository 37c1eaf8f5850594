// What the user can do to the session, whichever widget it was done with. Each act is recorded, and the window learns
// when it is through.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/DialogRecorder.h"
#include "app/Recorder.h"
#include "session/app/Session.h"

namespace easel::app {

/// What cannot be done throws session::Error, and is not recorded.
class Actions {
  public:
    Actions(session::Session& session, Recorder& recorder) : session_(session), recorder_(recorder) {}

    [[nodiscard]] session::Session& session() const { return session_; }
    [[nodiscard]] model::Document* document() const { return session_.document(); }
    [[nodiscard]] std::uint32_t documentNumber() const {
        return document() ? session_.documents.numberOf(*document()) : 0;
    }

    DialogRecorder dialogs; ///< of plug-ins, which acts may bring up

    /// Called after each act that may have changed what a window shows.
    std::function<void()> done;

    // Documents; those that plug-ins have open may lie behind
    void newDocument(double width, double height);
    void open(std::unique_ptr<model::Document> read, const std::string& path); ///< which it was read from
    /// Unsaved work of the drawing of this file, read from a copy that goes once the work is saved.
    void openRecovered(std::unique_ptr<model::Document> read, const std::string& copy, const std::string& path);
    void save(const std::string& path, bool force);
    /// PNG, PDF or SVG, by the name's end; the drawing stays with the file it has.
    void exportPicture(const std::string& path, double scale);
    /// What is in front or, while a symbol or pattern is edited there, the drawing that it is a part of; or null.
    [[nodiscard]] model::Document* drawing() const;
    [[nodiscard]] const std::string& path() const; ///< of the drawing; empty where it has no file
    [[nodiscard]] bool isModified() const;         ///< the drawing, or the part of it that is edited
    /// Numbers that change with all unsaved work, behind too; none when there is none.
    [[nodiscard]] std::vector<std::uint64_t> unsavedWork() const;
    /// A drawing, or what of it was in front last.
    void bringToFront(const model::Document& drawing);
    /// The drawing counts as one that was never saved, or one of this file.
    void disown(const std::string& path);

    // Mouse, in points of the document
    void press(model::Point location, session::Modifiers modifiers);
    void drag(model::Point location, session::Modifiers modifiers);
    void release(model::Point location, session::Modifiers modifiers);
    void rightClick(model::Point location, session::Modifiers modifiers);
    /// Holds the running gesture at a length from its press from the next drag on; none lets it go.
    void holdLength(std::optional<double> length);

    // Keys, tools, menus
    void key(const std::string& name, session::Modifiers modifiers);
    void setClipboard(const std::string& svg); ///< what the next key pastes, from another program
    void selectTool(session::Tool& tool);
    void editTool(session::Tool& tool);
    void chooseMenu(AIMenuItemHandle handle);

    // Editing; each is one step
    void undo();
    void redo();
    void nudge(double dx, double dy);
    void scale(double across, double down, model::Point about);
    void setOpacity(double opacity); ///< 0 to 1
    /// Of what is selected, said as scripts say it.
    void setStyle(const std::string& scriptStyle, const std::function<void(model::Style&)>& change);

    // Layers, by their place from the top
    void addLayer(const std::string& title);
    void setCurrentLayer(std::size_t index);
    void setLayerTitle(std::size_t index, const std::string& title);
    void setLayerLocked(std::size_t index, bool locked);
    void setLayerVisible(std::size_t index, bool visible);
    void removeLayer(std::size_t index);
    void moveLayer(std::size_t index, std::size_t to);

    /// Lets time pass for the timers of plug-ins, but little of it where the window had no time for them, or they take
    /// long themselves. It is recorded as far as it made a difference to them.
    void passTime(int milliseconds);

    // View; nobody's undo
    void setSnapping(bool toPoint);
    void setAxisGrid(bool shown);
    void setAxisGridSnapping(bool on);
    void setGridSpacing(double spacing); ///< points

  private:
    enum class Time { Recorded, Kept };
    [[nodiscard]] auto shown() const;
    template <class Act> void act(const std::string& statement, Act what, Time before = Time::Recorded);
    void record(const std::string& statement, Time before);
    template <class Edit> void edit(const std::string& statement, Edit what);
    template <class Edit> void editSelected(const char* call, const std::string& arguments, Edit what);
    [[nodiscard]] model::Node& layer(std::size_t index) const;
    /// Of what is in front, and of what it is a part of; the innermost part first.
    [[nodiscard]] std::vector<std::uint32_t> numbersOfDrawing() const;
    template <class Make> void replaceDrawing(const std::string& call, Make make);
    std::string closeDrawing();
    void recordView();

    session::Session& session_;
    Recorder& recorder_;
    bool acting_ = false; ///< an act is under way
    int passed_ = 0;      ///< milliseconds that are not recorded yet
    model::View recordedView_;
};

} // namespace easel::app
