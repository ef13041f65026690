#include "gui/clsMainGLCanvas.h"

#include <wx/dcclient.h>

#include <algorithm>
#include <limits>

#include "data/clsPreference.h"
#include "gui/clsDrawWatch.h"
#include "gui/clsViewGL.h"
#include "render/clsOffscreenBuffer.h"
#include "timeline/clsTimeCtrl.h"

namespace {

/// How long a coarse picture may take.
constexpr long long kCoarseMs = 60;
constexpr long long kCoarsest = 10000;
/// A hand that does nothing for this time has let go.
constexpr int kRestMs = 150;

}  // namespace

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
    mLater.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { DrawFinely(); });
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Redraw();
        event.Skip();
    });
}

MainGLCanvas_cls::~MainGLCanvas_cls() = default;

void MainGLCanvas_cls::DropPicture() {
    if (!mPicture && !mNext) return;
    mGL.MakeCurrent(*this);
    mPicture.reset();
    mNext.reset();
}

wxSize MainGLCanvas_cls::PixelSize() const {
    const wxSize size = GetClientSize() * GetContentScaleFactor();
    return {std::max(size.x, 1), std::max(size.y, 1)};
}

std::optional<Picture_cls> MainGLCanvas_cls::ReadPicture() {
    if (mCoarse) Draw(1, std::numeric_limits<long long>::max());
    if (!mPicture || !mGL.MakeCurrent(*this)) return std::nullopt;
    mPicture->Bind();
    return Picture_cls{mPicture->GetWidth(), mPicture->GetHeight(), mPicture->ReadRGB(),
                       mContext.preference.GetJpegQuality()};
}

void MainGLCanvas_cls::Redraw() {
    mStale = true;
    DrawSoon();
}

void MainGLCanvas_cls::StopDrawing() {
    mStale = false;
    mCoarse = false;
    mLater.Stop();
}

void MainGLCanvas_cls::OnPaint() {
    wxPaintDC dc(this);
    if (mGL.MakeCurrent(*this)) {
        if (mPicture) mPicture->CopyToWindow(PixelSize().x, PixelSize().y);
        SwapBuffers();
        mUnpainted = false;
    } else {
        dc.SetBackground(*wxBLACK_BRUSH);
        dc.Clear();
        mStale = false;
    }
    // What asked for it may have come before there was a place on the screen, or data.
    if (mStale) DrawSoon();
}

void MainGLCanvas_cls::DrawSoon() {
    if (mScheduled) return;
    mScheduled = true;
    // What the user has done meanwhile comes first.
    CallAfter([this] {
        mScheduled = false;
        DrawIfStale();
    });
}

bool MainGLCanvas_cls::IsHandBusy() const {
    const wxMouseState mouse = wxGetMouseState();
    return mCamera.IsMoving() || mouse.LeftIsDown() || mouse.MiddleIsDown() || mouse.RightIsDown();
}

int MainGLCanvas_cls::ChooseCoarseness() const {
    const DrawWatch_cls& watch = mGL.GetWatch();
    if (watch.GetFullMs() <= DrawWatch_cls::kPatienceMs || !(watch.IsHurried() || IsHandBusy())) return 1;
    return static_cast<int>(std::clamp<long long>(watch.GetFullMs() / kCoarseMs, 1, kCoarsest));
}

void MainGLCanvas_cls::DrawIfStale() {
    if (!mStale || !IsShownOnScreen()) return;
    // An instant that is not there yet leaves the last picture, unless the camera is being moved.
    if (!mInstant.MayPrepare() || !(mInstant.IsReady() || mCamera.IsMoving())) return;
    Draw(ChooseCoarseness(), DrawWatch_cls::kPatienceMs);
}

void MainGLCanvas_cls::Draw(int coarseness, long long patienceMs) {
    mStale = false;
    const bool whole = mGL.GetWatch().Run(
        coarseness, [&] { DrawScene(coarseness); }, patienceMs);
    mCoarse = whole && coarseness > 1;
    if (whole) {
        std::swap(mPicture, mNext);
        mUnpainted = true;
        Refresh(false);
    } else {
        Redraw();
    }
    if (mCoarse) {
        mLater.StartOnce(kRestMs);
    } else {
        mLater.Stop();
    }
}

void MainGLCanvas_cls::DrawFinely() {
    if (IsHandBusy()) {
        mLater.StartOnce(kRestMs);
        return;
    }
    mGL.GetWatch().Rest();
    mStale = true;
    DrawIfStale();
}

void MainGLCanvas_cls::DrawScene(int coarseness) {
    const SnapData_cls* state = mInstant.Get();
    if (mGL.GetWatch().IsInterrupted()) return;
    const wxSize size = PixelSize();
    if (!mGL.MakeCurrent(*this)) {
        mNext.reset();
        return;
    }
    if (!mNext || mNext->GetWidth() != size.x || mNext->GetHeight() != size.y)
        mNext = OffscreenBuffer_cls::Create(size.x, size.y);
    if (!mNext) return;
    mNext->Bind();
    const SceneView_cls view{.mPanel = *mContext.panelSettings[mIndex],
                             .mIndex = mIndex,
                             .mCamera = mCamera.Get(),
                             .mTime = mContext.timeCtrl.GetDoubleIndex(),
                             .mState = state,
                             .mWidth = size.x,
                             .mHeight = size.y,
                             .mAids = mCamera.IsMoving(),
                             .mCoarseness = coarseness};
    mGL.GetPass().Draw(view);
    mNext->Finish();
    if (mMessage != mGL.GetPass().GetMessage()) {
        mMessage = mGL.GetPass().GetMessage();
        if (mMessageObserver) CallAfter([this] { mMessageObserver(); });
    }
}
