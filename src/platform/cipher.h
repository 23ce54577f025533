// Ciphers, digests and chance for what must stay secret. Keys in use are kept by the machine, never in the program's
// own words: a key is a small number from 1 on, until it is dropped.
#pragma once

#include <cstdint>

inline constexpr int DigestBytes = 16, BlockKeyBytes = 16, SealKeyBytes = 64;
inline constexpr int NonceBytes = 16, SealTagBytes = 16, SaltBytes = 16;

enum class Cipher : uint8_t {
    Blocks, // RC2 with 128 effective bits, each 8 bytes by themselves: for data that were written so
    Sealed, // AES-256 in SIV mode: a changed byte or another key is noticed
};

// The MD5 digest. 1, or 0 when the machine refuses.
[[nodiscard]] int DigestOf(const void *bytes, int64_t count, uint8_t digest[DigestBytes]);

// Stretches a secret with scrypt (N 2^16, r 8, p 1), so that each guess costs a quarter of a second and 64 MB. 1, or 0
// when the machine refuses.
[[nodiscard]] int StretchSecret(const void *secret, int64_t count, const uint8_t salt[SaltBytes], uint8_t *key,
                                int keyBytes);

// A key of BlockKeyBytes or SealKeyBytes, by the cipher. Its number, or 0 when the machine does not offer the cipher or
// four keys are in use.
[[nodiscard]] int MakeKey(Cipher cipher, const uint8_t *bytes);
// 1 when keys of the cipher can be made.
int CipherOffered(Cipher cipher);
// The cipher of a key in use.
Cipher CipherOfKey(int key);
// Wipes the key. A number without a key is accepted.
void DropKey(int key);

// In place, for a key of Cipher::Blocks; `count` a multiple of 8. 1, or 0 and the data undefined.
[[nodiscard]] int EncipherBlocks(int key, void *data, int64_t count);
[[nodiscard]] int DecipherBlocks(int key, void *data, int64_t count);

// In place, for a key of Cipher::Sealed, 16 to 4096 bytes. A nonce is not used twice. 1, or 0 and the data undefined.
[[nodiscard]] int Seal(int key, const uint8_t nonce[NonceBytes], void *data, int64_t count, uint8_t tag[SealTagBytes]);
// 1, or 0 when data, nonce or tag are not what Seal made under this key: the data are then undefined.
[[nodiscard]] int Unseal(int key, const uint8_t nonce[NonceBytes], void *data, int64_t count,
                         const uint8_t tag[SealTagBytes]);

// Bytes that nobody can foretell. 1, or 0 when the machine has none.
[[nodiscard]] int FillUnforeseeable(uint8_t *to, int count);

// Zeroes in a way that no compiler leaves out.
void Wipe(void *bytes, int64_t count);

// The machine's number and words for the last failure, which never hold a secret; 0 and "" for none.
uint32_t LastCipherError(char *words, int room);
