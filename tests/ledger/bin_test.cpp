// What was deleted can be had back; what was erased is gone, and nothing else is.
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/bin.h"
#include "ledger/filter.h"
#include "ledger/ledger_test.h"
#include "ledger/moves.h"
#include "ledger/recurring.h"
#include "platform/text.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/records/fields.h"
#include "store/windows.h"

using namespace testhost;

namespace {

// Every byte of a field is different from zero, so that one left behind shows.
template <typename Record> Record FilledRecord(int list) {
    Record record = {};
    auto *bytes = reinterpret_cast<uint8_t *>(&record);
    const RecordFields fields = FieldsOfList(list);
    uint8_t next = 1;
    for (int i = 0; i < fields.Count; ++i)
        for (int b = 0; b < FieldBytes(fields.Rows[i].Type); ++b)
            bytes[fields.Rows[i].Offset + b] = next = static_cast<uint8_t>(next % 120 + 1);
    bytes[0] = 1;
    for (int i = 0; i < fields.Count; ++i) // texts end within their field
        if (fields.Rows[i].Type == FieldType::Text32 || fields.Rows[i].Type == FieldType::Text10)
            std::memset(bytes + fields.Rows[i].Offset + FieldBytes(fields.Rows[i].Type) - 2, 0, 2);
    return record;
}

// Names of the fields that did not survive the way to the bin and back.
template <typename Record> std::string LostFields(int list, const Record &before) {
    BinRec bin;
    Record after;
    EXPECT_EQ(RecordToBin(list, &before, &bin), 1);
    EXPECT_EQ(bin.SourceList, static_cast<uint32_t>(list));
    EXPECT_EQ(BinToRecord(bin, list, &after), 1);
    std::string lost;
    const RecordFields fields = FieldsOfList(list);
    for (int i = 0; i < fields.Count; ++i)
        if (std::memcmp(reinterpret_cast<const uint8_t *>(&before) + fields.Rows[i].Offset,
                        reinterpret_cast<const uint8_t *>(&after) + fields.Rows[i].Offset,
                        static_cast<size_t>(FieldBytes(fields.Rows[i].Type))) != 0)
            lost += std::string(fields.Rows[i].Name) + " ";
    return lost;
}

} // namespace

TEST_F(Ledger, EveryFieldComesBackFromTheBin) {
    ARec account = FilledRecord<ARec>(AccountList);
    account.Flag = 3;
    EXPECT_EQ(LostFields(AccountList, account), "Extra Extra2 ");
    // The bin has 32 bits for these two amounts, and no room for the bank's identity of a row.
    TRec row = FilledRecord<TRec>(TransactionList);
    EXPECT_EQ(LostFields(TransactionList, row), "CashAmount ClearedCashAmount ParentRow FITID ");
    row.CashAmount = -2000000;
    row.ClearedCashAmount = 2000000;
    EXPECT_EQ(LostFields(TransactionList, row), "ParentRow FITID ");
    EXPECT_EQ(LostFields(RecurringList, FilledRecord<DDRec>(RecurringList)), "Spare512 Spare516 Spare520 ");
    FRec favourite = FilledRecord<FRec>(TemplateList);
    favourite.Flag = 3;
    EXPECT_EQ(LostFields(TemplateList, favourite), "RowKind ");
    EXPECT_EQ(LostFields(CategoryList, FilledRecord<CatRec>(CategoryList)), "");
    CurRec conversion = FilledRecord<CurRec>(ConversionList);
    conversion.ColourFlag = 2;
    EXPECT_EQ(LostFields(ConversionList, conversion), "");

    BinRec bin = {};
    bin.SourceList = 9;
    EXPECT_EQ(BinToRecord(bin, BinList, &account), 0);
    EXPECT_EQ(RecordToBin(BinList, &bin, &bin), 0);
}

TEST_F(Ledger, ADeletedEntryComesBackToItsPlace) {
    const uint32_t bank = NewAccount(BankAccount);
    Fill(bank, {{-3, "a", 1000}, {-2, "b", 2000, 3, 1}, {-1, "c", 4000}});
    const std::vector<TRec> before = Rows(bank);
    ASSERT_EQ(DeleteRecMem(2), 1);
    CalcBalance(bank);
    EXPECT_EQ(Names(bank), "a 1, c 5");
    ASSERT_EQ(Bin().size(), 1U);
    EXPECT_EQ(Bin()[0].OwnerID, bank);

    const uint32_t other = NewAccount(BankAccount); // the current account is another one
    GoTo(other);
    state.CurrentScreen = BinList;
    EXPECT_EQ(MoveBin(2), 0);
    EXPECT_EQ(MoveBin(1), 1);
    EXPECT_EQ(state.CurrentScreen, +BinList);
    EXPECT_TRUE(Bin().empty());
    ASSERT_EQ(Rows(bank).size(), 3U);
    for (size_t i = 0; i < 3; ++i)
        EXPECT_EQ(std::memcmp(&before[i], &Rows(bank)[i], sizeof(TRec)), 0) << i;
    EXPECT_EQ(Account(bank).ClearedBalance, 6000);

    // Archived rows go back to the archive, and the view follows.
    Fill(bank, {{-9, "old", 1000}}, true);
    GoTo(bank, true);
    ASSERT_EQ(DeleteRecMem(1), 1);
    state.ArchiveView = 0;
    state.CurrentScreen = BinList;
    EXPECT_EQ(MoveBin(1), 1);
    EXPECT_EQ(Names(bank, true), "old 1");
    EXPECT_EQ(state.ArchiveView, 1U);
}

TEST_F(Ledger, EachListTakesItsOwnBack) {
    const uint32_t bank = NewAccount(BankAccount, "bank");
    NewAccount(BankAccount, "other");
    Put(bank, {0, "kept", 5000});
    FRec favourite = FilledRecord<FRec>(TemplateList);
    CatRec category = FilledRecord<CatRec>(CategoryList);
    CurRec conversion = FilledRecord<CurRec>(ConversionList);
    PutItem(ItemOf("later", 30, bank, 1, "Day(s)", 1, 1));
    PutItem(ItemOf("earlier", 20, bank, 1, "Day(s)", 1, 1));
    const struct {
        int List;
        const void *Record;
    } rows[] = {{TemplateList, &favourite}, {CategoryList, &category}, {ConversionList, &conversion}};
    for (const auto &row : rows) {
        state.CurrentScreen = row.List;
        ASSERT_EQ(AddRecFile(0, 1, row.Record, 1), 1);
        ASSERT_EQ(DeleteRecMem(1), 1);
    }
    state.CurrentScreen = RecurringList;
    ASSERT_EQ(DeleteRecMem(1), 1);
    state.CurrentScreen = AccountList;
    ASSERT_EQ(DeleteRecMem(1), 1);
    EXPECT_EQ(Bin().size(), 5U);
    EXPECT_EQ(Read<ARec>("E1_01IND").size(), 1U);
    EXPECT_EQ(Names(bank), "kept 5"); // its files wait with it

    state.CurrentScreen = BinList;
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(MoveBin(1), 1) << i;
    EXPECT_TRUE(Bin().empty());
    EXPECT_EQ(Read<CatRec>("E1_07CAT").at(0).Blue, category.Blue);
    EXPECT_EQ(Read<CurRec>("E1_08CUR").at(0).InverseRate, conversion.InverseRate);
    EXPECT_EQ(Read<FRec>("E1_05FAV").at(0).Transfer, favourite.Transfer);
    EXPECT_EQ(Utf8(Items().at(0).Name), "earlier");
    EXPECT_EQ(Utf8(Read<ARec>("E1_01IND").at(1).Name), "bank"); // behind the last
    EXPECT_EQ(Account(bank).Balance, 5000);
}

TEST_F(Ledger, RowsOfNoListOrNoAccountStayInTheBin) {
    const uint32_t bank = NewAccount(BankAccount);
    Fill(bank, {{-3, "a", 1000}});
    DeleteRecMem(1);
    state.CurrentScreen = AccountList;
    DeleteRecMem(1);
    std::vector<BinRec> bin = Bin();
    ASSERT_EQ(bin.size(), 2U);
    for (const uint32_t unknown : {0U, 3U, 6U, 9U, 0xFFFFFFFFU}) {
        BinRec row = bin[0];
        row.SourceList = unknown;
        state.CurrentScreen = BinList;
        ASSERT_EQ(AddRecFile(0, 1, &row, 1), 1);
        EXPECT_EQ(MoveBin(3), 0) << unknown;
        EXPECT_EQ(DeleteRecMem(3), 1) << unknown;
    }
    EXPECT_EQ(MoveBin(1), 0); // its account is in the bin
    EXPECT_EQ(MoveBin(2), 1);
    EXPECT_EQ(MoveBin(1), 1);
    EXPECT_EQ(Names(bank), "a 1");
}

TEST_F(Ledger, OnlyAnErasedAccountLosesItsFiles) {
    const uint32_t a = NewAccount(BankAccount, "a"), b = NewAccount(BankAccount, "b"), c = NewAccount(BankAccount, "c");
    for (const uint32_t id : {a, b, c}) {
        Fill(id, {{-1, "row", 1000}});
        Fill(id, {{-9, "old", 1000}}, true);
    }
    state.CurrentScreen = AccountList;
    ASSERT_EQ(DeleteRecMem(2), 1);
    ASSERT_EQ(DeleteRecMem(1), 1);
    state.CurrentScreen = BinList;
    ASSERT_EQ(DeleteRecMem(1), 1); // b for good
    EXPECT_TRUE(Rows(b).empty() && Rows(b, true).empty());
    EXPECT_EQ(Rows(a).size() + Rows(a, true).size(), 2U);

    // A damaged row that names a living account does not take its files along.
    BinRec row = Bin()[0];
    row.OwnerID = c;
    ASSERT_EQ(AddRecFile(0, 1, &row, 1), 1);
    ASSERT_EQ(DeleteRecMem(2), 1);
    EXPECT_EQ(Rows(c).size() + Rows(c, true).size(), 2U);

    EmptyBin();
    EXPECT_TRUE(ReadBytes(Root.DataFile("E1_06BIN")).empty());
    EXPECT_TRUE(Rows(a).empty() && Rows(a, true).empty());
    EXPECT_EQ(Rows(c).size() + Rows(c, true).size(), 2U);
    EXPECT_EQ(state.EntryCount[BinList], 0);

    // A heading leaves no trace.
    GoTo(c);
    ARec heading = Account(c);
    heading.RowKind = HeadingRow;
    heading.ID = 50;
    state.CurrentScreen = AccountList;
    ASSERT_EQ(AddRecFile(0, 1, &heading, 0), 1);
    state.CurrentScreen = AccountList;
    ASSERT_EQ(DeleteRecMem(1), 1);
    EXPECT_TRUE(Bin().empty());
    ASSERT_EQ(AddRecFile(0, 1, &heading, 0), 1);
    state.CurrentScreen = AccountList;
    EXPECT_EQ(DeleteRecRange(1, 1), 1); // but a range takes it along
    EXPECT_EQ(Bin().size(), 1U);
}

TEST_F(Ledger, ARangeGoesWholeOrNotAtAll) {
    const uint32_t bank = NewAccount(BankAccount);
    const std::vector<Entry> five = {
        {-5, "a", 1000}, {-4, "b", 2000, 1, 1}, {-3, "c", 4000}, {-2, "d", 8000}, {-1, "e", 16000}};
    struct Case {
        int32_t First, Last;
        int Result;
        const char *Live, *Archive;
        size_t Binned;
    };
    const Case cases[] = {
        {3, 2, -1, "a 1, b 3, c 7, d 15, e 31", "a 1, b 3, c 7, d 15, e 31", 0},
        {6, 9, -1, "a 1, b 3, c 7, d 15, e 31", "a 1, b 3, c 7, d 15, e 31", 0},
        {0, 2, -1, "a 1, b 3, c 7, d 15, e 31", "a 1, b 3, c 7, d 15, e 31", 0},
        {2, 3, 1, "a 1, d 9, e 25", "a 1, d 9, e 25", 2},
        {4, 99, 1, "a 1, b 3, c 7", "a 1, b 3, c 7", 2},
        {1, 3, 1, "d 8, e 24", "Deleted 7, d 15, e 31", 3},
        {1, 5, 1, "", "Deleted 31", 5},
        {1, 1, 1, "b 2, c 6, d 14, e 30", "Deleted 1, b 3, c 7, d 15, e 31", 1},
    };
    for (const bool archive : {false, true})
        for (const Case &test : cases) {
            SCOPED_TRACE(testing::Message() << test.First << " to " << test.Last << (archive ? ", archive" : ""));
            EmptyBin();
            Fill(bank, five, archive);
            GoTo(bank, archive);
            EXPECT_EQ(DeleteRecRange(test.First, test.Last), test.Result);
            CalcBalance(bank);
            EXPECT_EQ(Names(bank, archive), archive ? test.Archive : test.Live);
            EXPECT_EQ(Bin().size(), test.Binned);
            if (test.Result == 1) {
                EXPECT_EQ(Line(2), "Deletion complete");
            }
        }
    // A bin that can't take the rows keeps nothing, and the rows stay.
    state.ArchiveView = 0;
    EmptyBin();
    Fill(bank, five);
    disk.Switches.Full = true;
    EXPECT_EQ(DeleteRecRange(1, 4), 0);
    ResetDisk();
    EXPECT_EQ(Names(bank), "a 1, b 3, c 7, d 15, e 31");
    EXPECT_TRUE(Bin().empty());
    state.FilterShown = 1;
    EXPECT_EQ(DeleteRecRange(1, 1), 0);
}

TEST_F(Ledger, ADeletedMarkerKeepsAShareArchivesTotals) {
    const uint32_t shares = NewAccount(ShareValue);
    Fill(shares, {{-9, "Money in", 1000000, 1, 1, EntryRow, 1}, {-8, "Buy", 2500, 100, 1}, {-7, "Buy", 3000, 10, 1}},
         true);
    const TRec last = Rows(shares, true)[2];
    GoTo(shares, true);
    ASSERT_EQ(DeleteRecRange(1, 2), 1);
    CalcBalance(shares);
    const std::vector<TRec> rows = Rows(shares, true);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].RowKind, DeletedMarker);
    EXPECT_EQ(rows[0].Date.DayNumber, Today - 8);
    EXPECT_EQ(rows[0].CashAmount, 750000);
    EXPECT_EQ(rows[1].RunUnits, last.RunUnits);
    EXPECT_EQ(rows[1].RunTotal, last.RunTotal);
    EXPECT_EQ(rows[1].RunCleared, last.RunCleared);
    EXPECT_EQ(rows[1].RunClearedUnits, last.RunClearedUnits);
}

TEST_F(Ledger, ARangeInTwoStepsIsOfOneList) {
    const uint32_t a = NewAccount(BankAccount), b = NewAccount(BankAccount);
    Fill(a, {{-3, "a", 1000}, {-2, "b", 2000}, {-1, "c", 4000}});
    Fill(b, {{-3, "x", 1000}, {-2, "y", 2000}});
    const auto select = [this](uint32_t account, int32_t row, bool archive = false) {
        GoTo(account, archive);
        state.SelectedPos[TransactionList] = row;
    };
    select(a, 3);
    EXPECT_EQ(SelectRangeFinish(), 0);
    EXPECT_EQ(Lines(), "/Now select the start entry//Start must precede or equal the finish//");
    select(b, 1);
    EXPECT_EQ(SelectRangeStart(), 0);
    EXPECT_EQ(Line(3), "Select start & finish entries again");
    EXPECT_EQ(machine.Beeps, 1);
    EXPECT_EQ(SelectRangeStart(), 0);
    EXPECT_EQ(Line(1), "Now select the finish entry");
    state.CurrentScreen = AccountList;
    state.SelectedPos[AccountList] = 1;
    EXPECT_EQ(SelectRangeStart(), 0);
    EXPECT_EQ(Line(3), "Select start & finish entries again");
    select(a, 2);
    EXPECT_EQ(SelectRangeStart(), 0);
    select(a, 1);
    EXPECT_EQ(SelectRangeFinish(), 0); // before the start
    EXPECT_EQ(Line(3), "Select start & finish entries again");
    EXPECT_EQ(SelectRangeStart(), 0);
    select(a, 2);
    EXPECT_EQ(SelectRangeFinish(), 1);
    CalcBalance(a);
    EXPECT_EQ(Names(a), "c 4");
    EXPECT_EQ(Names(b), "x 1, y 3");
    Fill(a, {{-3, "old", 1000}}, true);
    select(a, 1, true);
    EXPECT_EQ(SelectRangeStart(), 0);
    EXPECT_EQ(Line(5), "This can alter the non-archive balance!");
    select(a, 1);
    EXPECT_EQ(SelectRangeFinish(), 0); // not across the views
    EXPECT_EQ(Rows(a).size() + Rows(a, true).size(), 2U);
}

// Whichever write fails, an entry is in its file or in the bin, and never in neither.
TEST_F(Ledger, AFailingDiskLosesNoDeletedEntry) {
    const uint32_t bank = NewAccount(BankAccount);
    for (const bool range : {false, true})
        for (const bool tear : {false, true})
            for (int n = 1;; ++n) {
                SCOPED_TRACE(testing::Message()
                             << (range ? "range" : "row") << ", write " << n << (tear ? " torn" : ""));
                EmptyBin();
                Fill(bank, {{-5, "a", 1000}, {-4, "b", 1000}, {-3, "c", 1000}, {-2, "d", 1000}});
                ResetDisk();
                disk.Switches.FailAt = n;
                disk.Switches.TearWrite = tear;
                if (range)
                    DeleteRecRange(2, 3);
                else
                    DeleteRecMem(2);
                const bool failed = disk.WriteCalls >= n;
                ResetDisk();
                std::string all;
                for (const TRec &row : Rows(bank))
                    all += Utf8(row.Name);
                for (const BinRec &row : Bin())
                    all += Utf8(row.Name);
                for (const char name : {'a', 'b', 'c', 'd'})
                    EXPECT_NE(all.find(name), std::string::npos) << all;
                if (!failed)
                    break;
                ASSERT_LT(n, 100);
            }
}
