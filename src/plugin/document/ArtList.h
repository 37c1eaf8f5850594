// Lists of art as the host hands them out: in a block of its memory, to be given back.
#pragma once

#include <vector>

#include "hostapi/AIMdMemorySuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

/// What `fetch(list, count)` gets of the host; empty when it refuses.
template <class Fetch> [[nodiscard]] std::vector<ArtObject*> artList(Fetch fetch) {
    AIArtHandle** list = nullptr;
    std::int32_t count = 0;
    std::vector<ArtObject*> art;
    if (!fetch(&list, &count) || !list) return art;
    art.reserve(static_cast<std::size_t>(count));
    for (std::int32_t i = 0; i < count; ++i)
        if ((*list)[i]) art.push_back((*list)[i]);
    host::call<&AIMdMemorySuite::MdMemoryDisposeHandle>(reinterpret_cast<AIMdMemoryHandle>(list));
    return art;
}

} // namespace kzo::plugin
