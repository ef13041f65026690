#include "timeline/clsParameters.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "seam/clsLineStream.h"
#include "seam/clsTextCoding.h"
#include "timeline/clsKeyClipboard.h"

std::atomic<double> Parameters_cls::msCurrentDoubleIndex{0.0};
std::atomic<int> Parameters_cls::msFrameNumber{0};
std::atomic<int> Parameters_cls::msAnimInterp{1};
std::atomic<double> Parameters_cls::msResolution{1.0};

namespace {

bool IsEarlier(const KeyFrame_cls& a, const KeyFrame_cls& b) {
    return b > a;
}

bool AllFinite(const std::vector<KeyFrame_cls>& keys) {
    return std::all_of(keys.begin(), keys.end(), [](const KeyFrame_cls& key) { return key.IsFinite(); });
}

/// "%g", as POV-Ray text has its numbers.
wxString Digits(double number) {
    return wxString::FromAscii(ConfDouble_cls::Format(number).c_str());
}

}  // namespace

void Parameters_cls::SetFrameNumber(int frames, int interp) {
    const int steps = std::max(interp, 1);
    msFrameNumber = frames;
    msAnimInterp = steps;
    msResolution = frames > 0 ? 1.0 / frames / steps : 1.0;
}

Parameters_cls::Parameters_cls(const wxString& name, const wxString& identifier,
                               std::shared_ptr<const ParamHost_cls> host, const ParamGroup_cls* group,
                               bool timeDependent)
    : mName(name), mIdentifier(identifier), mHost(std::move(host)), mGroup(group), mKeys(1) {
    mItems.Add(&mTimeDepend, "timeDepend=", timeDependent ? "1" : "0");
    mItems.Add(&mPeriodic, "periodic=", "0");
}

// Evaluation

double Parameters_cls::Evaluate(double t, double resolution) const {
    if (mKeys.empty()) return 0.0;
    return mTimeDepend.mValue ? Curve().Evaluate(t, resolution) : mKeys.front().mValue;
}

double Parameters_cls::GetInterpolatedValue(double t, double resolution) {
    return mCurrentValue = Evaluate(ResolveTime(t), ResolveResolution(resolution));
}

double Parameters_cls::CalcInterpolateStep(double, int i) {
    return mCurrentValue = GetKeyFrameValue(i);
}

double Parameters_cls::CalcInterpolateLinear(double s, int i) {
    return mCurrentValue = HasKey(i) && HasKey(i + 1) ? Curve().Linear(s, static_cast<size_t>(i)) : 0.0;
}

double Parameters_cls::CalcInterpolateHermite(double s, int i) {
    return mCurrentValue = HasKey(i) && HasKey(i + 1) ? Curve().Hermite(s, static_cast<size_t>(i)) : 0.0;
}

double Parameters_cls::GetHermiteVelocity(int i) const {
    return HasKey(i) ? mKeys[static_cast<size_t>(i)].GetHermiteVelocity() : 0.0;
}

double Parameters_cls::CalcVelocity(int i, int j) const {
    return HasKey(i) && HasKey(j) ? Curve().Slope(static_cast<size_t>(i), static_cast<size_t>(j)) : 0.0;
}

// Settings

void Parameters_cls::SetTimeDependent(bool timeDependent) {
    mTimeDepend.mValue = timeDependent;
}

void Parameters_cls::InitSet(double value, unsigned int type) {
    if (!std::isfinite(value)) return;
    mKeys.assign(1, {});
    mKeys.front().Set(0.0, type, value, 0.0, 0.0, false);
}

// Keys: asking

int Parameters_cls::GetSelectedKeyNum() const {
    return static_cast<int>(
        std::count_if(mKeys.begin(), mKeys.end(), [](const KeyFrame_cls& key) { return key.mSelected; }));
}

double Parameters_cls::GetKeyFrameValue(int i) const {
    return HasKey(i) ? mKeys[static_cast<size_t>(i)].mValue : 0.0;
}

double Parameters_cls::GetKeyFrameValueD1(int i) const {
    return HasKey(i) ? mKeys[static_cast<size_t>(i)].mVelocity : 0.0;
}

double Parameters_cls::GetKeyFrameValueD2(int i) const {
    return HasKey(i) ? mKeys[static_cast<size_t>(i)].mEaseFactor : 0.0;
}

int Parameters_cls::FindKey(double t, double range) const {
    const auto after = std::partition_point(mKeys.begin(), mKeys.end(),
                                            [t](const KeyFrame_cls& key) { return key.mTime < t; });
    int nearest = -1;
    double distance = range;
    for (const auto i : {after - mKeys.begin() - 1, after - mKeys.begin()}) {
        if (!HasKey(static_cast<int>(i))) continue;
        const double d = std::abs(mKeys[static_cast<size_t>(i)].mTime - t);
        if (!(d <= distance)) continue;
        nearest = static_cast<int>(i);
        distance = d;
    }
    return nearest;
}

double Parameters_cls::GetNextKeyPosDoubleIndex(double t) const {
    const double from = ResolveTime(t) + kSameTime;
    const auto next = std::partition_point(mKeys.begin(), mKeys.end(),
                                           [from](const KeyFrame_cls& key) { return key.mTime <= from; });
    return next == mKeys.end() ? -1.0 : next->mTime;
}

double Parameters_cls::GetPrevKeyPosDoubleIndex(double t) const {
    const double to = ResolveTime(t) - kSameTime;
    const auto next = std::partition_point(mKeys.begin(), mKeys.end(),
                                           [to](const KeyFrame_cls& key) { return key.mTime < to; });
    return next == mKeys.begin() ? -1.0 : (next - 1)->mTime;
}

// Keys: editing

size_t Parameters_cls::PlaceAmongEquals(size_t place, int index) {
    if (!HasKey(index) || mKeys[static_cast<size_t>(index)].mTime != mKeys[place].mTime) return place;
    const auto from = mKeys.begin() + static_cast<std::ptrdiff_t>(place);
    const auto to = mKeys.begin() + index;
    if (to < from) std::rotate(to, from, from + 1);
    if (to > from) std::rotate(from, from + 1, to + 1);
    return static_cast<size_t>(index);
}

void Parameters_cls::AdjustAround(size_t i) {
    KeyCurve_cls::AdjustAuto(mKeys, mPeriodic.mValue, i == 0 ? 0 : i - 1, i + 2);
}

void Parameters_cls::AdjustAutoControl() {
    KeyCurve_cls::AdjustAuto(mKeys, mPeriodic.mValue, 0, mKeys.size());
}

void Parameters_cls::SortKey() {
    std::stable_sort(mKeys.begin(), mKeys.end(), IsEarlier);
}

int Parameters_cls::SetKey(double time, unsigned int type, double value, double velocity, double easeFactor) {
    KeyFrame_cls key;
    const int existing = FindKey(time);
    if (existing < 0) {
        key.Set(time, type, value, velocity, easeFactor, false);
        return AddKey(key);
    }
    const KeyFrame_cls& old = mKeys[static_cast<size_t>(existing)];
    key.Set(old.mTime, type, value, velocity, easeFactor, old.mSelected);
    return OverwriteKey(existing, key);
}

int Parameters_cls::AddKey(const KeyFrame_cls& key, int index) {
    if (!key.IsFinite()) return -1;
    const auto added = mKeys.insert(std::upper_bound(mKeys.begin(), mKeys.end(), key, IsEarlier), key);
    const size_t place = PlaceAmongEquals(static_cast<size_t>(added - mKeys.begin()), index);
    AdjustAround(place);
    return static_cast<int>(place);
}

int Parameters_cls::OverwriteKey(int i, const KeyFrame_cls& key, int index) {
    if (!HasKey(i) || !key.IsFinite()) return -1;
    const auto at = mKeys.begin() + i;
    *at = key;
    // It passes the keys that it has to and no more.
    auto to = std::upper_bound(mKeys.begin(), at, key, IsEarlier);
    if (to != at) {
        std::rotate(to, at, at + 1);
    } else {
        const auto after = std::lower_bound(at + 1, mKeys.end(), key, IsEarlier);
        std::rotate(at, at + 1, after);
        to = after - 1;
    }
    const size_t place = PlaceAmongEquals(static_cast<size_t>(to - mKeys.begin()), index);
    AdjustAround(static_cast<size_t>(i));
    AdjustAround(place);
    return static_cast<int>(place);
}

int Parameters_cls::InsertKey(double t) {
    const double time = ResolveTime(t);
    if (const int existing = FindKey(time); existing >= 0) return existing;

    KeyFrame_cls key;
    key.Set(time, KeyFrame_cls::kLinear, 0.0, 0.0, 1.0, false);
    if (!mKeys.empty()) {
        const size_t segment = Curve().FindSegment(time, 0.0);
        key.mType = mKeys[segment].mType;
        key.mValue = Curve().Evaluate(time, 0.0);
        key.mVelocity = Curve().HermiteVelocityAt(time);
    }
    return AddKey(key);
}

bool Parameters_cls::DeleteKey(int i) {
    if (!HasKey(i)) return false;
    mKeys.erase(mKeys.begin() + i);
    AdjustAround(static_cast<size_t>(i));
    return true;
}

int Parameters_cls::DeleteSelectedKey() {
    std::vector<KeyFrame_cls> left;
    std::copy_if(mKeys.begin(), mKeys.end(), std::back_inserter(left),
                 [](const KeyFrame_cls& key) { return !key.mSelected; });
    if (left.empty() && !mKeys.empty()) left.push_back(mKeys.front());
    const int deleted = GetKeyNumber() - static_cast<int>(left.size());
    if (deleted > 0) Replace(std::move(left));
    return deleted;
}

int Parameters_cls::MoveKey(int i, double time, int index) {
    if (!HasKey(i)) return -1;
    KeyFrame_cls key = mKeys[static_cast<size_t>(i)];
    key.mTime = time;
    return OverwriteKey(i, key, index);
}

void Parameters_cls::MoveSelectedKey(double timeOffset, double valueOffset) {
    if (GetSelectedKeyNum() == 0) return;
    std::vector<KeyFrame_cls> moved = mKeys;
    for (KeyFrame_cls& key : moved) {
        if (!key.mSelected) continue;
        key.mTime += timeOffset;
        key.mValue += valueOffset;
    }
    Replace(std::move(moved));
}

bool Parameters_cls::SetKeyType(int i, unsigned int type) {
    if (!HasKey(i)) return false;
    SetKeyTypeMulti({{i, type}});
    return true;
}

void Parameters_cls::SetKeyTypeMulti(const std::vector<KeyType>& types) {
    for (const KeyType& change : types) {
        if (!HasKey(change.index)) continue;
        KeyFrame_cls& key = mKeys[static_cast<size_t>(change.index)];
        const bool ownEase = key.mType != KeyFrame_cls::kHermiteAuto && key.mEaseFactor != 0.0;
        if (change.type == KeyFrame_cls::kHermiteSemiAuto && key.mType != change.type && !ownEase)
            key.mEaseFactor = 1.0;
        key.mType = change.type;
    }
    AdjustAutoControl();
}

bool Parameters_cls::SelectKeyFrame(int i, bool select) {
    if (!HasKey(i)) return false;
    mKeys[static_cast<size_t>(i)].mSelected = select;
    return true;
}

int Parameters_cls::SelectKeyFrameRegion(double from, double to) {
    const auto [low, high] = std::minmax(from, to);
    int count = 0;
    for (KeyFrame_cls& key : mKeys) {
        if (!(key.mTime >= low && key.mTime <= high)) continue;
        key.mSelected = true;
        ++count;
    }
    return count;
}

void Parameters_cls::DeselectAll() {
    for (KeyFrame_cls& key : mKeys) key.mSelected = false;
}

void Parameters_cls::RemapKeys(double factor) {
    if (!(factor > 0.0)) return;
    std::vector<KeyFrame_cls> moved = mKeys;
    for (KeyFrame_cls& key : moved) {
        key.mTime *= factor;
        key.mVelocity /= factor;
    }
    Replace(std::move(moved));
}

void Parameters_cls::Quantize(double resolution) {
    const double step = ResolveResolution(resolution);
    if (!(step > 0.0)) return;
    std::vector<KeyFrame_cls> moved = mKeys;
    for (KeyFrame_cls& key : moved) key.mTime = std::round(key.mTime / step) * step;
    Replace(std::move(moved));
}

void Parameters_cls::Flip() {
    std::vector<KeyFrame_cls> moved(mKeys.rbegin(), mKeys.rend());
    for (KeyFrame_cls& key : moved) {
        // A time that files can hold stays one, so that flipping twice gives back the same key.
        const double decimals = std::round(key.mTime * 1e9);
        key.mTime = decimals / 1e9 == key.mTime ? (1e9 - decimals) / 1e9 : 1.0 - key.mTime;
        key.mVelocity = -key.mVelocity;
    }
    Replace(std::move(moved));
}

bool Parameters_cls::Replace(std::vector<KeyFrame_cls> keys) {
    if (!AllFinite(keys)) return false;
    mKeys = std::move(keys);
    SortKey();
    AdjustAutoControl();
    return true;
}

Parameters_cls::State Parameters_cls::GetState() const {
    return {mKeys, mTimeDepend.mValue, mPeriodic.mValue};
}

void Parameters_cls::SetState(const State& state) {
    mTimeDepend.mValue = state.timeDependent;
    mPeriodic.mValue = state.periodic;
    Replace(state.keys);
}

// Clipboard

std::vector<KeyFrame_cls> Parameters_cls::GetSelectedKeys() const {
    std::vector<KeyFrame_cls> keys;
    std::copy_if(mKeys.begin(), mKeys.end(), std::back_inserter(keys),
                 [](const KeyFrame_cls& key) { return key.mSelected; });
    return keys;
}

int Parameters_cls::PasteKeys(const std::vector<KeyFrame_cls>& keys, double offset) {
    if (keys.empty()) return 0;
    std::vector<KeyFrame_cls> merged = mKeys;
    for (KeyFrame_cls& key : merged) key.mSelected = false;
    for (KeyFrame_cls key : keys) {
        key.mTime += offset;
        key.mSelected = true;
        const int existing = FindKey(key.mTime);
        if (existing < 0) merged.push_back(key);
        if (existing >= 0) merged[static_cast<size_t>(existing)] = key;
    }
    return Replace(std::move(merged)) ? static_cast<int>(keys.size()) : 0;
}

void Parameters_cls::CopyKeyFrameToClipBoard() const {
    if (mHost && mHost->putClipboard && GetSelectedKeyNum() > 0)
        mHost->putClipboard(KeyClipboard_cls::Write({GetSelectedKeys()}));
}

int Parameters_cls::PasteKeyFrameFromClipBoard(double t) {
    if (!mHost || !mHost->getClipboard) return 0;
    for (const std::vector<KeyFrame_cls>& row : KeyClipboard_cls::Read(mHost->getClipboard())) {
        if (!row.empty()) return PasteKeys(row, ResolveTime(t) - row.front().mTime);
    }
    return 0;
}

// Text

wxString Parameters_cls::Serialize() const {
    // Automatic tangents are written as they follow from the rounded numbers beside them, because that is
    // what a reader computes: text read and written again is the same text.
    std::vector<KeyFrame_cls> rounded(mKeys.size());
    std::transform(mKeys.begin(), mKeys.end(), rounded.begin(),
                   [](const KeyFrame_cls& key) { return key.Rounded(); });
    KeyCurve_cls::AdjustAuto(rounded, mPeriodic.mValue, 0, rounded.size());

    std::string lines = "itemnum " + std::to_string(rounded.size()) + "\n";
    for (const KeyFrame_cls& key : rounded) key.Serialize(lines);
    return "Parameter_" + mName + "\n" + mItems.SerializeAll() +
           wxString::FromAscii(lines.data(), lines.size());
}

bool Parameters_cls::OpensBlock(std::string_view line) {
    // Markers are "-ParamGroup=", "---LightSRC" and the like; a key line begins with a minus and a digit.
    const bool marker =
        line.size() > 1 && line[0] == '-' && (line[1] == '-' || (line[1] >= 'A' && line[1] <= 'Z'));
    return marker || line.find("Parameter_") != line.npos;
}

bool Parameters_cls::EndsBlock(std::string_view line) {
    if (OpensBlock(line)) return true;
    const bool setting = line.find('=') != line.npos;
    return setting && line.find("timeDepend=") == line.npos && line.find("periodic=") == line.npos;
}

bool Parameters_cls::ReadStrLine(LineStream_cls& stream, const wxString& line) {
    if (!line.Contains("Parameter_" + mName)) return false;
    mKeys.clear();

    wxString next;
    bool more = stream.ReadLine(next);
    while (more && mItems.ReadStrLineAll(next)) more = stream.ReadLine(next);
    if (more && next.Contains("itemnum ")) {
        ReadKeys(stream, next);
    } else if (more && EndsBlock(ToBytes(next))) {
        stream.PutBack();
    }
    SortKey();
    AdjustAutoControl();
    return true;
}

void Parameters_cls::ReadKeys(LineStream_cls& stream, const wxString& countLine) {
    const std::string digits = ToBytes(countLine.substr(8).Trim(false));
    long long count = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), count);

    // The count only says when to stop: what is there decides how many keys there are.
    std::string_view line;
    for (long long i = 0; i < count && stream.ReadLine(line); ++i) {
        if (EndsBlock(line)) {
            stream.PutBack();
            return;
        }
        KeyFrame_cls key;
        if (key.ReadStrLine(line)) mKeys.push_back(key);
    }
}

wxString Parameters_cls::GetStrExpression(const wxString& name) const {
    const wxString declare = "#declare " + name + " = ";
    if (!mTimeDepend.mValue || mKeys.size() < 2) return declare + Digits(Evaluate(0.0, 0.0)) + ";\n";

    wxString text;
    const KeyFrame_cls& first = mKeys.front();
    if (first.mTime != 0.0) {
        text = "#if (t0 <= " + Digits(first.mTime) + ")\n\t" + declare + Digits(first.mValue) + ";\n";
    }
    for (size_t i = 0; i + 1 < mKeys.size(); ++i) {
        const KeyFrame_cls& key = mKeys[i];
        // A segment between two keys at one time is met at the scene's very start only: no division by zero.
        const double h = mKeys[i + 1].mTime - key.mTime;
        text += text.empty() ? "#if " : "#elseif ";
        text += "(t0 <= " + Digits(mKeys[i + 1].mTime) + ")\n";
        text += "\t#declare rate = (t0 - " + Digits(key.mTime) + ")/" + Digits(h == 0.0 ? 1.0 : h) + ";\n";
        text += "\t" + declare + SegmentExpression(i);
    }
    // A last key at the end of the scene needs no value behind it.
    if (mKeys.back().mTime != 1.0) text += "#else\n\t" + declare + Digits(mKeys.back().mValue) + ";\n";
    return text + "#end\n";
}

wxString Parameters_cls::SegmentExpression(size_t i) const {
    switch (mKeys[i].mType) {
        case KeyFrame_cls::kLinear:
            // Without ";" and line feed: scenes made around this text complete it.
            return Digits(mKeys[i].mValue) + "+ rate * " +
                   Digits(Curve().Difference(mKeys[i].mValue, mKeys[i + 1].mValue));
        case KeyFrame_cls::kHermiteAuto:
        case KeyFrame_cls::kHermiteSemiAuto:
        case KeyFrame_cls::kHermite: {
            const KeyCurve_cls::Cubic c = Curve().GetCubic(i);
            return Digits(c.c0) + " + " + Digits(c.c1) + "*rate + " + Digits(c.c2) + "*rate*rate + " +
                   Digits(c.c3) + "*rate*rate*rate;\n";
        }
        default:
            return {};  // steps are not exported: the declaration stays without a value
    }
}
