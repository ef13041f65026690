#include "data/clsGrammerBase.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int kDefaultRecord[] = {GrammerBase_cls::kXYZ,    GrammerBase_cls::kVelocity,
                                  GrammerBase_cls::kRadius, GrammerBase_cls::kID,
                                  GrammerBase_cls::kType,   GrammerBase_cls::kValue1};

constexpr unsigned int kHeadUnits[] = {1, 1, 1, 3, 10};
constexpr unsigned int kBodyUnits[] = {3, 3, 1, 3, 10, 1, 1, 1, 1};

constexpr const char* kHeadNames[] = {"Time", "Number", "Dummy", "Dummy*3", "Dummy*10"};
/// "Raius" is what users know the item by.
constexpr const char* kBodyNames[] = {"XYZ",   "VxVyVz", "Dummy", "Dummy*3", "Dummy*10",
                                      "Raius", "ID",     "Type",  "Value1"};

unsigned int SumUnits(std::span<const int> codes, unsigned int (*units)(int)) {
    unsigned int sum = 0;
    for (const int code : codes) sum += units(code);
    return sum;
}

void SetCodes(ConfItemINTARRAY_cls& item, std::span<const int> codes) {
    const size_t count = std::min<size_t>(codes.size(), ConfArray_cls::kMaxDimension);
    std::copy_n(codes.begin(), count, item.mValue.begin());
    item.dimension = static_cast<unsigned int>(count);
}

std::span<const int> Codes(const ConfItemINTARRAY_cls& item) {
    return {item.mValue.data(), item.dimension};
}

bool Contains(std::span<const int> codes, int code) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

}  // namespace

GrammerBase_cls::GrammerBase_cls(const wxString& prefix) {
    mItems.Add(&mDataType, prefix + "DataType=", "0");
    mItems.Add(&mGrammerHead, prefix + "GrammerHead=", "0 1");
    mItems.Add(&mGrammerBody, prefix + "GrammerBody=", "0 1 5 6 7 8");
}

void GrammerBase_cls::SetHeaderGrammer(std::span<const int> codes) {
    SetCodes(mGrammerHead, codes);
}
void GrammerBase_cls::SetBodyGrammer(std::span<const int> codes) {
    SetCodes(mGrammerBody, codes);
}
std::span<const int> GrammerBase_cls::GetHeaderGrammer() const {
    return Codes(mGrammerHead);
}
std::span<const int> GrammerBase_cls::GetBodyGrammer() const {
    return Codes(mGrammerBody);
}
bool GrammerBase_cls::IsItemExistHead(int code) const {
    return Contains(GetHeaderGrammer(), code);
}
bool GrammerBase_cls::IsItemExistBody(int code) const {
    return Contains(GetBodyGrammer(), code);
}

bool GrammerBase_cls::IsDefaultRecord() const {
    return std::ranges::equal(GetBodyGrammer(), kDefaultRecord);
}

unsigned int GrammerBase_cls::HeadUnits(int code) {
    return code >= 0 && code < static_cast<int>(std::size(kHeadUnits)) ? kHeadUnits[code] : 0;
}
unsigned int GrammerBase_cls::BodyUnits(int code) {
    return code >= 0 && code < static_cast<int>(std::size(kBodyUnits)) ? kBodyUnits[code] : 0;
}

wxString GrammerBase_cls::HeadName(int code) {
    return code >= 0 && code <= kLastHeadCode ? kHeadNames[code] : "?";
}
wxString GrammerBase_cls::BodyName(int code) {
    return code >= 0 && code <= kLastBodyCode ? kBodyNames[code] : "?";
}

unsigned int GrammerBase_cls::GetHeaderByte() const {
    return 4 * GetHeaderLine();
}
unsigned int GrammerBase_cls::GetHeaderLine() const {
    return SumUnits(GetHeaderGrammer(), HeadUnits);
}
unsigned int GrammerBase_cls::GetRecordByte() const {
    return 4 * GetRecordColumn();
}
unsigned int GrammerBase_cls::GetRecordColumn() const {
    return SumUnits(GetBodyGrammer(), BodyUnits);
}
