// Texts keep what the owner typed and nothing else.
#include "host/test_host.h"
#include "platform/text.h"
#include <cstring>
#include <gtest/gtest.h>

TEST(Text, CutTextsLeaveNothingBehindAndNoHalfCharacter) {
    static const struct {
        const char16_t *From;
        int Room;
        const char16_t *Expected;
    } cases[] = {
        {u"", 4, u""},      {u"abc", 4, u"abc"}, {u"abcd", 4, u"abc"},        {u"x", 1, u""},
        {u"ab😀", 4, u"ab"}, {u"ab😀", 5, u"ab😀"}, {u"a\xD83D", 3, u"a\xD83D"}, {u"\xD83D z", 2, u"\xD83D"},
    };
    for (const auto &c : cases) {
        char16_t to[8];
        std::memset(to, 0x55, sizeof to);
        CopyText(to, c.Room, c.From);
        EXPECT_EQ(std::u16string(to), c.Expected);
        for (int i = TextLength(c.Expected); i < c.Room; ++i)
            EXPECT_EQ(to[i], 0) << "an earlier text stands behind the terminator";
        EXPECT_EQ(to[c.Room], 0x5555) << "written past the room";
    }
    char16_t line[10] = u"Total ";
    EXPECT_EQ(AppendNumber(line, 10, -7, 3), 9);
    EXPECT_EQ(testhost::Utf8(line), "Total -00");
    line[0] = 0;
    AppendNumber(line, 10, 0);
    AppendText(line, 10, u" of ");
    AppendAscii(line, 10, "12345");
    EXPECT_EQ(testhost::Utf8(line), "0 of 1234");
    char16_t smallest[24] = u"";
    AppendNumber(smallest, 24, INT64_MIN);
    EXPECT_EQ(testhost::Utf8(smallest), "-9223372036854775808");
}

TEST(Text, NumbersOfABoxAreReadAsFarAsTheyGo) {
    static const struct {
        const char16_t *Text;
        int Width, Found;
        int64_t Value;
    } cases[] = {
        // clang-format off
        {u"12", 8, 1, 12}, {u"  -12x", 8, 1, -12}, {u"+5", 8, 1, 5}, {u"12345", 3, 1, 123}, {u"-12345", 3, 1, -12},
        {u"", 8, 0, 77}, {u"abc", 8, 0, 77}, {u"--5", 8, 0, 77}, {u"-", 8, 0, 77}, {u"7", 0, 0, 77},
        {u"99999999999999999999", 40, 1, INT64_MAX}, {u"-9223372036854775808", 40, 1, INT64_MIN},
        {u"-99999999999999999999", 40, 1, INT64_MIN}, {u"9223372036854775807", 40, 1, INT64_MAX},
        // clang-format on
    };
    for (const auto &c : cases) {
        int64_t value = 77;
        EXPECT_EQ(ReadNumber(c.Text, c.Width, &value), c.Found) << testhost::Utf8(c.Text);
        EXPECT_EQ(value, c.Value) << testhost::Utf8(c.Text);
    }
}

TEST(Text, StatementsOfAnyBankComeInReadable) {
    static const struct {
        const char *From;
        const char16_t *Expected;
    } cases[] = {
        {"Caf\xC3\xA9", u"Café"},
        {"Caf\xE9", u"Café"}, // no valid UTF-8, so the code page of a bank's desktop
        {"\x80 5 \x93ok\x94", u"€ 5 “ok”"},
        {"\xE2\x82\xAC\xF0\x9F\x98\x80", u"€😀"},
        {"\xC0\xAF", u"À¯"},           // over-long
        {"\xED\xA0\x80", u"í\u00A0€"}, // a surrogate
        {"\xF5\x80\x80\x80", u"õ€€€"}, // past the last character
        {"\xE2\x82", u"â‚"},           // cut off
        {"\x81", u"\uFFFD"},
    };
    for (const auto &c : cases) {
        char16_t to[32];
        const int units = WidenText(to, 32, c.From);
        EXPECT_EQ(std::u16string(to), c.Expected) << c.From;
        EXPECT_EQ(units, TextLength(c.Expected));
    }
    char16_t narrow[3];
    EXPECT_EQ(WidenText(narrow, 3, "a\xF0\x9F\x98\x80"), 1); // half a pair is not written
    EXPECT_EQ(WidenText(narrow, 3, "abcdef", 1), 1);
    EXPECT_EQ(WidenText(narrow, 3, "a\0b", 3), 1);

    static const struct {
        const char16_t *From;
        int Room;
        const char *Expected;
    } out[] = {
        // clang-format off
        {u"é€😀", 10, "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"}, {u"é€😀", 9, "\xC3\xA9\xE2\x82\xAC"}, {u"é", 2, ""},
        {u"\xD83Dx", 8, "\xEF\xBF\xBDx"}, {u"\xDE00", 8, "\xEF\xBF\xBD"}, {u"", 1, ""},
        // clang-format on
    };
    for (const auto &c : out) {
        char to[16];
        const int bytes = NarrowText(to, c.Room, c.From);
        EXPECT_STREQ(to, c.Expected);
        EXPECT_EQ(bytes, static_cast<int>(std::strlen(c.Expected)));
    }
}
