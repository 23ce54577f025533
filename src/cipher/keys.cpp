#include "cipher/keys.h"
#include "platform/cipher.h"
#include "platform/text.h"
#include "state/error_log.h"
#include <cstdio>

namespace {

// Codes of the trace. The hooks have the numbers below: the kind of the file, times 10 when enciphering.
constexpr int HashData = 31, MakingKey = 32;

Cipher CipherOfSuite(int suite) {
    return suite == BlockSuite ? Cipher::Blocks : Cipher::Sealed;
}

} // namespace

int32_t DeriveKey(const char16_t *text, int suite, const uint8_t *salt) {
    static_assert(BlockKeyBytes == DigestBytes);
    uint8_t bytes[SealKeyBytes];
    const int64_t count = TextLength(text) * static_cast<int64_t>(sizeof *text);
    const int derived =
        suite == BlockSuite ? DigestOf(text, count, bytes) : StretchSecret(text, count, salt, bytes, SealKeyBytes);
    if (!derived) {
        TraceCrypt(HashData);
        return NoKey;
    }
    const int key = MakeKey(CipherOfSuite(suite), bytes);
    Wipe(bytes, sizeof bytes);
    if (key == 0)
        TraceCrypt(MakingKey);
    return key ? key : NoKey;
}

void ForgetKey(int32_t key) {
    if (key != NoKey)
        DropKey(key);
}

void ForgetCurrentKey() {
    ForgetKey(state.CurrentKey);
    state.CurrentKey = NoKey;
}

int SuiteOffered(int suite) {
    return CipherOffered(CipherOfSuite(suite));
}

void TraceCrypt(int code) {
    char words[64], line[96];
    const uint32_t error = LastCipherError(words, sizeof words);
    if (state.FileAccessReady != 1)
        return;
    std::snprintf(line, sizeof line, "%d::%x:%s", code, error, words);
    TraceNarrow(line);
}
