#include "data/clsSeriesFolder.h"

#include <wx/stdpaths.h>

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "data/clsFileSequence.h"
#include "data/clsSplitPath.h"
#include "seam/clsTextCoding.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kRootName = "/varnholt3/series";
/// Behind the file's name: the folder holds its steps rather than links to its series.
constexpr const char* kStepsTag = ".steps";
constexpr size_t kNumberWidth = 5;
constexpr auto kStaleAge = std::chrono::hours(24 * 30);

/// Dots would make the number an extension, and "%" a pattern.
std::string Plain(std::string_view text) {
    std::string plain(text);
    std::ranges::replace_if(
        plain, [](char c) { return c == '.' || c == '%'; }, '_');
    // A digit before the number would become part of it.
    if (plain.empty() || plain.back() != '_') plain += '_';
    return plain;
}

/// The last extension, when it is a word and no number.
std::string Extension(const std::string& name) {
    const std::string extension = fs::path(name).extension().string();
    const bool isPlain = extension.find_first_of("0123456789%") == std::string::npos;
    return isPlain && extension.size() > 1 ? extension : std::string();
}

std::string StemOf(const std::string& name) {
    return name.substr(0, name.size() - fs::path(name).extension().string().size());
}

bool IsOld(const fs::path& path) {
    std::error_code failed;
    const auto time = fs::last_write_time(path, failed);
    return !failed && fs::file_time_type::clock::now() - time > kStaleAge;
}

std::string Replaced(std::string text, std::string_view what, std::string_view by) {
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
    return text;
}

/// The path of a file as a part of the folder's own: "%05d" in it would name a series.
std::string Encoded(const std::string& path) {
    return Replaced(path, "%", "%25");
}

/// The file that a folder below a root was made for, by the folder's path behind that root.
fs::path SourceOf(std::string name) {
    if (name.ends_with(kStepsTag)) name.resize(name.size() - std::string_view(kStepsTag).size());
    return Replaced(std::move(name), "%25", "%");
}

/// Removes what is stale below a folder, and the folder when it is empty then.
void RemoveStaleBelow(const fs::path& folder, const fs::path& root) {
    std::error_code failed;
    bool isSeries = false;
    std::vector<fs::path> folders;
    for (fs::directory_iterator i(folder, failed), end; !failed && i != end; i.increment(failed)) {
        // Links and files stand in the folder of a series only; one is enough to know it.
        isSeries = i->is_symlink(failed) || !i->is_directory(failed);
        if (isSeries) break;
        folders.push_back(i->path());
    }
    const bool isPart = folder.filename().string().find(SeriesFolder_cls::kPartTag) != std::string::npos;
    if (isSeries || isPart) {
        if (IsOld(folder) &&
            (isPart || !fs::exists(SourceOf("/" + folder.lexically_relative(root).string()), failed)))
            fs::remove_all(folder, failed);
        return;
    }
    for (const fs::path& inner : folders) RemoveStaleBelow(inner, root);
    // Fails, as it should, where something is left.
    if (folder != root) fs::remove(folder, failed);
}

}  // namespace

SeriesFolder_cls::SeriesFolder_cls(const wxString& file, Content content) : mContent(content) {
    std::error_code failed;
    const fs::path absolute = fs::absolute(ToBytes(file), failed).lexically_normal();
    const std::string name = absolute.filename().string();
    mFile = FromBytes(absolute.string());
    mPath = GetRoot() + FromBytes(Encoded(absolute.string())) + (content == Content::Steps ? kStepsTag : "");
    const std::string extension = Extension(name);
    mMemberSuffix = extension;
    // The number of the first file says nothing of the others.
    std::string stem = extension.empty() ? name : StemOf(name);
    stem.resize(stem.find_last_not_of("0123456789") + 1);
    mMemberPrefix = Plain(stem);
}

wxString SeriesFolder_cls::GetRoot() {
    return wxStandardPaths::Get().GetUserDir(wxStandardPaths::Dir_Cache) + kRootName;
}

wxString SeriesFolder_cls::GetMemberName(size_t number) const {
    std::string digits = std::to_string(number);
    if (digits.size() < kNumberWidth) digits.insert(0, kNumberWidth - digits.size(), '0');
    return FromBytes(mMemberPrefix + digits + mMemberSuffix);
}

wxString SeriesFolder_cls::GetMember(size_t number) const {
    return mPath + "/" + GetMemberName(number);
}

wxString SeriesFolder_cls::MakeLinks(const SeriesNames_cls& names) const {
    if (GetMember(0).length() > FileSequence_cls::kLongestName) return mPath + ": the name is too long";
    const fs::path folder = ToBytes(mPath);
    const fs::path source = fs::path(ToBytes(mFile)).parent_path();
    std::error_code failed;
    fs::create_directories(folder, failed);
    const size_t count = std::min(names.mNames.size(), kMostMembers);
    for (size_t i = 0; i < count && !failed; ++i) {
        const fs::path link = ToBytes(GetMember(i));
        const fs::path target = source / names.mNames[i];
        std::error_code absent;
        if (fs::read_symlink(link, absent) == target) continue;
        fs::remove(link, absent);
        fs::create_symlink(target, link, failed);
    }
    // A series that has become shorter ends here.
    std::error_code ignored;
    for (size_t i = count; !failed && fs::remove(ToBytes(GetMember(i)), ignored); ++i) {
    }
    return failed ? mPath + ": " + FromBytes(failed.message()) : wxString();
}

std::optional<SeriesFolder_cls> SeriesFolder_cls::Of(const wxString& path) {
    const std::string bytes = ToBytes(path);
    const size_t root = bytes.find(std::string(kRootName).append("/"));
    if (root == std::string::npos) return std::nullopt;
    std::error_code failed;
    if (!path.StartsWith(GetRoot() + "/") && fs::exists(bytes, failed)) return std::nullopt;
    const std::string folder =
        fs::path(bytes.substr(root + std::string_view(kRootName).size())).parent_path();
    return SeriesFolder_cls(FromBytes(SourceOf(folder).string()),
                            folder.ends_with(kStepsTag) ? Content::Steps : Content::Links);
}

wxString SeriesFolder_cls::GetSource(const wxString& path) {
    const auto folder = Of(path);
    return folder ? folder->GetFile() : path;
}

void SeriesFolder_cls::RemoveStale() {
    const fs::path root = ToBytes(GetRoot());
    std::error_code failed;
    if (fs::is_directory(root, failed)) RemoveStaleBelow(root, root);
}
