#include "core/clsMain.h"

#include <string_view>

#include "seam/clsOutputFile.h"
#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"

namespace {

/// What is kept of a project file that is no text at all.
constexpr size_t kMaxProjectByte = 64 << 20;
constexpr size_t kMaxLine = 1 << 20;

/// The next line, without its line feed; an endless one is cut.
wxString TakeProjectLine(std::string_view* text) {
    const size_t end = text->find('\n');
    const std::string_view line = text->substr(0, end);
    text->remove_prefix(end == std::string_view::npos ? text->size() : end + 1);
    return FromBytes(std::string(line.substr(0, kMaxLine)));
}

}  // namespace

Main_cls::Main_cls() {
    PDataBlock_cls::mspCDataLoaderLink = &mDataLoader;
    mDataLoader.SetOpenCommand([this](const wxString& path) { OpenDataFile(path); });
}

Main_cls::~Main_cls() {
    PDataBlock_cls::mspCDataLoaderLink = nullptr;
}

void Main_cls::OpenDataFile(const wxString& path) {
    mSequence.OpenDataFile(path);
}

bool Main_cls::ApplySetting(const wxString& line) {
    const wxString key = line.BeforeFirst('=') + "=";
    ConfItem_cls* item = mDataLoader.GetItems().GetPCItem(key);
    return item && item->ReadStrLine(line);
}

void Main_cls::ReadLines(const std::string& text) {
    for (std::string_view rest = text; !rest.empty();) {
        const wxString line = TakeProjectLine(&rest);
        mDataLoader.ReadStrLine(line);
        if (!mSequence.IsKeyLine(line)) continue;
        const wxString path = TakeProjectLine(&rest);
        if (!path.empty()) OpenDataFile(path);
    }
}

bool Main_cls::ReadProjectFile(const wxString& path) {
    const auto file = InputFile_cls::Open(path);
    if (!file) {
        UserMessage_cls::Tell("Warning", "Read Configure Fails" + path);
        return false;
    }
    std::string text(std::min<uint64_t>(file->GetSize(), kMaxProjectByte), '\0');
    text.resize(file->ReadAt(0, text.data(), text.size()));
    ReadLines(text);
    return true;
}

void Main_cls::ReadConfigFile(const wxString& path) {
    if (InputFile_cls::CanOpen(path)) ReadProjectFile(path);
}

wxString Main_cls::SaveProjectFile(const wxString& path) {
    const wxString text = mDataLoader.Serialize() + mSequence.Serialize();
    return OutputFile_cls::WriteWhole(path, ToBytes(text), OutputFile_cls::Sync::Durable);
}
