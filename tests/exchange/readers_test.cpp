// Lines and what the readers make of them.
#include "exchange_test.h"
#include <filesystem>

namespace {

TEST_F(Readers, AQifLineOfEachKindSetsItsField) {
    const struct {
        const char *Entry, *Result;
    } money[] = {
        {"D14/1'05\nT-1,234.5\nPShop\nMnote\nCX", "1/0/0/0 of 1: 2005-01-14, Shop, note, 1, -1234500"},
        {"D14/1/05", "1/0/0/0 of 1: 1905-01-14, , , 1, 0"},
        {"d14/1/2005\nt-12\npa\nmb", "1/0/0/0 of 1: 2005-01-14, a, b, 1, -12000"},
        {"D31/2/2005\nT5", "0/0/0/1 of 1: "},
        {"D1/13/2005\nD14/1/2005", "0/0/0/1 of 1: "},
        {"T5\nPno date", "0/0/0/1 of 1: "},
        {"D14/1/2005\nT1.234,50", "0/0/0/1 of 1: "},
        {"D14/1/2005\nT5\nQ3", "0/1/0/0 of 1: 2005-01-14, , , 1, 5000"},
        {"D14/1/2005\nT5\nI3\nNBuyX\nYother", "0/1/0/0 of 1: 2005-01-14, , , 1, 5000"},
        {"D14/1/2005\nT5\nQ\nI", "1/0/0/0 of 1: 2005-01-14, , , 1, 5000"},
        {"D14/1/2005\nPabcdefghijklmnopqrstuvwxyz\nMabcdefghijklmnopqrstuvwxyz0123456789",
         "1/0/0/0 of 1: 2005-01-14, abcdefghijklmnopqrstuvwx, abcdefghijklmnopqrstuvwxyz0123, 1, 0"},
    };
    for (const auto &row : money)
        EXPECT_EQ(Qif("!Type:Bank\n" + std::string(row.Entry) + "\n^\n"), row.Result) << row.Entry;
    Task.AccountKind = ShareValue;
    const struct {
        const char *Entry, *Result;
    } shares[] = {
        {"NBuy\nI2.5\nQ10\nT25\nPmemo\nMname", "10, 2500, 0, 0, 0, name, memo"},
        {"NSell\nI2.5\nQ10", "-10, 2500, 0, 0, 0, , "},
        {"NShrsIn\nI-2.5\nQ-10", "10, 2500, 0, 1, 0, , "},
        {"NShrsOut\nI2.5\nQ1,000", "-1000, 2500, 0, 1, 0, , "},
        {"NMiscInc\nT7\nI\nQ", "1, 7000, 1, 0, 7000, , "},
        {"NShrsIn\nNMiscExp\nT-7", "1, 7000, 1, 0, -7000, , "},
        {"NDiv\nT7", "1, 7000, 1, 0, 7000, , "},
        {"N\nNSell\nT7", "-1, 7000, 0, 0, 0, , "},
        {"NBuyX\nT7", nullptr},
        {"T1.5.5", nullptr},
    };
    for (const auto &row : shares) {
        Qif("!Type:Invst\nD14/1/2005\n" + std::string(row.Entry) + "\n^\n");
        EXPECT_EQ(Entries("Units Value Cash NoCash CashAmount Name Memo"), row.Result ? row.Result : "") << row.Entry;
        EXPECT_EQ(Counts(), row.Result ? "1/0/0/0 of 1" : "0/0/0/1 of 1") << row.Entry;
    }
}

TEST_F(Readers, TheOrderOfDayAndMonthIsTheFilesElseTheDevices) {
    const std::string few = "!Type:Bank\nD2/3/2005\n^\n", isoToo = "!Type:Bank\nD2005-01-31\n^\nD2/3/2005\n^\n";
    for (const bool dayFirst : {true, false}) {
        Task.DayFirst = dayFirst;
        const std::string second = dayFirst ? "2005-03-02" : "2005-02-03";
        EXPECT_EQ((Qif(few), Entries("Date")), second);
        EXPECT_EQ((Qif(isoToo), Entries("Date")), "2005-01-31 | " + second);
        EXPECT_EQ((Qif(few + "D13/1/2005\n^\n"), Entries("Date")), "2005-03-02 | 2005-01-13");
        EXPECT_EQ((Qif(few + "D1/13/2005\n^\n"), Entries("Date")), "2005-02-03 | 2005-01-13");
        EXPECT_EQ((Csv("2/3/2005,a,b,1,5,5,F,n,5\n1/13/71,a,b,1,5,5,F,n,5\n1/1/70,a,b,1,5,5,F,n,5\n"), Entries("Date")),
                  "2005-02-03 | 1971-01-13 | 2070-01-01");
    }
}

TEST_F(Readers, TheSectionOfAnotherAccountIsNotMixedIn) {
    Task = {.FirstDay = 0, .Security = u"", .AccountKind = 0, .AccountEmpty = 1, .DayFirst = 1, .Tell = nullptr};
    EXPECT_EQ(Qif("!Type:Bank\nD1/1/2005\n^\n!Type:Invst\nD1/1/2005\nNBuy\n^\n!Type:Bank\nD2/1/2005\n^\n"),
              "2/0/0/1 of 3: 2005-01-01, , , 1, 0 | 2005-01-02, , , 1, 0");
}

TEST_F(Readers, OnlyTheSecurityAndTheDaysAskedForComeIn) {
    Task.AccountKind = ShareValue;
    Task.Security = u"IBM corp";
    const std::string file =
        "!Type:Invst\nD1/1/2005\nYIBM corp\nQ1\n^\nD1/1/2005\nYIBM calls\nQ2\n^\nD2/1/2005\nYIBM xxxx\n"
        "Q3\n^\nD1/1/2005\nYTBM corp\nQ4\n^\n";
    EXPECT_EQ((Qif(file), Counts() + Entries("Units")), "2/0/2/0 of 41 | 3") << "length and first four units alone";
    Task.FirstDay = Batch->Entries[1].Row.Date.DayNumber;
    EXPECT_EQ((Qif(file), Counts() + Entries("Units")), "1/0/3/0 of 43");
}

std::string OfxEntry(const std::string &tags) {
    return "<OFX><STMTTRN>" + tags + "</STMTTRN></OFX>";
}

TEST_F(Readers, AnOfxTagOfEachKindSetsItsField) {
    const std::string date = "<DTPOSTED>20050114120000[-5:EST]";
    const struct {
        std::string File;
        const char *Result;
    } cases[] = {
        {OfxEntry(date + "<TRNAMT>-12<NAME>a<MEMO>b"), "1/0/0/0 of 1: 2005-01-14, a, b, 1, -12000"},
        {OfxEntry(date + "<TRNAMT>12,50<PAYEE>p<NAME>n"), "1/0/0/0 of 1: 2005-01-14, p, , 1, 12500"},
        {OfxEntry(date + "<TRNAMT>1.234,50<NAME>n<PAYEE>p"), "1/0/0/0 of 1: 2005-01-14, n, , 1, 1234500"},
        {OfxEntry(date + "<TRNAMT>1,234.50"), "0/0/0/1 of 1: "},
        {OfxEntry(date + "<PAYEE><NAME>inner</NAME></PAYEE>"), "1/0/0/0 of 1: 2005-01-14, inner, , 1, 0"},
        {OfxEntry(date + "<MEMO>abcdefghijklmnopqrstuvwxyz0123456789"),
         "1/0/0/0 of 1: 2005-01-14, abcdefghijklmnopqrstuvwx, abcdefghijklmnopqrstuvwxyz01234, 1, 0"},
        {OfxEntry("<TRNAMT>5"), "0/0/0/1 of 1: "},
        {OfxEntry("<DTPOSTED>20051332"), "0/0/0/1 of 1: "},
        {OfxEntry("<DTPOSTED>2005"), "0/0/0/1 of 1: "},
        {OfxEntry(""), "0/0/0/1 of 1: "},
        {"<STMTTRN>" + date + "</STMTTRN><OFX></OFX>", "0/0/0/1 of 1: "}, // outside the body
        {"<OFC>\n<STMTTRN>" + date + "<TRNAMT>1<NAME>x</STMTTRN>", "1/0/0/0 of 1: 2005-01-14, x, , 1, 1000"},
        {"<OFX><STMTTRN>" + date + "<STMTTRN>" + date + "<NAME>2</STMTTRN><STMTTRN>",
         "1/0/0/0 of 3: 2005-01-14, 2, , 1, 0"},
        {"<OFX><STMTTRNP>" + date + "</STMTTRNP></OFX>", "0/0/0/0 of 0: "},
    };
    for (const auto &row : cases)
        EXPECT_EQ(Ofx(row.File), row.Result) << row.File;
    Ofx("<OFX><BALAMT>10,50<STMTTRN>" + date + "</STMTTRN><BALAMT>20.50</BALAMT>");
    EXPECT_EQ(Batch->StatementBalance, 20500) << "the last one counts";
    EXPECT_EQ(Batch->KindSettled, 1) << "a body without its end";
    Ofx(OfxEntry(date));
    EXPECT_EQ(Batch->KindSettled + Batch->HasStatementBalance, 0);
    constexpr struct {
        const char *Value;
        const char16_t *Kept;
    } identities[] = {
        {"12", u"                            12"},
        {"123456789012345678901234567890", u"123456789012345678901234567890"},
        {"1234567890123456789012345678901", u"1234567890123456789012345678901"},
        {"abcdefghijklmnop################qrstuvwxyz01234", u"abcdefghijklmnopqrstuvwxyz01234"},
        {"abcdefghijklmnop#qrstuvwxyz01234", u"abcdefghijklmnopqrstuvwxyz01234"},
    };
    for (const auto &row : identities) {
        char16_t kept[TextRoom];
        KeepIdentity(kept, row.Value);
        EXPECT_EQ(Utf8(kept), Utf8(row.Kept)) << row.Value;
    }
    Ofx(OfxEntry(date + "<FITID>"));
    EXPECT_EQ(Batch->Entries[0].Row.FITID[0], 0) << "no identity is none";
}

TEST_F(Readers, ACsvColumnOfEachKindSetsItsField) {
    constexpr const char *fields = "Units Value Cleared RowKind Rank CashAmount Cash NoCash Name Memo";
    const struct {
        const char *Columns, *Counts, *Entry;
    } money[] = {
        {"a;b,c,2,-0.500,-1.000,T,n,9", "1/0/0/0", "2, -500, 1, 0, 3, -500, 0, 0, a,b, c"},
        {",,1,5,5,f,n,9", "1/0/0/0", "1, 5000, 0, 0, 3, 5000, 0, 0, , "},
        {"a,b,1,5,5,F,n", "0/1/0/0", "1, 5000, 0, 0, 3, 5000, 0, 0, a, b"},
        {"a,b,1,5,5", "0/1/0/0", "1, 5000, 0, 0, 3, 5000, 0, 0, a, b"},
        {"a,b,1,5,5,?,n,9", "0/1/0/0", "1, 5000, 0, 0, 3, 5000, 0, 0, a, b"},
        {"a,b,1,5,5,F,x,9", "0/1/0/0", "1, 5000, 0, 0, 3, 5000, 0, 0, a, b"},
        {"Monday,b,0,0,7,F,t,7", "1/0/0/0", "0, 0, 0, 1, 4, 0, 0, 0, Monday, b"},
        {"Archived,b,1,5,5,F,a,5", "1/0/0/0", "1, 5000, 0, 2, 2, 5000, 0, 0, Archived, b"},
        {"Deleted,b,1,5,5,F,d,5", "1/0/0/0", "1, 5000, 0, 4, 1, 5000, 0, 0, Deleted, b"},
        {"a,b,1,5", "0/0/0/1", ""},
        {"a,b,1,1.234,50,F,n,5", "1/0/0/0", "1, 1234, 0, 0, 3, 1234, 0, 0, a, b"},
        {"a,b,1,abc,5,F,n,5", "0/0/0/1", ""},
    };
    for (const auto &row : money) {
        Csv("14/1/2005," + std::string(row.Columns) + "\n");
        EXPECT_EQ(Counts(), row.Counts + std::string(" of 1")) << row.Columns;
        EXPECT_EQ(Entries(fields), row.Entry) << row.Columns;
    }
    const struct {
        const char *Columns, *Entry;
    } shares[] = {
        {"a,b,10,2.5,25,F,N,9", "10, 2500, 0, 0, 3, 0, 0, 0, a, b"},
        {"a,b,10,2.5,30,F,N,9", "10, 2500, 0, 0, 3, 5000, 0, 0, a, b"},
        {"a,b,0,7,7,T,C,9", "1, 0, 1, 0, 3, 7000, 1, 0, a, b"},
        {"a,b,-4,7,-28,T,F,9", "-4, 7000, 1, 0, 3, 0, 0, 1, a, b"},
        {"a,b,3,7,100,T,A,9", "3, 7000, 1, 2, 2, 79000, 0, 0, a, b"},
        {"a,b,0,0,100,F,T,9", "0, 0, 0, 1, 4, 0, 0, 0, a, b"},
    };
    for (const auto &row : shares) {
        Csv("14/1/2005," + std::string(row.Columns) + "\n");
        EXPECT_EQ(Entries(fields), row.Entry) << row.Columns;
        EXPECT_EQ(Batch->AccountKind, ShareValue);
    }
    const std::string marker = "14/1/2005,a,b,1,5,5,F,a,5\n";
    EXPECT_EQ((Csv(marker + marker), Entries("RowKind")), "2 | 0") << "the first of its kind alone";
    // Content that the account can't take ends the reading.
    Task.AccountEmpty = 0;
    EXPECT_EQ((Csv("14/1/2005,a,b,1,5,5,F,N,5\n" + marker), Counts()), "0/0/0/0 of 2");
    EXPECT_EQ(Batch->Accepted, 0);
    Task.AccountKind = ShareCash;
    EXPECT_EQ((Csv(marker), Batch->Accepted), 0);
}

TEST_F(Readers, AFileThatShrinksWhileItIsReadIsNotTakenForWhole) {
    std::string file = "!Type:Bank\n";
    while (file.size() < 200000)
        file += "D1/3/2026\nT5\n^\n";
    PutFile(root, "file", file);
    const auto text = std::make_unique<TextFile>();
    ASSERT_EQ(OpenText(text.get(), "\\file"), 1);
    ReadQif(text.get(), Task, Batch.get());
    EXPECT_EQ(text->Broken, 0);
    std::filesystem::resize_file(root.HostPath("\\file"), 100000);
    ReadQif(text.get(), Task, Batch.get());
    EXPECT_EQ(text->Broken, 1);
    CloseText(text.get());
}

// Real files: counts, the sum of the amounts and the first date; how many have a name.
TEST_F(Readers, EveryReadableEntryOfARealFileComesInWithItsDateAmountAndName) {
    constexpr struct {
        const char *Name;
        int Entries;
        int64_t Sum;
        const char *FirstDate;
        bool Named;
    } ofx[] = {
        {"ofx1-flush.ofx", 3, 250000, "2007-03-15", true},
        {"ofx1-ampersand.ofx", 16, 393820, "2018-09-13", true},
        {"ofx1-selfclose.ofx", 5, 585000, "2019-09-18", true},
        {"ofx1-demo.ofx", 47, -3386940, "2008-10-02", true},
        {"ofx1-no-header-newline.ofx", 1, 2042240, "2018-10-30", true},
        {"ofx1-oneline.ofx", 8, -1977100, "2016-02-16", true},
        {"ofx1-packed.ofx", 4, 210500, "2007-12-03", true},
        {"ofx1-packed-commas.ofx", 4, 210510, "2007-12-03", true},
        {"ofx1-value-on-next-line.ofx", 5, 2592570, "2017-03-15", true},
        {"ofx2-indented.ofx", 2, -500000, "2005-10-04", false},
        {"ofx2-euro-comma.ofx", 2, -500000, "2005-10-04", false},
        {"ofx2-xml.ofx", 3, 250000, "2007-03-15", true},
        {"ofx2-value-on-next-line.ofx", 2, -1055000, "2019-01-09", true},
        {"ofx2-pending-entries.ofx", 2, -8344000, "2018-12-06", true},
        {"ofx-hostile-1.ofx", 0, 0, "", true},
        {"ofx-hostile-2.ofx", 0, 0, "", true},
    };
    for (const auto &row : ofx) {
        Ofx(Sample(row.Name));
        int64_t sum = 0;
        std::string first;
        for (int32_t i = 0; i < Batch->Count; ++i) {
            sum += Batch->Entries[i].Row.Value;
            const std::string date = Fields(Batch->Entries[i].Row, "Date");
            first = i == 0 ? date : std::min(first, date);
            EXPECT_EQ(*Batch->Entries[i].Row.Name != 0, row.Named) << row.Name << i;
        }
        EXPECT_EQ(Batch->Count, row.Entries) << row.Name;
        EXPECT_EQ(sum, row.Sum) << row.Name;
        EXPECT_EQ(first, row.FirstDate) << row.Name;
    }
    constexpr struct {
        const char *Name, *Counts;
        int64_t Sum;
        const char *Dates; // of the first two
    } qif[] = {
        {"qif-ddmmyy.qif", "3/0/0/0 of 3", 0, "1910-01-01 | 1910-06-01"},
        {"qif-ddmmyyyy.qif", "3/0/0/0 of 3", 0, "2010-01-01 | 2010-06-01"},
        {"qif-dmyy.qif", "3/0/0/0 of 3", 0, "1910-01-01 | 1910-06-01"},
        {"qif-mmddyy.qif", "3/0/0/0 of 3", 0, "1910-01-01 | 1910-06-01"},
        {"qif-spaced.qif", "3/0/0/0 of 3", 0, "1910-01-01 | 1910-06-01"},
        {"qif-invalid_header.qif", "3/0/0/0 of 3", 0, "1910-01-01 | 1910-06-01"},
        {"qif-bank1.qif", "6/0/0/0 of 6", -166740, "1911-02-22 | 1911-03-03"},
        {"qif-splits.qif", "2/0/0/0 of 2", -925000, "1994-01-06 | 1994-02-06"},
        {"qif-windows-1252.qif", "1/0/0/0 of 1", -379000, "1910-03-03"},
        {"qif-autoswitch.qif", "0/0/0/0 of 0", 0, ""},
        {"qif-account-blocks.qif", "6/0/0/1 of 7", -35500, "2020-02-10 | 2020-02-14"},
        {"qif-investment.qif", "1/0/0/1 of 2", 11260, "1993-08-25"},
        {"qif-bom-two-accounts.qif", "", 0, "2006-10-05 | 2006-10-06"},
    };
    Task.DayFirst = 1;
    for (const auto &row : qif) {
        Task.AccountKind = BankAccount;
        Qif(Sample(row.Name));
        int64_t sum = 0;
        for (int32_t i = 0; i < Batch->Count; ++i)
            sum += Batch->Entries[i].Row.Value;
        if (*row.Counts) {
            EXPECT_EQ(Counts(), row.Counts) << row.Name;
            EXPECT_EQ(sum, row.Sum) << row.Name;
        }
        EXPECT_EQ(Entries("Date").substr(0, 23), row.Dates) << row.Name;
    }
    Qif(Sample("qif-windows-1252.qif"));
    EXPECT_EQ(Entries("Name"), "SOME \xC2\xA3$\xE2\x84\xA2\xE2\x82\xAC CHARACTERS");
}

} // namespace
