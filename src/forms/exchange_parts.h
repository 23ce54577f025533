// What the forms of import and export have in common: three choices for the entries, a bar, and how they open.
#pragma once

#include "frame/form.h"

// Opens the form of the current account; from the graph over its transactions, and its end leads back there. 1, or 0
// when there is no account or no form can open.
int OpenExchangeForm(const Form *form);
// The selected entry's date, else today; into `dayNumber` with `later` 1 the day after, when there are entries.
RecDate DateProposed(int later);
// Paints the three choices when the mask asks for labels. A tap on one of them chooses it.
void PaintChoices(int mask);
void TapChoice(int item);
// Moves the bar.
void ShowProgress(int percent);
