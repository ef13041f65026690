#include "data/clsRecordPreview.h"

#include "data/clsBinaryPreview.h"
#include "data/clsTextPreview.h"

namespace {

/// A column for every value of a record; items that bear several, and dummies, give several.
std::vector<wxString> ColumnNames(const GrammerBase_cls& grammer) {
    std::vector<wxString> names;
    for (const int code : grammer.GetBodyGrammer()) {
        switch (code) {
            case GrammerBase_cls::kXYZ:
                names.insert(names.end(), {"X", "Y", "Z"});
                break;
            case GrammerBase_cls::kVelocity:
                names.insert(names.end(), {"Vx", "Vy", "Vz"});
                break;
            default:
                names.insert(names.end(), GrammerBase_cls::BodyUnits(code),
                             GrammerBase_cls::BodyUnits(code) > 1 || code == GrammerBase_cls::kDummy
                                 ? GrammerBase_cls::BodyName(GrammerBase_cls::kDummy)
                                 : GrammerBase_cls::BodyName(code));
        }
    }
    return names;
}

}  // namespace

RecordPreview_cls RecordPreview_cls::Make(const FileStart_cls& start, const GrammerBase_cls& grammer) {
    RecordPreview_cls preview;
    preview.mColumns = ColumnNames(grammer);
    if (start.mFileByte == 0) {
        preview.mSize = "0 bytes";
        preview.mMisfit = "the file is empty";
    } else if (grammer.IsText()) {
        PreviewText(start, grammer, &preview);
    } else {
        PreviewBinary(start, grammer, &preview);
    }
    if (preview.mMisfit.empty() && !grammer.IsItemExistBody(GrammerBase_cls::kXYZ))
        preview.mMisfit = "No XYZ data.";
    return preview;
}
