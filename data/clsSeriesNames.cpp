#include "data/clsSeriesNames.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "data/clsFileSequence.h"
#include "data/clsSplitPath.h"
#include "seam/clsTextCoding.h"

namespace {

constexpr std::string_view kDigits = "0123456789";

/// A name cut around one of its numbers.
struct Cut {
    std::string_view prefix;
    std::string_view number;
    std::string_view suffix;
};

/// All numbers of a name, the last first: it is the one that counts most often.
std::vector<Cut> NumbersOf(std::string_view name) {
    std::vector<Cut> cuts;
    for (size_t end = name.find_last_of(kDigits); end != std::string_view::npos;) {
        const size_t before = name.find_last_not_of(kDigits, end);
        const size_t begin = before == std::string_view::npos ? 0 : before + 1;
        cuts.push_back({name.substr(0, begin), name.substr(begin, end + 1 - begin), name.substr(end + 1)});
        end = begin == 0 ? std::string_view::npos : name.find_last_of(kDigits, begin - 1);
    }
    return cuts;
}

/// Numbers of any length, compared as numbers; equal ones by their zeros.
struct ByNumber {
    static std::string_view WithoutZeros(std::string_view number) {
        return number.substr(std::min(number.find_first_not_of('0'), number.size()));
    }
    bool operator()(std::string_view a, std::string_view b) const {
        const std::string_view shortA = WithoutZeros(a);
        const std::string_view shortB = WithoutZeros(b);
        if (shortA.size() != shortB.size()) return shortA.size() < shortB.size();
        return shortA != shortB ? shortA < shortB : a.size() < b.size();
    }
};

/// The number of a name that has the prefix and suffix around it; empty when it has not.
std::string_view NumberBetween(std::string_view name, const Cut& cut) {
    if (name.size() <= cut.prefix.size() + cut.suffix.size() || !name.starts_with(cut.prefix) ||
        !name.ends_with(cut.suffix))
        return {};
    const auto number = name.substr(cut.prefix.size(), name.size() - cut.prefix.size() - cut.suffix.size());
    return number.find_first_not_of(kDigits) == std::string_view::npos ? number : std::string_view();
}

std::vector<std::string> ListFolder(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code failed;
    for (std::filesystem::directory_iterator i(folder.empty() ? "." : folder, failed), end;
         !failed && i != end; i.increment(failed)) {
        names.push_back(i->path().filename().string());
    }
    return names;
}

}  // namespace

SeriesNames_cls SeriesNames_cls::Find(const wxString& path) {
    SeriesNames_cls series;
    series.mFolder = SplitPath_cls(path).mDirectory;
    const std::string name = ToBytes(path.substr(series.mFolder.length()));
    series.mNames = {name};
    series.mPrefix = name;
    const std::vector<std::string> listed = ListFolder(ToBytes(series.mFolder));
    for (const Cut& cut : NumbersOf(name)) {
        std::vector<std::string_view> numbers;
        for (const std::string& other : listed) {
            const std::string_view number = NumberBetween(other, cut);
            if (!number.empty() && !ByNumber()(number, cut.number)) numbers.push_back(number);
        }
        if (numbers.size() < 2) continue;
        std::ranges::sort(numbers, ByNumber());
        series.mPrefix = cut.prefix;
        series.mSuffix = cut.suffix;
        series.mNames.clear();
        for (const std::string_view number : numbers)
            series.mNames.push_back(series.mPrefix + std::string(number) + series.mSuffix);
        break;
    }
    return series;
}

bool SeriesNames_cls::IsOrdinary() const {
    if (mNames.size() < 2) return true;
    const FileSequence_cls files(mFolder + FromBytes(mNames.front()));
    if (!files.IsNumbered()) return false;
    for (size_t i = 0; i < mNames.size(); ++i) {
        if (files.GetModifiedStr(static_cast<int>(i)) != mFolder + FromBytes(mNames[i])) return false;
    }
    return true;
}

wxString SeriesNames_cls::Describe() const {
    if (mNames.size() < 2) return mNames.empty() ? wxString() : FromBytes(mNames.front());
    return FromBytes(mNames.front()) + " to " + FromBytes(mNames.back()) +
           wxString::Format(", %zu files", mNames.size());
}
