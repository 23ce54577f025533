// cipher.h over OpenSSL's libcrypto.
#include "platform/cipher.h"
#include <cstdio>
#include <cstring>
#include <openssl/core_names.h>
#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/params.h>
#include <openssl/provider.h>
#include <openssl/rand.h>

namespace {

// An old cipher comes from the provider "legacy", which not every machine has. Each key has a library context of its
// own, so that loading that provider changes nothing for the rest of the process.
struct KeySlot {
    bool Used;
    Cipher What;
    OSSL_LIB_CTX *Library;
    OSSL_PROVIDER *Provider;
    EVP_CIPHER *Algorithm, *Stream;
    // Set up once with the key. Of a sealed key, Encipher chains the blocks that the seal is made of, and Decipher is
    // the stream over the data, which is its own inverse.
    EVP_CIPHER_CTX *Encipher, *Decipher;
    uint8_t FullMask[SealTagBytes], PaddedMask[SealTagBytes], Start[SealTagBytes]; // of the seal, see MakeSeal
};
constexpr int MostKeys = 4;
KeySlot Slots[MostKeys + 1]; // [0] unused

struct CipherName {
    const char *Provider, *Algorithm, *Stream;
};
constexpr CipherName Names[] = {{"legacy", "RC2-ECB", nullptr},
                                {"default", "AES-256-CBC", "AES-256-CTR"}}; // ORDER CIPHER
constexpr int MostSealed = 4096;                                            // bytes, more than any record

KeySlot *SlotOf(int key) {
    return key >= 1 && key <= MostKeys && Slots[key].Used ? &Slots[key] : nullptr;
}

void Clear(KeySlot *slot) {
    EVP_CIPHER_CTX_free(slot->Encipher); // wipes
    EVP_CIPHER_CTX_free(slot->Decipher);
    EVP_CIPHER_free(slot->Algorithm);
    EVP_CIPHER_free(slot->Stream);
    if (slot->Provider)
        OSSL_PROVIDER_unload(slot->Provider);
    OSSL_LIB_CTX_free(slot->Library);
    Wipe(slot, sizeof *slot);
}

bool FetchCipher(KeySlot *slot, Cipher cipher) {
    const CipherName &name = Names[static_cast<int>(cipher)];
    slot->What = cipher;
    slot->Library = OSSL_LIB_CTX_new();
    slot->Provider = slot->Library ? OSSL_PROVIDER_load(slot->Library, name.Provider) : nullptr;
    slot->Algorithm = slot->Provider ? EVP_CIPHER_fetch(slot->Library, name.Algorithm, nullptr) : nullptr;
    slot->Stream = slot->Algorithm && name.Stream ? EVP_CIPHER_fetch(slot->Library, name.Stream, nullptr) : nullptr;
    return slot->Algorithm && (slot->Stream || !name.Stream);
}

EVP_CIPHER_CTX *StartBlocks(const KeySlot &slot, const uint8_t *key, int encipher) {
    EVP_CIPHER_CTX *context = EVP_CIPHER_CTX_new();
    size_t effectiveBits = BlockKeyBytes * 8;
    const OSSL_PARAM params[] = {OSSL_PARAM_construct_size_t(OSSL_CIPHER_PARAM_RC2_KEYBITS, &effectiveBits),
                                 OSSL_PARAM_construct_end()};
    if (context && EVP_CipherInit_ex2(context, slot.Algorithm, key, nullptr, encipher, params) &&
        EVP_CIPHER_CTX_set_padding(context, 0))
        return context;
    EVP_CIPHER_CTX_free(context);
    return nullptr;
}

EVP_CIPHER_CTX *StartSealing(const EVP_CIPHER *algorithm, const uint8_t *key) {
    constexpr uint8_t none[SealTagBytes] = {};
    EVP_CIPHER_CTX *context = EVP_CIPHER_CTX_new();
    if (context && EVP_EncryptInit_ex2(context, algorithm, key, none, nullptr) &&
        EVP_CIPHER_CTX_set_padding(context, 0))
        return context;
    EVP_CIPHER_CTX_free(context);
    return nullptr;
}

// --- The seal, as SIV mode makes it (RFC 5297): the library's own SIV is built anew for every message, which takes
// longer than the work on a record.

void Mix(uint8_t *to, const uint8_t *with) {
    for (int i = 0; i < SealTagBytes; ++i)
        to[i] ^= with[i];
}

// Times x in the field of 2^128 elements.
void Double(uint8_t *value) {
    const uint8_t carried = value[0] >> 7;
    for (int i = 0; i < SealTagBytes - 1; ++i)
        value[i] = static_cast<uint8_t>(value[i] << 1 | value[i + 1] >> 7);
    value[SealTagBytes - 1] = static_cast<uint8_t>(value[SealTagBytes - 1] << 1 ^ (carried ? 0x87 : 0));
}

// Chains whole blocks from zero, in place; the last of them is what counts.
int Chain(const KeySlot &slot, uint8_t *blocks, int bytes) {
    constexpr uint8_t none[SealTagBytes] = {};
    int done = 0;
    return EVP_EncryptInit_ex2(slot.Encipher, nullptr, nullptr, none, nullptr) &&
           EVP_EncryptUpdate(slot.Encipher, blocks, &done, blocks, bytes) && done == bytes;
}

// What is the same for all seals of the key.
int PrepareSeal(KeySlot *slot) {
    if (!Chain(*slot, slot->FullMask, SealTagBytes)) // of zeros
        return 0;
    Double(slot->FullMask);
    std::memcpy(slot->PaddedMask, slot->FullMask, SealTagBytes);
    Double(slot->PaddedMask);
    std::memcpy(slot->Start, slot->FullMask, SealTagBytes);
    const int chained = Chain(*slot, slot->Start, SealTagBytes);
    Double(slot->Start);
    return chained;
}

// The seal over a nonce and at least one block of plain data.
int MakeSeal(const KeySlot &slot, const uint8_t *nonce, const uint8_t *data, int count, uint8_t *tag) {
    uint8_t mask[SealTagBytes], work[MostSealed + SealTagBytes];
    if (count < SealTagBytes || count > MostSealed)
        return 0;
    std::memcpy(mask, nonce, SealTagBytes);
    Mix(mask, slot.FullMask);
    int sealed = Chain(slot, mask, SealTagBytes);
    Mix(mask, slot.Start);
    const int whole = (count + SealTagBytes - 1) / SealTagBytes * SealTagBytes;
    std::memcpy(work, data, static_cast<size_t>(count));
    Mix(work + count - SealTagBytes, mask);
    if (whole > count) {
        std::memset(work + count, 0, static_cast<size_t>(whole - count));
        work[count] = 0x80;
    }
    Mix(work + whole - SealTagBytes, whole > count ? slot.PaddedMask : slot.FullMask);
    sealed = sealed && Chain(slot, work, whole);
    std::memcpy(tag, work + whole - SealTagBytes, SealTagBytes);
    return sealed;
}

int RunStream(const KeySlot &slot, const uint8_t *tag, uint8_t *data, int count) {
    uint8_t counter[SealTagBytes];
    std::memcpy(counter, tag, SealTagBytes);
    counter[8] &= 0x7F;
    counter[12] &= 0x7F;
    int done = 0;
    return EVP_EncryptInit_ex2(slot.Decipher, nullptr, nullptr, counter, nullptr) &&
           EVP_EncryptUpdate(slot.Decipher, data, &done, data, count) && done == count;
}

int RunBlocks(int key, void *data, int64_t count, bool encipher) {
    KeySlot *slot = SlotOf(key);
    auto *bytes = static_cast<uint8_t *>(data);
    int done = 0;
    return slot && slot->What == Cipher::Blocks && count % 8 == 0 &&
           EVP_CipherUpdate(encipher ? slot->Encipher : slot->Decipher, bytes, &done, bytes, static_cast<int>(count)) &&
           done == count;
}

} // namespace

int DigestOf(const void *bytes, int64_t count, uint8_t digest[DigestBytes]) {
    unsigned length = 0;
    return EVP_Digest(bytes, static_cast<size_t>(count), digest, &length, EVP_md5(), nullptr) && length == DigestBytes;
}

int StretchSecret(const void *secret, int64_t count, const uint8_t salt[SaltBytes], uint8_t *key, int keyBytes) {
    constexpr uint64_t Cost = 1 << 16, BlockSize = 8, Parallel = 1;
    constexpr uint64_t MostMemory = 2 * 128 * Cost * BlockSize; // twice what it takes
    return EVP_PBE_scrypt(static_cast<const char *>(secret), static_cast<size_t>(count), salt, SaltBytes, Cost,
                          BlockSize, Parallel, MostMemory, key, static_cast<size_t>(keyBytes)) == 1;
}

int MakeKey(Cipher cipher, const uint8_t *bytes) {
    for (int key = 1; key <= MostKeys; ++key) {
        KeySlot &slot = Slots[key];
        if (slot.Used)
            continue;
        if (FetchCipher(&slot, cipher)) {
            const bool sealed = cipher == Cipher::Sealed;
            slot.Encipher = sealed ? StartSealing(slot.Algorithm, bytes) : StartBlocks(slot, bytes, 1);
            slot.Decipher = sealed ? StartSealing(slot.Stream, bytes + SealKeyBytes / 2) : StartBlocks(slot, bytes, 0);
            slot.Used = slot.Encipher && slot.Decipher && (!sealed || PrepareSeal(&slot));
        }
        if (slot.Used)
            return key;
        Clear(&slot);
        return 0;
    }
    return 0;
}

int CipherOffered(Cipher cipher) {
    KeySlot slot{};
    const bool offered = FetchCipher(&slot, cipher);
    Clear(&slot);
    return offered;
}

Cipher CipherOfKey(int key) {
    const KeySlot *slot = SlotOf(key);
    return slot ? slot->What : Cipher::Sealed;
}

void DropKey(int key) {
    if (KeySlot *slot = SlotOf(key))
        Clear(slot);
}

int EncipherBlocks(int key, void *data, int64_t count) {
    return RunBlocks(key, data, count, true);
}
int DecipherBlocks(int key, void *data, int64_t count) {
    return RunBlocks(key, data, count, false);
}

int Seal(int key, const uint8_t nonce[NonceBytes], void *data, int64_t count, uint8_t tag[SealTagBytes]) {
    const KeySlot *slot = SlotOf(key);
    auto *bytes = static_cast<uint8_t *>(data);
    const int size = static_cast<int>(count);
    return slot && slot->What == Cipher::Sealed && MakeSeal(*slot, nonce, bytes, size, tag) &&
           RunStream(*slot, tag, bytes, size);
}

int Unseal(int key, const uint8_t nonce[NonceBytes], void *data, int64_t count, const uint8_t tag[SealTagBytes]) {
    const KeySlot *slot = SlotOf(key);
    auto *bytes = static_cast<uint8_t *>(data);
    const int size = static_cast<int>(count);
    uint8_t expected[SealTagBytes];
    return slot && slot->What == Cipher::Sealed && RunStream(*slot, tag, bytes, size) &&
           MakeSeal(*slot, nonce, bytes, size, expected) && CRYPTO_memcmp(expected, tag, SealTagBytes) == 0;
}

// Asked for a few bytes at a time, thousands of times: drawn in larger portions, and none is given out twice.
int FillUnforeseeable(uint8_t *to, int count) {
    static uint8_t drawn[4096];
    static int left = 0;
    if (count > static_cast<int>(sizeof drawn))
        return RAND_bytes(to, count) == 1;
    if (left < count) {
        if (RAND_bytes(drawn, sizeof drawn) != 1)
            return 0;
        left = sizeof drawn;
    }
    left -= count;
    std::memcpy(to, drawn + left, static_cast<size_t>(count));
    Wipe(drawn + left, count);
    return 1;
}

void Wipe(void *bytes, int64_t count) {
    OPENSSL_cleanse(bytes, static_cast<size_t>(count));
}

uint32_t LastCipherError(char *words, int room) {
    const unsigned long error = ERR_peek_last_error();
    const char *reason = error ? ERR_reason_error_string(error) : nullptr;
    std::snprintf(words, static_cast<size_t>(room), "%s", reason ? reason : "");
    ERR_clear_error();
    return static_cast<uint32_t>(error);
}
