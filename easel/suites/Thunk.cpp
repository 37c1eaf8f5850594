// Look-up of art handles, and the text of traces and reports.
#include "suites/Thunk.h"

#include <cstdio>
#include <exception>
#include <new>
#include <sstream>

#include "model/Journal.h"
#include "session/documents/Documents.h"
#include "session/frame/Messenger.h"
#include "session/frame/Plugins.h"

namespace easel::suites {

namespace {

// Art and layer handles name the same nodes, each kind only what it should.
Art resolveNode(const session::HandleParts& parts, unsigned kind) {
    model::Document* document = parts.kind == kind ? host<session::Documents>().byNumber(parts.document) : nullptr;
    return {found(document), found(found(document).find({.slot = parts.slot, .generation = parts.generation}))};
}

template <session::Handle H> H nodeHandle(const model::Document& document, const model::Node* node) {
    if (!node) return nullptr;
    const model::NodeId id = node->id();
    return session::makeHandle<H>(host<session::Documents>().numberOf(document), id.generation, id.slot);
}

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

Art resolveArt(AIArtHandle handle) { return resolveNode(session::partsOf(handle), session::kKindOf<AIArtHandle>); }

Layer resolveLayer(AILayerHandle handle) {
    const Art art = resolveNode(session::partsOf(handle), session::kKindOf<AILayerHandle>);
    require(art.node.type() == model::NodeType::Layer, kUnknownHandleErr);
    return {art};
}

model::Document& currentDocument() {
    model::Document* document = host<session::Documents>().front();
    require(document, kNoDocumentErr);
    return *document;
}

model::Document& documentOfView(AIDocumentViewHandle view) {
    if (!view) return currentDocument();
    const session::HandleParts parts = session::partsOf(view);
    require(parts.kind == session::kKindOf<AIDocumentViewHandle>, kUnknownHandleErr);
    return found(host<session::Documents>().byNumber(parts.document));
}

session::Plugin& Argument<session::Plugin&>::from(SPPluginRef handle) {
    return found(host<session::Plugins>().find(handle));
}

AIArtHandle artHandle(const model::Document& document, const model::Node* node) {
    return nodeHandle<AIArtHandle>(document, node);
}

AILayerHandle layerHandle(const model::Document& document, const model::Node* node) {
    return nodeHandle<AILayerHandle>(document, node);
}

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

// Where a result goes says nothing to a reader; whether there is a place does.
std::string traced(const void* address) { return address ? "*" : "null"; }

void traceCall(std::string_view entry, const std::string& arguments, AIErr result) {
    const int depth = host<session::Messenger>().depth();
    const std::string code = result == kNoErr ? "0" : session::fourCharacters(result);
    std::fprintf(stderr, "%*s%.*s(%s) = %s\n", 2 * depth, "", static_cast<int>(entry.size()), entry.data(),
                 arguments.c_str(), code.c_str());
}

bool tracing() { return host<session::Messenger>().trace; }

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

} // namespace easel::suites
