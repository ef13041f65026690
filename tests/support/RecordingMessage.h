#pragma once

#include <string>
#include <vector>

#include "seam/clsUserMessage.h"

/// Stands in for the message boxes of one test: records what was said and answers as told.
class RecordingMessage_cls : public UserMessage_cls {
  public:
    RecordingMessage_cls() : mBefore(GpCUserMessage.exchange(this)) {}
    ~RecordingMessage_cls() override { GpCUserMessage = mBefore; }
    RecordingMessage_cls(const RecordingMessage_cls&) = delete;
    RecordingMessage_cls& operator=(const RecordingMessage_cls&) = delete;

    Answer Show(const wxString& title, const wxString& text, Buttons buttons) override {
        mSaid.push_back({title, text});
        if (buttons == Buttons::Ok) return Answer::Ok;
        return mAnswerYes ? Answer::Yes : Answer::No;
    }

    struct Said {
        wxString title;
        wxString text;
    };
    std::vector<Said> mSaid;
    bool mAnswerYes = false;

  private:
    UserMessage_cls* mBefore;
};
