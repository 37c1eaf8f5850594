// The test desk.
#include "support/Desk.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "core/app/Plugin.h"
#include "core/frame/Dispatcher.h"
#include "support/Drawing.h"
#include "support/Receiver.h"
#include "svg/Writer.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace desk {

using namespace easel;

namespace {

/// A product that looks for updates has a timer and, sooner or later, a failure.
void leaveUpdatesAlone(const std::string& profile) {
    const std::filesystem::path file = std::filesystem::path(profile) / "Velloran/Ortholine 16/Preferences";
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << R"({"Prefs":{"autoVCheck":false}})";
}

} // namespace

Desk::Desk(const Setup& setup) : session_(std::make_unique<session::Session>()) {
    plugin_ = &session_->plugins.attach("Product under test", PluginMain);
    session_->pointer.snapping.toPoint = setup.snapToPoint;
    if (!setup.profile.empty()) session_->profile.use(setup.profile);
    if (setup.profile.empty()) leaveUpdatesAlone(session_->profile.folder());
    session_->alerts.handler = [said = setup.said](const session::Alert& alert) {
        if (said) said->push_back(alert.text);
        return std::size_t{0};
    };
    EXPECT_THAT(session_->start(), ::testing::IsEmpty());
    if (setup.openDocument) session_->newDocument(800, 600);
}

Desk::~Desk() {
    if (!session_) return;
    session_->quit();
    if (!reportsExpected_) {
        EXPECT_THAT(session_->reports.lines(), ::testing::IsEmpty());
    }
}

std::string Desk::svg() { return svg::write(document()); }

std::vector<model::Node*> Desk::paths() {
    std::vector<model::Node*> found;
    for (model::Node* const node : model::allNodes(document()))
        if (node->type() == model::NodeType::Path) found.push_back(node);
    return found;
}

std::vector<Point> Desk::anchors(const model::Node& path) {
    std::vector<Point> anchors;
    for (const model::PathPoint& point : path.path().points) anchors.push_back(point.anchor);
    return anchors;
}

model::Node& Desk::addPath(std::initializer_list<Point> points, bool closed, model::Node* container) {
    std::vector<model::PathPoint> corners;
    for (const Point point : points) corners.push_back(model::corner(point.x, point.y));
    model::Document& doc = document();
    doc.journal().begin();
    model::Node& path = model::addPath(doc, container ? *container : doc.currentLayer(), std::move(corners), closed);
    doc.journal().end();
    return path;
}

void Desk::selectTool(const std::string& title) {
    session::Tool* const tool = session_->toolbox.findByTitle(title);
    ASSERT_NE(tool, nullptr) << title;
    session_->input.selectTool(*tool);
}

void Desk::stroke(std::initializer_list<Point> points, session::Modifiers modifiers) {
    session::Pointer& pointer = session_->pointer;
    pointer.press(*points.begin(), modifiers);
    for (auto point = points.begin() + 1; point != points.end(); ++point) pointer.drag(*point, modifiers);
    pointer.release(*(points.end() - 1), modifiers);
}

void Desk::inMessage(const std::function<void()>& work) {
    // What the work throws must fail the test; the plug-in's entry would swallow it.
    std::exception_ptr thrown;
    Receiver bound{[&] {
        try {
            work();
        } catch (...) {
            thrown = std::current_exception();
        }
    }};
    kzo::core::Dispatcher* const dispatcher = kzo::core::Plugin::instance()->dispatcher();
    dispatcher->registerMessageCallback("Test Desk", "Run", bound.callback());
    SPMessageData message{};
    session_->messenger.send(*plugin_, "Test Desk", "Run", message);
    dispatcher->unregisterMessageCallback("Test Desk", "Run");
    if (thrown) std::rethrow_exception(thrown);
}

} // namespace desk
