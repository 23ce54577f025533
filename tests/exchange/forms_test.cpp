// What other programs write reaches the form that the readers expect, and nothing else.
#include "exchange/amount_form.h"
#include "exchange/csv_form.h"
#include "exchange/ofx_form.h"
#include "exchange/qif_form.h"
#include "exchange/scan.h"
#include "exchange_test.h"

namespace {

TEST(AmountForm, AnAmountIsReadForSureOrNotAtAll) {
    constexpr struct {
        const char *Text, *Point, *Comma; // null: unreadable
    } cases[] = {
        {"", "0.0", "0.0"},
        {"12", "12.0", "12.0"},
        {"  -12.5 ", "-12.5", "-12.5"},
        {"+7.25", "7.25", "7.25"},
        {".5", "0.5", "0.5"},
        {"-.05", "-0.05", "-0.05"},
        {"007.1", "7.1", "7.1"},
        {"5.", "5.0", "5.0"},
        {"1,234.56", "1234.56", nullptr},
        {"1.234,56", nullptr, "1234.56"},
        {"1,234", "1234.0", "1.234"},
        {"1.234", "1.234", "1.234"},
        {"12,50", "12.50", "12.50"},
        {"12,", "12.0", "12.0"},
        {"12,3456", nullptr, "12.3456"},
        {"1,234,567", "1234567.0", nullptr},
        {"1,23,567", nullptr, nullptr},
        {"1.234.567", nullptr, "1234567.0"},
        {"1,234,567.8", "1234567.8", nullptr},
        {"1 234.50", "1234.50", "1234.50"},
        {"1'234'567.50", "1234567.50", "1234567.50"},
        {"1\xC2\xA0"
         "234,50",
         "1234.50", "1234.50"},
        {"12 34", nullptr, nullptr},
        {"10.00 5", nullptr, nullptr},
        {"-$5.25", "-5.25", "-5.25"},
        {"\xE2\x82\xAC 5.25", "5.25", "5.25"},
        {"\xE2\x88\x92"
         "5.25",
         "-5.25", "-5.25"},
        {"USD 3.00", "3.00", "3.00"},
        {"3.00 EUR", "3.00", "3.00"},
        {"3.00 DR", nullptr, nullptr},
        {"12.50-", "-12.50", "-12.50"},
        {"(12.50)", "-12.50", "-12.50"},
        {"--5", nullptr, nullptr},
        {"5-3", nullptr, nullptr},
        {"abc", nullptr, nullptr},
        {"1e5", nullptr, nullptr},
        {"1/2", nullptr, nullptr},
        {"999999999999999", "999999999999999.0", "999999999999999.0"},
        {"1000000000000000", nullptr, nullptr},
        {"0000000000000000001.5", "1.5", "1.5"},
        {"1234567890123456789012345678901234567890", nullptr, nullptr},
    };
    for (const auto &row : cases) {
        char to[AmountRoom] = "left";
        EXPECT_STREQ(FormAmount(row.Text, DecimalMark::Point, to) ? to : "left", row.Point ? row.Point : "left")
            << row.Text;
        EXPECT_STREQ(FormAmount(row.Text, DecimalMark::Comma, to) ? to : "none", row.Comma ? row.Comma : "none")
            << row.Text;
    }
}

TEST(DateForm, DatesBecomeWhatAScanReads) {
    constexpr struct {
        const char *Text, *DayFirst, *MonthFirst; // null: needs no order
    } cases[] = {
        {"12/29/10", "12/29/10", nullptr},
        {"6/13' 6", "6/13'6", nullptr},
        {" 1/ 1/10", "1/1/10", nullptr},
        {"31.12.2012", "31.12.2012", nullptr},
        {"12/31/2012 23:59:59", "12/31/2012", nullptr},
        {"2012-03-31", "31/3/2012", "3/31/2012"},
        {"2012/03/31", "31/3/2012", "3/31/2012"},
        {"20120331", "31/3/2012", "3/31/2012"},
        {"31122012", "31122012", nullptr},
        {"2012-13-31", "31/13/2012", "13/31/2012"},
        {"31 Mar 2012", "31/3/2012", "3/31/2012"},
        {"31-MAR-12", "31/3/2012", "3/31/2012"},
        {"March 3, 2012", "3/3/2012", "3/3/2012"},
        {"nonsense", "nonsense", nullptr},
        {"", "", nullptr},
    };
    for (const auto &row : cases) {
        for (const DateOrder order : {DateOrder::Unknown, DateOrder::DayFirst, DateOrder::MonthFirst}) {
            char text[64];
            std::strcpy(text, row.Text);
            const bool needsOrder = row.MonthFirst != nullptr;
            EXPECT_EQ(FormDate(order, text, sizeof text), !needsOrder || order != DateOrder::Unknown) << row.Text;
            if (order != DateOrder::Unknown) {
                EXPECT_STREQ(text, needsOrder && order == DateOrder::MonthFirst ? row.MonthFirst : row.DayFirst)
                    << row.Text;
            }
        }
    }
}

class Lines : public testing::Test {
protected:
    TestRoot root;
    std::unique_ptr<TextFile> text = std::make_unique<TextFile>();

    void Open(const std::string &bytes) {
        PutFile(root, "file", bytes);
        ASSERT_EQ(OpenText(text.get(), "\\file"), 1);
    }
    std::string AllLines(const std::string &bytes, int room = 512) {
        Open(bytes);
        std::string all;
        std::vector<char> line(static_cast<size_t>(room));
        while (NextLine(text.get(), line.data(), room))
            all += std::string(line.data()) + "|";
        CloseText(text.get());
        return all;
    }
    std::string QifLines(const std::string &bytes) {
        Open(bytes);
        const auto form = std::make_unique<QifForm>();
        StartQif(form.get(), text.get(), DateOrder::DayFirst);
        std::string all;
        while (const char *line = NextQifLine(form.get()))
            all += (form->BadAmount ? "?" : "") + std::string(line) + "|";
        CloseText(text.get());
        return all;
    }
    std::string OfxLines(const std::string &bytes) {
        Open(bytes);
        const auto form = std::make_unique<OfxForm>();
        StartOfx(form.get(), text.get());
        std::string all;
        while (NextOfxLine(form.get()))
            all += std::string(form->Tag) + "=" + form->Value + "|";
        CloseText(text.get());
        return all;
    }
    std::string CsvLines(const std::string &bytes) {
        Open(bytes);
        const auto form = std::make_unique<CsvForm>();
        StartCsv(form.get(), text.get(), DateOrder::DayFirst);
        std::string all;
        while (const char *line = NextCsvLine(form.get()))
            all += std::string(line) + "|";
        CloseText(text.get());
        return all;
    }
};

TEST_F(Lines, AnyLineEndAndCharacterSetGivesTheSameLines) {
    using namespace std::string_literals;
    const struct {
        std::string Bytes, Lines;
    } cases[] = {
        {"", ""},
        {"a\nb", "a|b|"},
        {"a\r\nb\r\n", "a|b|"},
        {"a\rb\r", "a|b|"},
        {"a\n\nb\r\n\r\nc\r\r", "a||b||c||"},
        {"\xEF\xBB\xBF"
         "caf\xC3\xA9\n",
         "caf\xC3\xA9|"},
        {"caf\xE9 \x80\n", "caf\xC3\xA9 \xE2\x82\xAC|"},
        {"\xC3\xA9 and \xE9\n", "\xC3\x83\xC2\xA9 and \xC3\xA9|"}, // the whole file is of one set
        {"a\0b\nc\0"s, "ab|c|"},
        {"\xFF\xFE"
         "a\0\r\0\n\0\xE9\0"s,
         "a|\xC3\xA9|"},
        {"\xFE\xFF\0a\0\n\x20\xAC"s, "a|\xE2\x82\xAC|"},
        {"a\0\n\0b\0"s, "a|b|"},
        {"\0a\0\n\xD8\x3D\xDE\x00"s, "a|\xF0\x9F\x98\x80|"},
        {"\xFF\xFE\x61"s, ""}, // half a unit
    };
    for (const auto &row : cases)
        EXPECT_EQ(AllLines(row.Bytes), row.Lines);
    EXPECT_EQ(AllLines("abcdef\ng", 4), "abc|g|");
    EXPECT_EQ(AllLines("abc\ng", 4), "abc|g|");
    EXPECT_EQ(AllLines("ab\xC3\xA9"
                       "d\n",
                       4),
              "ab|")
        << "no character is cut in two";
    EXPECT_EQ(AllLines(std::string(100000, 'x')).size(), 512u);
    // Across the chunks of reading.
    std::string wide = "x";
    while (wide.size() < 100000)
        wide += "\xC3\xA9";
    EXPECT_TRUE(AllLines(wide + "\n", 200000) == wide + "|");
    EXPECT_EQ(OpenText(text.get(), "\\nowhere"), 0);
    EXPECT_EQ(OpenText(text.get(), "\\"), 0) << "a directory";
}

TEST_F(Lines, AQifFileOfAnyMakerGivesHeadersLinesAndEnds) {
    const struct {
        const char *File, *Lines;
    } cases[] = {
        {"!Type:Bank\nD1/2/2012\nT5\n^\n", "!Type:Bank|D1/2/2012|T5.0|^|"},
        {"!type:bank  \n^\n^\nPa\n^^\n", "!Type:Bank|Pa|^|"},
        {"! TYPE : CCard\nPa", "!Type:CCard|Pa|^|"},
        {"!Type:Oth L\nPa\n^\n", "!Type:Oth L|Pa|^|"},
        {"# a\n!Option:AllXfr\n!Account\nNx\nD\n^\nNy\n^\n!Clear:AutoSwitch\n!Type:Invst\nPa\n^\n",
         "!Type:Invst|Pa|^|"},
        {"!Type:Cat\nNa\nDb\n^\n!Type:Class\nNa\n^\n!Type:Prices\n\"A\",1\n^\n!Type:Bank\nPa\n!Type:Memorized\nPx\n^\n",
         "!Type:Bank|Pa|^|"},
        {"!Type:Bank\nD2012-03-31\nT 1,234.50\nQ1,000\nT1.234,50\nT\n^", "!Type:Bank|D31/3/2012|T1234.50|Q1000.0|"
                                                                         "?T1.234,50|T|^|"},
        {"!Type:Bank\nD1/2/2012\nSa\nD9/9/2012\nPb\n^\nD3/2/2012\n^\n", "!Type:Bank|D1/2/2012|Sa|Pb|^|D3/2/2012|^|"},
        {"!Account\nNx\nD1 account\n^\nNy\n^\n^\nD1/1/2012\nT5\n^\n", "D1/1/2012|T5.0|^|"},
        {"!Type:Bank\nPa\n!Type:Bank\nPb\n", "!Type:Bank|Pa|^|!Type:Bank|Pb|^|"},
    };
    for (const auto &row : cases)
        EXPECT_EQ(QifLines(row.File), row.Lines);
}

TEST_F(Lines, AnOfxFileOfAnyMakerGivesOneTagAndItsValueALine) {
    const struct {
        const char *File, *Lines;
    } cases[] = {
        {"OFXHEADER:100\n\n<OFX><A>1<B>2</OFX>", "OFX=|A=1|B=2|/OFX=|"},
        {"<?xml version=\"1.0\"?><?OFX OFXHEADER=\"200\"?>\n<ofx>\n <Name> a  b </Name>\n</ofx>",
         "OFX=|NAME=a b|/OFX=|"},
        {"<A>\n\t1\n</A>\n<B>\n2</B>", "A=1|B=2|"},
        {"<NAME>x &amp; y &lt;z&gt; &#233;&#xE9; &amp;lt; A&B &bogus; &#0;</NAME>",
         "NAME=x & y <z> \xC3\xA9\xC3\xA9 &lt; A&B &bogus; &#0;|"},
        {"<NAME>a < b <3 <c", "NAME=a < b <3|C=|"},
        {"<!-- <A>1 --><B>2<!-- x --->3<!DOCTYPE y>", "B=23|"},
        {"<MEMO><![CDATA[<a> & ]] b]]></MEMO><C>1", "MEMO=<a> & ]] b|C=1|"},
        {"<MEMO/><NAME xml:lang=\"en\">x<o:MEMO>y", "MEMO=|NAME=x|MEMO=y|"},
        {"<OFXEXTENSION>1</OFXEXTENSION><PAYEEID>5<NAMES>6<STMTTRNP>7<NAME>z", "STMTTRNP=7|NAME=z|"},
        {"<DTPOSTED>2012-03-31T10:00<DTPOSTED>20120331", "DTPOSTED=20120331T10:00|DTPOSTED=20120331|"},
        {"<STMTTRN>junk</STMTTRN>", "STMTTRN=junk|/STMTTRN=|"},
        {"<STATUSCODE>0<OFX\n<<USEDE0", "STATUSCODE=0|OFX=<|USEDE0=|"},
        {"<", ""},
        {"<!--", ""},
        {"<![CDATA[", ""},
    };
    for (const auto &row : cases)
        EXPECT_EQ(OfxLines(row.File), row.Lines) << row.File;
    EXPECT_EQ(OfxLines("<NAME>" + std::string(100000, 'x') + "<B>1"), "NAME=" + std::string(210, 'x') + "|B=1|");
    EXPECT_EQ(OfxLines("<" + std::string(100000, 'x') + ">1"), std::string(31, 'X') + "=1|");
}

TEST_F(Lines, ACsvFileOfASpreadsheetGivesTheFormatsOwnLines) {
    const struct {
        const char *File, *Lines;
    } cases[] = {
        {"1/2/2012,a,b,1,5.000,5.000,F,n,5.000\n\n,,,,\n", "1/2/2012,a,b,1,5.000,5.000,F,n,5.000|"},
        {"1/2/2012,\"Smith, John\",\"say \"\"hi\"\"\",1,\"1,234.50\",5.000,F,n,5.000\n",
         "1/2/2012,Smith; John,say \"hi\",1,1234.50,5.000,F,n,5.000|"},
        {"1/2/2012,\"own quotes\",b,1,5.000,5.000,F,n,5.000\n", "1/2/2012,\"own quotes\",b,1,5.000,5.000,F,n,5.000|"},
        {"\"1/2/2012\",\"a\",\"b\",\"1\",\"5\",\"5\",\"F\",\"n\",\"5\"\n", "1/2/2012,a,b,1,5.0,5.0,F,n,5.0|"},
        {"1/2/2012;a,b;;1;-5,25;-1.005,25;F;n;0\n", "1/2/2012,a;b,,1,-5.25,-1005.25,F,n,0.0|"},
        {"2012-03-31,a,b,1,5,5,F,n,5\n", "31/3/2012,a,b,1,5,5,F,n,5|"},
        {"\"unclosed, b\n", "\"unclosed, b|"}};
    for (const auto &row : cases)
        EXPECT_EQ(CsvLines(row.File), row.Lines);
}

// The reference is the C library itself.
int ScanByLibrary(std::string line, char (&fields)[9][1100], int (&numbers)[4]) {
    for (auto &field : fields)
        field[0] = 0;
    char mark[2];
    int title = 0;
    std::sscanf(line.c_str(), "%d%c%d%c%d,%n", &numbers[0], &mark[0], &numbers[1], &mark[1], &numbers[2], &title);
    if (title == 0)
        return 0;
    // A scan takes no empty text: an empty title or reference gets one for it.
    const bool untitled = line[static_cast<size_t>(title)] == ',';
    line.insert(static_cast<size_t>(title), untitled ? "?" : "");
    const size_t reference = line.find(',', static_cast<size_t>(title)) + 1;
    const bool bare = reference > 0 && line[reference] == ',';
    line.insert(reference, bare ? "?" : "");
    const int count = std::sscanf(line.c_str(), "%d%c%d%c%d,%[^,],%[^,],%d,%[^,],%[^,],%[^,],%[^,],%[^,]", &numbers[0],
                                  &mark[0], &numbers[1], &mark[1], &numbers[2], fields[0], fields[1], &numbers[3],
                                  fields[2], fields[3], fields[4], fields[5], fields[6]);
    fields[untitled ? 0 : 8][0] = fields[bare ? 1 : 8][0] = 0;
    return count >= 10 ? count : 0;
}

TEST(Scans, TheSplitterAcceptsAndCountsWhatTheScansDo) {
    std::vector<std::string> lines = {
        "1/2/2012,a,b,1,5.000,5.000,F,n,5.000",
        "1/2/2012,,b,1,5.000,5.000,F,n,5.000",
        "1/2/2012,a,,1,5.000,5.000,F,n,5.000",
        "1/2/2012,,,1,5.000,5.000,F,n,5.000",
        "1/2/2012,a,b,1,5,5,F,n",
        "1/2/2012,a,b,1,5,5",
        "1/2/2012,a,b,1,5",
        "1/2/2012,,,1,5",
        "1/2/2012,a,b,x,5,5,F,n,5",
        "1/2/2012,a,b,,5,5,F,n,5",
        "1/2/2012,a,b,1,5,5,F,,5",
        " 1/ 2/ 2012,a,b, 1,5,5,F,n,5",
        "-1.+2.3 ,a,b,1,5,5,F,n,5",
        "1/2/2012a,b,c,1,5,5,F,n,5",
        "1/2,a,b,1,5,5,F,n,5",
        "1/2/2012,a,b,1 ,5,5,F,n,5",
        "99999999999/2/2012,a,b,1,5,5,F,n,5",
        "1/2/2012,a,b,1,5,5,F,n,5,6,7,8",
        "1/2/2012, , ,1, , , , , ",
        "date,name,ref,units,value,total,cleared,type,run",
        "",
        ",",
        "1/2/2012",
        "1/2/2012,,,,,,,,",
        "1/2/2012,,,,b",
        "1,2,2012,a,b,1,5,5,F,n,5",
    };
    for (const uint64_t seed : std::vector<uint64_t>{1, 2, 3, 4, 5, 6, 7, 8, 9}) // and the same ones damaged
        for (size_t n = 0, count = 20; n < count; ++n) {
            std::string line = lines[n];
            for (size_t k = 0; k < seed && !line.empty(); ++k)
                line[(seed * 7919 + k * 31 + n) % line.size()] = ",;/ 0a-"[(seed + k * 3 + n) % 7];
            lines.push_back(line);
        }
    for (const std::string &line : lines) {
        CsvRecord record;
        char fields[9][1100];
        int numbers[4];
        const int expected = ScanByLibrary(line.c_str(), fields, numbers);
        ASSERT_EQ(ScanCsvLine(line.c_str(), &record), expected) << line;
        if (expected == 0)
            continue;
        EXPECT_EQ(record.Units, numbers[3]) << line;
        EXPECT_EQ(record.Year, numbers[2]) << line;
        EXPECT_STREQ(record.Title, fields[0]) << line;
        EXPECT_STREQ(record.Ref, fields[1]) << line;
        EXPECT_STREQ(record.Value, fields[2]) << line;
        EXPECT_STREQ(record.Type, fields[5]) << line;
    }
    for (const char *text :
         {"1/2/3", "1/2", "1", "", "/", "1/ 2/ 3", "1//2", "1/2'3", "+1/-2/3x", "1 /2/3", "\n1a2b3"}) {
        Scan scan = {text};
        ScannedDate date;
        int a, b, c;
        char s, t;
        const int expected = std::sscanf(text, "%d%c%d%c%d", &a, &s, &b, &t, &c);
        EXPECT_EQ(ScanDate(&scan, &date), expected < 0 ? 0 : expected) << text;
    }
}

} // namespace
