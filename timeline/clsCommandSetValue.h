#pragma once

#include <functional>
#include <type_traits>
#include <utility>

#include "CONFITEM/clsConfItem.h"
#include "timeline/clsUndoManager.h"

/// Sets a plain setting: a number, a switch, a text, or a small value of its owner's.
/// The setter, and the setting it reaches, must outlive the undo list's entries.
template <class Value>
class CommandSetValue_cls final : public CommandItem_cls {
  public:
    using Setter = std::function<void(const Value&)>;

    CommandSetValue_cls(const wxString& name, Setter setter, Value value, int updateBits)
        : CommandItem_cls(updateBits), mName(name), mSetter(std::move(setter)), mValue(std::move(value)) {}

    void Execute(bool) override {
        mSetter(mValue);
        UpdateBit();
    }
    wxString GetName() const override { return mName; }

    /// Makes the change from one value to another as a step of the undo list; none when they are equal.
    static void Push(const wxString& name, const Setter& setter, const Value& from, const Value& to,
                     int updateBits) {
        if (from == to) return;
        GCUndoList.PushAndExec(std::make_unique<CommandSetValue_cls>(name, setter, to, updateBits),
                               std::make_unique<CommandSetValue_cls>(name, setter, from, updateBits));
    }

  private:
    const wxString mName;
    const Setter mSetter;
    const Value mValue;
};

/// Sets a setting by its address, undoably. `changed` is called after every change, undone ones included.
template <class Value>
void SetValueCommand(const wxString& name, Value& setting, const std::type_identity_t<Value>& value,
                     int updateBits, std::function<void()> changed = {}) {
    const auto setter = [&setting, changed = std::move(changed)](const Value& newValue) {
        setting = newValue;
        if (changed) changed();
    };
    CommandSetValue_cls<Value>::Push(name, setter, setting, value, updateBits);
}

/// The same for a text, which has no address of its own.
inline void SetValueCommand(const wxString& name, ConfItemSTR_cls& setting, const wxString& value,
                            int updateBits, std::function<void()> changed = {}) {
    const auto setter = [&setting, changed = std::move(changed)](const wxString& newValue) {
        setting.SetText(newValue);
        if (changed) changed();
    };
    CommandSetValue_cls<wxString>::Push(name, setter, setting.GetValueText(), value, updateBits);
}
