// The artboard suite.
#include "hostapi/AIArtboardSuite.h"

#include <algorithm>
#include <cmath>

#include "session/documents/Documents.h"
#include "suites/Enter.h"

namespace easel::suites {

namespace {

using model::Box;
using model::Document;
using session::Documents;

/// One of a document's artboards.
struct Artboard {
    Document& document;
    std::vector<model::Artboard> all;
    std::size_t index;

    [[nodiscard]] model::Artboard& operator*() { return all[index]; }
    void store() { document.setArtboards(std::move(all)); }
};

AIArtboardHandle handleOf(const Document& document, const model::Artboard& artboard) {
    return session::makeHandle<AIArtboardHandle>(host<Documents>().numberOf(document), 1, artboard.id);
}

template <class Is> AIArtboardHandle findArtboard(Is is) {
    Document& document = currentDocument();
    for (const model::Artboard& artboard : document.artboards())
        if (is(artboard)) return handleOf(document, artboard);
    return nullptr;
}

AIArtboardHandle getNth(std::int32_t index) {
    Document& document = currentDocument();
    const auto all = document.artboards();
    require(index >= 0 && static_cast<std::size_t>(index) < all.size());
    return handleOf(document, all[static_cast<std::size_t>(index)]);
}

AIArtboardHandle getCurrent() {
    const std::uint32_t current = currentDocument().settings.artboard;
    const AIArtboardHandle found =
        findArtboard([&](const model::Artboard& artboard) { return artboard.id == current; });
    return found ? found : getNth(0);
}

Box boxFromHost(const AIRealRect& rect) {
    for (const double edge : {rect.left, rect.top, rect.right, rect.bottom}) require(std::isfinite(edge));
    require(rect.left < rect.right && rect.top < rect.bottom);
    return {rect.left, rect.top, rect.right, rect.bottom};
}

AIArtboardHandle insert(const AIRealRect& bounds) {
    Document& document = currentDocument();
    auto all = document.artboards();
    const std::uint32_t id = document.newArtboardId();
    all.push_back({.id = id, .title = "Artboard " + std::to_string(all.size() + 1), .place = boxFromHost(bounds)});
    const AIArtboardHandle made = handleOf(document, all.back());
    document.setArtboards(std::move(all));
    return made;
}

void remove(Artboard artboard) {
    require(artboard.all.size() > 1, kRefusedErr);
    artboard.all.erase(artboard.all.begin() + static_cast<std::ptrdiff_t>(artboard.index));
    artboard.store();
}

const char* getTitle(Artboard artboard) {
    static std::string title;
    title = (*artboard).title;
    return title.c_str();
}

AIRealRect getBounds(Artboard artboard) {
    const Box box = artboard.document.placeOf(*artboard);
    return {box.left, box.top, box.right, box.bottom};
}

void setTitle(Artboard artboard, std::string_view title) {
    (*artboard).title = title;
    artboard.store();
}

void setBounds(Artboard artboard, const AIRealRect& bounds) {
    (*artboard).place = boxFromHost(bounds);
    artboard.store();
}

} // namespace

template <> struct Argument<Artboard> {
    static Artboard from(AIArtboardHandle handle) {
        const session::HandleParts parts = session::partsOf(handle);
        require(parts.kind == session::kKindOf<AIArtboardHandle>, kUnknownHandleErr);
        Document& document = found(host<Documents>().byNumber(parts.document));
        auto all = document.artboards();
        std::size_t index = 0;
        while (index < all.size() && all[index].id != parts.slot) ++index;
        require(index < all.size(), kUnknownHandleErr);
        return {document, std::move(all), index};
    }
};

template <> void fill(AIArtboardSuite& suite) {
    enter<&AIArtboardSuite::CountArtboards>(suite, [] { return currentDocument().artboards().size(); });
    enter<&AIArtboardSuite::GetNthArtboard, getNth>(suite);
    enter<&AIArtboardSuite::GetArtboardByTitle>(suite, [](std::string_view title) {
        return findArtboard([&](const model::Artboard& artboard) { return artboard.title == title; });
    });
    enter<&AIArtboardSuite::GetCurrentArtboard, getCurrent>(suite);
    enter<&AIArtboardSuite::SetCurrentArtboard>(
        suite, [](Artboard artboard) { artboard.document.settings.artboard = (*artboard).id; });
    enter<&AIArtboardSuite::InsertArtboard, insert>(suite);
    enter<&AIArtboardSuite::DeleteArtboard, remove>(suite);
    // Each call makes its own. NOLINTNEXTLINE(performance-unnecessary-value-param)
    enter<&AIArtboardSuite::GetArtboardIndex>(suite, [](Artboard artboard) { return artboard.index; });
    enter<&AIArtboardSuite::GetArtboardTitle, getTitle>(suite);
    enter<&AIArtboardSuite::SetArtboardTitle, setTitle>(suite);
    enter<&AIArtboardSuite::GetArtboardBounds, getBounds>(suite);
    enter<&AIArtboardSuite::SetArtboardBounds, setBounds>(suite);
}

} // namespace easel::suites
