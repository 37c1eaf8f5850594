// Defaults of the common globals.
#include "maker/BaseGlobals.h"

#include "core/app/Illustrator.h"
#include "maker/HostGate.h"
#include "maker/PathGeometry.h"

void vlBaseGlobals::init(const std::string& product, const std::string& variant) {
    mayLoad_ = vl::mayLoad(product);
    if (!mayLoad_) return;
    product_ = product;
    variant_ = variant;
}

double vlBaseGlobals::adj4vue(double distance) {
    const auto* const document = kzo::core::Illustrator::instance()->currentDocument();
    return document ? distance / document->zoom() : distance;
}

void vlBaseGlobals::setDefaults() {
    setDraggingDefaults();
    setHitDefaults();
    setAngleDefaults();
    setPathDefaults();
}

void vlBaseGlobals::setDraggingDefaults() { startPoint = endPoint = rawLocation = {}; }
void vlBaseGlobals::setHitDefaults() { startHitData = {}; }
void vlBaseGlobals::setAngleDefaults() { baseAngles.fill(kzo::core::Angle::Zero()); }

void vlBaseGlobals::setPathDefaults() {
    hitArt = nullptr;
    continuing = turned = false;
    exitAngle = kzo::core::Angle::Zero();
    handleMode = vl::geo::kTurnOutHandle;
}
