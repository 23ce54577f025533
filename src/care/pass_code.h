// Whether a pass code is the right one. Nothing is ever compared with a stored code: the right key makes the check
// record's text readable.
#pragma once

#include <cstdint>

inline constexpr int MostTries = 8; // wrong codes of a run after which every further one is wrong too

// 1 when the code opens the data: its key is then in force, and the failed tries are forgotten. 0 and one failed try
// more; from the eighth on, the code is not even looked at. A check record that can't be opened is reported as
// CcreateFail and fails the try.
[[nodiscard]] int TryPassCode(const char16_t *text);

// 1 when the check record reads as it should under the key in force.
int CheckRecordStands();

// 1 when the configuration record is missing, short or unreadable while the check record is not plain: what the
// configuration said of the key is lost, and nothing may be written in its place.
int ConfigurationLost();
