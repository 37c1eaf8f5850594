// The font suite.
#include "hostapi/AIFontSuite.h"

#include "session/base/Fonts.h"
#include "suites/Enter.h"

namespace easel::suites {

using session::Fonts;

namespace {

const char* nthFont(std::int32_t index) {
    const std::vector<std::string>& families = host<Fonts>().families();
    require(index >= 0 && static_cast<std::size_t>(index) < families.size());
    return families[static_cast<std::size_t>(index)].c_str();
}

} // namespace

template <> void fill(AIFontSuite& suite) {
    enter<&AIFontSuite::ClearFontCache, &Fonts::clear>(suite);
    enter<&AIFontSuite::CacheFonts, &Fonts::load>(suite);
    enter<&AIFontSuite::CountFonts>(suite, [] { return host<Fonts>().families().size(); });
    enter<&AIFontSuite::GetNthFont, nthFont>(suite);
}

} // namespace easel::suites
