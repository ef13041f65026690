#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

/// One key of a parameter: a value at a time, with the kind of curve that leads from it to the next key.
/// A plain value, owned by its parameter. The fields are public: editors and undo commands carry whole keys.
/// Units: time is normalised (0 to 1 over the scene, or over a colour curve); velocity is value per unit of
/// time.
class KeyFrame_cls {
  public:
    /// Kinds of the segment that starts at a key. Anything from 5 on is evaluated as LINEAR.
    enum Type : unsigned int { kLinear, kHermiteAuto, kHermiteSemiAuto, kHermite, kStep, kTypeCount };
    /// Name for the display, in the language of the windows; unknown types have LINEAR's.
    static wxString GetTypeName(unsigned int type);

    void Set(double time, unsigned int type, double value, double velocity, double easeFactor, bool selected);
    void SetValue(double value, double velocity, double easeFactor);
    void FullCopy(const KeyFrame_cls& other) { *this = other; }
    /// Orders by time only.
    bool operator>(const KeyFrame_cls& other) const { return mTime > other.mTime; }
    bool operator==(const KeyFrame_cls&) const = default;

    bool IsFinite() const;
    /// The tangent in effect at this key: the velocity, times the ease factor for HERMITE (SEMIAUTO).
    double GetHermiteVelocity() const {
        return mType == kHermiteSemiAuto ? mVelocity * mEaseFactor : mVelocity;
    }
    /// The key as its line in a file gives it back: nine decimals of time, six of the rest, not selected.
    KeyFrame_cls Rounded() const;

    /// Appends the line for files: time, type, value, velocity, ease factor, a blank after each, a line feed.
    void Serialize(std::string& text) const;
    /// The same line with all digits, for copies that must not lose any.
    void SerializeExact(std::string& text) const;
    /// Takes the five fields of a line. Velocity and ease factor may be missing and are 0 then. Returns false
    /// and changes nothing when time, type or value is missing or any field is no finite number.
    bool ReadStrLine(std::string_view line);

    bool mSelected = false;
    unsigned int mType = kLinear;
    double mTime = 0.0;
    double mValue = 0.0;
    double mVelocity = 0.0;
    /// For HERMITE (SEMIAUTO) the factor on the automatic tangent; for HERMITE (AUTO) a copy of the tangent.
    double mEaseFactor = 0.0;
};
