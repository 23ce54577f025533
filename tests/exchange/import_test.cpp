// An import into an account: where entries land, what is known already, what is counted, and what a failing disk
// leaves.
#include "exchange_test.h"
#include "host/fuzz.h"
#include "ledger/balance.h"
#include "ledger/entries.h"
#include "ledger/order.h"
#include "store/operations.h"

namespace {

class Imports : public Device {
public:
    // Counts "well/badly/as requested/unreadable/too big of total", and the result.
    std::string Count(int result) {
        const int32_t *count = state.ImportCount;
        std::string all = std::to_string(result) + ": ";
        for (int i = 0; i < 5; ++i)
            all += std::to_string(count[i]) + (i < 4 ? "/" : " of ");
        return all + std::to_string(count[5]);
    }
    std::string Qif(const std::string &lines, uint32_t firstDay = 0, const char16_t *security = u"") {
        PutFile(root, "a.qif", lines);
        return Count(Exchanged(ImportQIFFile, "\\a.qif", firstDay, security, nullptr));
    }
    std::string Ofx(const std::string &lines, uint32_t firstDay = 0) {
        PutFile(root, "a.ofx", lines);
        return Count(Exchanged(ImportOFXFile, "\\a.ofx", firstDay, nullptr));
    }
    std::string Csv(const std::string &lines, uint32_t firstDay = 0) {
        PutFile(root, "a.csv", lines);
        return Count(Exchanged(ImportCSVFile, "\\a.csv", firstDay, nullptr));
    }
    // "Date Name RunTotal" of each row of the current account.
    std::string Rows(const std::string &fields = "Date Name RunTotal") {
        return Told(Device::Rows(state.CurAccount.ID), fields);
    }
    // An account without any record.
    void EmptyAccount(int type = ListRow) {
        const uint32_t id = MakeAccount("Purse", type);
        WriteBytes(root.DataFile("E1_02A" + std::to_string(id)), {});
        RefreshAccounts();
        ASSERT_EQ(state.CurrentScreen, TransactionList);
    }
    ARec Account() { return Accounts()[static_cast<size_t>(state.SelectedPos[AccountList]) - 1]; }
};

const std::string Statement = "<OFX><STMTTRN><DTPOSTED>20260220<TRNAMT>-20.00<FITID>a1<NAME>Cafe</STMTTRN>"
                              "<STMTTRN><DTPOSTED>20260221<TRNAMT>50,00<FITID>a2<MEMO>Wages</STMTTRN>"
                              "<STMTTRN><DTPOSTED>20260220<TRNAMT>-20.00<FITID>a3<NAME>Cafe</STMTTRN>"
                              "<LEDGERBAL><BALAMT>110.00</LEDGERBAL></OFX>";

TEST_F(Imports, AStatementComesInOnceHoweverOftenItIsImported) {
    EmptyAccount();
    EXPECT_EQ(Ofx(Statement), "1: 3/0/0/0/0 of 3");
    const std::string rows =
        "2026-02-19, Brought forward, 100000 | 2026-02-20, Cafe, 80000 | 2026-02-20, Cafe, 60000 | "
        "2026-02-21, Wages, 110000";
    EXPECT_EQ(Rows(), rows);
    EXPECT_EQ(Account().Balance, 110000);
    EXPECT_EQ(Account().AccType, uint32_t{ListAccount});
    EXPECT_EQ(state.ImportSucceeded, 1u);
    const auto files = Snapshot(root.Path());
    EXPECT_EQ(Ofx(Statement), "1: 0/0/3/0/0 of 3");
    EXPECT_EQ(Rows(), rows);
    EXPECT_EQ(state.ImportSucceeded, 0u);
    // An identity stays with its entry when the owner changes the entry.
    Modify(TransactionList, 2);
    SetText(TitleField, "Breakfast");
    Tick();
    EXPECT_EQ(Ofx(Statement), "1: 0/0/3/0/0 of 3");
    // The same identity on another day, and twice in one file.
    EXPECT_EQ(Ofx("<OFX><STMTTRN><DTPOSTED>20260222<FITID>a1</STMTTRN><STMTTRN><DTPOSTED>20260222<FITID>a1</STMTTRN>"
                  "<STMTTRN><DTPOSTED>20260222</STMTTRN><STMTTRN><DTPOSTED>20260222</STMTTRN></OFX>"),
              "1: 3/0/1/0/0 of 4");
}

TEST_F(Imports, ABalanceIsBroughtForwardOnlyWhenTheStatementTellsOneAndSomethingCameIn) {
    const std::string entry = "<STMTTRN><DTPOSTED>20260220<TRNAMT>5<FITID>1</STMTTRN>";
    EmptyAccount();
    Ofx("<OFX>" + entry + "</OFX>");
    EXPECT_EQ(Rows(), "2026-02-20, , 5000");
    EmptyAccount();
    Ofx("<OFX><BALAMT>7</OFX>");
    EXPECT_EQ(Rows(), "");
    // One that the owner asked to skip is not part of the sum.
    EmptyAccount();
    Ofx("<OFX>" + entry + "<STMTTRN><TRNAMT>9<DTPOSTED>20260101</STMTTRN><BALAMT>7</OFX>", Today - 20);
    EXPECT_EQ(Rows(), "2026-02-19, Brought forward, 2000 | 2026-02-20, , 7000");
    // An account that ends at zero once more gets nothing for what it knows.
    EmptyAccount();
    const std::string zero = "<OFX>" + entry + "<BALAMT>0</OFX>";
    Ofx(zero);
    const std::string rows = Rows();
    EXPECT_EQ(rows, "2026-02-19, Brought forward, -5000 | 2026-02-20, , 0");
    Ofx(zero);
    EXPECT_EQ(Rows(), rows);
}

TEST_F(Imports, KindsOfAccountsChangeOnlyWhenTheyAreEmptyAndTheFileSaysSo) {
    const std::string shares = "!Type:Invst\nD1/3/2026\nNBuy\nI2\nQ10\n^\n", money = "!Type:Bank\nD1/3/2026\nT5\n^\n",
                      csvShares = "1/3/2026,a,b,10,2,20,F,N,0\n", csvMoney = "1/3/2026,a,b,1,5,5,F,n,5\n",
                      ofx = "<OFX><STMTTRN><DTPOSTED>20260301<TRNAMT>5</STMTTRN>";
    const struct {
        int Type;
        std::string (Imports::*Import)(const std::string &, uint32_t);
        std::string File;
        uint32_t Becomes;
        std::string Refused; // of the same file once the account holds an entry of its first kind
    } cases[] = {
        {BankRow, nullptr, shares, ShareNumber, "12: 0/0/0/1/0 of 1"},
        {ListRow, nullptr, money, ListAccount, ""},
        {ShareRow, nullptr, money, BankAccount, "11: 0/0/0/1/0 of 1"},
        {ListRow, nullptr, shares, ShareNumber, "12: 0/0/0/1/0 of 1"},
        {ListRow, nullptr, "!Type:CASH\nD1/3/2026\nT5\n^\n", ListAccount, ""},
        {ShareRow, nullptr, "!Type:ccard\nD1/3/2026\nT5\n^\n", BankAccount, "11: 0/0/0/1/0 of 1"},
        {ListRow, nullptr, "!Type:AllXfr\n" + money, ListAccount, ""},
        {BankRow, &Imports::Csv, csvShares, ShareValue, "12: 0/0/0/1/0 of 1"},
        {ShareRow, &Imports::Csv, csvMoney, BankAccount, "11: 0/0/0/1/0 of 1"},
        {ListRow, &Imports::Csv, csvMoney, ListAccount, ""},
        {ListRow, &Imports::Ofx, ofx, BankAccount, ""},
        {ListRow, &Imports::Ofx, ofx + "</OFX>", ListAccount, ""},
        {ShareRow, &Imports::Ofx, ofx, BankAccount, "11: 0/0/0/0/0 of 0"},
        {ShareRow, &Imports::Ofx, ofx + "</OFX>", ShareValue, "11: 0/0/0/0/0 of 0"},
    };
    for (const auto &row : cases) {
        const auto import = [&] { return row.Import ? (this->*row.Import)(row.File, 0) : Qif(row.File); };
        EmptyAccount(row.Type);
        EXPECT_EQ(import(), "1: 1/0/0/0/0 of 1") << row.File;
        EXPECT_EQ(Account().AccType, row.Becomes) << row.File;
        EXPECT_EQ(state.AccountKind, static_cast<int32_t>(row.Becomes)) << row.File;
        if (row.Refused.empty())
            continue;
        MakeAccount("Full", row.Type); // its Day marker is a record
        const auto files = Snapshot(root.DataFile(""));
        EXPECT_EQ(import(), row.Refused) << row.File;
        EXPECT_EQ(Snapshot(root.DataFile("")), files) << row.File;
    }
    MakeAccount("Full", ShareRow);
    EXPECT_EQ(Qif(shares), "1: 1/0/0/0/0 of 1");
    EXPECT_EQ(Account().AccType, uint32_t{ShareValue}) << "shares are welcome to shares, whatever they'd begin with";
    // What stands in the archive is of the account as well.
    EmptyAccount();
    const std::string live = root.DataFile("E1_02A" + std::to_string(state.CurAccount.ID));
    std::string archive = live;
    archive[archive.rfind('A')] = 'R';
    WriteBytes(archive, std::vector<uint8_t>(sizeof(TRecFile), 1));
    EXPECT_EQ(Csv(csvShares), "12: 0/0/0/1/0 of 1");
    EmptyAccount();
    EXPECT_EQ(Qif("D1/3/2026\nT5\n^\n"), "10: 0/0/0/1/0 of 1");
    EXPECT_EQ(Qif("!Nothing\nD1/3/2026\nT5\n^\n"), "10: 0/0/0/1/0 of 1");
    EXPECT_EQ(Qif("!Type:Oth L\nD1/3/2026\nT5\n^\n"), "13: 0/0/0/1/0 of 1");
    EXPECT_EQ(Qif(""), "1: 0/0/0/0/0 of 0");
}

TEST_F(Imports, AnAccountHasOneDayMarkerHoweverManyAFileHolds) {
    const std::string file = "1/3/2026,Sunday,a,0,0,0,F,t,0\n1/3/2026,b,c,1,5,5,F,n,5\n1/3/2026,Sunday,a,0,0,0,F,t,0\n";
    EmptyAccount();
    EXPECT_EQ(Csv(file), "1: 2/0/1/0/0 of 3");
    EXPECT_EQ(Csv(file), "1: 1/0/2/0/0 of 3");
    MakeAccount("Full", BankRow);
    EXPECT_EQ(Csv(file), "1: 1/0/2/0/0 of 3");
}

TEST_F(Imports, EntriesLandWhereTheyWouldLandOneByOne) {
    for (const uint64_t seed : FuzzSeeds(12)) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        EmptyAccount();
        const uint32_t id = state.CurAccount.ID;
        std::vector<TRecFile> old(dice.Below(seed % 3 == 0 ? 700 : 12));
        for (size_t n = 0; n < old.size(); ++n) {
            InitTRec(&old[n].Rec);
            old[n].Rec.Date = DateFromDayNumber(Today + static_cast<uint32_t>(seed % 4 ? n / 3 : dice.Below(9)));
            old[n].Rec.Rank = seed % 4 ? 3 : 1 + static_cast<uint32_t>(dice.Below(4)); // each fourth is out of order
            old[n].Rec.Value = static_cast<int64_t>(n);
        }
        const Place place = RowsOf(id, seed % 2 ? View::Live : View::Archive, Rows::All);
        const std::string name = (seed % 2 ? "E1_02A" : "E1_02R") + std::to_string(id), file = root.DataFile(name);
        PutRecords(root, name, old);
        std::vector<TRec> fresh(dice.Below(30) + 1);
        for (size_t n = 0; n < fresh.size(); ++n) {
            InitTRec(&fresh[n]);
            fresh[n].Date = DateFromDayNumber(Today - 2 + static_cast<uint32_t>(dice.Below(old.size() + 6)) / 2);
            fresh[n].Rank = 1 + static_cast<uint32_t>(dice.Below(4));
            fresh[n].Value = 1000 + static_cast<int64_t>(n);
            CopyText(fresh[n].FITID, TextRoom, u"bank's");
        }
        const auto before = ReadBytes(file);
        for (const TRec &row : fresh)
            ASSERT_GT(AddRecord(place, PositionByDate(place, row.Date, row.Rank), row), 0);
        CalcTotals(place);
        const auto oneByOne = ReadBytes(file);
        WriteBytes(file, before);
        for (const TRec &row : fresh)
            ASSERT_EQ(QueueEntry(place, row), 1);
        ASSERT_EQ(PlaceQueuedEntries(), 1);
        EXPECT_TRUE(ReadBytes(file) == oneByOne);
    }
}

TEST_F(Imports, AFailingDiskLeavesAllOfTheImportOrNothing) {
    EmptyAccount();
    Ofx("<OFX><STMTTRN><DTPOSTED>20260201<TRNAMT>5<NAME>old<FITID>1</STMTTRN><STMTTRN><DTPOSTED>20260401<TRNAMT>6"
        "<NAME>later</STMTTRN></OFX>");
    const std::string before = Rows("Date Name Value"),
                      after = "2026-02-01, old, 5000 | 2026-03-01, new, 7000 | 2026-04-01, later, 6000";
    const auto files = Snapshot(root.Path());
    PutFile(root, "a.ofx",
            "<OFX><STMTTRN><DTPOSTED>20260301<TRNAMT>7<NAME>new<FITID>2</STMTTRN><STMTTRN><DTPOSTED>20260201"
            "<TRNAMT>5<NAME>old<FITID>1</STMTTRN></OFX>");
    const auto switches = [](int kind, int n, bool onward) {
        DiskSwitches failing = {.FailOnward = onward, .TearWrite = true};
        (kind == 0 ? failing.FailAt : kind == 1 ? failing.FailRead : failing.FailOpen) = n;
        return failing;
    };
    for (int kind = 0; kind < 3; ++kind)
        for (const bool onward : {false, true})
            for (int n = 1;; ++n) {
                SCOPED_TRACE(testing::Message() << "kind " << kind << " call " << n << " onward " << onward);
                int result = 9;
                const bool met = WithFailingDisk(switches(kind, n, onward),
                                                 [&] { result = Exchanged(ImportOFXFile, "\\a.ofx", 0, nullptr); });
                const std::string now = Rows("Date Name Value");
                EXPECT_TRUE(result == ImportDone || result == ImportUnwritten || !met) << result;
                EXPECT_EQ(now, result == ImportDone ? after : before);
                if (result == ImportDone) {
                    EXPECT_EQ(Count(0).substr(3), "1/0/1/0/0 of 2");
                }
                EXPECT_EQ(disk.OpenHandles, 0);
                for (const auto &[name, bytes] : files)
                    if (name != "a.ofx")
                        WriteBytes(root.Path() + "/" + name, bytes);
                if (!met)
                    break;
            }
    // Nothing there, a directory, and no account.
    machine.Terminal.clear();
    EXPECT_EQ(Exchanged(ImportQIFFile, "\\gone.qif", 0, u"", nullptr), ImportFailed);
    EXPECT_NE(machine.Terminal.back().find("ImportQIFFile NcreateFail"), std::string::npos);
    BeginAction();
    EXPECT_EQ(ImportOFXFile(EntriesShown(), "\\Program Files", 0, nullptr), ImportFailed);
    EXPECT_EQ(ImportCSVFile(EntriesShown(), "\\Program Files", 0, nullptr), ImportFailed);
    AbortAction();
    EXPECT_NE(machine.Terminal.back().find("ImportCSVFile NcreateFail"), std::string::npos);
    EXPECT_EQ(ImportCSVFile(LiveRows(9999), "\\a.ofx", 0, nullptr), ImportUnwritten);
}

// A failed read is not the end of the file: an entry that was never read is not told as one that is not there.
TEST_F(Imports, AFileThatBreaksOffInTheMiddleBringsNothing) {
    EmptyAccount();
    std::string many = "!Type:Bank\n";
    while (many.size() < 3 * sizeof(TextFile::Raw))
        many += "D1/3/2026\nT1\nPShop\n^\n";
    PutFile(root, "a.qif", many);
    const auto text = std::make_unique<TextFile>();
    for (int n = 1;; ++n) {
        SCOPED_TRACE(n);
        SecurityList securities;
        std::string read;
        int opened = 0, listed = 0;
        const bool met = WithFailingDisk({.FailRead = n}, [&] {
            opened = OpenText(text.get(), "\\a.qif");
            for (int unit; opened && (unit = NextUnit(text.get())) >= 0;)
                read += static_cast<char>(unit);
            if (opened)
                CloseText(text.get());
            listed = ListSecurities("\\a.qif", &securities);
        });
        EXPECT_EQ(listed, 0);
        EXPECT_TRUE(!opened || text->Broken || read == many);
        if (!met)
            break;
    }
}

TEST_F(Imports, TheSummaryAccountsForEveryEntryOfABadFile) {
    using namespace std::string_literals;
    std::string manyQif = "!Type:Bank\n", manyOfx = "<OFX>", manyCsv;
    for (int i = 0; i < 6000; ++i) {
        manyQif += "D1/3/2026\nT0.001\n^\n";
        manyOfx += "<STMTTRN><DTPOSTED>20260302</STMTTRN>";
        manyCsv += "3/3/2026,a,b,1,5,5,F,n,5\n";
    }
    const struct {
        std::string File, Result;
    } cases[] = {
        {manyQif, "1: 5000/0/0/0/1000 of 6000"},
        {"!Type:Bank\nD1/3/2026\nT5\nP" + std::string(100000, 'x') + "\n^\n", "1: 1/0/0/0/0 of 1"},
        {"!Type:Bank\nD1/3/2026\nT5\nP" + std::string(100000, 'x'), "1: 1/0/0/0/0 of 1"},
        {"!Type:Bank\nD1/13/2026\nD13/13/2026\n^\n", "1: 0/0/0/1/0 of 1"},
        {"!Type:Bank\nD1/3/2026\nT" + std::string(40, '9') + "\n^\n", "1: 0/0/0/1/0 of 1"},
        {"!Type:Bank\0\nD1/3\0/2026\nT5\n^"s, "1: 1/0/0/0/0 of 1"},
        {"\xFF\xFE!\0T\0y\0p\0e\0:\0B\0a\0n\0k\0\n\0D\0001\0/\0003\0/\0002\0000\0002\0006\0\n\0^\0"s,
         "1: 1/0/0/0/0 of 1"},
        {"", "1: 0/0/0/0/0 of 0"},
        {std::string(5000, '^'), "1: 0/0/0/0/0 of 0"},
        {std::string(5000, '\0'), "1: 0/0/0/0/0 of 0"},
    };
    for (const auto &row : cases) {
        EmptyAccount();
        EXPECT_EQ(Qif(row.File), row.Result) << row.File.substr(0, 60);
        EXPECT_EQ(Device::Rows(state.CurAccount.ID).size(), static_cast<size_t>(state.ImportCount[0]));
    }
    const struct {
        std::string File, Result;
    } ofx[] = {
        {"<OFX><STMTTRN><DTPOSTED><TRNAMT><NAME><MEMO><FITID></STMTTRN><STMTTRN>", "1: 0/0/0/2/0 of 2"},
        {manyOfx, "1: 5000/0/0/0/1000 of 6000"},
        {"<OFX><STMTTRN><DTPOSTED>20261301</STMTTRN>", "1: 0/0/0/1/0 of 1"},
        {"<OFX><STMTTRN><DTPOSTED>20260301<TRNAMT>" + std::string(40, '9') + "</STMTTRN>", "1: 0/0/0/1/0 of 1"},
        {"", "1: 0/0/0/0/0 of 0"},
    };
    for (const auto &row : ofx)
        EXPECT_EQ(Ofx(row.File), row.Result) << row.File;
    EXPECT_EQ(Csv(manyCsv), "1: 5000/0/0/0/1000 of 6000");
    EXPECT_EQ(Csv("\"\"\";;\";\",,\"\n;;;;;;;;\n\"\"\"\"\n1;2;3;4;5;6;7;8;9\n"), "1: 0/0/0/3/0 of 3");
    for (const char *sample : {"ofx-hostile-1.ofx", "ofx-hostile-2.ofx"}) {
        EmptyAccount();
        const auto files = Snapshot(root.DataFile(""));
        Ofx(Sample(sample));
        EXPECT_EQ(Snapshot(root.DataFile("")), files) << sample;
    }
}

TEST_F(Imports, NewerThanTheAccountIsTheDayAfterItsLastEntry) {
    EmptyAccount();
    EXPECT_EQ(DayAfterLastEntry(EntriesShown()), 0u);
    Csv("1/3/2026,Sunday,b,0,0,0,F,t,0\n");
    EXPECT_EQ(DayAfterLastEntry(EntriesShown()), 0u) << "only a marker";
    Csv("1/2/2026,a,b,1,5,5,F,n,5\n");
    EXPECT_EQ(DayAfterLastEntry(EntriesShown()), Today - 28);
    EXPECT_EQ(Csv("1/2/2026,a,b,1,5,5,F,n,5\n2/2/2026,a,b,1,5,5,F,n,5\n", DayAfterLastEntry(EntriesShown())),
              "1: 1/0/1/0/0 of 2");
}

} // namespace
