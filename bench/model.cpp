// The model's half of a drag message, in documents of equal density: its cost must hardly depend on their size. Looking
// at every path is the peer that shows what the index spares.
#include <benchmark/benchmark.h>

#include <cmath>
#include <limits>
#include <memory>
#include <random>

#include "model/Clip.h"
#include "model/Document.h"

namespace {

using namespace easel::model;

constexpr double kSpacing = 20;

PathPoint corner(double x, double y) { return cornerAt({x, y}); }

/// A document of `count` short lines, one to a square of the page.
std::unique_ptr<Document> drawing(std::int64_t count) {
    const auto columns = static_cast<std::int64_t>(std::ceil(std::sqrt(static_cast<double>(count))));
    auto document =
        std::make_unique<Document>(static_cast<double>(columns) * kSpacing, static_cast<double>(columns) * kSpacing);
    std::mt19937 engine(1);
    std::uniform_real_distribution<double> inSquare(0, kSpacing);
    document->journal().begin();
    document->journal().setKind(UndoKind::Silent);
    for (std::int64_t i = 0; i < count; ++i) {
        const auto row = i / columns;
        const double left = static_cast<double>(i - row * columns) * kSpacing;
        const double top = static_cast<double>(row) * kSpacing;
        Node& line = document->create(NodeType::Path, Placement::OnTopInside, document->currentLayer());
        document->setPath(line, {{corner(left + inSquare(engine), top + inSquare(engine)),
                                  corner(left + inSquare(engine), top + inSquare(engine))},
                                 false});
    }
    document->journal().end();
    return document;
}

/// One document at a time, kept between the benchmarks that use it.
Document& drawingOf(std::int64_t count) {
    static std::unique_ptr<Document> document;
    static std::int64_t countNow = 0;
    if (countNow != count) {
        document.reset();
        document = drawing(count);
        countNow = count;
    }
    return *document;
}

/// As a tool that snaps to art drags: rolled back, drawn to the nearest feature, told what is there, and drawn anew.
void dragIn(benchmark::State& state, Document& document, double radius) {
    Journal& journal = document.journal();
    Node& layer = document.currentLayer();
    const Point center = document.view.center;
    double turn = 0;
    journal.begin();
    journal.mark();
    for (auto _ : state) {
        journal.rollBackToMark();
        turn += 0.01;
        const Point cursor{center.x + radius * std::cos(turn), center.y + radius * std::sin(turn)};
        const std::optional<Point> snapped = document.snapPoint(cursor, 2, SnapTo::Outlines);
        const Point end = snapped ? *snapped : cursor;
        journal.begin();
        const Hit hit = document.hitTest(layer, end, 2, HitRequest::Anchors | HitRequest::Segments);
        benchmark::DoNotOptimize(hit);
        Node& line = document.create(NodeType::Path, Placement::OnTopInside, layer);
        const PathPoint points[] = {corner(center.x, center.y), corner(end.x, end.y)};
        document.setPointCount(line, 2);
        document.setPoints(line, 0, points, 2);
        document.setClosed(line, false);
        journal.end();
    }
    journal.abandon();
}

void dragMessage(benchmark::State& state) { dragIn(state, drawingOf(state.range(0)), 80); }

/// Curves that all pass through one spot: none of them can be told from afar.
void dragInKnot(benchmark::State& state) {
    Document document(1000, 1000);
    std::mt19937 engine(1);
    std::uniform_real_distribution<double> inSpot(450, 550);
    const auto point = [&] { return Point{inSpot(engine), inSpot(engine)}; };
    document.journal().beginUnrecorded();
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        Node& path = document.create(NodeType::Path, Placement::OnTopInside, document.currentLayer());
        document.setPath(path, {{{point(), point(), point()}, {point(), point(), point()}}, false});
    }
    document.journal().end();
    dragIn(state, document, 20);
}

/// One path of that many curves: a spiral, or anchors thrown on the page, each of whose curves crosses it.
void dragNearLongPath(benchmark::State& state, bool crossing) {
    Document document(1000, 1000);
    std::mt19937 engine(1);
    std::uniform_real_distribution<double> onPage(0, 1000);
    std::uniform_real_distribution<double> handle(-5, 5);
    const auto near = [&](Point p) { return Point{p.x + handle(engine), p.y + handle(engine)}; };
    PathData data;
    const auto count = static_cast<double>(state.range(0));
    for (double i = 0; i < count; ++i) {
        const double turn = i / 100;
        const double radius = 500 * i / count;
        const Point spiral{500 + radius * std::cos(turn), 500 + radius * std::sin(turn)};
        const Point anchor = crossing ? Point{onPage(engine), onPage(engine)} : spiral;
        data.points.push_back({anchor, near(anchor), near(anchor)});
    }
    document.journal().beginUnrecorded();
    document.setPath(document.create(NodeType::Path, Placement::OnTopInside, document.currentLayer()), data);
    document.journal().end();
    dragIn(state, document, 80);
}

void hitTestAnywhere(benchmark::State& state) {
    Document& document = drawingOf(state.range(0));
    std::mt19937 engine(2);
    std::uniform_real_distribution<double> coordinate(0, document.width());
    for (auto _ : state) {
        const Point point{coordinate(engine), coordinate(engine)};
        const Hit hit = document.hitTest(document.root(), point, 2, HitRequest::Anchors | HitRequest::Segments);
        benchmark::DoNotOptimize(hit);
    }
}

/// The same with a mask on the layer: a ring of 256 anchors around the middle.
void hitTestThroughMask(benchmark::State& state) {
    Document& document = drawingOf(state.range(0));
    PathData ring{.points = {}, .closed = true};
    for (int i = 0; i < 256; ++i) {
        const double angle = i * (std::acos(-1.0) / 128);
        ring.points.push_back(corner(document.width() * (0.5 + 0.4 * std::cos(angle)),
                                     document.height() * (0.5 + 0.4 * std::sin(angle))));
    }
    Clip clip;
    clip.mask = std::make_shared<const Mask>(std::vector<Mask::Shape>{{{ring}, false}});
    Document::setClip(document.currentLayer(), Shared(clip));
    hitTestAnywhere(state);
    Document::setClip(document.currentLayer(), {});
}

/// The peer of the hit test.
void lookAtEveryPath(benchmark::State& state) {
    Document& document = drawingOf(state.range(0));
    const Point point = document.view.center;
    for (auto _ : state) {
        double nearest = std::numeric_limits<double>::infinity();
        for (const Node* path = document.currentLayer().firstChild(); path; path = path->next()) {
            for (const PathPoint& p : path->path().points) {
                const double x = p.anchor.x - point.x;
                const double y = p.anchor.y - point.y;
                nearest = std::min(nearest, x * x + y * y);
            }
        }
        benchmark::DoNotOptimize(nearest);
    }
}

/// Moving one selected path, as a step and back.
void moveAndUndo(benchmark::State& state) {
    Document& document = drawingOf(state.range(0));
    Node& path = *document.currentLayer().firstChild();
    for (auto _ : state) {
        document.offset(path, 3, 4);
        document.journal().undo();
    }
}

void buildDocument(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(drawing(state.range(0)));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

constexpr std::int64_t kSizes[] = {100, 10'000, 1'000'000};

const int kRegistered = [] {
    for (const std::int64_t size : kSizes) {
        benchmark::RegisterBenchmark("model/dragMessage", dragMessage)->Arg(size);
        benchmark::RegisterBenchmark("model/hitTestAnywhere", hitTestAnywhere)->Arg(size);
        benchmark::RegisterBenchmark("model/hitTestThroughMask", hitTestThroughMask)->Arg(size);
        benchmark::RegisterBenchmark("model/lookAtEveryPath", lookAtEveryPath)->Arg(size);
        benchmark::RegisterBenchmark("model/moveAndUndo", moveAndUndo)->Arg(size);
        benchmark::RegisterBenchmark("model/buildDocument", buildDocument)->Arg(size);
    }
    benchmark::RegisterBenchmark("model/dragInKnot", dragInKnot)->Arg(10'000);
    benchmark::RegisterBenchmark("model/dragNearSpiral", dragNearLongPath, false)->Arg(30'000);
    benchmark::RegisterBenchmark("model/dragNearCrossings", dragNearLongPath, true)->Arg(30'000);
    return 0;
}();

} // namespace
