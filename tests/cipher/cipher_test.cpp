// The ciphers by bytes typed by hand, and what a record looks like under each of them.
#include "cipher/hooks.h"
#include "cipher/keys.h"
#include "host/test_host.h"
#include "platform/cipher.h"
#include "platform/text.h"
#include <cstring>
#include <gtest/gtest.h>

using namespace testhost;

namespace {

using Bytes = std::vector<uint8_t>;

Bytes FromHex(const std::string &hex) {
    Bytes bytes;
    for (size_t n = 0; n + 1 < hex.size(); n += 2)
        bytes.push_back(static_cast<uint8_t>(std::stoi(hex.substr(n, 2), nullptr, 16)));
    return bytes;
}
std::string Hex(const uint8_t *bytes, size_t count) {
    std::string hex;
    for (size_t n = 0; n < count; ++n) {
        char pair[3];
        snprintf(pair, sizeof pair, "%02x", bytes[n]);
        hex += pair;
    }
    return hex;
}
std::string Hex(const Bytes &bytes) {
    return Hex(bytes.data(), bytes.size());
}
Bytes Counting(int first, int count, int step = 1) {
    Bytes bytes;
    for (int n = 0; n < count; ++n)
        bytes.push_back(static_cast<uint8_t>(first + n * step));
    return bytes;
}

constexpr uint8_t Salt[SaltBytes] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};

} // namespace

TEST(Cipher, DigestsAndStretchedSecretsAreTheKnownOnes) {
    uint8_t digest[DigestBytes], key[SealKeyBytes];
    ASSERT_TRUE(DigestOf("message digest", 14, digest));
    EXPECT_EQ(Hex(digest, DigestBytes), "f96b697d7cb7938d525a2f31aaf161d0");
    const std::u16string code = u"Tr\u00e4ume 12";
    ASSERT_TRUE(StretchSecret(code.data(), 18, Salt, key, SealKeyBytes));
    EXPECT_EQ(Hex(key, SealKeyBytes), "7489b5489f608f393ed259c6882e09c7c8a88cdc163897a7224ce8236c504bb6"
                                      "e9f7771bcffe7544bd978de83fb30ca02207bc39403ac3c1e03b830fa5cad2d8");
}

TEST(Cipher, BlocksAreTheKnownOnes) {
    constexpr struct {
        const char *Key, *Plain, *Covered;
    } rows[] = {
        {"88bca90e90875a7f0f79c384627bafb2", "0000000000000000", "2269552ab0f85ca6"},
        // The digest of the code 123 in 16-bit characters.
        {"5fa285e1bebe0a6623e33afc04a1fbd5", "000102030405060708090a0b0c0d0e0f", "408581478c921066aea83d29c4b80f12"},
    };
    for (const auto &row : rows) {
        const int key = MakeKey(Cipher::Blocks, FromHex(row.Key).data());
        ASSERT_GT(key, 0);
        Bytes data = FromHex(row.Plain);
        const auto count = static_cast<int64_t>(data.size());
        ASSERT_TRUE(EncipherBlocks(key, data.data(), count));
        EXPECT_EQ(Hex(data), row.Covered);
        ASSERT_TRUE(DecipherBlocks(key, data.data(), count));
        EXPECT_EQ(Hex(data), row.Plain);
        EXPECT_FALSE(EncipherBlocks(key, data.data(), 7));
        DropKey(key);
        EXPECT_FALSE(EncipherBlocks(key, data.data(), count)) << "dropped";
    }
}

TEST(Cipher, SealsAreTheKnownOnesAndBreakAtAnyChangedByte) {
    const int key = MakeKey(Cipher::Sealed, Counting(0, 64).data());
    ASSERT_GT(key, 0);
    const Bytes nonce = Counting(0xa0, 16);
    constexpr struct {
        int Count;
        const char *Tag, *Sealed;
    } rows[] = {
        {48, "5a902e02774a01d5516201befc720c0f",
         "d8b4c608145e1638d6900a51fbc4549f4907b925bd624cba43cc3d6b854d0635a5b34f9b352e2b46183c194862fc7098"},
        {40, "5da0cae24b821077c63d78a8ebbe4ad0",
         "700dc324ecfa3ce8447ba961a29bc668dcd311eb9bd7b1e646177c5e94b85d22eddfd57e0d25af6e"},
    };
    Bytes plain, sealed, tag(SealTagBytes);
    for (const auto &row : rows) {
        plain = Counting(3, row.Count, 7);
        sealed = plain;
        ASSERT_TRUE(Seal(key, nonce.data(), sealed.data(), row.Count, tag.data()));
        EXPECT_EQ(Hex(tag), row.Tag);
        EXPECT_EQ(Hex(sealed), row.Sealed);
    }
    for (size_t changed = 0; changed <= 72; ++changed) { // the last round changes nothing
        Bytes all = sealed;
        all.insert(all.end(), nonce.begin(), nonce.end());
        all.insert(all.end(), tag.begin(), tag.end());
        if (changed < 72)
            all[changed] ^= 0x10;
        EXPECT_EQ(Unseal(key, &all[40], all.data(), 40, &all[56]), changed == 72) << changed;
        if (changed == 72) {
            EXPECT_EQ(Bytes(all.begin(), all.begin() + 40), plain);
        }
    }
    DropKey(key);
}

namespace {

struct Hooks : testing::TestWithParam<int> {
    Hooks() { state.CurrentKey = DeriveKey(u"1234", GetParam(), Salt); }
    ~Hooks() override { ForgetCurrentKey(); }
    TestRoot Root;

    // A record full of a pattern, with a text in it and an empty tail.
    static Bytes Record(FileKind kind) {
        Bytes record(static_cast<size_t>(RecordSize(kind)));
        const auto *text = reinterpret_cast<const uint8_t *>(u"Savings account");
        for (int n = 0; n < PayloadSize(kind); ++n)
            record[static_cast<size_t>(n)] = n >= 20 && n < 50 ? text[n - 20] : static_cast<uint8_t>(n % 8);
        record[0] = RecordVersion;
        return record;
    }
};

} // namespace

TEST_P(Hooks, EveryKindButTheConfigurationIsCoveredWholeAndComesBack) {
    const int sealed = GetParam() == SealedSuite;
    for (int number = 0; number < static_cast<int>(FileKind::Count); ++number) {
        SCOPED_TRACE(number);
        const auto kind = static_cast<FileKind>(number);
        const auto payload = static_cast<size_t>(PayloadSize(kind));
        const Bytes plain = Record(kind);
        Bytes first = plain, second = plain;
        ASSERT_TRUE(EncipherRecord(kind, first.data()));
        ASSERT_TRUE(EncipherRecord(kind, second.data()));
        if (kind == FileKind::Configuration) {
            EXPECT_EQ(first, plain);
            continue;
        }
        for (size_t at = 0; at < payload; at += 8)
            EXPECT_NE(memcmp(&first[at], &plain[at], 8), 0) << at;
        // Equal records look equal under blocks alone, and there the tail is left as it is.
        EXPECT_EQ(first == second, !sealed);
        for (size_t at = payload; at < first.size(); ++at)
            EXPECT_TRUE(first[at] == 0 || (sealed && at < payload + 32)) << at;
        EXPECT_TRUE(DecipherRecord(kind, first.data()));
        EXPECT_EQ(Bytes(first.begin(), first.begin() + static_cast<long>(payload)),
                  Bytes(plain.begin(), plain.begin() + static_cast<long>(payload)));
    }
}

TEST_P(Hooks, AnotherKeyAndAChangedRecordAreRefusedByTheVersionByte) {
    const Bytes plain = Record(FileKind::Accounts);
    Bytes covered = plain;
    ASSERT_TRUE(EncipherRecord(FileKind::Accounts, covered.data()));
    Bytes read;
    for (const char16_t *code : {u"1235", u"12345", u"", u"a code of thirty-one characters"}) {
        const int32_t other = DeriveKey(code, GetParam(), Salt);
        read = covered;
        EXPECT_EQ(DecipherUnder(other, FileKind::Accounts, read.data()), GetParam() == BlockSuite);
        EXPECT_NE(read[0], RecordVersion);
        ForgetKey(other);
    }
    if (GetParam() == BlockSuite)
        return; // blocks notice nothing but this, and know no salt
    constexpr uint8_t otherSalt[SaltBytes] = {};
    const int32_t again = DeriveKey(u"1234", SealedSuite, Salt), salted = DeriveKey(u"1234", SealedSuite, otherSalt);
    read = covered;
    EXPECT_TRUE(DecipherUnder(again, FileKind::Accounts, read.data()));
    read = covered;
    EXPECT_FALSE(DecipherUnder(salted, FileKind::Accounts, read.data()));
    ForgetKey(again);
    ForgetKey(salted);
    for (const size_t at : {size_t{0}, size_t{300}, size_t{527}, size_t{528}, size_t{559}}) {
        read = covered;
        read[at] ^= 1;
        EXPECT_FALSE(DecipherRecord(FileKind::Accounts, read.data()));
        EXPECT_EQ(read, Bytes(plain.size())) << at;
    }
    read = plain; // never enciphered
    EXPECT_FALSE(DecipherRecord(FileKind::Accounts, read.data()));
    EXPECT_EQ(read, Bytes(plain.size()));
}

INSTANTIATE_TEST_SUITE_P(Suites, Hooks, testing::Values(+BlockSuite, +SealedSuite));
