#include "cipher/hooks.h"
#include "cipher/keys.h"
#include "platform/action.h"
#include "platform/cipher.h"
#include "platform/files.h"
#include "state/error_log.h"
#include <cstdio>
#include <cstring>

namespace {

constexpr int EncipherTrace = 10; // times the kind

struct Parts {
    uint8_t *Payload, *Nonce, *Tag;
};
Parts PartsOf(FileKind kind, void *record) {
    static_assert(NonceBytes + SealTagBytes <= TailBytes);
    auto *bytes = static_cast<uint8_t *>(record);
    const int payload = PayloadSize(kind);
    return {bytes, bytes + payload, bytes + payload + NonceBytes};
}

// 1 when the kind is one that a key goes over.
int Covered(int32_t key, FileKind kind) {
    if (key == NoKey || kind == FileKind::Configuration)
        return 0;
    if (kind < FileKind::Count)
        return 1;
    ReportError(In::CopyRecFile, Trouble::CaseError);
    return 0;
}

int SealRecord(int32_t key, FileKind kind, void *record) {
    const Parts parts = PartsOf(kind, record);
    return FillUnforeseeable(parts.Nonce, NonceBytes) &&
           Seal(key, parts.Nonce, parts.Payload, PayloadSize(kind), parts.Tag);
}

int UnsealRecord(int32_t key, FileKind kind, void *record) {
    const Parts parts = PartsOf(kind, record);
    if (!Unseal(key, parts.Nonce, parts.Payload, PayloadSize(kind), parts.Tag))
        return 0;
    std::memset(parts.Nonce, 0, NonceBytes + SealTagBytes); // of no use any more
    return 1;
}

// The name without its directory.
void NoteBrokenFile() {
    const char *path = FileReadLast(), *name = std::strrchr(path, '\\');
    std::snprintf(state.BrokenFile, sizeof state.BrokenFile, "%s", name ? name + 1 : path);
}

} // namespace

int EncipherUnder(int32_t key, FileKind kind, void *record) {
    if (!Covered(key, kind))
        return 1;
    // The payload alone: the tail stays as it is under blocks.
    if (CipherOfKey(key) == Cipher::Blocks ? EncipherBlocks(key, record, PayloadSize(kind))
                                           : SealRecord(key, kind, record))
        return 1;
    std::memset(record, 0, static_cast<size_t>(RecordSize(kind)));
    TraceCrypt(static_cast<int>(kind) * EncipherTrace);
    return 0;
}

int DecipherUnder(int32_t key, FileKind kind, void *record) {
    if (!Covered(key, kind))
        return 1;
    const bool blocks = CipherOfKey(key) == Cipher::Blocks;
    if (blocks ? DecipherBlocks(key, record, RecordSize(kind)) : UnsealRecord(key, kind, record))
        return 1;
    std::memset(record, 0, static_cast<size_t>(RecordSize(kind)));
    if (blocks) // what a broken seal gives is told by whoever reads the record
        TraceCrypt(static_cast<int>(kind));
    return 0;
}

int EncipherRecord(FileKind kind, void *record) {
    if (EncipherUnder(state.CurrentKey, kind, record))
        return 1;
    RefuseActionFor(WriteRefused);
    return 0;
}

int DecipherRecord(FileKind kind, void *record, Broken then) {
    if (DecipherUnder(state.CurrentKey, kind, record))
        return 1;
    if (CipherOfKey(state.CurrentKey) == Cipher::Blocks) { // which know of no broken records: the machine fails
        RefuseActionFor(ReadRefused);
        return 0;
    }
    NoteBrokenFile();
    if (then == Broken::Refuses)
        RefuseActionFor(DoubtRefused);
    if (then == Broken::Doubts)
        DoubtAction();
    return 0;
}
