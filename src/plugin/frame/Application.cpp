// Calls about the host as a whole.
#include "plugin/frame/Application.h"

#include "hostapi/AIDocumentListSuite.h"
#include "hostapi/AIFontSuite.h"
#include "hostapi/AIRuntimeSuite.h"
#include "hostapi/AIURLSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin::application {

std::int32_t majorVersion() { return host::get<&AIRuntimeSuite::GetAppMajorVersion, std::int32_t>(); }
std::string userName() { return host::get<&AIRuntimeSuite::GetAppUserName, std::string>(); }
std::string userOrganization() { return host::get<&AIRuntimeSuite::GetAppUserOrganization, std::string>(); }
bool openURL(const std::string& url) { return host::call<&AIURLSuite::OpenURL>(url); }

// Documents

int documentCount() { return host::get<&AIDocumentListSuite::Count>(); }

// Fonts

bool clearFontCache() { return host::call<&AIFontSuite::ClearFontCache>(); }
bool cacheFonts() { return host::call<&AIFontSuite::CacheFonts>(); }
std::vector<std::string> fonts() { return host::all<&AIFontSuite::CountFonts, &AIFontSuite::GetNthFont>(); }

// Memory

void* alloc(std::size_t size) { return host::get<&SPBasicSuite::AllocateBlock>(size); }
bool free(void* block) { return host::call<&SPBasicSuite::FreeBlock>(block); }

} // namespace kzo::plugin::application
