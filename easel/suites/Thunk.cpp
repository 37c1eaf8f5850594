// Look-up of art handles, and the text of traces and reports.
#include "suites/Thunk.h"

#include <cstdio>
#include <sstream>

namespace easel::suites {

namespace {

// Art and layer handles name the same nodes, each kind only what it should.
Art resolveNode(const session::HandleParts& parts, unsigned kind) {
    model::Document* document = parts.kind == kind ? Session::current().documentByNumber(parts.document) : nullptr;
    return {found(document), found(found(document).find({.slot = parts.slot, .generation = parts.generation}))};
}

template <session::Handle H> H nodeHandle(const model::Document& document, const model::Node* node) {
    if (!node) return nullptr;
    const model::NodeId id = node->id();
    return session::makeHandle<H>(Session::current().numberOf(document), id.generation, id.slot);
}

std::string fourCharacters(AIErr code) {
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8) text += static_cast<char>(code >> shift & 0xFF);
    return text;
}

} // namespace

Art resolveArt(AIArtHandle handle) { return resolveNode(session::partsOf(handle), session::kKindOf<AIArtHandle>); }

Layer resolveLayer(AILayerHandle handle) {
    const Art art = resolveNode(session::partsOf(handle), session::kKindOf<AILayerHandle>);
    require(art.node.type() == model::NodeType::Layer, kUnknownHandleErr);
    return {art};
}

model::Document& currentDocument() {
    model::Document* document = Session::current().document();
    require(document, kNoDocumentErr);
    return *document;
}

model::Document& documentOfView(AIDocumentViewHandle view) {
    if (!view) return currentDocument();
    const session::HandleParts parts = session::partsOf(view);
    require(parts.kind == session::kKindOf<AIDocumentViewHandle>, kUnknownHandleErr);
    return found(Session::current().documentByNumber(parts.document));
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

void traceCall(std::string_view entry, const std::string& arguments, AIErr answer) {
    const int depth = Session::current().messenger.depth();
    const std::string result = answer == kNoErr ? "0" : "\"" + fourCharacters(answer) + "\"";
    std::fprintf(stderr, "%*s%.*s(%s) = %s\n", 2 * depth, "", static_cast<int>(entry.size()), entry.data(),
                 arguments.c_str(), result.c_str());
}

AIErr refuse(std::string_view entry, AIErr code) {
    const char* fault = code == kUnknownHandleErr    ? "was given a handle of nothing that exists"
                        : code == kOutsideMessageErr ? "was called outside of any message"
                                                     : nullptr;
    Session& session = Session::current();
    if (fault && session.checkLevel == session::CheckLevel::Full)
        session.report(session::Blame::Plugin, std::string(entry) + " " + fault);
    return code;
}

} // namespace easel::suites
