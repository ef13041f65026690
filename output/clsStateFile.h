#pragma once

#include <wx/string.h>

#include <cstdint>

class DataExporter_cls;

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

/// Writes the state of one instant in the exporter's layout, which the loader reads back with the same one.
/// Names that end in ".bin" get binary records, all others text; text of the default layout is columns under
/// the line "# index id type x y z radius value1". An exporter whose data type is text writes text of its
/// layout whatever the name. Dummies are zeros. Empty, or the file's name and what went wrong; then no file
/// is left.
wxString WriteParticleState(const wxString& path, const ParticleState_cls& state,
                            const DataExporter_cls& exporter);
