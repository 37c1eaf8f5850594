// What the drawing globals of all of the maker's plug-ins have in common: the product, and the state of a gesture.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/document/HitData.h"
#include "core/values/Angle.h"
#include "core/values/ArtboardPoint.h"

struct ArtObject;

class vlBaseGlobals {
  public:
    vlBaseGlobals() { setDefaults(); }
    virtual ~vlBaseGlobals() = default;

    /// Says which product this is; the second name is that of a variant, empty where there is but one. Under a host
    /// that it was not built for the user decides whether it loads.
    void init(const std::string& product, const std::string& variant);
    [[nodiscard]] bool mayLoad() const { return mayLoad_; }
    [[nodiscard]] const std::string& product() const { return product_; }
    [[nodiscard]] const std::string& variant() const { return variant_; }

    /// A distance in screen units as one in the document, at the zoom of the view in front.
    [[nodiscard]] static double adj4vue(double distance);

    // Defaults
    void setDefaults(); ///< all of the following
    void setDraggingDefaults();
    void setHitDefaults();
    void setAngleDefaults();
    void setPathDefaults();

    // Dragging
    kzo::core::ArtboardPoint startPoint;  // where the gesture began
    kzo::core::ArtboardPoint endPoint;    // where it is, held to an axis or let go by keys
    kzo::core::ArtboardPoint rawLocation; // where the cursor was when the tool last asked

    // Hit
    kzo::core::HitData startHitData; // what was pressed on

    // Angles that the maker's other tools draw along; the isometric ones have axes instead
    std::array<kzo::core::Angle, 6> baseAngles;

    // Path
    ArtObject* hitArt = nullptr; // the art that was pressed on; may be null
    bool continuing = false;     // the press was on an end of an open path, which is hitArt's last point now
    bool turned = false;         // the press turned hitArt round, to make its first point the last
    kzo::core::Angle exitAngle;  // direction in which hitArt leaves that point
    std::int16_t handleMode = 0; // how the maker's other tools align the handles of what they join

  private:
    bool mayLoad_ = true;
    std::string product_;
    std::string variant_;
};
