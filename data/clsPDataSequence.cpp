#include "data/clsPDataSequence.h"

#include "seam/clsUserMessage.h"

PDataSequence_cls::PDataSequence_cls(unsigned int number)
    : mKey(wxString::Format("DataSequence%u=", number)) {}

void PDataSequence_cls::OpenDataFile(const wxString& path) {
    mFiles.Set(path);
    mFiles.CalcMaxOffset();
    mLength = mFiles.GetCount();
}

std::unique_ptr<PDataBlock_cls> PDataSequence_cls::LoadSnapshot(int index) const {
    return Load(index, Depth::Whole);
}

std::unique_ptr<PDataBlock_cls> PDataSequence_cls::LoadSnapshotInfo(int index) const {
    return Load(index, Depth::HeaderOnly);
}

std::unique_ptr<PDataBlock_cls> PDataSequence_cls::Load(int index, Depth depth) const {
    const wxString path = GetFilename(index);
    wxString why;
    const auto file = InputFile_cls::Open(path, &why);
    if (!file) {
        UserMessage_cls::Tell("Can not open file", path + ": " + why);
        return nullptr;
    }
    auto block = std::make_unique<PDataBlock_cls>();
    block->ReadHeader(*file, path, index);
    if (depth == Depth::Whole) {
        block->ReadBody(*file, path);
    } else {
        block->CheckTextBody(*file, path);
    }
    for (const wxString& problem : block->TakeProblems()) UserMessage_cls::Tell("Warning", problem);
    return block;
}

wxString PDataSequence_cls::Serialize() const {
    return mKey + "\n" + mFiles.GetPath() + "\n";
}
