// JSON: a large text in the shape of preferences, read and written; against nlohmann::json, and RapidJSON as the limit.
// And the plug-in's own file, against the bare calls of the system.
#include <cstdio>
#include <filesystem>
#include <string>

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "core/services/Preferences.h"
#include "json/Text.h"

namespace {

namespace json = kzo::json;

/// About 10 MB: sections of switches, counts, angles, texts and points, laid out as a preferences file is.
const std::string& preferences() {
    static const std::string made = [] {
        nlohmann::json sections;
        for (int i = 0; i < 40000; ++i) {
            sections["section " + std::to_string(i)] = {
                {"autoVCheck", i % 2 == 0},
                {"vCheckFreq", i % 90},
                {"zAxis", 30 + i % 60 * 0.25},
                {"xAxis", 150.0 - i % 7},
                {"vCheckDue", "2017-03-09"},
                {"origin", {{"x", i * 0.125}, {"y", -i}}},
                {"title", "a \"quoted\" title of section " + std::to_string(i)}};
        }
        const nlohmann::json root{{"Prefs", sections}};
        const json::Owned tree(json::parse(root.dump()));
        return json::serialize(tree.get(), true, 0);
    }();
    return made;
}

/// Runs `copy`, which reads the text and returns it written without blanks.
template <class Copy> void copies(benchmark::State& state, const Copy& copy) {
    const std::string& text = preferences();
    std::size_t written = 0;
    for ([[maybe_unused]] auto _ : state) written = copy(text).size();
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
    state.counters["MB read"] = static_cast<double>(text.size()) / 1e6;
    state.counters["MB written"] = static_cast<double>(written) / 1e6;
}

void jsonReadAndWrite(benchmark::State& state) {
    copies(state, [](const std::string& text) {
        const json::Owned root(json::parse(text));
        return json::serialize(root.get(), false, 0);
    });
}
BENCHMARK(jsonReadAndWrite)->Unit(benchmark::kMillisecond);

void jsonReadAndWriteOfPeer(benchmark::State& state) {
    copies(state, [](const std::string& text) { return nlohmann::json::parse(text).dump(); });
}
BENCHMARK(jsonReadAndWriteOfPeer)->Unit(benchmark::kMillisecond);

void jsonReadAndWriteOfLimit(benchmark::State& state) {
    copies(state, [](const std::string& text) {
        rapidjson::Document root;
        root.Parse(text.c_str(), text.size());
        rapidjson::StringBuffer buffer;
        rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
        root.Accept(writer);
        return std::string(buffer.GetString(), buffer.GetSize());
    });
}
BENCHMARK(jsonReadAndWriteOfLimit)->Unit(benchmark::kMillisecond);

// The plug-in's own file

constexpr const char* kOwnFile = "bench-preferences";
constexpr const char* kOwnText =
    R"({"Prefs":{"SaveCount":1000,"__vn":0,"__vs":"","autoConcat":false,"autoVCheck":true,)"
    R"("usePlotwiseSettings":false,"vCheckDue":"2018-07-04","vCheckFreq":7,"xAxis":150,"zAxis":30}})";

void write(const char* text) {
    std::FILE* const file = std::fopen(kOwnFile, "wb");
    std::fputs(text, file);
    std::fclose(file);
}

void preferencesLoad(benchmark::State& state) {
    write(kOwnText);
    for ([[maybe_unused]] auto _ : state) {
        kzo::core::Preferences store;
        benchmark::DoNotOptimize(kzo::core::Preferences::load(kOwnFile, store));
    }
    std::filesystem::remove(kOwnFile);
}
BENCHMARK(preferencesLoad);

/// What changes is as long as before. (A file that gets shorter waits for the disk.)
void preferencesSave(benchmark::State& state) {
    write(kOwnText);
    kzo::core::Preferences store;
    kzo::core::Preferences::load(kOwnFile, store);
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(store.save(kOwnFile));
    std::filesystem::remove(kOwnFile);
}
BENCHMARK(preferencesSave);

} // namespace
