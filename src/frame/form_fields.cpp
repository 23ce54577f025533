#include "frame/form_fields.h"
#include "frame/form.h"
#include "platform/text.h"

namespace {

const FormControl *ControlOf(int field) {
    if (!state.OpenedForm)
        return nullptr;
    const FormTemplate &controls = *state.OpenedForm->Controls;
    for (int i = 0; i < controls.Count; ++i)
        if (controls.Controls[i].Id == field)
            return &controls.Controls[i];
    return nullptr;
}

char16_t *ShownOf(int field) {
    static_assert(LastField - FirstField < ShownFields);
    return state.ShownText[field - FirstField];
}

bool SameFields(const RecDate &a, const RecDate &b) {
    return a.Year == b.Year && a.Month == b.Month && a.Day == b.Day;
}

RecDate DateShown(int field) {
    const ControlDate shown = GetControlDate(field);
    RecDate date = {};
    date.Year = static_cast<uint32_t>(shown.Year);
    date.Month = static_cast<int8_t>(shown.Month);
    date.Day = static_cast<int8_t>(shown.Day);
    return date;
}

uint32_t WithinValid(uint32_t dayNumber) {
    return dayNumber < FirstDayNumber ? FirstDayNumber : dayNumber > LastDayNumber ? LastDayNumber : dayNumber;
}

} // namespace

const char16_t *FieldName(int field) {
    const FormControl *control = ControlOf(field);
    return control ? control->Name : nullptr;
}

bool FieldPresent(int field) {
    return ControlOf(field) != nullptr;
}

void SetFieldText(int field, const char16_t *text) {
    const FormControl *control = ControlOf(field);
    if (!control)
        return;
    char16_t fitting[ShownRoom];
    CopyText(fitting, control->Limit > 0 && control->Limit < ShownRoom ? control->Limit + 1 : ShownRoom, text);
    SetControlText(field, fitting);
    GetControlText(field, ShownOf(field), ShownRoom);
    state.FieldEdited[field - FirstField] = 0;
}

void SelectFieldItem(int field, int index) {
    if (!ControlOf(field))
        return;
    SelectControlItem(field, index);
    GetControlText(field, ShownOf(field), ShownRoom);
    state.FieldEdited[field - FirstField] = 0;
}

void MarkEdited(int field) {
    if (field >= FirstField && field - FirstField < ShownFields)
        state.FieldEdited[field - FirstField] = 1;
}

bool FieldTouched(int field) {
    if (state.FieldEdited[field - FirstField])
        return true;
    char16_t now[ShownRoom];
    GetControlText(field, now, ShownRoom);
    return !SameText(now, ShownOf(field));
}

void SetFieldDate(int field, const RecDate &date) {
    const RecDate valid = DateFromDayNumber(WithinValid(date.DayNumber));
    SetControlDate(field, {static_cast<int>(valid.Year), valid.Month, valid.Day});
    state.ShownDate = DateShown(field);
    state.FieldEdited[field - FirstField] = 0;
}

void GetFieldDate(int field, RecDate *date) {
    RecDate picked = DateShown(field);
    if (!state.FieldEdited[field - FirstField] && SameFields(picked, state.ShownDate))
        return;
    InsertAbs(&picked);
    *date = DateFromDayNumber(WithinValid(picked.DayNumber));
}
