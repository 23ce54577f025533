// The palette screen, which a form opens in its place (ActiveDialog PaletteDialog): the owner mixes a colour, keeps it
// in the palette, gives it to the category in state.FormRow, and comes back to the form.
#pragma once

#include "frame/form.h"
#include "platform/event.h"

// Takes the place of the open form, whose working row is the category; what was typed must already stand in it. The
// colour to begin with is the category's.
void OpenPalette();
// Every event while the palette is up. 1 when it was the palette's.
int HandlePaletteEvent(const Event &event);
