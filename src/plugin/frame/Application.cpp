#include "plugin/frame/Application.h"

#include "hostapi/AIDocumentListSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin::application {

// Documents

int documentCount() { return host::get<&AIDocumentListSuite::Count>(); }

// Memory

void* alloc(std::size_t size) { return host::get<&SPBasicSuite::AllocateBlock>(size); }
bool free(void* block) { return host::call<&SPBasicSuite::FreeBlock>(block); }

} // namespace kzo::plugin::application
