// The frame of every form: a form is a template, a fill, a tick and its help lines; everything else is here. What a
// form shows besides its real controls is painted by hand from a table of parts, and answers taps by the same table.
#pragma once

#include "frame/form_fields.h"
#include "frame/form_parts.h"
#include "resources/forms.h"
#include "resources/help_lines.h"
#include "state/state.h"
#include <span>

// ORDER FORMITEM: what is painted by hand on a form and answers a tap; the numbers are the items' own.
enum FormItem : int {
    NoItem = -1,
    LabelItem = 0, // a text or mark that only explains its field
    FirstSignItem = 12,
    TimesItem = 14,
    DownItem = 18,
    UpItem = 19,
    DirectionItem = 28,
    FlagItem = 40,
    TitleItem = 41,
    RefItem = 42,
    SecondSignItem = 43,
    CategoryItem = 45,
    FreeItem = 46,
    ClearedItem = 47,
    DefaultItem = 48,
    NextItem = 49,
    SelectedCountItem = 50,
    TotalItem = 51,
    DuplicateItem = 52,
    ViewItem = 53,
    FirstChoiceItem = 54,
    SecondChoiceItem = 55,
    ThirdChoiceItem = 56,
    TypeItem = 57, // of the account form, where it says "Jeopardy"
    ProgressItem = 58,
    ColourItem = 101, // of the category form: leads to the palette
};

struct FieldHelp { // the help lines of a field or of a part
    int16_t Id;    // FormField or FormItem; a row for an item goes before the lines common to all forms
    Help Lines;
};

struct FormPart {
    int Item;                    // FormItem
    Rect Box;                    // where it is painted; empty: it is not
    Rect Hit;                    // where a tap finds it; empty: nowhere
    const char16_t *Text;        // of a label
    Align Side = Align::Right;   // of the label's text in its box
    int Field = 0;               // field whose help lines a tap shows; 0: the item's own
    bool (*Present)() = nullptr; // null: always there
};

struct FieldList {
    int16_t Field;
    void (*Fill)(int field); // writes the items of its list
};

// What a tick came to. Done: the frame makes it durable, and only then ends the form. Unwritten: the frame gives up
// what was done and tells so; Refused: the form itself has told why. Both stay open.
enum TickResult { TickUnwritten = 0, TickDone = 1, TickRefused = 2 };

struct Form {
    int Dialog;    // a Dialog of state/state.h
    int WithPanel; // 1: the input panel rises with the form
    const FormTemplate *Controls;
    std::span<const FormPart> Parts;
    std::span<const FieldHelp> FieldHelps;
    std::span<const FieldList> Lists;
    void (*Fill)(int initialise);         // 1: loads the working copy first; 0: shows it as it is
    int (*Tick)();                        // a TickResult; null: the form ends by itself
    void (*Cross)();                      // null: nothing to undo
    void (*Changed)(const Event &event);  // control events beyond help; null: none
    void (*Tapped)(int item);             // what a tap on a part does beyond what it does on all forms; null: nothing
    void (*Decor)(int mask);              // painting beyond the parts; null: none
    int KeysStep = 0;                     // 1: the keys Up and Down are taps on the arrows
    const char16_t *(*Title)() = nullptr; // what the device's title bar calls it
    void (*Again)() = nullptr;            // after a tick that is to be followed by a new form; null: nothing follows
    void (*Spoken)(struct SpotList *list) = nullptr; // what it paints beyond the parts, in words
};

// Opens a form: ActiveDialog, controls and their lists, Fill(1), background and parts, room for the message window,
// panel and greys. 0 when a form is open already or the data are not usable.
int Dialog_Init(const Form *form);
// Closes the open form without saving: the list gets its rows back, is read anew and painted, and the screen's end
// lines show. A screen without end lines is reported as caseError.
void Dialog_End();
// The open form goes on as another one: other controls, filled by Fill(initialise), and the focus where it was.
void RebuildForm(const Form *form, int initialise);

// Every event of an open form: control events, presses on its window, tick and cross, a paint request. 1 when it was
// the form's.
int HandleFormEvent(const Event &event);

// Panel: mode 0 raises it, 2 lowers it: 1 when it changed; any other value is the preference for the next control: 0.
int SipControl(int mode);

// Forces help mode on and shows the lines: how a form refuses a tick.
void RefuseTick(Help help);

// Gives up what the action did and says that the data can't be written (frame/refusal.h); what was entered stays in the
// form.
void TellUnwritten();
