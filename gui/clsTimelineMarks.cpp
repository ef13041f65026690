#include "gui/clsTimelineMarks.h"

#include <algorithm>
#include <cmath>

std::vector<TimelineMarks_cls::Mark> TimelineMarks_cls::Gather(const TimelineModel_cls& model,
                                                               const TimelineKeys_cls::Lane& lane, int fromX,
                                                               int toX) {
    if (toX < fromX) return {};
    constexpr int kNone = -1;
    constexpr int kMixed = -2;
    struct Pixel {
        int type = kNone;
        bool selected = false;
    };
    std::vector<Pixel> pixels(static_cast<size_t>(toX - fromX + 1));
    for (const Parameters_cls* parameter : lane) {
        if (!parameter->IsTimeDependent()) continue;
        const std::vector<KeyFrame_cls>& keys = parameter->GetKeys();
        auto key = std::partition_point(keys.begin(), keys.end(), [&](const KeyFrame_cls& k) {
            return model.ToX(k.mTime) < fromX - 0.5;
        });
        for (; key != keys.end(); ++key) {
            const double x = std::round(model.ToX(key->mTime));
            if (x > toX) break;
            if (x < fromX) continue;
            Pixel& pixel = pixels[static_cast<size_t>(x - fromX)];
            const int type = static_cast<int>(std::min<unsigned int>(key->mType, KeyFrame_cls::kTypeCount));
            pixel.type = pixel.type == kNone || pixel.type == type ? type : kMixed;
            pixel.selected = pixel.selected || key->mSelected;
        }
    }
    std::vector<Mark> marks;
    for (size_t i = 0; i < pixels.size(); ++i) {
        const Pixel& pixel = pixels[i];
        if (pixel.type == kNone) continue;
        const bool known = pixel.type >= 0 && pixel.type < static_cast<int>(KeyFrame_cls::kTypeCount);
        marks.push_back({fromX + static_cast<int>(i), known ? static_cast<unsigned int>(pixel.type) : 0U,
                         pixel.type == kMixed, pixel.selected});
    }
    return marks;
}

std::vector<TimelineMarks_cls::Run> TimelineMarks_cls::GetRuns(const std::vector<Mark>& marks, int distance) {
    std::vector<Run> runs;
    for (size_t first = 0; first < marks.size();) {
        size_t last = first;
        while (last + 1 < marks.size() && marks[last + 1].selected == marks[first].selected &&
               marks[last + 1].x - marks[last].x < distance) {
            ++last;
        }
        if (last - first < 2) last = first;
        runs.push_back({first, last});
        first = last + 1;
    }
    return runs;
}
