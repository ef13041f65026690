#include "CONFITEM/clsConfItemList.h"

#include <algorithm>

void ConfItemList_cls::Add(ConfItem_cls* item, const wxString& key, const wxString& defaultValue) {
    item->SetItem(key, mApplyDefaults ? defaultValue : wxString());
    mItems.push_back(item);
}

wxString ConfItemList_cls::SerializeAll() const {
    wxString text;
    for (const ConfItem_cls* item : mItems) text += item->Serialize();
    return text;
}

bool ConfItemList_cls::ReadStrLineAll(const wxString& line) {
    bool taken = false;
    for (ConfItem_cls* item : mItems) taken = item->ReadStrLine(line) || taken;
    return taken;
}

ConfItem_cls* ConfItemList_cls::GetPCItem(const wxString& key) const {
    const auto found =
        std::find_if(mItems.begin(), mItems.end(), [&](const ConfItem_cls* i) { return i->GetKey() == key; });
    return found == mItems.end() ? nullptr : *found;
}

int ConfItemList_cls::CopyListComponentFromP(const ConfItemList_cls& other) {
    const size_t shared = std::min(mItems.size(), other.mItems.size());
    for (size_t i = 0; i < shared; ++i) mItems[i]->CopyFrom(*other.mItems[i]);
    return static_cast<int>(mItems.size());
}

wxString ConfItemList_cls::GetHeaderStrFromPointer(const void* address) const {
    for (const ConfItem_cls* item : mItems) {
        const int element = item->FindElement(address);
        if (element < 0) continue;
        return item->IsArray() ? item->GetKey() + wxString::Format("::DIM=%d", element) : item->GetKey();
    }
    return {};
}
