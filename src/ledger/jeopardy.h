// Watch limits on an account's balance.
#pragma once

#include "records/records.h"

// 1 when a balance lies outside the account's watched limits; one equal to a limit is safe. The limits are whole
// units, and the balance is cut to whole units first.
int BreaksLimit(const ARec &account, FixedAmount value);
int BreaksWholeLimit(const ARec &account, int64_t whole);

// The menu commands, for the selected account, with their help lines: on first watches the low limit, then both. 0 with
// a beep when a form is open or no account is selected.
int JeopardyOn();
int JeopardyOff();
