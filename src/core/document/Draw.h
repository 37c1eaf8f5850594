// Functions that make art in the document.
#pragma once

#include <memory>

#include "core/document/Art.h"
#include "core/values/ArtboardPoint.h"
#include "core/values/PathStyle.h"

/// Each makes a new object on top inside of `prep`, or above all art without it, and answers a handle on it; null when
/// the host refuses. Without a style it has the document's default one.
namespace kzo::core::draw {

/// An open path of two corner points.
std::unique_ptr<Art> line(const ArtboardPoint& from, const ArtboardPoint& to, const Art* prep = nullptr);
std::unique_ptr<Art> line(const ArtboardPoint& from, const ArtboardPoint& to, const PathStyle& style,
                          const Art* prep = nullptr);

} // namespace kzo::core::draw
