// The search by what is typed.
#pragma once

#include "platform/event.h"

// The search by what is typed, on the screens with rows.
void BeginSearch();
// 1 when the event belonged to the search.
int HearSearch(const Event &event);
