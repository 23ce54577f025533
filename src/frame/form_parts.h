// The parts of the open form that are painted by hand: painting them, and taps on them.
#pragma once

struct FormPart;

// Bits of the mask of DrawDialogDecor.
enum DecorMask : int {
    DecorGround = 1,
    DecorFlag = 2,
    DecorCounters = 4, // with the arrows
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

// Paints the parts of the open form that the mask names. With DecorGround everything that lies under them first, down
// to the message window.
void DrawDialogDecor(int mask);
// The FormItem under a point of DialogWindow, NoItem for none.
int DialogItemAtPos(int x, int y);

// The part under a point of DialogWindow, null for none.
const FormPart *PartAt(int x, int y);
// True when the open form shows a part for the item.
bool ShowsItem(int item);

// Taps, heard by the frame alone.
// Acts on the part under a point of DialogWindow: what its item does on all forms, then what it does on this one, its
// help lines, its repaint. 0 when there is no part.
int TapPart(int x, int y);
// The same for the form's part of an item, by key; 0 when the form shows none.
int TapItem(int item);
// The form's own help lines of a field or item, when it has some.
void ShowItemHelp(int id);
