#pragma once

#include <wx/string.h>

#include <cstdint>

/// The particles of one instant as they are written to a file. Borrowed arrays, one element per particle
/// (positions and velocities three floats); only particles 0, stride, 2 stride, ... are there.
struct ParticleState_cls {
    double mTime = 0.0;
    int mCount = 0;
    int mStride = 1;
    const float* mPosition = nullptr;
    const float* mVelocity = nullptr;
    const float* mRadius = nullptr;
    const float* mValue1 = nullptr;
    const uint8_t* mType = nullptr;
    const int32_t* mID = nullptr;  ///< null: IDs are written as 0
};

/// Writes the state of one instant. Names that end in ".bin" get the 40-byte record behind a header of time
/// and count, all others columns under the line "# index id type x y z radius value1". Empty, or the file's
/// name and what went wrong; then no file is left.
wxString WriteParticleState(const wxString& path, const ParticleState_cls& state);
