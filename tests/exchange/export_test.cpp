// What goes out, letter by letter, and what comes back of it.
#include "exchange_test.h"
#include "ledger/balance.h"
#include "store/windows.h"

namespace {

class Exports : public Device {
protected:
    // The file that an exporter wrote.
    template <typename Exporter> std::string Written(Exporter exporter) {
        EXPECT_EQ(Exchanged(exporter, "\\out.txt", 0, ExportAll, nullptr), ExportDone);
        return TextOf(root.HostPath("\\out.txt"));
    }
    // A new account with the rows, as they come; its balances right.
    void Account(int type, const std::vector<TRec> &rows) {
        const uint32_t id = MakeAccount("Shares, mine", type);
        std::vector<TRecFile> records;
        for (const TRec &row : rows)
            records.push_back({row, {}});
        PutRecords(root, "E1_02A" + std::to_string(id), records);
        CalcTotals(LiveRows(id));
        RefreshAccounts();
    }
    static TRec Row(int year, const char *name, int32_t units, int64_t value, uint8_t kind = EntryRow) {
        TRec row;
        InitTRec(&row);
        row.Date = {static_cast<uint32_t>(year), 3, 31, {}, 0};
        InsertAbs(&row.Date);
        CopyText(row.Name, TextRoom, Utf16(name).c_str());
        CopyText(row.Memo, TextRoom, u"re\u00E9f, 1");
        if (kind == DayMarker) // it follows the calendar
            LoadTodaysDate(&row.Date);
        row.Units = units;
        row.Value = value;
        row.RowKind = kind;
        row.Rank = kind == DayMarker ? 4 : kind == ArchiveMarker ? 2 : kind == DeletedMarker ? 1 : 3;
        return row;
    }
    static TRec Cash(int year, int64_t amount) {
        TRec row = Row(year, "Dividend", 1, 0);
        row.Cash = 1;
        row.CashAmount = amount;
        row.Cleared = 1;
        return row;
    }
    static TRec Free(int year, int32_t units) {
        TRec row = Row(year, "Bonus", units, 1500);
        row.NoCash = 1;
        return row;
    }
    std::vector<TRec> Money() {
        TRec cleared = Row(2001, "Refund", 3, -1005);
        cleared.Cleared = 1;
        return {Row(1999, "Start, now", 1, -500), cleared, Row(2002, "Monday", 0, 0, DayMarker)};
    }
    std::vector<TRec> Shares() {
        return {Row(1999, "Deleted", 4, 1000, DeletedMarker),
                Row(2001, "Buy", 10, 2500),
                Free(2002, 5),
                Cash(2003, -7250),
                Row(2004, "Sell", -3, 3000),
                Row(2005, "Monday", 0, 0, DayMarker)};
    }
};

TEST_F(Exports, EachFormatWritesItsLines) {
    Account(BankRow, Money());
    EXPECT_EQ(Written(ExportQIFFile), "!Type:Bank\nD31/3/1999\nT-0.500\nPStart, now\nMre\xC3\xA9"
                                      "f, 1\n^\nD31/3'2001\nCX\nT-3.015\nPRefund\nMre\xC3\xA9"
                                      "f, 1\n^\n");
    EXPECT_EQ(Written(ExportCSVFile), "31/3/1999,Start; now,re\xC3\xA9"
                                      "f; 1,1,-0.500,-0.500,F,n,-0.500\n31/3/2001,Refund,re\xC3\xA9"
                                      "f; 1,3,-1.005,-3.015,T,n,-3.515\n2/3/2026,Monday,re\xC3\xA9"
                                      "f; 1,0,0,-3.515,F,t,-3.515\n");
    const std::string blanks = std::string(33, ' ');
    EXPECT_EQ(Written(ExportTXTFile),
              "\n\t\t\t\t\t\tShares, mine\n\n31 03 1999\tStart, now                    \tre\xC3\xA9"
              "f, 1" +
                  blanks.substr(1) + "\t1 X -0.50\t-0.50\t-0.50\n31 03 2001\tRefund" + std::string(24, ' ') +
                  "\tre\xC3\xA9"
                  "f, 1" +
                  blanks.substr(1) + "\t3 X -1.00\t-3.01\t-3.51\n");
    state.ReconciledView = 1;
    EXPECT_NE(Written(ExportCSVFile).find("-3.015,T,n,-3.015\n"), std::string::npos);
    state.ReconciledView = 0;
    testClock.DayFirst = false;
    EXPECT_EQ(Written(ExportQIFFile).substr(0, 24), "!Type:Bank\nD3/31/1999\nT-");
    testClock.DayFirst = true;
    Account(ShareRow, Shares());
    const std::string security = "YShares, mine                  \nM";
    EXPECT_EQ(Written(ExportQIFFile), "!Type:Invst\nD31/3/1999\nI1.000\nNBuy\nQ4\nT4.000\n" + security +
                                          "Deleted\n^\nD31/3'2001\nI2.500\nNBuy\nQ10\n"
                                          "T25.000\n" +
                                          security + "Buy\n^\nD31/3'2002\nI1.500\nNShrsIn\nQ5\nT7.500\n" + security +
                                          "Bonus\n^\nD31/3'2003\nCX\nNMiscExp\nT7.250\nI\nQ\n" + security +
                                          "Dividend\n^\nD31/3'2004\nI3.000\nNSell\nQ3\nT9.000\n" + security +
                                          "Sell\n^\n");
    const std::string csv = Written(ExportCSVFile);
    for (const char *part : {",4,1.000,4.000,F,D,4.000\n", ",10,2.500,25.000,F,N,10.000\n",
                             ",5,1.500,7.500,F,F,3.500\n", ",0,-7.250,-7.250,T,C,-3.750\n", ",-3,3.000,-9.000,F,N,"})
        EXPECT_NE(csv.find(part), std::string::npos) << part << csv;
    EXPECT_NE(Written(ExportTXTFile).find("\t1 X -7.25\t-7.25\t19\t-3.75\n"), std::string::npos)
        << Written(ExportTXTFile);
    Account(BankRow, {});
    EXPECT_EQ(Written(ExportTXTFile), "\n\t\t\t\t\t\tShares, mine\n\n");
}

TEST_F(Exports, WhatGoesOutAsCsvComesBackWhole) {
    constexpr const char *kept =
        "Date Rank RowKind Name Memo Cleared Cash NoCash Units CashAmount Value RunUnits RunTotal "
        "RunClearedUnits RunCleared";
    const auto dump = [&] { return Told(Rows(state.CurAccount.ID), kept); };
    for (const int type : {BankRow, ShareRow}) {
        std::vector<TRec> rows = type == BankRow ? Money() : Shares();
        if (type == BankRow) {
            TRec marker = Row(1998, "Archived", 1, 5000, ArchiveMarker);
            marker.ClearedValue = marker.CashAmount = 5000;
            rows.insert(rows.begin(), marker);
            for (TRec &row : rows)
                if (row.RowKind != DayMarker)
                    row.CashAmount = row.Value; // as an import leaves it
        }
        Account(type, rows);
        const std::string before = dump();
        Written(ExportCSVFile);
        Account(ListRow, {});
        ASSERT_EQ(Exchanged(ImportCSVFile, "\\out.txt", 0, nullptr), 1);
        EXPECT_EQ(dump(), before);
        EXPECT_EQ(state.ImportCount[0], static_cast<int32_t>(rows.size()));
        EXPECT_EQ(state.AccountKind, type == BankRow ? static_cast<int>(ListAccount) : static_cast<int>(ShareValue));
    }
}

TEST_F(Exports, WhatGoesOutAsQifComesBackWithItsAmounts) {
    for (const int type : {BankRow, ShareRow}) {
        Account(type, type == BankRow ? Money() : Shares());
        const FixedAmount balance = Accounts()[static_cast<size_t>(state.SelectedPos[AccountList]) - 1].Balance;
        Written(ExportQIFFile);
        Account(ListRow, {});
        ASSERT_EQ(Exchanged(ImportQIFFile, "\\out.txt", 0, u"", nullptr), 1);
        const FixedAmount back = Accounts()[static_cast<size_t>(state.SelectedPos[AccountList]) - 1].Balance;
        EXPECT_EQ(back, type == BankRow ? balance : balance - 4000) << "a marker's shares become a purchase";
    }
}

TEST_F(Exports, AFileThatCannotBeWrittenLeavesTheOneBefore) {
    ShowScreen(TransactionList);
    for (const bool reading : {false, true})
        for (const bool onward : {false, true})
            for (int n = 1;; ++n) {
                SCOPED_TRACE(testing::Message() << reading << " call " << n << " onward " << onward);
                PutFile(root, "out.txt", "before");
                int result = 9, refused = 0;
                DiskSwitches switches = {.FailOnward = onward, .TearWrite = true};
                (reading ? switches.FailRead : switches.FailAt) = n;
                const bool met = WithFailingDisk(switches, [&] {
                    BeginAction();
                    result = ExportCSVFile(EntriesShown(), "\\out.txt", 0, ExportAll, nullptr);
                    refused = ActionRefused();
                    AbortAction();
                });
                EXPECT_EQ(result, !met ? ExportDone : reading ? ExportUnread : ExportUnwritten);
                if (!met)
                    break;
                EXPECT_TRUE(!reading || refused == ReadRefused);
                EXPECT_EQ(ReadBytes(root.HostPath("\\out.txt")).size(), 6u);
                EXPECT_NE(machine.Terminal.back().find("ExportCSVFile NcreateFail"), std::string::npos);
                EXPECT_EQ(disk.OpenHandles, 0);
            }
    EXPECT_TRUE(ReadBytes(root.HostPath("\\out.txt~")).empty());
    EXPECT_GT(ReadBytes(root.HostPath("\\out.txt")).size(), 6u);
}

} // namespace
