// Any bytes at all as a drawing: reading answers or throws FileError; what was read is written back byte for byte; and
// what was changed can be read again. Runs under libFuzzer (tests/fuzz/run) and over the corpus in every test run.
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#include "support/Drawing.h"
#include "svg/Packing.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace {

using namespace easel;

void require(bool holds, const char* what) {
    if (holds) return;
    std::cerr << "svg_reader: " << what << '\n';
    std::abort();
}

/// Every third piece of art moves, every third goes, and everything that can hold a path gets one.
void edit(model::Document& document) {
    std::size_t count = 0;
    for (model::Node* const node : allNodes(document)) {
        if (!node->alive()) continue;
        if (node->isContainer()) {
            model::Node& path = document.create(model::NodeType::Path, model::Placement::OnTopInside, *node);
            document.setPath(path, {{{}, {{1, 2}, {1, 2}, {3, 4}, true}}, false});
            document.setName(path, "new");
            document.setLocked(*node, !node->locked());
        } else if (++count % 3 == 0) {
            document.remove(*node);
        } else if (count % 3 == 1) {
            document.offset(*node, 1, 2);
            document.setHidden(*node, !node->hidden());
        } else if (node->type() == model::NodeType::Path) {
            document.setClosed(*node, !node->path().closed);
            document.setStyle(*node, model::Style{});
        }
    }
}

} // namespace

// The fuzzer chose the name, and finds it by that.
// NOLINTNEXTLINE(readability-identifier-naming)
extern "C" __attribute__((visibility("default"))) int LLVMFuzzerTestOneInput(const std::uint8_t* data,
                                                                             std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::unique_ptr<model::Document> document;
    try {
        document = svg::read(bytes, "fuzz.svg");
    } catch (const svg::FileError&) {
        return 0;
    }
    const std::string text = svg::isPacked(bytes) ? svg::write(*document) : bytes;
    require(svg::write(*document) == text, "an untouched drawing differs");
    std::string changed;
    try {
        edit(*document);
        changed = svg::write(*document);
    } catch (const svg::FileError&) {
        return 0;
    }
    try {
        const auto again = svg::read(changed, "fuzz.svg");
        require(allNodes(*again).size() + 1 >= again->layerCount(), "nodes are missing");
    } catch (const svg::FileError& error) {
        std::cerr << changed << '\n';
        require(false, error.what());
    }
    while (document->journal().undo()) {
    }
    require(svg::write(*document) == text, "undo does not bring the bytes back");
    return 0;
}
