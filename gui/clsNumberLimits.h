#pragma once

#include <wx/string.h>

#include <optional>

class wxStaticText;
class wxTextCtrl;

/// What a field for a number takes, how it steps, and how it is marked while it holds something else: the one
/// way in all windows. Numbers are read and written with "." whatever the language, as in files.
/// Threads: GUI thread.
struct NumberLimits_cls {
    double min = -1e30;
    double max = 1e30;
    bool whole = false;
    wxString unit{};
    /// What an arrow key adds; 0: one in the number's second digit.
    double step = 0.0;

    /// The number that a text is; none when it is none as a whole, or lies outside the limits.
    std::optional<double> Read(const wxString& text) const;
    /// What is taken, in words: "whole number, 1 to 1000".
    wxString GetWords() const;
    /// Only "1 to 1000".
    wxString GetRange() const;
    /// What is wrong with an entry, in few words.
    wxString DescribeFault(const wxString& text) const;
    /// Red text, and beside it what is wrong in place of the unit; or neither.
    void ShowMark(wxTextCtrl& text, wxStaticText& beside, bool wrong) const;

    /// The shortest text of a number; of a whole one without a point.
    static wxString Format(double value, bool whole);
};
