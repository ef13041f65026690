#include "support/DrawStage.h"

#include <gtest/gtest.h>
#include <wx/image.h>

#include <cstdlib>

#include "render/clsOpenGL.h"
#include "seam/clsLineStream.h"
#include "seam/clsResourcePath.h"

DrawStage_cls::DrawStage_cls() {
    if (!wxImage::FindHandler(wxBITMAP_TYPE_PNG)) wxInitAllImageHandlers();
    ResourcePath_cls::SetProgramFolder(VARNHOLT_SOURCE_DIR);
    wxString why;
    mContext = OffscreenContext_cls::Create(&why);
    EXPECT_TRUE(mContext) << why;
    mBuffer = OffscreenBuffer_cls::Create(kWidth, kHeight);
    for (int i = 0; i < 4; ++i) {
        mOwned.push_back(std::make_unique<GLAttribute_cls>(0, i));
        mAttributes[static_cast<size_t>(i)] = mOwned.back().get();
    }
    mDraw = std::make_unique<GLDrawData_cls>(mOption, mShadow, mShared);
    DrawLight_cls light;
    light.mVector = {0.5, 0.7, 1.0};
    mDraw->SetLightSourceInfo(0, light, 1.0, 1.0F);
}

void DrawStage_cls::Add(float x, float y, float z, float radius, float value, uint8_t type) {
    mPosition.insert(mPosition.end(), {x, y, z});
    mRadius.push_back(radius);
    mValue.push_back(value);
    mType.push_back(type);
}

void DrawStage_cls::AddCloud(int count, float radius) {
    std::mt19937 random(7);
    const auto unit = [&] { return static_cast<float>(random() % 10007) / 10007.0F; };
    for (int i = 0; i < count; ++i) {
        const float x = 4.0F * unit() - 2.0F;
        const float y = 3.0F * unit() - 1.5F;
        const float z = 4.0F * unit() - 2.0F;
        const float r = radius * (0.2F + 1.8F * unit());
        const float value = unit();
        Add(x, y, z, r, value, static_cast<uint8_t>(random() % 4));
    }
}

void DrawStage_cls::Set(int type, const std::string& line) {
    LineStream_cls none("");
    GLAttribute_cls& attribute = *mAttributes[static_cast<size_t>(type)];
    EXPECT_TRUE(attribute.ReadStrLine(none, wxString::Format("SEQ0TYPE%d", type) + line)) << line;
}

void DrawStage_cls::SetAll(const std::string& line) {
    for (int type = 0; type < 4; ++type) Set(type, line);
}

const SnapData_cls& DrawStage_cls::MakeState() {
    mMoved = mPosition;
    const auto scale = static_cast<float>(mScale);
    for (size_t i = 0; i < mMoved.size(); ++i)
        mMoved[i] = mMoved[i] * scale + static_cast<float>(mPlace[i % 3]);
    mScaledRadius = mRadius;
    for (float& radius : mScaledRadius) radius *= scale;
    const std::vector<float> none(mPosition.size());
    SnapAttributes_cls attributes;
    for (size_t i = 0; i < attributes.size(); ++i) attributes[i] = mAttributes[i]->GetSnapAttribute();
    mState.Build({.block = reinterpret_cast<const PDataBlock_cls*>(this),
                  .count = static_cast<int>(mRadius.size()),
                  .position = mMoved.data(),
                  .velocity = none.data(),
                  .radius = mScaledRadius.data(),
                  .radiusWork = none.data(),
                  .value1 = mValue.data(),
                  .value1Work = none.data(),
                  .type = mType.data()},
                 attributes, 0.0, mOption.GetStep());
    return mState;
}

void DrawStage_cls::Prepare() {
    mBuffer->Bind();
    glViewport(0, (kHeight - kSide) / 2, kSide, kSide);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    if (mIsOrthographic) {
        glOrtho(-2.0 * mScale, 2.0 * mScale, -2.0 * mScale, 2.0 * mScale, -100.0 * mScale, 100.0 * mScale);
    } else {
        gluPerspective(50.0, 1.0, 0.1 * mScale, 100.0 * mScale);
    }
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    const Vector3 camera = GetCamera();
    glTranslated(-camera[0], -camera[1], -camera[2]);
    glDepthMask(GL_TRUE);
    glClearColor(0.0F, 0.0F, 0.2F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    mDraw->SetCameraPos(GetCamera());
    mDraw->SetViewDirection({0.0, 0.0, -1.0}, mIsOrthographic);
}

std::vector<uint8_t> DrawStage_cls::Draw() {
    const SnapData_cls& state = MakeState();
    Prepare();
    mDraw->GLDraw(0, state, mAttributes);
    return Read();
}

PictureDifference_cls PictureDifference_cls::Of(const std::vector<uint8_t>& a,
                                                const std::vector<uint8_t>& b) {
    PictureDifference_cls difference;
    EXPECT_EQ(a.size(), b.size());
    for (size_t i = 0; i < a.size(); ++i) {
        const int one = std::abs(a[i] - b[i]);
        difference.largest = std::max(difference.largest, one);
        difference.mean += one;
    }
    difference.mean /= static_cast<double>(a.size());
    return difference;
}
