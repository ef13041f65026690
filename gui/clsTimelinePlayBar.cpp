#include "gui/clsTimelinePlayBar.h"

#include <wx/bmpbuttn.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/tglbtn.h>

#include <limits>

#include "gui/clsIcons.h"
#include "seam/clsClock.h"
#include "timeline/clsUndoManager.h"

namespace {

constexpr long long kRateWindowMs = 500;
const wxSize kButtonSize{30, 28};

void ShowNumber(wxSpinCtrl& control, int value) {
    if (control.GetValue() != value) control.SetValue(value);
}

void ShowText(wxStaticText& control, const wxString& text) {
    if (control.GetLabel() != text) control.SetLabel(text);
}

}  // namespace

TimelinePlayBar_cls::TimelinePlayBar_cls(wxWindow* parent, TimeCtrl_cls& timeCtrl)
    : wxPanel(parent), mTimeCtrl(timeCtrl) {
    SetSizer(new wxBoxSizer(wxHORIZONTAL));
    AddSpace(4);
    AddButton("first", "Go to the first frame of the work area (Home)",
              [this] { GoToFrame(mTimeCtrl.GetSettings().GetWorkArea().first); });
    AddButton("previous-key", "Go to the previous frame with a key",
              [this] { mTimeCtrl.MoveFrameCommandSnip(-1); });
    AddButton("previous", "One step back (Left)", [this] { mTimeCtrl.MoveFrameCommand(-1); });
    mPlay = AddButton("play", "Play or stop (Space)", [this] { TogglePlay(); });
    AddButton("next", "One step forward (Right)", [this] { mTimeCtrl.MoveFrameCommand(1); });
    AddButton("next-key", "Go to the next frame with a key", [this] { mTimeCtrl.MoveFrameCommandSnip(1); });
    AddButton("last", "Go to the last frame of the work area (End)",
              [this] { GoToFrame(mTimeCtrl.GetSettings().GetWorkArea().last); });
    AddSpace(4);
    AddSwitch(
        "loop", "Play round and round", [this] { return mTimeCtrl.GetSettings().IsRepeat(); },
        [this](bool on) { mTimeCtrl.SetRepeatCommand(on); });
    AddSpace(10);

    AddLabel("frame");
    mFrame = AddNumber("frame", "The frame that is shown", TimeValue::Frame, 0, mTimeCtrl.GetMaxFrame());
    mMaxFrame = AddText("of 00000", "The last frame of the scene");
    wxStaticText* step = AddLabel("step");
    mAnimStep =
        AddNumber("step", "Playing and stepping show every so many frames", TimeValue::AnimStep, 1, 9999);
    wxStaticText* subSteps = AddLabel("sub-steps");
    mAnimInterp =
        AddNumber("sub-steps", "Pictures from one frame to the next, interpolated between snapshots",
                  TimeValue::AnimInterp, 1, 9999);
    mSnapshot =
        AddText("snapshot 00000.00", "The data shown: snapshot number, with the fraction to the next");
    mRate = AddText("000.0 fps", "Frames shown per second, while playing");
    mOptional = {{mRate}, {mSnapshot}, {subSteps, mAnimInterp}, {step, mAnimStep}, {mMaxFrame}};
    static_cast<wxBoxSizer*>(GetSizer())->AddStretchSpacer();
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        FitToWidth();
        event.Skip();
    });
    RefreshFromModel();
}

void TimelinePlayBar_cls::FitToWidth() {
    const auto show = [](const std::vector<wxWindow*>& windows, bool shown) {
        for (wxWindow* window : windows) window->Show(shown);
    };
    for (const auto& windows : mOptional) show(windows, true);
    for (const auto& windows : mOptional) {
        if (GetSizer()->CalcMin().x <= GetClientSize().x) break;
        show(windows, false);
    }
}

wxSize TimelinePlayBar_cls::DoGetBestClientSize() const {
    // Narrow windows leave something out instead of cutting off the end.
    return {1, GetSizer()->CalcMin().y};
}

// Making the controls

void TimelinePlayBar_cls::AddSpace(int pixels) {
    GetSizer()->AddSpacer(FromDIP(pixels));
}

wxBitmapButton* TimelinePlayBar_cls::AddButton(const wxString& icon, const wxString& tip,
                                               std::function<void()> action) {
    auto* button = new wxBitmapButton(this, wxID_ANY, Icons_cls::Get(icon, *this), wxDefaultPosition,
                                      wxDefaultSize, wxBORDER_NONE | wxBU_EXACTFIT);
    button->SetMinSize(FromDIP(kButtonSize));
    button->SetToolTip(tip);
    button->SetName(icon);
    button->Bind(wxEVT_BUTTON, [action = std::move(action)](wxCommandEvent&) { action(); });
    GetSizer()->Add(button, wxSizerFlags().CenterVertical().Border(wxTOP | wxBOTTOM, FromDIP(2)));
    return button;
}

void TimelinePlayBar_cls::AddSwitch(const wxString& icon, const wxString& tip, std::function<bool()> isOn,
                                    std::function<void(bool)> set) {
    auto* button = new wxToggleButton(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                      wxBORDER_NONE | wxBU_EXACTFIT);
    button->SetBitmap(Icons_cls::Get(icon, *this));
    button->SetMinSize(FromDIP(kButtonSize));
    button->SetToolTip(tip);
    button->SetName(icon);
    button->SetValue(isOn());
    button->Bind(wxEVT_TOGGLEBUTTON,
                 [set = std::move(set)](wxCommandEvent& event) { set(event.IsChecked()); });
    GetSizer()->Add(button, wxSizerFlags().CenterVertical());
    mSwitches.push_back({button, std::move(isOn)});
}

wxStaticText* TimelinePlayBar_cls::AddLabel(const wxString& label) {
    auto* text = new wxStaticText(this, wxID_ANY, label);
    GetSizer()->Add(text, wxSizerFlags().CenterVertical().Border(wxRIGHT, FromDIP(5)));
    return text;
}

wxSpinCtrl* TimelinePlayBar_cls::AddNumber(const wxString& name, const wxString& tip, TimeValue which,
                                           int lowest, int highest) {
    auto* control = new wxSpinCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                   wxSP_ARROW_KEYS | wxTE_PROCESS_ENTER, lowest, highest, lowest);
    control->SetInitialSize(control->GetSizeFromTextSize(control->GetTextExtent("00000")));
    control->SetToolTip(tip);
    control->SetName(name);
    control->Bind(wxEVT_SPINCTRL, [this, which](wxSpinEvent& event) {
        if (which == TimeValue::Frame) {
            GoToFrame(event.GetPosition());
        } else {
            mTimeCtrl.SetValueCommand(which, event.GetPosition());
        }
    });
    GetSizer()->Add(control, wxSizerFlags().CenterVertical().Border(wxRIGHT, FromDIP(6)));
    return control;
}

wxStaticText* TimelinePlayBar_cls::AddText(const wxString& widest, const wxString& tip) {
    auto* text =
        new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE);
    text->SetMinSize(text->GetTextExtent(widest));
    text->SetToolTip(tip);
    GetSizer()->Add(text, wxSizerFlags().CenterVertical().Border(wxRIGHT, FromDIP(10)));
    return text;
}

// Actions

void TimelinePlayBar_cls::TogglePlay() {
    if (mTimeCtrl.IsPlaying()) {
        mActions.stop ? mActions.stop() : mTimeCtrl.ProcStopPlaying();
    } else {
        mActions.start ? mActions.start(1) : mTimeCtrl.StartPlay(1);
    }
}

void TimelinePlayBar_cls::GoToFrame(int frame) {
    if (frame == mTimeCtrl.GetFrame() && mTimeCtrl.GetStep() == 0) return;
    const UndoBlock_cls block("Go to Frame");
    mTimeCtrl.SetFrameCommand(frame);
    mTimeCtrl.SetStepCommand(0);
}

// Showing

void TimelinePlayBar_cls::RefreshFromModel() {
    const TimeSettings_cls& settings = mTimeCtrl.GetSettings();
    if (mFrame->GetMax() != mTimeCtrl.GetMaxFrame()) mFrame->SetRange(0, mTimeCtrl.GetMaxFrame());
    ShowNumber(*mFrame, mTimeCtrl.GetFrame());
    ShowNumber(*mAnimStep, settings.GetAnimStep());
    ShowNumber(*mAnimInterp, settings.GetAnimInterp());
    ShowText(*mMaxFrame, wxString::Format("of %d", mTimeCtrl.GetMaxFrame()));
    ShowText(*mSnapshot, wxString::Format("snapshot %.2f", mTimeCtrl.GetRemappedIndexDouble()));
    for (const Switch& entry : mSwitches) {
        if (entry.button->GetValue() != entry.isOn()) entry.button->SetValue(entry.isOn());
    }
    if (mShowsPlaying != mTimeCtrl.IsPlaying()) {
        mShowsPlaying = mTimeCtrl.IsPlaying();
        mPlay->SetBitmap(Icons_cls::Get(mShowsPlaying ? "pause" : "play", *this));
        mRateSince = Clock_cls::Current().Now();
        mRateFrames = 0;
        ShowText(*mRate, wxString());
    }
    ShowRate();
}

void TimelinePlayBar_cls::ShowRate() {
    const FramePlace place = {mTimeCtrl.GetFrame(), mTimeCtrl.GetStep()};
    if (!mShowsPlaying || place == mRatePlace) return;
    mRatePlace = place;
    ++mRateFrames;
    const long long passed = Clock_cls::Current().Now() - mRateSince;
    if (passed < kRateWindowMs) return;
    ShowText(*mRate, wxString::Format("%.1f fps", 1000.0 * mRateFrames / static_cast<double>(passed)));
    mRateSince += passed;
    mRateFrames = 0;
}
