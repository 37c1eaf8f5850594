// The runtime suite and the URL suite on what the session knows of itself.
#include "hostapi/AIRuntimeSuite.h"
#include "hostapi/AIURLSuite.h"
#include "session/base/Identity.h"
#include "suites/Enter.h"

namespace easel::suites {

using session::Identity;

namespace {

void openURL(std::string_view url) {
    require(!url.empty());
    session::Browser& browser = host<session::Browser>();
    browser.opened.emplace_back(url);
    if (browser.open) browser.open(browser.opened.back());
}

} // namespace

template <> void fill(AIRuntimeSuite& suite) {
    enter<&AIRuntimeSuite::GetAppMajorVersion>(suite, [] { return host<Identity>().majorVersion; });
    enter<&AIRuntimeSuite::GetAppUserName>(suite, []() -> const std::string& { return host<Identity>().userName; });
    enter<&AIRuntimeSuite::GetAppUserOrganization>(
        suite, []() -> const std::string& { return host<Identity>().userOrganization; });
}

template <> void fill(AIURLSuite& suite) { enter<&AIURLSuite::OpenURL, openURL>(suite); }

} // namespace easel::suites
