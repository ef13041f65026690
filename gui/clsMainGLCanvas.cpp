#include "gui/clsMainGLCanvas.h"

#include <wx/dcclient.h>

#include <algorithm>

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
/// Within it the window takes the events that wait.
constexpr int kEventsMs = 10;

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
    mLater.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnLater(); });
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
    if (mGL.GetWatch().IsRunning()) return std::nullopt;
    if (mCoarse) Draw(1, DrawWatch_cls::kEndless);
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
    mWantsFine = false;
    mLater.Stop();
}

void MainGLCanvas_cls::OnPaint() {
    wxPaintDC dc(this);
    // The context is a drawing's, which has brought up a message.
    if (mGL.GetWatch().IsRunning()) return;
    if (mGL.MakeCurrent(*this)) {
        if (mPicture) mPicture->CopyToWindow(PixelSize().x, PixelSize().y);
        SwapBuffers();
    } else {
        dc.SetBackground(*wxBLACK_BRUSH);
        dc.Clear();
        mStale = false;
    }
    mUnpainted = false;
    // What asked for it may have come before there was a place on the screen, or data.
    if (mStale) DrawSoon();
}

void MainGLCanvas_cls::DrawSoon() {
    if (mScheduled) return;
    mScheduled = true;
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
    const long long full = mFullMs > 0 ? mFullMs : watch.GetFullMs();
    if (full <= DrawWatch_cls::kPatienceMs || !(watch.IsHurried() || IsHandBusy())) return 1;
    return static_cast<int>(std::clamp<long long>(full / kCoarseMs, 2, kCoarsest));
}

void MainGLCanvas_cls::DrawIfStale() {
    if (!mStale || !IsShownOnScreen()) return;
    if (mGL.GetWatch().IsRunning()) {
        mLater.StartOnce(kRestMs);
        return;
    }
    // An instant that is not there yet leaves the last picture, unless the camera is being moved.
    if (!mInstant.MayPrepare() || !(mInstant.IsReady() || mCamera.IsMoving())) return;
    Draw(ChooseCoarseness(), DrawWatch_cls::kPatienceMs);
}

void MainGLCanvas_cls::Draw(int coarseness, long long patienceMs) {
    mStale = false;
    // It is the rest's, or that of a drawing which is done now.
    if (!mWantsFine) mLater.Stop();
    bool drawn = false;
    const bool whole = mGL.GetWatch().Run(
        coarseness, [&] { drawn = DrawScene(coarseness); }, patienceMs);
    if (coarseness == 1) mFullMs = mGL.GetWatch().GetFullMs();
    if (!whole) {
        mStale = true;
        mWantsFine = false;
        // After the events that have interrupted it.
        mLater.StartOnce(kEventsMs);
        return;
    }
    if (drawn) {
        std::swap(mPicture, mNext);
        mCoarse = coarseness > 1;
    }
    mUnpainted = true;
    mWantsFine = coarseness > 1;
    Refresh(false);
    if (!mWantsFine) {
        mLater.Stop();
    } else if (!mLater.IsRunning()) {
        mLater.StartOnce(kRestMs);
    }
}

void MainGLCanvas_cls::OnLater() {
    if (mWantsFine && !mStale) {
        if (IsHandBusy()) {
            mLater.StartOnce(kRestMs);
            return;
        }
        mGL.GetWatch().Rest();
        mStale = true;
    }
    DrawIfStale();
    // Something waits, and idle work must not run inside of it.
    if (mWantsFine && mStale && !mLater.IsRunning()) mLater.StartOnce(kRestMs);
}

bool MainGLCanvas_cls::DrawScene(int coarseness) {
    const SnapData_cls* state = mInstant.Get();
    if (mGL.GetWatch().IsInterrupted() || !mGL.MakeCurrent(*this)) return false;
    const wxSize size = PixelSize();
    if (!mNext || mNext->GetWidth() != size.x || mNext->GetHeight() != size.y)
        mNext = OffscreenBuffer_cls::Create(size.x, size.y);
    if (!mNext) return false;
    mNext->Bind();
    const std::vector<ViewCamera_cls> others =
        mOtherCameras ? mOtherCameras() : std::vector<ViewCamera_cls>();
    const SceneView_cls view{.mPanel = *mContext.panelSettings[mIndex],
                             .mIndex = mIndex,
                             .mCamera = mCamera.Get(),
                             .mTime = mContext.timeCtrl.GetDoubleIndex(),
                             .mState = state,
                             .mWidth = size.x,
                             .mHeight = size.y,
                             .mAids = mCamera.IsMoving(),
                             .mCoarseness = coarseness,
                             .mOtherCameras = others};
    mGL.GetPass().Draw(view);
    mNext->Finish();
    if (mMessage != mGL.GetPass().GetMessage()) {
        mMessage = mGL.GetPass().GetMessage();
        if (mMessageObserver) CallAfter([this] { mMessageObserver(); });
    }
    return true;
}
