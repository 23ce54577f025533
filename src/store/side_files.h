// Single records that are no list: the check record, the notepad.
#pragma once

#include "records/records.h"

inline constexpr char16_t PassCheckText[] = u".v.Q .5.-;.}>k~["; // 16 units

enum SideRecord : int { ConfigurationRecord = 12, CheckRecord = 13 };

// Writes the check record or the configuration record. 0 on failure.
int StoreRecord(SideRecord what, const ConfRec *record);
// Reads it. 1, or 0 on a short read: the configuration then holds its defaults, the check record is zero.
int FetchRecord(SideRecord what, ConfRec *record);

// The notepad's text, room of 1000 units. A short file is an empty notepad.
int LoadNote(char16_t *text);
int SaveNote(const char16_t *text);
