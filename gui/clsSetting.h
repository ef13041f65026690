#pragma once

#include <wx/string.h>

#include <functional>
#include <utility>

#include "timeline/clsCommandSetColor.h"
#include "timeline/clsCommandSetValue.h"

/// One setting as a control edits it: how to read it, and how to set it as one step of the undo list (or as a
/// part of the drag or block that is open). Controls know nothing else of what they edit.
/// The setting itself must outlive the undo list's entries, as all settings of the program do.
/// Threads: GUI thread.
template <class Value>
struct Setting_cls {
    std::function<Value()> get;
    std::function<void(const Value&)> set;
};

/// What follows a change made by a control: pages show the setting anew, the views are redrawn.
constexpr int kSettingUpdates = CommandItem_cls::kUpdatePanels | CommandItem_cls::kUpdateRedraw;

/// A number, a switch or a choice by its address. `name` is what the Edit menu calls the change; `changed`
/// is called after every change, undone ones included.
template <class Value, class Stored>
Setting_cls<Value> BindAs(const wxString& name, Stored& stored, std::function<void()> changed = {}) {
    return {[&stored] { return static_cast<Value>(stored); },
            [name, &stored, changed = std::move(changed)](const Value& value) {
                SetValueCommand(name, stored, static_cast<Stored>(value), kSettingUpdates, changed);
            }};
}

template <class Stored>
Setting_cls<double> BindNumber(const wxString& name, Stored& stored, std::function<void()> changed = {}) {
    return BindAs<double>(name, stored, std::move(changed));
}

inline Setting_cls<wxString> BindText(const wxString& name, ConfItemSTR_cls& stored,
                                      std::function<void()> changed = {}) {
    return {[&stored] { return stored.GetValueText(); },
            [name, &stored, changed = std::move(changed)](const wxString& value) {
                SetValueCommand(name, stored, value, kSettingUpdates, changed);
            }};
}

/// Three or four floats from 0 to 1. A setting of three has the alpha 1, which is not kept.
inline Setting_cls<Color4> BindColor(const wxString& name, std::span<float> stored,
                                     std::function<void()> changed = {}) {
    return {[stored] {
                Color4 color{0, 0, 0, 1};
                std::copy_n(stored.begin(), std::min(stored.size(), color.size()), color.begin());
                return color;
            },
            [name, stored, changed = std::move(changed)](const Color4& color) {
                SetColorCommand(name, stored, color, kSettingUpdates, changed);
            }};
}
