// The most memory that reading takes, on drawings of one kind each, against what it may take: the text, 450 bytes an
// object and 48 bytes a point. And what the model takes for a path besides its points, once it is read.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <functional>
#include <random>
#include <string>

#include "Peak.h"
#include "model/Document.h"
#include "svg/Reader.h"

namespace {

using namespace easel;

constexpr double kBytesAnObject = 450;
constexpr double kBytesAPoint = 48;

/// Numbers below 1000 with three digits behind the point, as text, after a space.
class Numbers {
  public:
    std::string operator()(int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += ' ' + std::to_string(digits_(engine_)) + '.' + std::to_string(digits_(engine_));
        return text;
    }

  private:
    std::mt19937 engine_{1};
    std::uniform_int_distribution<int> digits_{100, 999};
};

std::string drawing(int count, const std::function<std::string(int, Numbers&)>& element) {
    std::string svg = "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 1000 1000'"
                      " xmlns:inkscape='http://www.inkscape.org/namespaces/inkscape'>\n";
    Numbers numbers;
    for (int i = 0; i < count; ++i) svg += element(i, numbers) + '\n';
    return svg + "</svg>\n";
}

std::string styled(int i) { return " style='fill:none;stroke:#12" + std::to_string(1000 + i % 9000) + "'"; }

const struct {
    const char* name;
    int count;
    std::function<std::string(int, Numbers&)> element;
} kKinds[] = {
    {"memory/curves", 100'000,
     [](int i, Numbers& n) {
         return "<path id='path" + std::to_string(i) + '\'' + styled(i) + " d='M" + n(2) + " C" + n(54) + "'/>";
     }},
    {"memory/lines", 200'000,
     [](int i, Numbers& n) {
         std::string line = "<path id='path" + std::to_string(i) + '\'' + styled(i) + " d='M" + n(4) + "'/>";
         return line.append(155 - line.size(), ' ');
     }},
    {"memory/shortest", 400'000, [](int, Numbers&) { return std::string("<path d='M1 1h1'/>"); }},
    {"memory/ownStyles", 200'000,
     [](int i, Numbers& n) { return "<path stroke='#" + std::to_string(100'000 + i) + "' d='M" + n(4) + "'/>"; }},
    {"memory/ownTransforms", 200'000,
     [](int i, Numbers& n) { return "<path transform='translate(" + std::to_string(i) + ")' d='M" + n(4) + "'/>"; }},
    {"memory/circles", 200'000, [](int, Numbers& n) { return "<circle r='2' cx='" + n(1) + "'/>"; }},
    {"memory/groups", 100'000, [](int, Numbers& n) { return "<g><path d='M" + n(4) + "'/></g>"; }},
    {"memory/layers", 100'000,
     [](int i, Numbers& n) {
         return "<g inkscape:groupmode='layer' inkscape:label='Layer number " + std::to_string(i) + "'><path d='M" +
                n(4) + "'/></g>";
     }},
    {"memory/compounds", 100'000,
     [](int i, Numbers& n) {
         return "<path id='path" + std::to_string(i) + '\'' + styled(i) + " d='M" + n(2) + " C" + n(12) + "ZM" + n(6) +
                "ZM" + n(6) + "Z'/>";
     }},
    {"memory/texts", 200'000, [](int i, Numbers&) { return "<text>Number " + std::to_string(i) + "</text>"; }},
    {"memory/smoothCurves", 400,
     [](int, Numbers&) {
         std::string path = "<path d='M1 1c1 0 2 1 2 2";
         for (int i = 0; i < 5'000; ++i) path += "s1 2 2 2";
         return path + "'/>";
     }},
};

void read(benchmark::State& state, std::size_t kind) {
    const std::string text = drawing(kKinds[kind].count, kKinds[kind].element);
    double objects = 0;
    double points = 0;
    {
        const auto document = svg::read(text, "drawing.svg");
        const model::Node& top = document->root();
        for (const model::Node* at = &top; at; at = model::nextWithin(top, *at), ++objects)
            if (at->type() == model::NodeType::Path) points += static_cast<double>(at->path().points.size());
    }
    double peak = 0;
    const std::string small = drawing(1, kKinds[kind].element);
    for (auto _ : state)
        peak = bench::peakOf([&] { benchmark::DoNotOptimize(svg::read(text, "drawing.svg")); },
                             [&] { benchmark::DoNotOptimize(svg::read(small, "drawing.svg")); });
    if (peak < 0) state.SkipWithError("not read");
    const auto size = static_cast<double>(text.size());
    state.counters["peak/text"] = peak / size;
    state.counters["peak/budget"] = peak / (size + kBytesAnObject * objects + kBytesAPoint * points);
}

/// Paths of two points and a name.
void holdPaths(benchmark::State& state) {
    constexpr int kPaths = 200'000;
    const auto inUse = [] {
        const struct mallinfo2 info = mallinfo2();
        return static_cast<double>(info.uordblks + info.hblkhd);
    };
    for (auto _ : state) {
        const double before = inUse();
        model::Document document(1000, 1000);
        document.journal().beginUnrecorded();
        for (int i = 0; i < kPaths; ++i) {
            model::Node& path =
                document.create(model::NodeType::Path, model::Placement::OnTopInside, document.currentLayer());
            document.setPath(path, {{model::cornerAt({0, i * 0.001}), model::cornerAt({9, i * 0.002})}, false});
            document.setName(path, "path" + std::to_string(i));
        }
        document.journal().end();
        state.counters["bytes a path"] = (inUse() - before) / kPaths - 2 * kBytesAPoint;
    }
}
BENCHMARK(holdPaths)->Name("memory/model")->Iterations(1)->Unit(benchmark::kMillisecond);

const int kRegistered = [] {
    for (std::size_t i = 0; i < std::size(kKinds); ++i)
        benchmark::RegisterBenchmark(kKinds[i].name, read, i)->Iterations(1)->Unit(benchmark::kMillisecond);
    return 0;
}();

} // namespace
