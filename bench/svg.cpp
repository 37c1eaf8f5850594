// Files: reading against bare parsers, in time and in memory, and saving one change against copying the file. On a
// drawing of 100,000 paths and some 50 MB, and on one of as many short lines.
#include <2geom/path-sink.h>
#include <2geom/svg-path-parser.h>
#include <benchmark/benchmark.h>
#include <expat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <string_view>

#include "Peak.h"
#include "svg/Files.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace {

using namespace easel;

constexpr int kPaths = 100'000;
constexpr int kCurves = 9; ///< of each path; as many as make half a kilobyte

/// Paths of that many curves; of none, straight lines.
std::string drawingOf(int curves) {
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 1000 1000\">\n";
    std::mt19937 engine(1);
    std::uniform_int_distribution<int> coordinate(0, 999'999);
    const auto point = [&] {
        const auto part = [&] {
            const int value = coordinate(engine);
            return std::to_string(value / 1000) + '.' + std::to_string(value % 1000);
        };
        svg += ' ' + part() + ',' + part();
    };
    for (int i = 0; i < kPaths; ++i) {
        svg += "  <path id=\"path" + std::to_string(i) + "\" style=\"fill:none;stroke:#12" +
               std::to_string(1000 + i % 9000) + ";stroke-width:1.5;stroke-linecap:round\" d=\"M";
        point();
        svg += curves > 0 ? " C" : " L";
        for (int j = 0; j < std::max(3 * curves, 1); ++j) point();
        svg += "\"/>\n";
    }
    return svg + "</svg>\n";
}

const std::string& drawing(bool lines) {
    static const std::string texts[] = {drawingOf(kCurves), drawingOf(0)};
    return texts[lines ? 1 : 0];
}

/// What the drawing is put into, gone at the end of the program.
struct Folder {
    Folder() { std::filesystem::create_directories(path); }
    ~Folder() { std::filesystem::remove_all(path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string path =
        (std::filesystem::temp_directory_path() / ("easel-bench-" + std::to_string(::getpid()))).string();
};

const std::string& file(bool lines = false) {
    static const Folder folder;
    static const auto written = [](bool ofLines) {
        std::string name = folder.path + (ofLines ? "/lines.svg" : "/drawing.svg");
        std::ofstream(name, std::ios::binary) << drawing(ofLines);
        return name;
    };
    static const std::string paths[] = {written(false), written(true)};
    return paths[lines ? 1 : 0];
}

/// Takes what the peer's parser says, and does nothing with it.
class NoSink : public Geom::PathSink {
  public:
    void moveTo(const Geom::Point&) override {}
    void lineTo(const Geom::Point&) override {}
    void curveTo(const Geom::Point&, const Geom::Point&, const Geom::Point&) override {}
    void quadTo(const Geom::Point&, const Geom::Point&) override {}
    void arcTo(Geom::Coord, Geom::Coord, Geom::Coord, bool, bool, const Geom::Point&) override {}
    void closePath() override {}
    void flush() override {}
};

void parsePath(void*, const XML_Char*, const XML_Char** attributes) {
    for (; *attributes; attributes += 2) {
        if (std::string_view(attributes[0]) != "d") continue;
        NoSink sink;
        Geom::SVGPathParser(sink).parse(std::string(attributes[1]));
    }
}

// Each with a drawing of curves (0) and one of lines (1).

void bareParsers(benchmark::State& state) {
    const std::string& text = drawing(state.range(0) != 0);
    for (auto _ : state) {
        const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreateNS(nullptr, '|'),
                                                                             XML_ParserFree);
        XML_SetStartElementHandler(parser.get(), parsePath);
        if (XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), 1) != XML_STATUS_OK) {
            state.SkipWithError("no XML");
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(bareParsers)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void read(benchmark::State& state) {
    const std::string& path = file(state.range(0) != 0);
    for (auto _ : state) {
        auto document = svg::open(path);
        state.PauseTiming(); // what was read goes when it is no longer needed
        document.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size(path)));
}
BENCHMARK(read)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void readMemory(benchmark::State& state) {
    const std::string& path = file(state.range(0) != 0);
    double peak = 0;
    for (auto _ : state) {
        peak = bench::peakOf([&] { benchmark::DoNotOptimize(svg::open(path)); }, [] {});
    }
    state.counters["peak/file"] = peak / static_cast<double>(std::filesystem::file_size(path));
}
BENCHMARK(readMemory)->Arg(0)->Arg(1)->Iterations(1)->Unit(benchmark::kMillisecond);

void copyFile(benchmark::State& state) {
    const std::string copy = file() + ".copy";
    for (auto _ : state) svg::replaceFile(copy, svg::readFile(file()));
}
BENCHMARK(copyFile)->Unit(benchmark::kMillisecond);

void saveOneChange(benchmark::State& state) {
    const auto document = svg::open(file());
    document->offset(*document->currentLayer().firstChild(), 1, 1);
    const std::string copy = file() + ".saved";
    for (auto _ : state) svg::save(*document, copy);
}
BENCHMARK(saveOneChange)->Unit(benchmark::kMillisecond);

/// Finding out where texts lie, once, the renderer's start included.
void measuringTexts(benchmark::State& state) {
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 1000 1000\">";
    if (state.range(1) != 0) svg += "<style>g text, .label { font-size: 9px }</style>";
    for (std::int64_t i = 0; i < state.range(0); ++i)
        svg += "<text x=\"" + std::to_string(i % 40 * 25) + "\" y=\"" + std::to_string(i / 40 * 10) + "\">word</text>";
    svg += "</svg>";
    for (auto _ : state) {
        state.PauseTiming();
        const auto document = svg::read(svg, "texts.svg");
        state.ResumeTiming();
        document->measure();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(measuringTexts)
    ->ArgNames({"texts", "styleSheet"})
    ->ArgsProduct({{100, 1'000, 2'000, 4'000}, {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace
