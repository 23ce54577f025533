// The controls of the open form as values.
#include "platform/controls.h"
#include "internals.h"
#include "test_host.h"
#include <algorithm>

namespace testhost {

OpenFormState form;

void ResetControls() {
    form = {};
}

static ControlState *Find(int id) {
    const auto found = form.Controls.find(id);
    return found == form.Controls.end() ? nullptr : &found->second;
}

std::string ControlText(int id) {
    const ControlState *control = Find(id);
    return control ? Utf8(control->Text.c_str()) : "";
}

std::vector<std::string> ControlItems(int id) {
    std::vector<std::string> items;
    if (const ControlState *control = Find(id))
        for (const std::u16string &item : control->Items)
            items.push_back(Utf8(item.c_str()));
    return items;
}

static bool TakesText(const ControlState &control) {
    switch (control.Template.Kind) {
    case ControlKind::Edit:
    case ControlKind::Secret:
    case ControlKind::Number:
    case ControlKind::MultiLine:
    case ControlKind::Combo:
        return true;
    default:
        return false;
    }
}

} // namespace testhost

using namespace testhost;

void OpenForm(const FormTemplate *opened) {
    CloseForm();
    form.Resource = opened->Resource;
    for (int n = 0; n < opened->Count; ++n) {
        ControlState control;
        control.Template = opened->Controls[n];
        control.Limit = control.Template.Limit;
        control.Date = {testClock.Year, testClock.Month, testClock.Day};
        form.Order.push_back(control.Template.Id);
        if (form.Focus == 0 && control.Template.Kind != ControlKind::Progress)
            form.Focus = control.Template.Id;
        form.Controls[control.Template.Id] = control;
    }
    ShowWindow(DialogWindow, 1);
}

void CloseForm() {
    ResetControls();
    ShowWindow(DialogWindow, 0);
}

void SetControlText(int id, const char16_t *text) {
    if (ControlState *control = Find(id)) {
        control->Text = text;
        control->Selected = -1;
    }
}

int GetControlText(int id, char16_t *to, int room) {
    if (room < 1)
        return 0;
    const ControlState *control = Find(id);
    const size_t units = control ? std::min(control->Text.size(), static_cast<size_t>(room - 1)) : 0;
    if (control)
        std::copy_n(control->Text.data(), units, to);
    to[units] = 0;
    return static_cast<int>(units);
}

void ClearControlList(int id) {
    if (ControlState *control = Find(id)) {
        control->Items.clear();
        control->Selected = -1;
    }
}

void AddControlItem(int id, const char16_t *text) {
    if (ControlState *control = Find(id))
        control->Items.push_back(text);
}

int ControlItemCount(int id) {
    const ControlState *control = Find(id);
    return control ? static_cast<int>(control->Items.size()) : 0;
}

void SelectControlItem(int id, int index) {
    ControlState *control = Find(id);
    if (!control)
        return;
    const bool there = index >= 0 && index < static_cast<int>(control->Items.size());
    control->Selected = there ? index : -1;
    const bool showsText = control->Template.Kind == ControlKind::Combo || control->Template.Kind == ControlKind::List;
    if (showsText)
        control->Text = there ? control->Items[static_cast<size_t>(index)] : std::u16string();
}

int SelectedControlItem(int id) {
    const ControlState *control = Find(id);
    return control ? control->Selected : -1;
}

void SetControlCheck(int id, int on) {
    if (ControlState *control = Find(id))
        control->Checked = on != 0;
}

int ControlChecked(int id) {
    const ControlState *control = Find(id);
    return control && control->Checked;
}

void SetControlDate(int id, const ControlDate &date) {
    if (ControlState *control = Find(id))
        control->Date = date;
}

ControlDate GetControlDate(int id) {
    const ControlState *control = Find(id);
    return control ? control->Date : ControlDate{};
}

void SetControlProgress(int id, int percent) {
    if (ControlState *control = Find(id))
        control->Progress = percent;
}

void SetControlLimit(int id, int units) {
    if (ControlState *control = Find(id))
        control->Limit = units;
}

void EnableControl(int id, int on) {
    if (ControlState *control = Find(id))
        control->Enabled = on != 0;
}

void ShowControl(int id, int on) {
    if (ControlState *control = Find(id))
        control->Shown = on != 0;
}

void FocusControl(int id) {
    if (Find(id))
        form.Focus = id;
}

int FocusedControl() {
    return form.Focus;
}

void SendControlKey(int code) {
    ControlState *control = Find(form.Focus);
    if (!control || !control->Enabled || !TakesText(*control))
        return;
    if (code == 8) {
        if (!control->Text.empty())
            control->Text.pop_back();
    } else if (control->Limit == 0 || static_cast<int>(control->Text.size()) < control->Limit) {
        control->Text.push_back(static_cast<char16_t>(code));
    }
    control->Selected = -1;
}

int ControlDateReads(int) {
    return 1;
}
