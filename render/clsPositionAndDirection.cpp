#include "render/clsPositionAndDirection.h"

#include "render/clsOpenGL.h"

void PositionAndDirection_cls::LookOnGL() const {
    // Turned at the origin and moved there after: far from the origin a unit step would be lost in the sum.
    gluLookAt(0.0, 0.0, 0.0, mDirection[0], mDirection[1], mDirection[2], mUp[0], mUp[1], mUp[2]);
    glTranslated(-mPosition[0], -mPosition[1], -mPosition[2]);
}
