// The tables of the facade's operations: a row each, on handles of every kind.
#pragma once

#include <tuple>

#include "core/document/Art.h"
#include "core/document/Artboard.h"
#include "core/document/CurrentDocument.h"
#include "core/document/HitData.h"
#include "core/document/Layer.h"
#include "core/document/PathArt.h"
#include "core/document/View.h"
#include "core/frame/Annotator.h"
#include "core/frame/MenuGroup.h"
#include "core/frame/ThirdPartyPlugin.h"
#include "core/frame/Timer.h"
#include "core/frame/Tool.h"
#include "support/Operations.h"

namespace facade {

using namespace kzo::core;

/// One handle of each kind: all empty, or all on something for which every operation has a telling answer. The art is
/// the middle one of three paths in the group: closed, curved, selected, locked, hidden.
struct Handles
    : std::tuple<Art, Layer, Artboard, View, Tool, HitData, MenuGroup, MenuItem, Timer, Annotator, ThirdPartyPlugin> {
    Art group;
    Art top;      ///< all of the lower layer
    Art around;   ///< a group that is selected, locked and hidden,
    Art within;   ///< and a line in it
    Art words;    ///< a line of text
    Art placed;   ///< a picture in a file,
    Art raster;   ///< and one in the drawing
    Art mesh;     ///< of two rows and three columns, whose last patch is red
    Art instance; ///< of "symbol-1"; there are a "symbol-2" and a pattern as well
    Art clipped;  ///< a clip group
    Art custom;   ///< looked after by the product, "Box", with a mask that is disabled
    Layer lower;
    Layer shut; ///< locked
    MenuItem divider;

    template <class Class> [[nodiscard]] const Class& on() const { return std::get<Class>(*this); }
    template <class Class> [[nodiscard]] Class& on() { return std::get<Class>(*this); }
};
template <> inline const PathArt& Handles::on<PathArt>() const { return *on<Art>().path(); }
template <> inline PathArt& Handles::on<PathArt>() { return *on<Art>().path(); }

template <> inline const TextArt& Handles::on<TextArt>() const { return *words.text(); }
template <> inline TextArt& Handles::on<TextArt>() { return *words.text(); }
template <> inline const PlacedArt& Handles::on<PlacedArt>() const { return *placed.placed(); }
template <> inline PlacedArt& Handles::on<PlacedArt>() { return *placed.placed(); }
template <> inline const RasterArt& Handles::on<RasterArt>() const { return *raster.raster(); }
template <> inline RasterArt& Handles::on<RasterArt>() { return *raster.raster(); }
template <> inline const MeshArt& Handles::on<MeshArt>() const { return *mesh.mesh(); }
template <> inline MeshArt& Handles::on<MeshArt>() { return *mesh.mesh(); }
template <> inline const CustomArt& Handles::on<CustomArt>() const { return *custom.customArt(); }
template <> inline CustomArt& Handles::on<CustomArt>() { return *custom.customArt(); }
template <> inline const MaskArt& Handles::on<MaskArt>() const { return *custom.mask(); }
template <> inline MaskArt& Handles::on<MaskArt>() { return *custom.mask(); }

/// The path of a file of this name, with the head of a PNG of this size.
[[nodiscard]] std::string pictureFile(const std::string& name, int columns, int rows);

using Queries = std::vector<operations::Query<Handles>>;
using Commands = std::vector<operations::Command<Handles>>;

[[nodiscard]] Queries allQueries();
/// What they set differs from what the handles are on.
[[nodiscard]] Commands allCommands();
/// What is asked of and done to the current document, whichever handles there are.
[[nodiscard]] Queries documentQueries();
[[nodiscard]] Commands documentCommands();

} // namespace facade
