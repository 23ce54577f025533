// The key of a pass code, and which of the two ciphers the records are under.
#pragma once

#include "state/state.h"

// ORDER CIPHERSUITE: the byte in the configuration record; it reaches a file and is never renumbered
enum CipherSuite : uint8_t {
    BlockSuite = 0,  // a digest of the code, blocks of 8 bytes: data written before there were seals
    SealedSuite = 1, // a stretched code with salt, each record under a seal of its own: every code set from now on
};

// A key of a pass code, its 16-bit characters without the terminator. `salt` counts for SealedSuite alone. The key, or
// NoKey when the machine does not offer the cipher; the failure is traced. To be forgotten by ForgetKey.
[[nodiscard]] int32_t DeriveKey(const char16_t *text, int suite, const uint8_t *salt);
// Wipes a key; NoKey is accepted.
void ForgetKey(int32_t key);
// The key in force is wiped and no longer in force.
void ForgetCurrentKey();
// 1 when the machine offers what a suite needs.
int SuiteOffered(int suite);

// A line "%d::%x:%s" in the trace: the code of the call that failed, the machine's number and words. Nothing before the
// data are loaded.
void TraceCrypt(int code);
