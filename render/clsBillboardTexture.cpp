#include "render/clsBillboardTexture.h"

#include <wx/image.h>

#include <algorithm>
#include <cmath>

#include "render/clsBillboardFile.h"
#include "render/clsGLContext.h"
#include "render/clsOpenGL.h"
#include "seam/clsUserMessage.h"

namespace {

constexpr int kSoftSide = 64;

}  // namespace

void BillboardTexture_cls::RefreshTex(const wxString& file) {
    const auto old = mNames.find(GLContext_cls::GetCurrentGroup());
    if (old != mNames.end()) glDeleteTextures(1, &old->second);
    // Those of other groups are made anew when these are current.
    mNames.clear();
    mToldFile.clear();
    GetName(file);
}

unsigned int BillboardTexture_cls::GetName(const wxString& file) {
    const auto known = mNames.find(GLContext_cls::GetCurrentGroup());
    if (file == mFile && known != mNames.end()) return known->second;
    if (file != mFile) mNames.clear();
    mFile = file;
    Load();
    const unsigned int name = Upload();
    DeleteBufferRGBA();
    return mNames[GLContext_cls::GetCurrentGroup()] = name;
}

void BillboardTexture_cls::Load() {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    wxString words;
    const wxImage image = ReadBillboard(mFile, largest, &words);
    if (image.IsOk()) {
        GenerateBufferRGBA(image);
        return;
    }
    MakeSoftSprite();
    if (mToldFile == mFile) return;
    mToldFile = mFile;
    UserMessage_cls::Tell("Warning", words);
}

void BillboardTexture_cls::GenerateBufferRGBA(const wxImage& image) {
    mWidth = image.GetWidth();
    mHeight = image.GetHeight();
    const auto count = static_cast<size_t>(mWidth) * static_cast<size_t>(mHeight);
    const unsigned char* rgb = image.GetData();
    const unsigned char* alpha = image.GetAlpha();
    mPixels.resize(4 * count);
    for (size_t i = 0; i < count; ++i) {
        std::copy_n(rgb + 3 * i, 3, mPixels.data() + 4 * i);
        mPixels[4 * i + 3] = alpha[i];
    }
}

void BillboardTexture_cls::DeleteBufferRGBA() {
    mPixels = {};
}

void BillboardTexture_cls::MakeSoftSprite() {
    mWidth = kSoftSide;
    mHeight = kSoftSide;
    mPixels.assign(4 * kSoftSide * kSoftSide, 255);
    for (int y = 0; y < kSoftSide; ++y) {
        for (int x = 0; x < kSoftSide; ++x) {
            const double r =
                std::hypot(x + 0.5 - kSoftSide / 2.0, y + 0.5 - kSoftSide / 2.0) / (kSoftSide / 2.0);
            const double fall = std::max(1.0 - r * r, 0.0);
            mPixels[static_cast<size_t>(4 * (y * kSoftSide + x) + 3)] =
                static_cast<uint8_t>(std::lround(255.0 * fall * fall * std::exp(-2.0 * r * r)));
        }
    }
}

unsigned int BillboardTexture_cls::Upload() const {
    GLuint name = 0;
    glGenTextures(1, &name);
    glPushAttrib(GL_TEXTURE_BIT);
    glBindTexture(GL_TEXTURE_2D, name);
    for (const GLenum direction : {GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T})
        glTexParameteri(GL_TEXTURE_2D, direction, GL_REPEAT);
    for (const GLenum filter : {GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER})
        glTexParameteri(GL_TEXTURE_2D, filter, GL_NEAREST);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, mWidth, mHeight, 0, GL_RGBA, GL_UNSIGNED_BYTE, mPixels.data());
    glPopAttrib();
    return name;
}
