#include "render/clsSpriteBatch.h"

#include <algorithm>

#include "render/clsGLAttribute.h"
#include "render/clsOpenGL.h"
#include "render/clsShaderCtrl.h"

namespace {

using SpriteShape = SpritePacker_cls::Shape;

/// Shorter runs of one shape than this, on average, cost more in calls than rectangles do.
constexpr size_t kShortRun = 64;
/// Rectangles expanded at a time.
constexpr size_t kQuadBlock = 4096;

template <class Vertex>
void SetColourAndPosition(const Vertex* first) {
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(Vertex), first->position.data());
    glColorPointer(4, GL_FLOAT, sizeof(Vertex), first->colour.data());
}

void DisableArrays() {
    glDisableClientState(GL_COLOR_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
}

size_t CountRuns(std::span<const SpriteShape> shapes) {
    size_t runs = 1;
    for (size_t i = 1; i < shapes.size(); ++i) runs += shapes[i] != shapes[i - 1] ? 1 : 0;
    return runs;
}

}  // namespace

bool SpriteBatch_cls::CanMixBlending() {
    GLint outputs = 0;
    glGetIntegerv(GL_MAX_DUAL_SOURCE_DRAW_BUFFERS, &outputs);
    return glGetError() == GL_NO_ERROR && outputs > 0;
}

void SpriteBatch_cls::SetBlending(unsigned int blendType) {
    if (blendType == GLAttribute_cls::kAlphaBlend) glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    if (blendType == GLAttribute_cls::kAdditive) glBlendFunc(GL_SRC_ALPHA, GL_ONE);
}

void SpriteBatch_cls::Begin(const DrawView_cls& view, const Look& look) {
    mView = &view;
    mLook = look;
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    glEnable(GL_BLEND);
    if (look.mixedBlending) {
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC1_ALPHA);
    } else {
        SetBlending(look.blendType);
    }
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    glBindTexture(GL_TEXTURE_2D, look.texture);
    glDisable(GL_LIGHTING);
}

void SpriteBatch_cls::DrawPoints(std::span<const Sprite_cls> sprites) {
    if (sprites.empty()) return;
    glPointSize(-sprites[0].size);
    SetColourAndPosition(sprites.data());
    glDrawArrays(GL_POINTS, 0, static_cast<GLsizei>(sprites.size()));
    DisableArrays();
}

void SpriteBatch_cls::Draw(const SpritePacker_cls& packer, std::span<const Sprite_cls> sprites,
                           std::span<const SpriteShape> shapes) {
    if (sprites.empty()) return;
    if (CountRuns(shapes) * kShortRun > shapes.size() + kShortRun || !UseProgram(false)) {
        DrawQuads(packer, sprites);
        ShaderCtrl_cls::Get().EndShader();
        return;
    }
    for (size_t begin = 0; begin < sprites.size();) {
        const auto run = shapes.begin() + static_cast<ptrdiff_t>(begin);
        const auto end = std::find_if(run, shapes.end(), [&](SpriteShape shape) { return shape != *run; });
        const auto count = static_cast<size_t>(end - run);
        if (*run == SpriteShape::Quad) {
            DrawQuads(packer, sprites.subspan(begin, count));
        } else {
            DrawSprites(sprites.subspan(begin, count));
        }
        begin += count;
    }
    ShaderCtrl_cls::Get().EndShader();
}

bool SpriteBatch_cls::UseProgram(bool quads) {
    using Batch = ShaderCtrl_cls::Batch;
    ShaderProgram_cls* program =
        ShaderCtrl_cls::Get().BeginBatch({.form = quads ? Batch::Form::SpriteQuads : Batch::Form::Sprites,
                                          .mixedBlending = mLook.mixedBlending});
    if (!program) return false;
    glUniform1i(program->GetUniform("picture"), 0);
    glUniform1f(program->GetUniform("pixelsPerUnit"), mView->pixelsPerUnit * mView->scale);
    glUniform2f(program->GetUniform("pointShift"), 2.0F / 256.0F / static_cast<float>(mView->viewport[2]),
                2.0F / 256.0F / static_cast<float>(mView->viewport[3]));
    return true;
}

void SpriteBatch_cls::DrawSprites(std::span<const Sprite_cls> sprites) {
    if (!UseProgram(false)) return;
    glEnable(GL_VERTEX_PROGRAM_POINT_SIZE);
    glEnable(GL_POINT_SPRITE);
    SetColourAndPosition(sprites.data());
    glEnableVertexAttribArray(ShaderCtrl_cls::kSpriteSize);
    glVertexAttribPointer(ShaderCtrl_cls::kSpriteSize, 1, GL_FLOAT, GL_FALSE, sizeof(Sprite_cls),
                          &sprites[0].size);
    glDrawArrays(GL_POINTS, 0, static_cast<GLsizei>(sprites.size()));
    glDisableVertexAttribArray(ShaderCtrl_cls::kSpriteSize);
    DisableArrays();
    glDisable(GL_POINT_SPRITE);
    glDisable(GL_VERTEX_PROGRAM_POINT_SIZE);
}

void SpriteBatch_cls::DrawQuads(const SpritePacker_cls& packer, std::span<const Sprite_cls> sprites) {
    const bool hasProgram = UseProgram(true);
    for (size_t begin = 0; begin < sprites.size(); begin += kQuadBlock) {
        const auto block = sprites.subspan(begin, std::min(kQuadBlock, sprites.size() - begin));
        mCorners.resize(4 * block.size());
        for (size_t i = 0; i < block.size(); ++i) packer.MakeQuad(block[i], &mCorners[4 * i]);
        SetColourAndPosition(mCorners.data());
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        glTexCoordPointer(3, GL_FLOAT, sizeof(SpriteCorner_cls), mCorners[0].place.data());
        if (hasProgram) {
            glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(mCorners.size()));
        } else {
            DrawFixedQuads();
        }
        glDisableClientState(GL_TEXTURE_COORD_ARRAY);
        DisableArrays();
    }
}

void SpriteBatch_cls::DrawFixedQuads() const {
    // Points and billboards differ in whether the texture is on.
    const auto isTextured = [&](size_t corner) { return mCorners[corner].place[2] > 0.0F; };
    for (size_t begin = 0; begin < mCorners.size();) {
        size_t end = begin + 4;
        while (end < mCorners.size() && isTextured(end) == isTextured(begin)) end += 4;
        if (isTextured(begin)) {
            glEnable(GL_TEXTURE_2D);
        } else {
            glDisable(GL_TEXTURE_2D);
        }
        // The third texture coordinate is a mark of ours, not a place.
        glTexCoordPointer(2, GL_FLOAT, sizeof(SpriteCorner_cls), mCorners[0].place.data());
        glDrawArrays(GL_QUADS, static_cast<GLint>(begin), static_cast<GLsizei>(end - begin));
        begin = end;
    }
    glDisable(GL_TEXTURE_2D);
}
