// The test desk: a session with the product attached as a function, a document, and the strokes of a mouse.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "session/app/Session.h"
#include "suites/Tables.h"

namespace desk {

using easel::model::Point;

struct Setup {
    bool openDocument = true; ///< 800 by 600 points, empty
    bool snapToPoint = false; ///< off, so that points are where a test puts them
    std::string profile =
        {}; ///< the folder of preferences; a temporary one if left out, whose product looks for no updates
    std::vector<std::string>* said = nullptr; ///< gets the texts of alerts
};

class Desk {
  public:
    explicit Desk(const Setup& setup = {});
    ~Desk(); ///< fails the test when the host had anything to report, unless `expectReports` was called

    [[nodiscard]] easel::session::Session& session() { return *session_; }
    [[nodiscard]] easel::session::Plugin& product() { return *plugin_; }
    [[nodiscard]] easel::suites::Tables& tables() { return easel::suites::Tables::of(*session_->suites); }
    [[nodiscard]] easel::model::Document& document() { return session_->documents.needFront(); }
    [[nodiscard]] std::string svg(); ///< the document as it would be saved
    /// All paths, topmost first.
    [[nodiscard]] std::vector<easel::model::Node*> paths();
    [[nodiscard]] std::vector<Point> anchors(const easel::model::Node& path);
    /// Topmost in the container, or else in the current layer.
    easel::model::Node& addPath(std::initializer_list<Point> points, bool closed = false,
                                easel::model::Node* container = nullptr);

    void selectTool(const std::string& title = "Isometric Line Tool");
    /// Press on the first point, a drag to each other one, release at the last.
    void stroke(std::initializer_list<Point> points, easel::session::Modifiers modifiers = 0);

    /// Runs `work` while the plug-in handles a message, as all its code does.
    void inMessage(const std::function<void()>& work);
    void expectReports() { reportsExpected_ = true; }
    /// Ends the session; the desk is no longer to be used.
    void quit() { session_.reset(); }

  private:
    std::unique_ptr<easel::session::Session> session_;
    easel::session::Plugin* plugin_;
    bool reportsExpected_ = false;
};

/// While it lives, one operation of the session's tables refuses.
template <class Function> class Refusing {
  public:
    template <class Table>
    Refusing(easel::suites::Tables& tables, Function Table::*entry)
        : entry_(tables.get<Table>().*entry), kept_(entry_) {
        entry_ = refuse(kept_);
    }
    ~Refusing() { entry_ = kept_; }
    Refusing(const Refusing&) = delete;
    Refusing& operator=(const Refusing&) = delete;

  private:
    template <class... Arguments> static auto refuse(AIErr (*)(Arguments...)) -> AIErr (*)(Arguments...) {
        return [](Arguments...) -> AIErr { return kRefusedErr; };
    }

    Function& entry_;
    Function kept_;
};
template <class Table, class Function> Refusing(easel::suites::Tables&, Function Table::*) -> Refusing<Function>;

} // namespace desk
