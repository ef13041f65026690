#include "render/clsColorCurveTemplateSet.h"

ColorCurveTemplateSet_cls::ColorCurveTemplateSet_cls() {
    struct Template {
        const char* name;
        std::vector<ColorCurve_cls::Key> keys;
    };
    const std::vector<Template> templates = {
        {"Red Yellow", {{0, 1, 0, 0, 1}, {1, 1, 1, 0, 1}}},
        {"Green Red", {{0, 0, 1, 0, 1}, {1, 1, 0, 0, 1}}},
        {"Black White", {{0, 0, 0, 0, 1}, {1, 1, 1, 1, 1}}},
        {"Cold Color", {{0, 0, 0, 1, 1}, {1, 0, 1, 1, 1}}},
        {"Moderate Gray", {{0, 0.5, 0.5, 0.5, 1}, {1, 0.75, 0.75, 0.75, 1}}},
        {"Spectrum",
         {{0, 0.03, 0, 0.07, 1},
          {0.167, 0.32, 0, 0.77, 1},
          {0.333, 0, 0.31, 0.59, 1},
          {0.5, 0, 0.78, 0, 1},
          {0.666, 0.82, 0.56, 0, 1},
          {0.833, 0.84, 0, 0, 1},
          {1, 0.26, 0, 0, 1}}},
        {"SpectrumRGB",
         {{0, 1, 0, 0, 1},
          {0.25, 0.5, 0, 0.5, 1},
          {0.5, 0, 0, 1, 1},
          {0.75, 0, 0.5, 0.5, 1},
          {1, 0, 1, 0, 1}}},
        {"Incandescent",
         {{0, 0, 0, 0, 1},
          {0.594, 0.73, 0, 0, 1},
          {0.809, 1, 0.55, 0.2, 1},
          {0.9, 0.97, 0.94, 0.07, 1},
          {1, 0.97, 0.97, 0.83, 1}}},
        {"ColdSteel", {{0, 1, 1, 1, 1}, {0.645, 0.05, 0.02, 0.14, 1}, {1, 0.36, 0.73, 0.76, 1}}},
    };
    for (const Template& entry : templates) {
        mCurves.push_back(std::make_unique<ColorCurve_cls>("", entry.name, "1 0.8 0.6 1", entry.keys));
    }
}
