// The real controls of the open form: edit boxes, combo boxes, date pickers, check boxes, lists, progress bars. One
// form is open at a time, in DialogWindow. A control id that the open form does not have is answered with 0 or
// an empty text. What the program sets causes no events; what the owner does is told after the control has finished.
#pragma once

#include <cstdint>

enum class ControlKind : uint8_t {
    Edit,      // one line
    Secret,    // one line, shown as typed and read out to nobody
    Number,    // one line, for whole numbers: a handheld shows its digit panel
    MultiLine, // the notepad
    Combo,     // an edit box with a list
    List,      // a drop-down list without free text
    Date,
    Check,
    ListBox,
    Progress,
};

// What may be typed into an edit box or the box of a combo box; anything else is refused as it is typed.
enum class Holds : uint8_t {
    AnyText,
    Whole, // the whole units of an amount, whose Fraction is the next control that holds one: a point or a comma goes
           // on to it, and an amount pasted fills both
    Fraction, // up to three decimals
    Count,    // a whole number, or a row of the box's list
};

struct FormControl {
    int16_t Id;
    ControlKind Kind;
    int16_t X, Y, Width, Height; // in DialogWindow
    int16_t Limit;               // most units of text, 0 for no limit
    const char16_t *Name = u"";  // said by a screen reader: the label that stands beside it
    Holds What = Holds::AnyText; // of a Number always Count
};
struct FormTemplate {
    int16_t Resource;
    const FormControl *Controls; // in reading order, which is the order of Tab
    int Count;
};

struct ControlDate {
    int Year, Month, Day;
};

// Creates the controls in DialogWindow and shows the window. An open form is closed first.
void OpenForm(const FormTemplate *form);
// Hides at once; safe to call from the handler of one of its controls.
void CloseForm();

void SetControlText(int id, const char16_t *text);
// Returns the units written.
int GetControlText(int id, char16_t *to, int room);

void ClearControlList(int id);
void AddControlItem(int id, const char16_t *text);
int ControlItemCount(int id);
// 0-based; -1 selects nothing. A combo box takes the item's text.
void SelectControlItem(int id, int index);
// The chosen item, or -1 when none is or when a combo box's text has been typed over.
int SelectedControlItem(int id);

void SetControlCheck(int id, int on);
int ControlChecked(int id);
void SetControlDate(int id, const ControlDate &date);
ControlDate GetControlDate(int id);
// 0 while what is typed in a date box is no date; GetControlDate then still gives the date before.
int ControlDateReads(int id);
void SetControlProgress(int id, int percent);
void SetControlLimit(int id, int units);
void EnableControl(int id, int on);
void ShowControl(int id, int on);
// What is typed then takes the place of the control's one line of text.
void FocusControl(int id);
// The control with the focus, 0 for none.
int FocusedControl();
// A character, or 8 for backspace, as if typed into the focused control.
void SendControlKey(int code);
