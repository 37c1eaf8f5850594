// The one Illustrator object.
#include "core/app/Illustrator.h"

#include <memory>

#include "plugin/document/CurrentDocument.h"
#include "plugin/frame/Application.h"
#include "plugin/frame/MenuGroup.h"
#include "plugin/frame/ThirdPartyPlugin.h"

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

// Whose it is

std::int32_t Illustrator::majorVersion() const { return plugin::application::majorVersion(); }
std::string Illustrator::userName() const { return plugin::application::userName(); }
std::string Illustrator::userOrganization() const { return plugin::application::userOrganization(); }

bool Illustrator::openURL(const std::string& url) { return plugin::application::openURL(url); }

// Documents

int Illustrator::documentCount() const { return plugin::application::documentCount(); }

// Fonts

bool Illustrator::clearFontCache() { return plugin::application::clearFontCache(); }
bool Illustrator::cacheFonts() { return plugin::application::cacheFonts(); }
std::vector<std::string> Illustrator::fonts() const { return plugin::application::fonts(); }

// Host memory

void* Illustrator::alloc(std::size_t size) { return plugin::application::alloc(size); }
bool Illustrator::free(void* block) { return plugin::application::free(block); }

// Menus

std::size_t Illustrator::menuGroupCount() const { return plugin::menuGroupCount(); }
MenuGroup Illustrator::menuGroupAtIndex(std::size_t index) const { return MenuGroup(plugin::menuGroupAt(index)); }

// Plug-ins

std::map<std::string, ThirdPartyPlugin> Illustrator::allPlugins() const {
    std::map<std::string, ThirdPartyPlugin> plugins;
    for (SPPlugin* const known : plugin::ThirdPartyPlugin::all()) {
        const ThirdPartyPlugin handle(known);
        plugins.emplace(handle.name(), handle);
    }
    return plugins;
}

} // namespace kzo::core
