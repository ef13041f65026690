#include "render/clsOffscreenBuffer.h"

#include <algorithm>
#include <cstdio>

#include "render/clsOpenGL.h"
#include "seam/clsClock.h"

namespace {

constexpr GLuint64 kFenceNanoseconds = 5'000'000;

bool HasFences() {
    const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    int major = 0;
    int minor = 0;
    return version && std::sscanf(version, "%d.%d", &major, &minor) == 2 && major * 10 + minor >= 32;
}

}  // namespace

std::unique_ptr<OffscreenBuffer_cls> OffscreenBuffer_cls::Create(int width, int height) {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &largest);
    if (width < 1 || height < 1 || width > largest || height > largest) return nullptr;

    std::unique_ptr<OffscreenBuffer_cls> buffer(new OffscreenBuffer_cls(width, height));
    glGenFramebuffers(1, &buffer->mFrameBuffer);
    glGenRenderbuffers(1, &buffer->mColour);
    glGenRenderbuffers(1, &buffer->mDepthStencil);

    glBindRenderbuffer(GL_RENDERBUFFER, buffer->mColour);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, width, height);
    glBindRenderbuffer(GL_RENDERBUFFER, buffer->mDepthStencil);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH24_STENCIL8, width, height);

    buffer->Bind();
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, buffer->mColour);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_STENCIL_ATTACHMENT, GL_RENDERBUFFER,
                              buffer->mDepthStencil);
    if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) return nullptr;
    return buffer;
}

OffscreenBuffer_cls::~OffscreenBuffer_cls() {
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    glDeleteFramebuffers(1, &mFrameBuffer);
    glDeleteRenderbuffers(1, &mColour);
    glDeleteRenderbuffers(1, &mDepthStencil);
}

void OffscreenBuffer_cls::Bind() const {
    glBindFramebuffer(GL_FRAMEBUFFER, mFrameBuffer);
}

void OffscreenBuffer_cls::CopyToWindow(int width, int height) const {
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    glDisable(GL_SCISSOR_TEST);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    if (width != mWidth || height != mHeight) {
        glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
        glClear(GL_COLOR_BUFFER_BIT);
    }
    const int x = (width - mWidth) / 2;
    const int y = (height - mHeight) / 2;
    glBindFramebuffer(GL_READ_FRAMEBUFFER, mFrameBuffer);
    glBlitFramebuffer(0, 0, mWidth, mHeight, x, y, x + mWidth, y + mHeight, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
}

void OffscreenBuffer_cls::Flush() const {
    glFlush();
}

void OffscreenBuffer_cls::Finish() const {
    // Without fences whoever needs the picture waits for it, all in one go.
    if (!HasFences()) return;
    const GLsync fence = glFenceSync(GL_SYNC_GPU_COMMANDS_COMPLETE, 0);
    while (glClientWaitSync(fence, GL_SYNC_FLUSH_COMMANDS_BIT, kFenceNanoseconds) == GL_TIMEOUT_EXPIRED)
        Clock_cls::Current().Breathe();
    glDeleteSync(fence);
}

std::vector<uint8_t> OffscreenBuffer_cls::ReadRGB() const {
    const size_t row = 3 * static_cast<size_t>(mWidth);
    std::vector<uint8_t> pixels(row * static_cast<size_t>(mHeight));
    Bind();
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, mWidth, mHeight, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    // OpenGL's first row is the lowest.
    for (size_t low = 0, high = static_cast<size_t>(mHeight) - 1; low < high; ++low, --high) {
        std::swap_ranges(pixels.begin() + static_cast<ptrdiff_t>(low * row),
                         pixels.begin() + static_cast<ptrdiff_t>((low + 1) * row),
                         pixels.begin() + static_cast<ptrdiff_t>(high * row));
    }
    return pixels;
}
