#pragma once

#include <span>

#include "CONFITEM/clsConfItemList.h"

/// The layout of a snapshot file: item codes of its header and of each particle record, in file order.
/// Base of the loader and exporter settings, whose keys differ by their prefix. Threads: GUI thread; readers
/// take a copy of what they need before they start. Failure: unknown codes take no bytes and no lines.
class GrammerBase_cls {
  public:
    /// Header items. Binary: time is a 32-bit float, number a 32-bit integer, dummies are 4-byte units.
    /// Text: one line each; Dummy3 and Dummy10 count 3 and 10 lines.
    enum HeadCode : int { kTime = 0, kNumber = 1, kHeadDummy = 2, kHeadDummy3 = 3, kHeadDummy10 = 4 };
    /// Items of a particle record: 32-bit floats, ID and type 32-bit integers, dummies are 4-byte units or
    /// columns.
    enum BodyCode : int {
        kXYZ = 0,
        kVelocity = 1,
        kDummy = 2,
        kDummy3 = 3,
        kDummy10 = 4,
        kRadius = 5,
        kID = 6,
        kType = 7,
        kValue1 = 8
    };
    enum DataType : int { kBinary = 0, kText = 1 };

    /// Keys are the prefix followed by "DataType=", "GrammerHead=" and "GrammerBody=".
    explicit GrammerBase_cls(const wxString& prefix);
    GrammerBase_cls(const GrammerBase_cls&) = delete;
    GrammerBase_cls& operator=(const GrammerBase_cls&) = delete;

    /// At most 16 codes are taken.
    void SetHeaderGrammer(std::span<const int> codes);
    void SetBodyGrammer(std::span<const int> codes);
    std::span<const int> GetHeaderGrammer() const;
    std::span<const int> GetBodyGrammer() const;
    bool IsItemExistHead(int code) const;
    bool IsItemExistBody(int code) const;
    bool IsText() const { return mDataType.mValue != kBinary; }
    void SetText(bool text) { mDataType.mValue = text ? kText : kBinary; }
    /// The six codes of the 40-byte record in their default order.
    bool IsDefaultRecord() const;

    /// 4-byte units or text lines of a header code; 4-byte units or text columns of a body code. 0 if
    /// unknown.
    static unsigned int HeadUnits(int code);
    static unsigned int BodyUnits(int code);
    /// Codes run from 0 to these.
    static constexpr int kLastHeadCode = kHeadDummy10;
    static constexpr int kLastBodyCode = kValue1;
    /// The name that is shown for a code; "?" if unknown.
    static wxString HeadName(int code);
    static wxString BodyName(int code);
    /// Whether a body code may stand more than once.
    static bool IsRepeatable(int code) { return code >= kDummy && code <= kDummy10; }

    unsigned int GetHeaderByte() const;
    unsigned int GetHeaderLine() const;
    /// Bytes of one binary particle record, and columns of one text line.
    unsigned int GetRecordByte() const;
    unsigned int GetRecordColumn() const;

    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

  protected:
    ~GrammerBase_cls() = default;

    ConfItemList_cls mItems;

  private:
    ConfItemINT_cls mDataType;
    ConfItemINTARRAY_cls mGrammerHead;
    ConfItemINTARRAY_cls mGrammerBody;
};
