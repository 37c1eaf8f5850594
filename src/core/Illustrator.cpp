// The one Illustrator object.
#include "core/Illustrator.h"

#include <memory>

#include "plugin/CurrentDocument.h"
#include "plugin/MenuGroup.h"
#include "plugin/ThirdPartyPlugin.h"

namespace kzo::core {

namespace {

std::unique_ptr<Illustrator> theInstance;

} // namespace

Illustrator* Illustrator::instance() {
    if (!theInstance) theInstance.reset(new Illustrator);
    return theInstance.get();
}

void Illustrator::__destroy() { theInstance.reset(); }

CurrentDocument* Illustrator::currentDocument() {
    return plugin::CurrentDocument().exists() ? &currentDocument_ : nullptr;
}

// Menus

std::size_t Illustrator::menuGroupCount() const { return plugin::menuGroupCount(); }
MenuGroup Illustrator::menuGroupAtIndex(std::size_t index) const { return MenuGroup(plugin::menuGroupAt(index)); }

// Plug-ins

std::map<std::string, ThirdPartyPlugin> Illustrator::allPlugins() const {
    std::map<std::string, ThirdPartyPlugin> plugins;
    for (SPPlugin* const plugin : plugin::ThirdPartyPlugin::all()) {
        const ThirdPartyPlugin handle(plugin);
        plugins.emplace(handle.name(), handle);
    }
    return plugins;
}

} // namespace kzo::core
