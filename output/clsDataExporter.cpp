#include "output/clsDataExporter.h"

#include <algorithm>

namespace {

constexpr int kHead[] = {GrammerBase_cls::kTime, GrammerBase_cls::kNumber};
constexpr int kBody[] = {GrammerBase_cls::kXYZ, GrammerBase_cls::kVelocity, GrammerBase_cls::kRadius,
                         GrammerBase_cls::kID,  GrammerBase_cls::kType,     GrammerBase_cls::kValue1};

}  // namespace

void DataExporter_cls::SetToDefault() {
    SetText(false);
    SetHeaderGrammer(kHead);
    SetBodyGrammer(kBody);
}

bool DataExporter_cls::IsDefault() const {
    return !IsText() && std::ranges::equal(GetHeaderGrammer(), kHead) && IsDefaultRecord();
}
