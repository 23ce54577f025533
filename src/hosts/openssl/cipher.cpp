// cipher.h over OpenSSL's libcrypto.
#include "platform/cipher.h"
#include <cstdio>
#include <cstring>
#include <openssl/core_names.h>
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
    EVP_CIPHER *Algorithm;
    // Set up once with the key. What works on a sealed record works on a copy: its own state must start anew.
    EVP_CIPHER_CTX *Encipher, *Decipher, *Work;
};
constexpr int MostKeys = 4;
KeySlot Slots[MostKeys + 1]; // [0] unused

struct CipherName {
    const char *Provider, *Algorithm;
};
constexpr CipherName Names[] = {{"legacy", "RC2-ECB"}, {"default", "AES-256-SIV"}}; // ORDER CIPHER

KeySlot *SlotOf(int key) {
    return key >= 1 && key <= MostKeys && Slots[key].Used ? &Slots[key] : nullptr;
}

void Clear(KeySlot *slot) {
    EVP_CIPHER_CTX_free(slot->Encipher); // wipes
    EVP_CIPHER_CTX_free(slot->Decipher);
    EVP_CIPHER_CTX_free(slot->Work);
    EVP_CIPHER_free(slot->Algorithm);
    if (slot->Provider)
        OSSL_PROVIDER_unload(slot->Provider);
    OSSL_LIB_CTX_free(slot->Library);
    *slot = {};
}

bool FetchCipher(KeySlot *slot, Cipher cipher) {
    const CipherName &name = Names[static_cast<int>(cipher)];
    slot->What = cipher;
    slot->Library = OSSL_LIB_CTX_new();
    slot->Provider = slot->Library ? OSSL_PROVIDER_load(slot->Library, name.Provider) : nullptr;
    slot->Algorithm = slot->Provider ? EVP_CIPHER_fetch(slot->Library, name.Algorithm, nullptr) : nullptr;
    return slot->Algorithm != nullptr;
}

EVP_CIPHER_CTX *Start(const KeySlot &slot, const uint8_t *key, int encipher) {
    EVP_CIPHER_CTX *context = EVP_CIPHER_CTX_new();
    size_t effectiveBits = BlockKeyBytes * 8;
    const OSSL_PARAM params[] = {OSSL_PARAM_construct_size_t(OSSL_CIPHER_PARAM_RC2_KEYBITS, &effectiveBits),
                                 OSSL_PARAM_construct_end()};
    const OSSL_PARAM *const wanted = slot.What == Cipher::Blocks ? params : nullptr;
    if (context && EVP_CipherInit_ex2(context, slot.Algorithm, key, nullptr, encipher, wanted) &&
        EVP_CIPHER_CTX_set_padding(context, 0))
        return context;
    EVP_CIPHER_CTX_free(context);
    return nullptr;
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
            slot.Encipher = Start(slot, bytes, 1);
            slot.Decipher = Start(slot, bytes, 0);
            slot.Work = EVP_CIPHER_CTX_new();
            slot.Used = slot.Encipher && slot.Decipher && slot.Work;
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
    KeySlot *slot = SlotOf(key);
    if (!slot || slot->What != Cipher::Sealed)
        return 0;
    auto *bytes = static_cast<uint8_t *>(data);
    int done = 0;
    return EVP_CIPHER_CTX_copy(slot->Work, slot->Encipher) &&
           EVP_EncryptUpdate(slot->Work, nullptr, &done, nonce, NonceBytes) &&
           EVP_EncryptUpdate(slot->Work, bytes, &done, bytes, static_cast<int>(count)) &&
           EVP_CIPHER_CTX_ctrl(slot->Work, EVP_CTRL_AEAD_GET_TAG, SealTagBytes, tag);
}

int Unseal(int key, const uint8_t nonce[NonceBytes], void *data, int64_t count, const uint8_t tag[SealTagBytes]) {
    KeySlot *slot = SlotOf(key);
    if (!slot || slot->What != Cipher::Sealed)
        return 0;
    auto *bytes = static_cast<uint8_t *>(data);
    uint8_t expected[SealTagBytes];
    std::memcpy(expected, tag, SealTagBytes);
    int done = 0;
    return EVP_CIPHER_CTX_copy(slot->Work, slot->Decipher) &&
           EVP_CIPHER_CTX_ctrl(slot->Work, EVP_CTRL_AEAD_SET_TAG, SealTagBytes, expected) &&
           EVP_DecryptUpdate(slot->Work, nullptr, &done, nonce, NonceBytes) &&
           EVP_DecryptUpdate(slot->Work, bytes, &done, bytes, static_cast<int>(count)) > 0;
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
