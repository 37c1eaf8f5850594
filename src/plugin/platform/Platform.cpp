// The list of platforms, kept in the order of their ranks.
#include "plugin/platform/Platform.h"

namespace kzo::plugin {

// Of constant initialisation, since platforms list themselves while the library is loaded.
constinit Platform* Platform::first_ = nullptr;
constinit Platform* Platform::chosen_ = nullptr;

Platform::Platform(int rank) : rank_(rank) {
    Platform** place = &first_;
    while (*place && (*place)->rank_ <= rank) place = &(*place)->next_;
    next_ = *place;
    *place = this;
}

Platform::~Platform() {
    Platform** place = &first_;
    while (*place != this) place = &(*place)->next_;
    *place = next_;
    if (chosen_ == this) chosen_ = first_;
}

void choosePlatform() {
    Platform* at = Platform::first_;
    while (at && !at->usable()) at = at->next_;
    Platform::chosen_ = at;
}

Platform& platform() { return Platform::chosen_ ? *Platform::chosen_ : *Platform::first_; }

} // namespace kzo::plugin
