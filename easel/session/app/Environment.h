// What environment variables say of a session, whatever its face.
#pragma once

#include "session/app/Session.h"

namespace easel::session {

/// EASEL_UNDO_MEGABYTES and EASEL_TRACE. Throws std::runtime_error, in words, where one says what it cannot.
void useEnvironment(Session& session);

} // namespace easel::session
