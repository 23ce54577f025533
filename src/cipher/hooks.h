// The hooks that every record passes on its way to and from a file, so that nothing else ever sees a cipher. A record
// stands alone under its key: it may be moved raw within a file and between files.
//
// With a sealed key the first 32 bytes of the record's spare tail hold what belongs to it:
//
//     0  16  a number used once
//    16  16  the seal over it and the payload
#pragma once

#include "records/records.h"

// Before a write, under the key in force: covers the payload in place. Nothing happens with NoKey, nor to the
// configuration record, which must be read before any key exists. 1, or 0 when the machine fails: the record is then
// zero rather than plain and not to be written, and the action is refused.
[[nodiscard]] int EncipherRecord(FileKind kind, void *record);

// What a record that can't be read does to the action that reads it.
enum class Broken : uint8_t {
    Refuses, // for whoever stops there
    Doubts,  // for whoever goes on with zeros: the action may change nothing
    Shows,   // for whoever only shows it as a blank row, or knows what it may not do without it
};

// After a read: the payload is plain, the tail means nothing. 0 for a record that can't be deciphered, which is under a
// seal that was changed, or under another key: it is zero, which its version byte refuses, and state.BrokenFile names
// the file that was read last.
[[nodiscard]] int DecipherRecord(FileKind kind, void *record, Broken then = Broken::Refuses);

// The same under a key of cipher/keys.h or NoKey, without a word to the action.
int EncipherUnder(int32_t key, FileKind kind, void *record);
int DecipherUnder(int32_t key, FileKind kind, void *record);
