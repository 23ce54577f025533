// The frame of every form: a form is a template, a fill, a tick and its help lines; everything else is here.
#pragma once

#include "core/state.h"
#include "platform/controls.h"
#include "platform/event.h"

// ORDER FORMITEM: what is painted by hand on a form and answers a tap; the numbers are the items' own.
enum FormItem : int {
    NoItem = -1,
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
    TypeItem = 57,
    ProgressItem = 58,
};

// Bits of the mask of DrawDialogDecor.
enum DecorMask : int {
    DecorGround = 1,
    DecorFlag = 2,
    DecorCounters = 4,
    DecorDuplicate = 8,
    DecorFirstSign = 16,
    DecorSecondSign = 32,
    DecorLabels = 64,
    DecorCleared = 128,
    DecorFree = 256,
    DecorSelector = 512,
    DecorEquals = 1024,
    DecorPreview = 2048,
    DecorPalette = 4096,
    DecorView = 8192,
    DecorAll = 16383,
};

struct HelpRow {      // field help
    int16_t Id;       // control id or FormItem
    int16_t Lines[6]; // ids of resources/messages.h
};

struct ItemBox { // a hand-painted part: where it stands and where it is hit
    int Item;    // FormItem
    Rect Hit;
    int Decor;        // DecorMask bit repainted when it is tapped
    int (*Present)(); // null: always
};

struct LabelBox {
    const char16_t *Text;
    Rect Box;
    Align Alignment;
};

struct Form {
    int Dialog; // a Dialog of core/state.h
    int WithPanel;
    const HelpRow *Help;
    int HelpCount;
    const ItemBox *Items;
    int ItemCount;
    const LabelBox *Labels;
    int LabelCount;
    void (*Fill)(int initialise);
    int (*Tick)();                       // 1: the form may close
    void (*Cross)();                     // null: nothing to undo
    void (*Changed)(const Event &event); // control events beyond help; null: none
    int (*Tapped)(int item);             // items beyond the common ones; 1 when it was one of them; null: none
    void (*Decor)(int mask);             // parts beyond the common ones; null: none
};

// Opens a form from its template: ActiveDialog, controls, background, panel, greys, then Fill(1).
void Dialog_Init(const Form *form, const FormTemplate *controls);
// Closes the open form without saving: lists get their rows back, the screen's end lines show.
void Dialog_End();
// Rebuilds the controls of the open form by another template and fills them from the working copy.
void RebuildForm(const Form *form, const FormTemplate *controls);
// Every event of an open form: control events, taps on its background, tick, cross. 1 when it was the form's.
int HandleFormEvent(const Event &event);

// Paints the parts of the open form that the mask names.
void DrawDialogDecor(int mask);
// The FormItem under a point of DialogWindow, NoItem for none.
int DialogItemAtPos(int x, int y);
// Panel: mode 0 raises it, 2 lowers it: 1 when it changed; any other value is the preference for the next control.
int SipControl(int mode);
