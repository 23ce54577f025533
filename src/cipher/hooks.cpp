#include "cipher/hooks.h"
#include "state/state.h"
#include <cassert>

// Nothing puts a key in force yet, and a configuration that asks for one is refused at start-up: so every record
// passes as it is. What would break the files for good is a record written plain under a key; hence the assertion.

void EncipherRecord(FileKind kind, [[maybe_unused]] void *record) {
    assert(kind == FileKind::Configuration || state.CurrentKey == NoKey);
    static_cast<void>(kind);
}

void DecipherRecord(FileKind kind, [[maybe_unused]] void *record) {
    assert(kind == FileKind::Configuration || state.CurrentKey == NoKey);
    static_cast<void>(kind);
}
