#include "plugin/frame/Runtime.h"

#include "hostapi/AIRuntimeSuite.h"
#include "hostapi/AIURLSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin::runtime {

std::int32_t majorVersion() { return host::get<&AIRuntimeSuite::GetAppMajorVersion, std::int32_t>(); }
std::string userName() { return host::get<&AIRuntimeSuite::GetAppUserName, std::string>(); }
std::string userOrganization() { return host::get<&AIRuntimeSuite::GetAppUserOrganization, std::string>(); }
bool openURL(const std::string& url) { return host::call<&AIURLSuite::OpenURL>(url); }

} // namespace kzo::plugin::runtime
