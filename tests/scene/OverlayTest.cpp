#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "scene/clsBitmapFont.h"
#include "scene/clsOverlayText.h"
#include "scene/clsSceneGuides.h"
#include "support/Printing.h"

namespace {

TEST(OverlayTest, TimesKeepTheirWidth) {
    const std::pair<double, const char*> cases[] = {{0.0, "t = 0.0000"},
                                                    {3.25, "t = 3.2500"},
                                                    {-12.8, "t = -12.800"},
                                                    {99999.6, "t = 1.0000e+05"},
                                                    {0.00125, "t = 0.0012500"},
                                                    {1e-9, "t = 1.0000e-09"},
                                                    {NAN, "t = ?"}};
    for (const auto& [time, text] : cases) EXPECT_EQ(OverlayText_cls::FormatTime(time), text);
}

TEST(OverlayTest, AllFontsKnowAllTheirGlyphs) {
    for (unsigned int i = 0; i < BitmapFont_cls::kFonts; ++i) {
        const auto font = static_cast<BitmapFont_cls::Font>(i);
        const BitmapFont_cls one(font);
        const auto pixels = one.Rasterise(wxString::FromUTF8("jW\u00b0"));
        EXPECT_LT(pixels.mBottom, 0) << "the tail of the j";
        EXPECT_GT(one.GetWidth("W"), one.GetWidth("j"));
        EXPECT_EQ(one.Rasterise(wxString::FromUTF8("\u4e2d")).mBits, one.Rasterise("?").mBits);
        const auto large = BitmapFont_cls(font, 3).Rasterise(wxString::FromUTF8("jW\u00b0"));
        EXPECT_EQ(std::count(large.mBits.begin(), large.mBits.end(), 1),
                  9 * std::count(pixels.mBits.begin(), pixels.mBits.end(), 1));
    }
}

TEST(OverlayTest, GridsStandAtRoundNumbers) {
    const std::pair<double, double> cases[] = {
        {1.0, 1.0}, {1.1, 2.0}, {0.02, 0.02}, {0.021, 0.05}, {6e7, 1e8}};
    for (const auto& [length, round] : cases)
        EXPECT_NEAR(SceneGuides_cls::RoundUp(length) / round, 1.0, 1e-9);
}

}  // namespace
