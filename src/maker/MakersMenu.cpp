// Finds the maker's menu groups by their texts, or makes them.
#include "maker/MakersMenu.h"

#include "core/app/Illustrator.h"

namespace vl {

kzo::core::MenuGroup sharedMenuGroup(const std::string& text, kzo::core::BuiltinMenuGroup in) {
    const auto& host = *kzo::core::Illustrator::instance();
    for (std::size_t index = 0; index < host.menuGroupCount(); ++index) {
        kzo::core::MenuGroup group = host.menuGroupAtIndex(index);
        if (group.text() == text) return group;
    }
    return {in, text, /*sorted=*/true, /*merged=*/true, /*subMenu=*/true, /*onTop=*/false};
}

} // namespace vl
