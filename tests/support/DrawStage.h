#pragma once

#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "interp/clsSnapData.h"
#include "render/clsDrawOption.h"
#include "render/clsGLAttribute.h"
#include "render/clsGLDrawData.h"
#include "render/clsOffscreenBuffer.h"
#include "render/clsOffscreenContext.h"
#include "render/clsPanelShared.h"
#include "render/clsShadowSettings.h"

/// Particles, attributes and options that a test sets, drawn into a small off-screen picture by
/// GLDrawData_cls or by a reference.
class DrawStage_cls {
  public:
    static constexpr int kWidth = 160;
    static constexpr int kHeight = 120;
    static constexpr int kSide = 160;  ///< of the viewport, a square around the picture

    DrawStage_cls();

    void Add(float x, float y, float z, float radius, float value, uint8_t type);
    /// A cloud about the origin that the camera sees from (0, 0, 5), the same every time.
    void AddCloud(int count, float radius);
    /// A setting of attribute `type` by its key without prefix, as in a project: "DrawType=1".
    void Set(int type, const std::string& line);
    void SetAll(const std::string& line);
    /// Data and camera moved together.
    void SetPlace(const Vector3& place) { mPlace = place; }
    /// All lengths, the camera's distance too; a power of two.
    void SetScale(double scale) { mScale = scale; }
    void SetOrthographic(bool orthographic) { mIsOrthographic = orthographic; }

    const SnapData_cls& MakeState();
    /// Clears the picture to dark blue and loads projection and camera.
    void Prepare();
    std::vector<uint8_t> Draw();
    std::vector<uint8_t> Read() const { return mBuffer->ReadRGB(); }

    DrawOption_cls mOption;
    PanelShared_cls mShared;
    ShadowSettings_cls mShadow;
    DrawAttributes_cls mAttributes{};
    std::vector<float> mPosition, mRadius, mValue;
    std::vector<uint8_t> mType;
    std::unique_ptr<OffscreenContext_cls> mContext;
    std::unique_ptr<GLDrawData_cls> mDraw;

    Vector3 GetCamera() const { return {mPlace[0], mPlace[1], mPlace[2] + 5.0 * mScale}; }

  private:
    std::unique_ptr<OffscreenBuffer_cls> mBuffer;
    std::vector<std::unique_ptr<GLAttribute_cls>> mOwned;
    SnapData_cls mState;
    std::vector<float> mMoved, mScaledRadius;
    Vector3 mPlace{};
    double mScale = 1.0;
    bool mIsOrthographic = false;
};

/// How far two pictures differ, in steps of 1/255.
struct PictureDifference_cls {
    int largest = 0;
    double mean = 0.0;
    static PictureDifference_cls Of(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b);
};
