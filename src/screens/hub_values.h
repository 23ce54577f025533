// What the HUB's arrows read and write: the amount of the selected row of the list shown, or that of an open form.
#pragma once

#include "values/amounts.h"

// What the read arrow reads now. True, or false and the value left alone when there is nothing to read.
[[nodiscard]] bool HubRead(FixedAmount *value);
// True when the write arrow would find somewhere to write.
bool HubTakesValue();
// Puts a value where HubRead would read it, and shows it there; totals that depend on it follow. False when it can't go
// there, or could not be written. A filter is lifted instead, as by every change, and that counts as done.
[[nodiscard]] bool HubWrite(FixedAmount value);

// A Reconcile entry with today's date at once, without its form: the open HUB sets its value. A solution that is shown
// is applied first. 1 when it stands.
int AddReconcileEntry();
