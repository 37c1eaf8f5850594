// An error code on its way to a plug-in. Thrown inside the host, turned into the code at the entry point.
#pragma once

#include "hostapi/SPTypes.h"

namespace easel::session {

struct HostError {
    AIErr code;
};

} // namespace easel::session
