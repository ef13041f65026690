#include "data/clsPDataSequence.h"

#include "seam/clsUserMessage.h"

PDataSequence_cls::PDataSequence_cls(unsigned int number)
    : mKey(wxString::Format("DataSequence%u=", number)) {}

void PDataSequence_cls::OpenDataFile(const wxString& path) {
    mFiles.Set(path);
    mFiles.CalcMaxOffset();
    mLength = mFiles.GetCount();
    if (mLength <= kMaxLength) return;
    UserMessage_cls::Tell("Warning", wxString::Format("Max file sequence number is %d", kCutLength));
    mLength = kCutLength;
}

std::unique_ptr<PDataBlock_cls> PDataSequence_cls::Load(int index, Depth depth, wxString* why) const {
    const wxString path = GetFilename(index);
    const auto file = InputFile_cls::Open(path, why);
    if (!file) return nullptr;
    auto block = std::make_unique<PDataBlock_cls>();
    block->ReadHeader(*file, path, index);
    if (depth == Depth::Whole) {
        block->ReadBody(*file, path);
    } else {
        block->CheckTextBody(*file, path);
    }
    return block;
}

wxString PDataSequence_cls::Serialize() const {
    return mKey + "\n" + mFiles.GetPath() + "\n";
}
