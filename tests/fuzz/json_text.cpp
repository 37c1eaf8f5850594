// Any bytes at all as JSON: what is read is written, read again and then stays as it is, on one line and laid out.
// Runs under libFuzzer (tests/fuzz/run) and over the corpus in every test run.
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#include "json/Children.h"
#include "json/Text.h"

namespace {

using namespace kzo::json;

void require(bool holds, const char* what) {
    if (holds) return;
    std::cerr << "json_text: " << what << '\n';
    std::abort();
}

/// A double quote in a name is written as it is, and ends the name when read.
bool hasQuoteInName(Node& root) {
    std::vector<Children> open{Children(root)};
    while (!open.empty()) {
        Node* const node = open.back().next();
        if (!node) {
            open.pop_back();
            continue;
        }
        if (node->name().find('"') != std::string::npos) return true;
        open.emplace_back(*node);
    }
    return false;
}

std::string again(const std::string& text, bool pretty) {
    const Owned root(parse(text));
    require(root != nullptr, "what was written cannot be read");
    return serialize(root.get(), pretty, 0);
}

} // namespace

// The fuzzer chose the name, and finds it by that.
// NOLINTNEXTLINE(readability-identifier-naming)
extern "C" __attribute__((visibility("default"))) int LLVMFuzzerTestOneInput(const std::uint8_t* data,
                                                                             std::size_t size) {
    const Owned root(parse(std::string(reinterpret_cast<const char*>(data), size)));
    if (!root) return 0;
    if (const Owned found(root->find("a")); found) require(found->name() == "a", "another node was found");
    const std::string first = serialize(root.get(), false, 0);
    const std::string pretty = size < 2000 ? serialize(root.get(), true, 0) : first;
    if (hasQuoteInName(*root)) return 0;
    // The first writing rounds numbers.
    const std::string second = again(first, false);
    require(again(second, false) == second, "what was read and written differs");
    require(again(pretty, false) == second, "laid out, it reads differently");
    return 0;
}
