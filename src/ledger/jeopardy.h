// Watch limits on an account's balance.
#pragma once

#include "records/records.h"

// 1 when a balance lies outside the account's watched limits; one equal to a limit is safe. The limits are whole
// units, and the balance is cut to whole units first.
bool BreaksLimit(const ARec &account, FixedAmount value);
bool BreaksWholeLimit(const ARec &account, int64_t whole);

// Which limits an account watches from now on.
enum class Watched : uint8_t { None, Low, Both };
// Stores them for the account at a position, and lets every flag follow. 0 when refused.
[[nodiscard]] int WatchLimits(int32_t position, Watched limits);
