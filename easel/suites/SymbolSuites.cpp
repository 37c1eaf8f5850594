// The symbol, pattern and gradient suites: what a document keeps under names.
#include <algorithm>

#include "hostapi/AIGradientSuite.h"
#include "hostapi/AIPatternSuite.h"
#include "hostapi/AISymbolSuite.h"
#include "session/app/Session.h"
#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

namespace {

using model::Document;
using model::NodeType;
using session::Documents;

constexpr const char* kSymbol = "symbol";
constexpr const char* kPattern = "pattern";
constexpr const char* kLinear = "linearGradient";
constexpr const char* kRadial = "radialGradient";

struct Instance : Art {};

/// Holds on to a text until the operation's next call.
template <auto Entry> const char* handOut(std::string text) {
    static std::string kept;
    kept = std::move(text);
    return kept.c_str();
}

std::vector<std::string> names(const char* kind) { return Documents::definitions(currentDocument(), kind); }

std::vector<std::string> gradients() {
    std::vector<std::string> all = names(kLinear);
    const std::vector<std::string> radial = names(kRadial);
    all.insert(all.end(), radial.begin(), radial.end());
    return all;
}

template <auto Entry> const char* nth(std::vector<std::string> all, std::int32_t index) {
    require(index >= 0 && static_cast<std::size_t>(index) < all.size());
    return handOut<Entry>(std::move(all[static_cast<std::size_t>(index)]));
}

bool has(Document& document, const char* kind, std::string_view name) {
    const std::vector<std::string> all = Documents::definitions(document, kind);
    return std::find(all.begin(), all.end(), name) != all.end();
}

template <auto Entry> const char* define(const Art& art, const char* kind) {
    std::optional<std::string> name = Documents::define(art.document, kind, art.node);
    require(name.has_value(), kRefusedErr);
    return handOut<Entry>(*std::move(name));
}

} // namespace

template <> struct Argument<Instance> {
    static Instance from(AIArtHandle handle) {
        const Art art = resolveArt(handle);
        require(art.node.symbol());
        return {art};
    }
};

namespace {

AIArtHandle newInstance(std::string_view name, std::int16_t paintOrder, std::optional<Art> prep) {
    const Place place = placeFor(paintOrder, prep);
    require(place.parent().mayHold(NodeType::Opaque) && has(place.document, kSymbol, name));
    model::Node& node = place.document.create(NodeType::Opaque, place.placement, place.anchor);
    Documents::setSymbol(place.document, node, std::string(name));
    return artHandle(place.document, &node);
}

void setSymbol(Instance art, std::string_view name) {
    require(has(art.document, kSymbol, name));
    Documents::setSymbol(art.document, art.node, std::string(name));
}

// Modes

const Documents::Edited* edited(const char* kind) {
    const Documents::Edited* const is = host<Documents>().editedAs(currentDocument());
    return is && is->kind == kind ? is : nullptr;
}

template <auto Entry> const char* getEdited(const char* kind) {
    const Documents::Edited* const is = edited(kind);
    return handOut<Entry>(is ? is->name : "");
}

void enterMode(const char* kind, std::string_view name) {
    Document& document = currentDocument();
    require(has(document, kind, name), kRefusedErr);
    const std::uint32_t number = host<Documents>().numberOf(document);
    host<session::Messenger>().defer([number, kind, asked = std::string(name)] {
        try {
            host<session::Session>().edit(number, kind, asked);
        } catch (const session::Error& error) {
            host<session::Reports>().add(session::Blame::UserData, error.what());
        }
    });
}

void exitMode(const char* kind) {
    require(edited(kind), kRefusedErr);
    const std::uint32_t number = host<Documents>().numberOf(currentDocument());
    host<session::Messenger>().defer([number] {
        try {
            host<session::Session>().endEditing(number);
        } catch (const session::Error& error) {
            host<session::Reports>().add(session::Blame::UserData, error.what());
        }
    });
}

} // namespace

template <> void fill(AISymbolSuite& suite) {
    using Suite = AISymbolSuite;
    enter<&Suite::CountSymbols>(suite, [] { return names(kSymbol).size(); });
    enter<&Suite::GetNthSymbol>(suite,
                                [](std::int32_t index) { return nth<&Suite::GetNthSymbol>(names(kSymbol), index); });
    enter<&Suite::NewSymbol>(suite, [](Art art) { return define<&Suite::NewSymbol>(art, kSymbol); });
    enter<&Suite::NewInstance, newInstance>(suite);
    enter<&Suite::GetSymbolOfArt>(suite, [](Instance art) { return art.node.symbol()->symbol.c_str(); });
    enter<&Suite::SetSymbolOfArt, setSymbol>(suite);
    enter<&Suite::EnterSymbolEditMode>(suite, [](std::string_view name) { enterMode(kSymbol, name); });
    enter<&Suite::ExitSymbolEditMode>(suite, [] { exitMode(kSymbol); });
    enter<&Suite::GetEditedSymbol>(suite, [] { return getEdited<&Suite::GetEditedSymbol>(kSymbol); });
}

template <> void fill(AIPatternSuite& suite) {
    using Suite = AIPatternSuite;
    enter<&Suite::CountPatterns>(suite, [] { return names(kPattern).size(); });
    enter<&Suite::GetNthPattern>(suite,
                                 [](std::int32_t index) { return nth<&Suite::GetNthPattern>(names(kPattern), index); });
    enter<&Suite::NewPattern>(suite, [](Art art) { return define<&Suite::NewPattern>(art, kPattern); });
    enter<&Suite::EnterPatternEditMode>(suite, [](std::string_view name) { enterMode(kPattern, name); });
    enter<&Suite::ExitPatternEditMode>(suite, [] { exitMode(kPattern); });
    enter<&Suite::GetEditedPattern>(suite, [] { return getEdited<&Suite::GetEditedPattern>(kPattern); });
}

template <> void fill(AIGradientSuite& suite) {
    using Suite = AIGradientSuite;
    enter<&Suite::CountGradients>(suite, [] { return gradients().size(); });
    enter<&Suite::GetNthGradient>(suite,
                                  [](std::int32_t index) { return nth<&Suite::GetNthGradient>(gradients(), index); });
    enter<&Suite::GetGradientType>(suite, [](std::string_view name) {
        Document& document = currentDocument();
        const bool isLinear = has(document, kLinear, name);
        require(isLinear || has(document, kRadial, name));
        return isLinear ? kAILinearGradient : kAIRadialGradient;
    });
}

} // namespace easel::suites
