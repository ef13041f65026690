#include "render/clsPositionAndDirection.h"

#include "render/clsOpenGL.h"

void PositionAndDirection_cls::LookOnGL() const {
    gluLookAt(mPosition[0], mPosition[1], mPosition[2], mPosition[0] + mDirection[0],
              mPosition[1] + mDirection[1], mPosition[2] + mDirection[2], mUp[0], mUp[1], mUp[2]);
}
