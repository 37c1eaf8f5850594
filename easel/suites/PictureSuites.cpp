// The raster and placed suites: pictures in the drawing, and in files.
#include "hostapi/AIPlacedSuite.h"
#include "hostapi/AIRasterSuite.h"
#include "session/documents/Documents.h"
#include "session/documents/Pictures.h"
#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

namespace {

using model::Affine;
using model::Document;
using model::ImageData;
using model::Node;
using session::Documents;
using session::Picture;

struct Raster : Art {};
struct Placed : Art {};

const ImageData& imageOf(const Art& art) { return *art.node.image(); }

} // namespace

template <> struct Argument<Raster> {
    static Raster from(AIArtHandle handle) {
        const Art art = resolveArt(handle);
        require(art.node.image() && imageOf(art).isEmbedded);
        return {art};
    }
};
template <> struct Argument<Placed> {
    static Placed from(AIArtHandle handle) {
        const Art art = resolveArt(handle);
        require(art.node.image() && !imageOf(art).isEmbedded);
        return {art};
    }
};

namespace {

// What both have

AIRasterSize sizeOf(const Art& art) {
    return {static_cast<std::int32_t>(imageOf(art).columns), static_cast<std::int32_t>(imageOf(art).rows)};
}

/// From the pixels, or from the unit square, to the document.
Affine pixelsToDocument(const Art& art) {
    const ImageData& image = imageOf(art);
    const double columns = image.columns > 0 ? image.columns : 1;
    const double rows = image.rows > 0 ? image.rows : 1;
    return Affine{1 / columns, 0, 0, 1 / rows, 0, 0} * image.place * art.node.opaque().placed();
}

AIRealMatrix matrixOf(const Art& art) {
    const Affine m = pixelsToDocument(art);
    return {m.a, m.b, m.c, m.d, m.e, m.f};
}

void setMatrix(const Art& art, const AIRealMatrix& matrix) {
    const Affine is = pixelsToDocument(art);
    require(is.a * is.d - is.b * is.c != 0, kRefusedErr);
    require(art.document.transform(art.node, inverse(is) * affineFromHost(matrix)));
}

// Pictures in files

std::string pathOf(const Art& art) {
    return session::linkedPath(host<Documents>().pathOf(art.document), imageOf(art).link);
}

const char* getPath(Placed art) {
    static std::string path;
    path = pathOf(art);
    return path.c_str();
}

Picture needPicture(const std::string& path) {
    std::optional<Picture> picture = session::pictureIn(path);
    require(picture.has_value(), kRefusedErr);
    return *std::move(picture);
}

void setPath(Placed art, std::string_view path) {
    // What the drawing will find, wherever the program runs.
    const std::string link = session::linkTo(std::string(path));
    const Picture picture = needPicture(session::linkedPath(host<Documents>().pathOf(art.document), link));
    ImageData image = imageOf(art);
    image.link = link;
    image.columns = picture.columns;
    image.rows = picture.rows;
    if (image.place.a == 0 && image.place.b == 0) {
        const double width = picture.columns;
        const double height = picture.rows;
        image.place = {width, 0, 0, height, 0, 0};
        art.document.setBounds(art.node, {0, 0, width, height});
    }
    art.document.setSpecial(art.node, std::move(image));
}

void embed(Placed art) {
    Picture picture = needPicture(pathOf(art));
    ImageData image = imageOf(art);
    image.isEmbedded = true;
    image.link = std::move(picture.address);
    image.columns = picture.columns;
    image.rows = picture.rows;
    art.document.setSpecial(art.node, std::move(image));
}

void updateLinks(Art art) {
    bool areThere = true;
    for (Node* at = &art.node; at; at = nextWithin(art.node, *at)) {
        if (!at->image() || at->image()->isEmbedded) continue;
        const std::optional<Picture> picture = session::pictureIn(pathOf({art.document, *at}));
        areThere = areThere && picture;
        if (!picture) continue;
        ImageData image = *at->image();
        image.columns = picture->columns;
        image.rows = picture->rows;
        art.document.setSpecial(*at, std::move(image));
    }
    require(areThere, kRefusedErr);
}

} // namespace

template <> void fill(AIRasterSuite& suite) {
    using Suite = AIRasterSuite;
    enter<&Suite::GetRasterSize>(suite, [](Raster art) { return sizeOf(art); });
    enter<&Suite::GetRasterMatrix>(suite, [](Raster art) { return matrixOf(art); });
    enter<&Suite::SetRasterMatrix>(suite, [](Raster art, const AIRealMatrix& matrix) { setMatrix(art, matrix); });
}

template <> void fill(AIPlacedSuite& suite) {
    using Suite = AIPlacedSuite;
    enter<&Suite::GetPlacedFilePath, getPath>(suite);
    enter<&Suite::SetPlacedFilePath, setPath>(suite);
    enter<&Suite::GetPlacedSize>(suite, [](Placed art) { return sizeOf(art); });
    enter<&Suite::GetPlacedMatrix>(suite, [](Placed art) { return matrixOf(art); });
    enter<&Suite::SetPlacedMatrix>(suite, [](Placed art, const AIRealMatrix& matrix) { setMatrix(art, matrix); });
    enter<&Suite::EmbedPlaced, embed>(suite);
    enter<&Suite::UpdateLinks, updateLinks>(suite);
}

} // namespace easel::suites
