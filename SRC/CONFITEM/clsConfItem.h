#pragma once

#include <wx/string.h>

#include <array>
#include <string>

/// One persistent setting: a key, a value and the text that was last given or read for it.
/// A settings object owns its items as members and lists them in a ConfItemList_cls, which never owns them.
/// Line format: key (with its "="), value, line feed.
/// Threads: GUI thread only. Failure: a line without the key changes nothing; text that is no number gives 0.
/// Numbers are written and read with "." as decimal separator whatever the process locale is.
/// While one lives, numbers are written with all their digits instead of six: for files that only carry a
/// state from one run of the program to another. Files of users keep their form.
/// Threads: acts on those items that its own thread writes.
class ExactNumbers_cls {
  public:
    ExactNumbers_cls() { ++msLiving; }
    ~ExactNumbers_cls() { --msLiving; }
    ExactNumbers_cls(const ExactNumbers_cls&) = delete;
    ExactNumbers_cls& operator=(const ExactNumbers_cls&) = delete;

    static bool IsWanted() { return msLiving > 0; }

  private:
    static thread_local int msLiving;
};

class ConfItem_cls {
  public:
    explicit ConfItem_cls(int typeCode);

    /// Takes the key; a value that is not empty is stored as text and parsed, an empty one changes nothing.
    virtual void SetItem(const wxString& key, const wxString& value) = 0;
    /// Returns true when the key occurs in the line. The value is the line from position length-of-key on.
    virtual bool ReadStrLine(const wxString& line) = 0;
    /// The line to write with its line feed, or the empty string for an item that is not written.
    virtual wxString Serialize() const = 0;
    /// The value as text for display.
    virtual wxString GetItemStr() const = 0;
    /// Takes the value storage of an item of the same class; any other class changes nothing.
    virtual void CopyValueFrom(const ConfItem_cls& other) = 0;
    /// Index of the value element at the address, -1 when it is not here or this class takes no part in it.
    virtual int FindElement(const void* address) const = 0;
    virtual bool IsArray() const = 0;
    /// Whether the text is a value of this kind and nothing else. Reading a line never asks: it takes what it
    /// can. For settings given by hand, where a slip should be told.
    virtual bool Accepts(const wxString& value) const = 0;
    /// What Accepts() is true for, in words.
    virtual wxString GetValueWords() const = 0;

    /// Looks for the key and stores the value text: the first two steps of every ReadStrLine().
    bool ReadStrLineBase(const wxString& line);
    /// Turns backslashes of the value text into "/" and puts a backslash before every blank.
    void ReplaceSeparator();
    /// Key, value text, type code and value of another item, see ConfItemList_cls::CopyListComponentFromP().
    void CopyFrom(const ConfItem_cls& other);

    const wxString& GetKey() const { return mKey; }
    const wxString& GetValueText() const { return mValueText; }
    int GetTypeCode() const { return mTypeCode; }

  protected:
    ~ConfItem_cls() = default;
    ConfItem_cls(const ConfItem_cls&) = default;
    ConfItem_cls& operator=(const ConfItem_cls&) = default;

    wxString mKey = "NONE";
    wxString mValueText = "NONE";
    int mTypeCode;
};

/// What the array items share: how many of the 16 elements are in use.
class ConfArray_cls {
  public:
    static constexpr unsigned int kMaxDimension = 16;

    /// Sets `dimension` to 1 plus the number of blanks at positions 1 and later, and returns it. More than 16
    /// stops the program: only the defaults of our own code come here, never a line of a file.
    unsigned int CountDimension(wxString text);

    unsigned int dimension = 0;

  protected:
    ~ConfArray_cls() = default;
};

/// Text that is kept as it stands. The text "!!SKIP!!" is not written.
class ConfItemSTR_cls final : public ConfItem_cls {
  public:
    ConfItemSTR_cls() : ConfItem_cls(1) {}
    ConfItemSTR_cls(const wxString& key, const wxString& value);

    void SetItem(const wxString& key, const wxString& value) override;
    bool ReadStrLine(const wxString& line) override { return ReadStrLineBase(line); }
    wxString Serialize() const override;
    wxString GetItemStr() const override { return mValueText; }
    void CopyValueFrom(const ConfItem_cls&) override {}  // the text itself is copied by the base
    int FindElement(const void*) const override { return -1; }
    bool IsArray() const override { return false; }
    bool Accepts(const wxString& value) const override { return !value.Contains("\n"); }
    wxString GetValueWords() const override { return "one line of text"; }

    void SetText(const wxString& text) { mValueText = text; }
};

/// How one kind of value is stored, written and read. kFindable: found by its address (FindElement).
/// Floats are written with six decimals, doubles with six significant digits: the difference is part of the
/// file format.
struct ConfInt_cls {
    using Value = int;
    static constexpr bool kFindable = true;
    static std::string Format(Value value);
    static Value Parse(const std::string& text);
    static bool IsValue(const std::string& text);
    static constexpr const char* kWords = "whole number";
};
struct ConfUInt_cls {
    using Value = unsigned int;
    static constexpr bool kFindable = true;
    static std::string Format(Value value);
    static Value Parse(const std::string& text);
    static bool IsValue(const std::string& text);
    static constexpr const char* kWords = "whole number from 0 on";
};
struct ConfFloat_cls {
    using Value = float;
    static constexpr bool kFindable = true;
    static std::string Format(Value value);
    static Value Parse(const std::string& text);
    static bool IsValue(const std::string& text);
    static constexpr const char* kWords = "number";
};
struct ConfDouble_cls {
    using Value = double;
    static constexpr bool kFindable = true;
    static std::string Format(Value value);
    static Value Parse(const std::string& text);
    static bool IsValue(const std::string& text);
    static constexpr const char* kWords = "number";
};
struct ConfBool_cls {
    using Value = bool;
    static constexpr bool kFindable = false;
    static std::string Format(Value value);
    static Value Parse(const std::string& text);
    static bool IsValue(const std::string& text);
    static constexpr const char* kWords = "0 or 1";
};

/// A single value. mValue is public: widgets and undo commands are bound to it by address.
template <class Kind, int kCode>
class ConfItemScalar_cls final : public ConfItem_cls {
  public:
    using Value = typename Kind::Value;

    ConfItemScalar_cls() : ConfItem_cls(kCode) {}
    ConfItemScalar_cls(const wxString& key, const wxString& value) : ConfItem_cls(kCode) {
        SetItem(key, value);
    }

    void SetItem(const wxString& key, const wxString& value) override;
    bool ReadStrLine(const wxString& line) override;
    wxString Serialize() const override;
    wxString GetItemStr() const override;
    void CopyValueFrom(const ConfItem_cls& other) override;
    int FindElement(const void* address) const override;
    bool IsArray() const override { return false; }
    bool Accepts(const wxString& value) const override;
    wxString GetValueWords() const override;

    Value mValue{};
};

/// Up to 16 values, of which the first `dimension` are in use.
/// Reading a line sets exactly `dimension` elements and keeps those that do not parse; the integer array
/// (kCode 3) instead takes the number of elements from the line, at most 16, and ends at the first failure.
template <class Kind, int kCode>
class ConfItemArray_cls final : public ConfItem_cls, public ConfArray_cls {
  public:
    using Value = typename Kind::Value;

    ConfItemArray_cls() : ConfItem_cls(kCode) {}
    ConfItemArray_cls(const wxString& key, const wxString& value) : ConfItem_cls(kCode) {
        SetItem(key, value);
    }

    void SetItem(const wxString& key, const wxString& value) override;
    bool ReadStrLine(const wxString& line) override;
    wxString Serialize() const override;
    /// Element 0 stands twice ("1 1 2 3"); dialogs are made for this form.
    wxString GetItemStr() const override;
    void CopyValueFrom(const ConfItem_cls& other) override;
    int FindElement(const void* address) const override;
    bool IsArray() const override { return true; }
    /// As many numbers as there are elements, or 1 to 16 integers; single blanks between them.
    bool Accepts(const wxString& value) const override;
    wxString GetValueWords() const override;

    std::array<Value, kMaxDimension> mValue{};
};

using ConfItemINT_cls = ConfItemScalar_cls<ConfInt_cls, 2>;
using ConfItemINTARRAY_cls = ConfItemArray_cls<ConfInt_cls, 3>;
using ConfItemUINT_cls = ConfItemScalar_cls<ConfUInt_cls, 4>;
using ConfItemUINTARRAY_cls = ConfItemArray_cls<ConfUInt_cls, 5>;
using ConfItemFLOAT_cls = ConfItemScalar_cls<ConfFloat_cls, 6>;
using ConfItemFLOATARRAY_cls = ConfItemArray_cls<ConfFloat_cls, 7>;
using ConfItemDOUBLE_cls = ConfItemScalar_cls<ConfDouble_cls, 8>;
using ConfItemDOUBLEARRAY_cls = ConfItemArray_cls<ConfDouble_cls, 9>;
using ConfItemBOOL_cls = ConfItemScalar_cls<ConfBool_cls, 10>;
/// Its code has always been the double array's.
using ConfItemBOOLARRAY_cls = ConfItemArray_cls<ConfBool_cls, 9>;

extern template class ConfItemScalar_cls<ConfInt_cls, 2>;
extern template class ConfItemScalar_cls<ConfUInt_cls, 4>;
extern template class ConfItemScalar_cls<ConfFloat_cls, 6>;
extern template class ConfItemScalar_cls<ConfDouble_cls, 8>;
extern template class ConfItemScalar_cls<ConfBool_cls, 10>;
extern template class ConfItemArray_cls<ConfInt_cls, 3>;
extern template class ConfItemArray_cls<ConfUInt_cls, 5>;
extern template class ConfItemArray_cls<ConfFloat_cls, 7>;
extern template class ConfItemArray_cls<ConfDouble_cls, 9>;
extern template class ConfItemArray_cls<ConfBool_cls, 9>;
