// The error codes of what is thrown, and the text of traces and reports.
#include "suites/Enter.h"

#include <cstdio>
#include <exception>
#include <new>
#include <sstream>

#include "model/Journal.h"
#include "session/frame/Messenger.h"

namespace easel::suites {

namespace {

/// Returns `code` and, where it shows a fault of the plug-in, reports it.
AIErr refuse(std::string_view entry, AIErr code) {
    const char* fault = code == kUnknownHandleErr    ? "was given a handle of nothing that exists"
                        : code == kOutsideMessageErr ? "was called outside of any message"
                                                     : nullptr;
    auto& reports = host<session::Reports>();
    if (fault && reports.checkLevel == session::CheckLevel::Full)
        reports.add(session::Blame::Plugin, std::string(entry) + " " + fault);
    return code;
}

} // namespace

void requireMessage() { require(host<session::Messenger>().depth() > 0, kOutsideMessageErr); }

AIErr refusal(std::string_view entry) {
    try {
        throw;
    } catch (const HostError& error) {
        return refuse(entry, error.code);
    } catch (const model::ReadOnlyError&) {
        return kRefusedErr;
    } catch (const std::bad_alloc&) {
        return kOutOfMemoryErr;
    } catch (const std::exception& error) {
        host<session::Reports>().add(session::Blame::Host, std::string(entry) + ": " + error.what());
        return kInternalErr;
    } catch (...) {
        return kInternalErr;
    }
}

// Tracing

bool tracing() { return host<session::Messenger>().trace; }

std::string traced(const char* text) { return text ? '"' + std::string(text) + '"' : "null"; }

std::string traced(double number) {
    std::ostringstream out;
    out << number;
    return out.str();
}

std::string traced(std::int64_t number) { return std::to_string(number); }

std::string traced(const AIRealPoint* point) {
    return point ? "(" + traced(point->h) + ", " + traced(point->v) + ")" : "null";
}

std::string traced(const session::HandleParts& handle) {
    return "#" + std::to_string(handle.kind) + ":" + std::to_string(handle.slot) + "." +
           std::to_string(handle.generation);
}

// Where a result goes says nothing to a reader; whether there is a place does.
std::string traced(const void* address) { return address ? "*" : "null"; }

void traceCall(std::string_view entry, const std::string& arguments, AIErr result) {
    const int depth = host<session::Messenger>().depth();
    const std::string code = result == kNoErr ? "0" : session::fourCharacters(result);
    std::fprintf(stderr, "%*s%.*s(%s) = %s\n", 2 * depth, "", static_cast<int>(entry.size()), entry.data(),
                 arguments.c_str(), code.c_str());
}

} // namespace easel::suites
