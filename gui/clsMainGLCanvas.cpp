#include "gui/clsMainGLCanvas.h"

#include <wx/dcclient.h>

#include <algorithm>

#include "data/clsPreference.h"
#include "gui/clsViewGL.h"
#include "render/clsOffscreenBuffer.h"
#include "timeline/clsTimeCtrl.h"

MainGLCanvas_cls::MainGLCanvas_cls(wxWindow* parent, unsigned int index, FrameContext_cls& context,
                                   ShownInstant_cls& instant, PanelCamera_cls& camera, ViewGL_cls& gl)
    : wxGLCanvas(parent, ViewGL_cls::GetAttributes(), wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxFULL_REPAINT_ON_RESIZE | wxWANTS_CHARS, wxString::Format("view %u", index)),
      mIndex(index),
      mContext(context),
      mInstant(instant),
      mCamera(camera),
      mGL(gl),
      mNavigator(*this, camera, instant, context.preference) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Redraw();
        event.Skip();
    });
}

MainGLCanvas_cls::~MainGLCanvas_cls() = default;

void MainGLCanvas_cls::DropPicture() {
    if (!mPicture) return;
    mGL.MakeCurrent(*this);
    mPicture.reset();
}

wxSize MainGLCanvas_cls::PixelSize() const {
    const wxSize size = GetClientSize() * GetContentScaleFactor();
    return {std::max(size.x, 1), std::max(size.y, 1)};
}

std::optional<Picture_cls> MainGLCanvas_cls::ReadPicture() {
    if (!mPicture || !mGL.MakeCurrent(*this)) return std::nullopt;
    mPicture->Bind();
    return Picture_cls{mPicture->GetWidth(), mPicture->GetHeight(), mPicture->ReadRGB(),
                       mContext.preference.GetJpegQuality()};
}

void MainGLCanvas_cls::Redraw() {
    mStale = true;
    Refresh(false);
}

void MainGLCanvas_cls::OnPaint() {
    wxPaintDC dc(this);
    // Evaluating the particles waits for workers, and must not lead back here.
    if (mPainting) return;
    mPainting = true;
    // An instant that is not there yet leaves the last picture, unless the camera is being moved.
    const bool draw = mStale && mInstant.MayPrepare() && (mInstant.IsReady() || mCamera.IsMoving());
    const SnapData_cls* state = draw ? mInstant.Get() : nullptr;
    if (mGL.MakeCurrent(*this)) {
        if (draw) {
            DrawScene(state);
            mStale = false;
        }
        if (mPicture) mPicture->CopyToWindow(PixelSize().x, PixelSize().y);
        SwapBuffers();
    } else {
        dc.SetBackground(*wxBLACK_BRUSH);
        dc.Clear();
        mStale = false;
    }
    mPainting = false;
}

void MainGLCanvas_cls::DrawScene(const SnapData_cls* state) {
    const wxSize size = PixelSize();
    if (!mPicture || mPicture->GetWidth() != size.x || mPicture->GetHeight() != size.y)
        mPicture = OffscreenBuffer_cls::Create(size.x, size.y);
    if (!mPicture) return;
    mPicture->Bind();
    const SceneView_cls view{.mPanel = *mContext.panelSettings[mIndex],
                             .mIndex = mIndex,
                             .mCamera = mCamera.Get(),
                             .mTime = mContext.timeCtrl.GetDoubleIndex(),
                             .mState = state,
                             .mWidth = size.x,
                             .mHeight = size.y,
                             .mAids = mCamera.IsMoving()};
    mGL.GetPass().Draw(view);
    if (mMessage != mGL.GetPass().GetMessage()) {
        mMessage = mGL.GetPass().GetMessage();
        if (mMessageObserver) CallAfter([this] { mMessageObserver(); });
    }
}
