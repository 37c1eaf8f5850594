// The symbol, pattern and gradient suites' calls.
#include "hostapi/AIGradientSuite.h"
#include "hostapi/AIPatternSuite.h"
#include "hostapi/AISymbolSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/document/CurrentDocument.h"

namespace kzo::plugin {

std::vector<std::string> CurrentDocument::symbols() const {
    return host::all<&AISymbolSuite::CountSymbols, &AISymbolSuite::GetNthSymbol>();
}
std::string CurrentDocument::newSymbol(ArtObject* art) { return host::get<&AISymbolSuite::NewSymbol>(art); }
ArtObject* CurrentDocument::newSymbolInstance(const std::string& symbol, core::PaintOrder order, ArtObject* prep) {
    return host::get<&AISymbolSuite::NewInstance>(symbol, order, prep);
}
std::vector<std::string> CurrentDocument::patterns() const {
    return host::all<&AIPatternSuite::CountPatterns, &AIPatternSuite::GetNthPattern>();
}
std::string CurrentDocument::newPattern(ArtObject* art) { return host::get<&AIPatternSuite::NewPattern>(art); }
std::vector<std::string> CurrentDocument::gradients() const {
    return host::all<&AIGradientSuite::CountGradients, &AIGradientSuite::GetNthGradient>();
}

// Editing modes

bool CurrentDocument::enterSymbolEditingMode(const std::string& symbol) {
    return host::call<&AISymbolSuite::EnterSymbolEditMode>(symbol);
}
bool CurrentDocument::exitSymbolEditingMode() { return host::call<&AISymbolSuite::ExitSymbolEditMode>(); }
std::string CurrentDocument::editedSymbol() const { return host::get<&AISymbolSuite::GetEditedSymbol>(); }
bool CurrentDocument::enterPatternEditingMode(const std::string& pattern) {
    return host::call<&AIPatternSuite::EnterPatternEditMode>(pattern);
}
bool CurrentDocument::exitPatternEditingMode() { return host::call<&AIPatternSuite::ExitPatternEditMode>(); }
std::string CurrentDocument::editedPattern() const { return host::get<&AIPatternSuite::GetEditedPattern>(); }

} // namespace kzo::plugin
