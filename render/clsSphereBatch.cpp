#include "render/clsSphereBatch.h"

#include <algorithm>

#include "render/clsOpenGL.h"
#include "render/clsShaderCtrl.h"
#include "render/clsSphereModel.h"
#include "render/clsSpriteBatch.h"

namespace {

using SphereShape = SpherePacker_cls::Shape;
using Form = ShaderCtrl_cls::Batch::Form;

/// The exponent of the fixed function's highlights; the shaders have the same.
constexpr float kShininess = 32.0F;

constexpr std::array<std::array<float, 2>, 4> kCorners = {{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};

/// Points the batch's inputs to the spheres: one sphere a vertex, or one for each copy of the model.
void SetInputs(const Sphere_cls* first, unsigned int copies) {
    const auto set = [&](GLuint input, const std::array<float, 4>& field) {
        glEnableVertexAttribArray(input);
        glVertexAttribPointer(input, 4, GL_FLOAT, GL_FALSE, sizeof(Sphere_cls), field.data());
        glVertexAttribDivisor(input, copies);
    };
    set(ShaderCtrl_cls::kSphere, first->sphere);
    set(ShaderCtrl_cls::kAmbient, first->ambient);
    set(ShaderCtrl_cls::kDiffuse, first->diffuse);
    set(ShaderCtrl_cls::kSpecular, first->specular);
}

void ResetInputs() {
    for (const GLuint input : {ShaderCtrl_cls::kSphere, ShaderCtrl_cls::kAmbient, ShaderCtrl_cls::kDiffuse,
                               ShaderCtrl_cls::kSpecular}) {
        glVertexAttribDivisor(input, 0);
        glDisableVertexAttribArray(input);
    }
}

bool CanDrawCopies() {
    static const bool can = [] {
        GLint major = 0;
        GLint minor = 0;
        glGetIntegerv(GL_MAJOR_VERSION, &major);
        glGetIntegerv(GL_MINOR_VERSION, &minor);
        return glGetError() == GL_NO_ERROR && 10 * major + minor >= 33;
    }();
    return can;
}

}  // namespace

void SphereBatch_cls::Begin(const DrawView_cls& view, const Look& look) {
    mView = &view;
    mLook = look;
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glEnable(GL_BLEND);
    SpriteBatch_cls::SetBlending(look.blendType);
}

void SphereBatch_cls::Draw(std::span<const Sphere_cls> spheres, std::span<const SphereShape> shapes) {
    if (mLook.quality != kRayCast || !UseRays(false)) {
        DrawMeshes(spheres);
    } else {
        for (size_t begin = 0; begin < spheres.size();) {
            const auto run = shapes.begin() + static_cast<ptrdiff_t>(begin);
            const auto end =
                std::find_if(run, shapes.end(), [&](SphereShape shape) { return shape != *run; });
            const auto count = static_cast<size_t>(end - run);
            DrawRays(spheres.subspan(begin, count), *run == SphereShape::Quad);
            begin += count;
        }
    }
    ShaderCtrl_cls::Get().EndShader();
}

ShaderProgram_cls* SphereBatch_cls::UseRays(bool quads) const {
    if (!CanDrawCopies()) return nullptr;
    ShaderProgram_cls* program =
        ShaderCtrl_cls::Get().BeginBatch({.form = quads ? Form::RayQuads : Form::RaySprites,
                                          .shaderType = mLook.shaderType,
                                          .lights = mLook.lights,
                                          .allDirected = mLook.allDirected,
                                          .orthographic = mView->isOrthographic});
    if (!program) return nullptr;
    glUniform1f(program->GetUniform("pixelsPerUnit"), mView->pixelsPerUnit);
    glUniform1f(program->GetUniform("eyeScale"), mView->scale);
    const auto& projection = mView->projection;
    const auto& viewport = mView->viewport;
    // Window pixel -> normalised device coordinate -> the eye's plane at distance 1.
    const auto axis = [&](size_t k, float* scale, float* offset) {
        const float toDevice = 2.0F / static_cast<float>(viewport[2 + k]);
        const float shift = mView->isOrthographic ? -projection[12 + k] : projection[8 + k];
        *scale = toDevice / projection[5 * k];
        *offset = (-1.0F - static_cast<float>(viewport[k]) * toDevice + shift) / projection[5 * k];
    };
    float scaleX = 0.0F;
    float scaleY = 0.0F;
    float offsetX = 0.0F;
    float offsetY = 0.0F;
    axis(0, &scaleX, &offsetX);
    axis(1, &scaleY, &offsetY);
    glUniform4f(program->GetUniform("windowToEye"), scaleX, scaleY, offsetX, offsetY);
    if (mView->isOrthographic) {
        glUniform2f(program->GetUniform("depthTerms"), 0.5F + 0.5F * projection[14], -0.5F * projection[10]);
    } else {
        glUniform2f(program->GetUniform("depthTerms"), 0.5F - 0.5F * projection[10], 0.5F * projection[14]);
    }
    return program;
}

void SphereBatch_cls::DrawRays(std::span<const Sphere_cls> spheres, bool quads) {
    if (!UseRays(quads)) return;
    const auto count = static_cast<GLsizei>(spheres.size());
    if (quads) {
        glEnableClientState(GL_VERTEX_ARRAY);
        glVertexPointer(2, GL_FLOAT, 0, kCorners.data());
        SetInputs(spheres.data(), 1);
        glDrawArraysInstanced(GL_TRIANGLE_FAN, 0, 4, count);
        ResetInputs();
        glDisableClientState(GL_VERTEX_ARRAY);
        return;
    }
    glEnable(GL_VERTEX_PROGRAM_POINT_SIZE);
    glEnable(GL_POINT_SPRITE);
    SetInputs(spheres.data(), 0);
    glDrawArrays(GL_POINTS, 0, count);
    ResetInputs();
    glDisable(GL_POINT_SPRITE);
    glDisable(GL_VERTEX_PROGRAM_POINT_SIZE);
}

void SphereBatch_cls::DrawMeshes(std::span<const Sphere_cls> spheres) const {
    const ShaderProgram_cls* program =
        CanDrawCopies() ? ShaderCtrl_cls::Get().BeginBatch({.form = Form::Mesh,
                                                            .shaderType = mLook.shaderType,
                                                            .lights = mLook.lights,
                                                            .allDirected = mLook.allDirected})
                        : nullptr;
    if (!program) {
        DrawFixed(spheres);
        return;
    }
    const auto& model = SphereModel_cls::Get(1 + static_cast<int>(std::min(mLook.quality, 2U)));
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, model.GetVertices().data());
    SetInputs(spheres.data(), 1);
    glDrawElementsInstanced(GL_TRIANGLES, static_cast<GLsizei>(model.GetIndices().size()), GL_UNSIGNED_SHORT,
                            model.GetIndices().data(), static_cast<GLsizei>(spheres.size()));
    ResetInputs();
    glDisableClientState(GL_VERTEX_ARRAY);
}

void SphereBatch_cls::DrawFixed(std::span<const Sphere_cls> spheres) const {
    const auto& model = SphereModel_cls::Get(1 + static_cast<int>(std::min(mLook.quality, 2U)));
    glEnable(GL_LIGHTING);
    glEnable(GL_NORMALIZE);
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, kShininess);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, model.GetVertices().data());
    glNormalPointer(GL_FLOAT, 0, model.GetVertices().data());
    for (const Sphere_cls& sphere : spheres) {
        glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, sphere.ambient.data());
        glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, sphere.diffuse.data());
        glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, sphere.specular.data());
        glPushMatrix();
        glTranslatef(sphere.sphere[0], sphere.sphere[1], sphere.sphere[2]);
        glScalef(sphere.sphere[3], sphere.sphere[3], sphere.sphere[3]);
        glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(model.GetIndices().size()), GL_UNSIGNED_SHORT,
                       model.GetIndices().data());
        glPopMatrix();
    }
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisable(GL_NORMALIZE);
    glDisable(GL_LIGHTING);
}
