// The basic suite: acquiring suites, and memory.
#include "session/frame/Memory.h"
#include "suites/Enter.h"
#include "suites/Tables.h"

namespace easel::suites {

namespace {

using session::Memory;

/// Runs `visit` on the suite of this name and version, if there is one.
template <class Visit> void withSuite(std::string_view name, std::int32_t version, Visit visit) {
    bool known = false;
    Tables::of(host<session::Suites>()).each([&](auto& suite) {
        if (suite.name != name || suite.version != version || !suite.available) return;
        known = true;
        visit(suite);
    });
    require(known, kSPSuiteNotFoundErr);
}

void acquireSuite(std::string_view name, std::int32_t version, const void*& table) {
    withSuite(name, version, [&](auto& suite) {
        ++suite.acquired;
        table = &suite.table;
    });
}

void releaseSuite(std::string_view name, std::int32_t version) {
    withSuite(name, version, [&](auto& suite) {
        if (suite.acquired == 0)
            host<session::Reports>().add(session::Blame::Plugin,
                                         std::string(suite.name) + " was released more often than acquired");
        require(suite.acquired > 0);
        --suite.acquired;
    });
}

/// Freeing what is not there is always the plug-in's fault, and worth a line.
void requireBlock(bool known) {
    if (!known) host<session::Reports>().add(session::Blame::Plugin, "freed a block of memory that is not there");
    require(known);
}

} // namespace

template <> void fill(SPBasicSuite& suite) {
    enter<&SPBasicSuite::AcquireSuite, acquireSuite>(suite);
    enter<&SPBasicSuite::ReleaseSuite, releaseSuite>(suite);
    enter<&SPBasicSuite::AllocateBlock, &Memory::allocateBlock>(suite);
    enter<&SPBasicSuite::FreeBlock>(suite, [](void* block) { requireBlock(host<Memory>().freeBlock(block)); });
}

template <> void fill(AIMdMemorySuite& suite) {
    enter<&AIMdMemorySuite::MdMemoryNewHandle, &Memory::newHandle>(suite);
    enter<&AIMdMemorySuite::MdMemoryDisposeHandle>(
        suite, [](AIMdMemoryHandle handle) { requireBlock(host<Memory>().disposeHandle(handle)); });
}

} // namespace easel::suites
