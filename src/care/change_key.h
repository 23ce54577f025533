// All records from under one key to under another.
#pragma once

// Told how far the work has come, 0 to 100.
using ChangeTeller = void (*)(int percent);

enum class KeyChange { Unwritten, Done, Damaged, NoCipher };

// Re-enciphers every data file under the key of a code (with SealedSuite and a salt of its own), or plain for an empty
// code, and says so in the configuration record. All of it or nothing happens, also when the program ends in the
// middle. Done also when there is nothing to do. Unwritten when the disk refuses; Damaged when a record does not read
// under the old key, its file then stands in the trace; NoCipher when the machine refuses: nothing is changed then.
[[nodiscard]] KeyChange ChangeKey(const char16_t *newText, ChangeTeller tell);
