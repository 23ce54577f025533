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
// zero rather than plain, and not to be written.
int EncipherRecord(FileKind kind, void *record);

// After a read: the payload is plain, the tail means nothing. A record under a seal that was changed, or is under
// another key, is zero: its version byte refuses it.
void DecipherRecord(FileKind kind, void *record);

// The same under a key of cipher/keys.h or NoKey. 1, or 0 when the record is zero for one of these reasons.
int EncipherUnder(int32_t key, FileKind kind, void *record);
int DecipherUnder(int32_t key, FileKind kind, void *record);
