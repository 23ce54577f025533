// Watch limits on an account's balance.
#pragma once

#include "store/records/records.h"

// 1 when the value lies outside the account's watched limits (whole units; equal to a limit is safe).
int BreaksLimit(const ARec &account, FixedAmount value);

// The menu commands, for the selected account, with their help lines. 0 with a beep when no account is selected.
int JeopardyOn();
int JeopardyOff();
