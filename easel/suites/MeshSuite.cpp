// The mesh suite: groups of patches.
#include "hostapi/AIMeshSuite.h"

#include <cmath>

#include "suites/Enter.h"

namespace easel::suites {

namespace {

using model::Node;

struct Mesh : Art {
    [[nodiscard]] int columns() const { return static_cast<int>(node.extras().columns); }
    [[nodiscard]] int rows() const { return static_cast<int>(node.childCount()) / columns(); }
};

} // namespace

template <> struct Argument<Mesh> {
    static Mesh from(AIArtHandle handle) {
        const Art art = resolveArt(handle);
        const bool isGroup = art.node.type() == model::NodeType::Group;
        require(isGroup && art.node.extras().groupKind == model::GroupKind::Mesh);
        return {art};
    }
};

namespace {

AIMeshSize getSize(Mesh mesh) { return {mesh.rows(), mesh.columns()}; }

void addPatch(const Mesh& mesh, const model::Box& place) {
    Node& patch = mesh.document.create(model::NodeType::Path, model::Placement::AtBottomInside, mesh.node);
    model::PathData outline;
    outline.closed = true;
    for (const model::Point corner : {model::Point{place.left, place.top}, model::Point{place.right, place.top},
                                      model::Point{place.right, place.bottom}, model::Point{place.left, place.bottom}})
        outline.points.push_back(model::cornerAt(corner));
    mesh.document.setPath(patch, std::move(outline));
    model::Style white;
    white.fill = true;
    white.stroke = false;
    white.fillColor = {1, 1, 1};
    mesh.document.setStyle(patch, white);
}

void init(Mesh mesh, std::int32_t rows, std::int32_t columns, const AIRealRect& bounds) {
    require(rows > 0 && columns > 0 && rows <= kAIMostMeshPatches / columns);
    const double width = (bounds.right - bounds.left) / columns;
    const double height = (bounds.bottom - bounds.top) / rows;
    require(width > 0 && height > 0 && std::isfinite(bounds.left + width) && std::isfinite(bounds.top + height));
    mesh.document.removeChildren(mesh.node);
    model::Extras extras = mesh.node.extras();
    extras.columns = static_cast<std::uint32_t>(columns);
    mesh.document.setExtras(mesh.node, std::move(extras));
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const double left = bounds.left + column * width;
            const double top = bounds.top + row * height;
            addPatch(mesh, {left, top, left + width, top + height});
        }
}

Node& patchAt(const Mesh& mesh, std::int32_t row, std::int32_t column) {
    require(row >= 0 && row < mesh.rows() && column >= 0 && column < mesh.columns());
    Node* patch = mesh.node.firstChild();
    for (int i = row * mesh.columns() + column; i > 0; --i) patch = patch->next();
    require(patch->isOutlined(), kRefusedErr);
    return *patch;
}

AIColor getColor(Mesh mesh, std::int32_t row, std::int32_t column) {
    const model::Color& color = patchAt(mesh, row, column).style().fillColor;
    return {color.red, color.green, color.blue};
}

void setColor(Mesh mesh, std::int32_t row, std::int32_t column, const AIColor& color) {
    for (const double part : {color.red, color.green, color.blue}) require(part >= 0 && part <= 1);
    Node& patch = patchAt(mesh, row, column);
    model::Style style = patch.style();
    style.setFill(model::Color{color.red, color.green, color.blue});
    mesh.document.setStyle(patch, style);
}

} // namespace

template <> void fill(AIMeshSuite& suite) {
    enter<&AIMeshSuite::GetMeshSize, getSize>(suite);
    enter<&AIMeshSuite::InitMesh, init>(suite);
    enter<&AIMeshSuite::GetMeshColor, getColor>(suite);
    enter<&AIMeshSuite::SetMeshColor, setColor>(suite);
}

} // namespace easel::suites
