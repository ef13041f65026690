#pragma once

#include <vector>

#include "CONFITEM/clsConfItem.h"

/// The items of one settings object in the order in which they are written.
/// Points to the items and never owns them: they are members of the object that owns the list.
/// Threads: GUI thread only.
class ConfItemList_cls {
  public:
    /// Forgets the items; they themselves are untouched.
    void Clear() { mItems.clear(); }
    /// Appends an item and gives it key and default, or only the key when defaults are not applied.
    void Add(ConfItem_cls* item, const wxString& key, const wxString& defaultValue);
    void SetApplyDefaults(bool apply) { mApplyDefaults = apply; }

    wxString SerializeAll() const;
    /// Offers the line to every item; true when at least one took it.
    bool ReadStrLineAll(const wxString& line);

    /// First item with exactly this key, or null.
    ConfItem_cls* GetPCItem(const wxString& key) const;
    /// Copies item by item from a list of the same shape. Returns the number of items of this list; items
    /// that the other list lacks or holds in another class keep their values.
    int CopyListComponentFromP(const ConfItemList_cls& other);
    /// Key of the item whose value lies at the address, with "::DIM=" and the index for an array element;
    /// empty when there is none. Names a value to undo commands and key frames.
    wxString GetHeaderStrFromPointer(const void* address) const;

    const std::vector<ConfItem_cls*>& GetItems() const { return mItems; }

  private:
    std::vector<ConfItem_cls*> mItems;
    bool mApplyDefaults = true;
};
