// Any bytes at all as a drawing: reading returns or throws FileError; what was read is written back byte for byte; what
// was changed, saved and opened again is what it was; undo brings the bytes back. Runs under libFuzzer (tests/fuzz/run)
// and over the corpus in every test run.
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include "support/Drawing.h"
#include "svg/Files.h"
#include "svg/Packing.h"
#include "svg/Reader.h"
#include "svg/SaveCheck.h"
#include "svg/Source.h"
#include "svg/Writer.h"

namespace {

using namespace easel;
using model::Node;
using model::NodeType;
using model::Placement;

void require(bool holds, const std::string& what) {
    if (holds) return;
    std::cerr << "svg_reader: " << what << '\n';
    std::abort();
}

/// The file of this run; several may run at once.
const std::string& path() {
    static const struct File {
        std::string path =
            (std::filesystem::temp_directory_path() / ("easel-fuzz-" + std::to_string(::getpid()) + ".svg")).string();
        ~File() { ::unlink(path.c_str()); }
    } file;
    return file.path;
}

/// Numbers that follow from the bytes, so that the fuzzer can choose the edits.
class Choice {
  public:
    explicit Choice(const std::string& bytes) {
        for (const char c : bytes) state_ = (state_ ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    }
    std::uint64_t below(std::uint64_t limit) {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return (state_ >> 33U) % limit;
    }

  private:
    std::uint64_t state_ = 0xCBF29CE484222325U;
};

void editContainer(model::Document& document, Node& node, Choice& choice) {
    const bool isRoot = &node == &document.root();
    if (!isRoot && choice.below(2)) {
        Node& path = document.create(NodeType::Path, Placement::OnTopInside, node);
        document.setPath(path, {{{}, {{1, 2}, {1, 2}, {3, 4}}}, choice.below(2) != 0});
        document.setName(path, "new");
    }
    if (!isRoot && choice.below(3) == 0) document.offset(node, 3, -1);
    if (!isRoot && choice.below(3) == 0) document.setLocked(node, !node.locked());
    if (choice.below(5) == 0) document.addLayer("one more");
}

void editLeaf(model::Document& document, Node& node, Node& other, Choice& choice) {
    switch (choice.below(6)) {
    case 0: return document.remove(node);
    case 1: return static_cast<void>(document.offset(node, 1, 2));
    case 2: return document.setHidden(node, !node.hidden());
    case 3: {
        const Node& parent = other.isContainer() ? other : *other.parent();
        if (!parent.mayHold(node.type())) return;
        return document.place(node, other.isContainer() ? Placement::AtBottomInside : Placement::Below, other);
    }
    case 4:
        if (node.type() != NodeType::Path) return;
        document.setClosed(node, !node.path().closed);
        return document.setStyle(node, model::Style{});
    default: return;
    }
}

void edit(model::Document& document, Choice& choice) {
    const std::vector<Node*> nodes = allNodes(document);
    for (Node* const node : nodes) {
        Node& other = *nodes[choice.below(nodes.size())];
        if (!node->alive()) continue;
        if (node->isContainer())
            editContainer(document, *node, choice);
        else if (other.alive() && &other != node && (other.type() != NodeType::Layer || choice.below(2)))
            editLeaf(document, *node, other, choice);
    }
}

/// Whether what an element came under can be taken back without losing all accuracy.
bool isAccurate(const svg::Source* source, const Node& node) {
    if (!source) return true;
    for (const Node* at = &node; at; at = at->parent()) {
        if (at->origin() == 0) continue;
        const auto& [a, b, c, d, e, f] = source->transforms[source->elements[at->origin() - 1].toPage];
        const double size = std::fabs(a) + std::fabs(b) + std::fabs(c) + std::fabs(d);
        const double shift = std::fabs(e) + std::fabs(f);
        if (size * size > 1e4 * std::fabs(a * d - b * c) || size > 1e4 || shift > 1e6) return false;
    }
    return true;
}

void requireNear(const model::PathData& was, const model::PathData& is) {
    require(was.closed == is.closed || was.points.empty(), "a path is closed, or is no longer");
    require(was.points.size() == is.points.size(), "a path has lost or gained points");
    for (std::size_t i = 0; i < was.points.size(); ++i) {
        for (const auto part : {&model::PathPoint::anchor, &model::PathPoint::in, &model::PathPoint::out}) {
            const model::Point a = was.points[i].*part;
            const model::Point b = is.points[i].*part;
            const double tolerance = 1e-3 * (1 + std::fabs(a.x) + std::fabs(a.y));
            require(std::fabs(a.x - b.x) <= tolerance && std::fabs(a.y - b.y) <= tolerance, "a point is elsewhere");
        }
    }
}

/// What is neither group nor compound path, in order: groups are put around what takes no attributes, and a compound
/// path of one subpath is a path when it is read. Paths without points may be gone.
std::vector<Node*> artOf(model::Document& document) {
    std::vector<Node*> art = allNodes(document);
    std::erase_if(art, [](const Node* node) {
        return node->isContainer() || (node->type() == NodeType::Path && node->path().points.empty());
    });
    return art;
}

/// The art of two documents in the same order.
void requireSame(model::Document& was, model::Document& is) {
    const std::vector<Node*> before = artOf(was);
    const std::vector<Node*> after = artOf(is);
    require(before.size() == after.size(), "art was lost or came from nowhere");
    const auto* const source = dynamic_cast<const svg::Source*>(was.origin.get());
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (!isAccurate(source, *before[i])) continue;
        require(before[i]->type() == after[i]->type(), "art has become something else");
        if (before[i]->type() == NodeType::Path) requireNear(before[i]->path(), after[i]->path());
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
        document = svg::read(bytes, path());
    } catch (const svg::FileError&) {
        return 0;
    }
    svg::save(*document, path());
    require(svg::readFile(path()) == bytes, "an untouched drawing differs");
    Choice choice(bytes);
    try {
        edit(*document, choice);
        svg::save(*document, path());
    } catch (const svg::FileError& error) {
        require(std::string(error.what()).find("damage") == std::string::npos, error.what());
        return 0;
    }
    try {
        const auto again = svg::open(path());
        requireSame(*document, *again);
    } catch (const svg::FileError& error) {
        std::cerr << svg::write(*document) << '\n';
        require(false, error.what());
    }
    while (document->journal().undo()) continue;
    svg::save(*document, path());
    require(svg::readFile(path()) == bytes, "undo does not bring the bytes back");
    return 0;
}
