#pragma once

#include <wx/panel.h>

#include <functional>
#include <vector>

class wxBitmapButton;
class wxListView;

/// One list of a grammar, header or body: the items by their shown names with the place where each begins.
/// Items are added from a menu that offers what may still be added, removed, and moved by buttons, keys or
/// the mouse. It edits a list of codes and knows no settings. Owned by its parent window. Threads: GUI
/// thread.
class GrammarList_cls : public wxPanel {
  public:
    enum class Part { Header, Body };

    /// `changed` is called with the codes after every change by the user.
    GrammarList_cls(wxWindow* parent, Part part, std::function<void(const std::vector<int>& codes)> changed);

    /// Shows codes; `text`: places are lines or columns instead of bytes. Unknown codes are shown as "?".
    void Show(std::vector<int> codes, bool text);

  private:
    void Fill();
    void Change(size_t selected);
    void AskWhatToAdd();
    void Add(int code);
    void Remove();
    void Move(int direction);
    void MoveTo(size_t from, size_t to);
    void OnKey(wxKeyEvent& event);
    void OnDragEnd(wxMouseEvent& event);
    void ShowButtons();
    bool MayAdd(int code) const;
    /// -1: none.
    long GetSelected() const;

    const Part mPart;
    const std::function<void(const std::vector<int>& codes)> mChanged;
    std::vector<int> mCodes;
    bool mText = false;
    long mDragged = -1;
    wxListView* mList;
    wxBitmapButton* mAdd;
    wxBitmapButton* mRemove;
    wxBitmapButton* mUp;
    wxBitmapButton* mDown;
};
