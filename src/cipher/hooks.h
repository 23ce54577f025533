// The hooks that every record passes on its way to and from a file, so that nothing else ever sees a cipher.
#pragma once

#include "records/records.h"

// Before a write: covers the payload in place and leaves the spare tail plain. Nothing happens with NoKey, nor to
// the configuration record, which must be read before any key exists.
void EncipherRecord(FileKind kind, void *record);

// After a read: covers the whole record in place, so that its tail means nothing afterwards.
void DecipherRecord(FileKind kind, void *record);
