// Lists what fontconfig finds.
#include "session/base/Fonts.h"

#include <fontconfig/fontconfig.h>

#include <memory>
#include <set>

namespace easel::session {

void Fonts::load() {
    // One of our own: that of the process may be in use, and is loaded only once.
    const std::unique_ptr<FcConfig, void (*)(FcConfig*)> config(FcInitLoadConfigAndFonts(), FcConfigDestroy);
    const std::unique_ptr<FcPattern, void (*)(FcPattern*)> all(FcPatternCreate(), FcPatternDestroy);
    const std::unique_ptr<FcObjectSet, void (*)(FcObjectSet*)> asked(FcObjectSetBuild(FC_FAMILY, nullptr),
                                                                     FcObjectSetDestroy);
    const std::unique_ptr<FcFontSet, void (*)(FcFontSet*)> fonts(FcFontList(config.get(), all.get(), asked.get()),
                                                                 FcFontSetDestroy);
    std::set<std::string> names;
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        FcChar8* name = nullptr;
        if (FcPatternGetString(fonts->fonts[i], FC_FAMILY, 0, &name) == FcResultMatch)
            names.insert(reinterpret_cast<const char*>(name));
    }
    families_.emplace(names.begin(), names.end());
}

const std::vector<std::string>& Fonts::families() {
    if (!families_) load();
    return *families_;
}

} // namespace easel::session
