#include "render/clsPositionAndDirection.h"

#include <cmath>

#include "render/clsOpenGL.h"

Vector3 PositionAndDirection_cls::GetUnitDirection() const {
    const double length = std::hypot(mDirection[0], mDirection[1], mDirection[2]);
    if (!(length > 0.0) || !std::isfinite(length)) return {0.0, 0.0, -1.0};
    return {mDirection[0] / length, mDirection[1] / length, mDirection[2] / length};
}

void PositionAndDirection_cls::LookOnGL() const {
    // Turned at the origin and moved there after: far from the origin a unit step would be lost in the sum.
    gluLookAt(0.0, 0.0, 0.0, mDirection[0], mDirection[1], mDirection[2], mUp[0], mUp[1], mUp[2]);
    glTranslated(-mPosition[0], -mPosition[1], -mPosition[2]);
}
