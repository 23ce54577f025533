// What was deleted can be had back; what was erased is gone, and nothing else is.
#include "input/ranges.h"
#include "ledger/bin_record.h"
#include "ledger/ledger_test.h"
#include "records/fields.h"

namespace {

// Every byte of a field is different from zero, so that one left behind shows.
template <typename Record> Record FilledRecord(int list) {
    Record record = {};
    auto *bytes = reinterpret_cast<uint8_t *>(&record);
    const RecordFields fields = FieldsOfList(list);
    uint8_t next = 1;
    for (int i = 0; i < fields.Count; ++i) {
        const Field &field = fields.Rows[i];
        uint8_t *end = bytes + field.Offset + FieldBytes(field.Type);
        for (uint8_t *at = bytes + field.Offset; at < end; ++at)
            *at = next = static_cast<uint8_t>(next % 120 + 1);
        if (field.Type == FieldType::Text32 || field.Type == FieldType::Text10)
            std::memset(end - 2, 0, 2); // texts end within their field
    }
    bytes[0] = 1;
    return record;
}

// Names of the fields that did not survive the way to the bin and back.
template <typename Record> std::string LostFields(int list, const Record &before) {
    BinRec bin;
    Record after;
    RecordBuffer back;
    EXPECT_EQ(RecordToBin(Place{list}, 0, PackRow(before), &bin), 1);
    EXPECT_EQ(bin.SourceList, static_cast<uint32_t>(list));
    EXPECT_EQ(BinToRecord(bin, &back), 1);
    FactsOfList(list)->Init(&after);
    UnpackRow(back, &after);
    const auto *was = reinterpret_cast<const uint8_t *>(&before), *is = reinterpret_cast<const uint8_t *>(&after);
    std::string lost;
    const RecordFields fields = FieldsOfList(list);
    for (int i = 0; i < fields.Count; ++i) {
        const Field &field = fields.Rows[i]; // a date has two bytes of nothing
        const int bytes = field.Type == FieldType::Date ? 6 : FieldBytes(field.Type);
        if (std::memcmp(was + field.Offset, is + field.Offset, static_cast<size_t>(bytes)) != 0)
            lost += std::string(field.Name) + " ";
    }
    return lost;
}

int DeleteFrom(int list, int32_t position) {
    state.CurrentScreen = list;
    return DeleteRecMem(position);
}

constexpr char Whole[] = "a 1, b 3, c 7, d 15, e 31";

} // namespace

TEST_F(Ledger, EveryFieldComesBackFromTheBin) {
    ARec account = FilledRecord<ARec>(AccountList);
    account.Flag = 3;
    EXPECT_EQ(LostFields(AccountList, account), "Extra Extra2 ");
    const TRec row = FilledRecord<TRec>(TransactionList);
    EXPECT_EQ(LostFields(TransactionList, row), "ParentRow ");
    EXPECT_EQ(LostFields(RecurringList, FilledRecord<DDRec>(RecurringList)), "Spare512 Spare516 Spare520 ");
    FRec favourite = FilledRecord<FRec>(TemplateList);
    favourite.Flag = 3;
    EXPECT_EQ(LostFields(TemplateList, favourite), "RowKind ");
    EXPECT_EQ(LostFields(CategoryList, FilledRecord<CatRec>(CategoryList)), "");
    CurRec conversion = FilledRecord<CurRec>(ConversionList);
    conversion.ColourFlag = 2;
    EXPECT_EQ(LostFields(ConversionList, conversion), "");

    // A row that carries no more than 32 bits of an amount has its sign all the same.
    BinRec bin = {};
    RecordBuffer back;
    bin.SourceList = TransactionList;
    bin.CashAmountLow = static_cast<uint32_t>(-2000000);
    EXPECT_EQ(BinToRecord(bin, &back), 1);
    TRec narrow = {};
    UnpackRow(back, &narrow);
    EXPECT_EQ(Fields(narrow, "CashAmount ClearedCashAmount FITID"), "-2000000, 0, ");
    bin.SourceList = 9;
    EXPECT_EQ(BinToRecord(bin, &back), 0);
    EXPECT_EQ(RecordToBin(Place{BinList}, 0, PackRow(bin), &bin), 0);
}

TEST_F(Ledger, ADeletedEntryComesBackToItsPlace) {
    const uint32_t bank = NewAccount(BankAccount, {{-3, "a", 1000}, {-2, "b", 2000, 3, 1}, {-1, "c", 4000}});
    const std::vector<uint8_t> before = File(bank);
    ASSERT_EQ(DeleteRecMem(2), 1);
    CalcBalance(bank);
    EXPECT_EQ(Names(bank), "a 1, c 5");
    ASSERT_EQ(Bin().size(), 1U);
    EXPECT_EQ(Bin()[0].OwnerID, bank);

    const uint32_t other = NewAccount(BankAccount); // the current account is another one
    GoTo(other);
    state.CurrentScreen = BinList;
    EXPECT_EQ(Restored(2), 0);
    EXPECT_EQ(Restored(1), 1);
    EXPECT_TRUE(Bin().empty());
    EXPECT_TRUE(File(bank) == before);
    EXPECT_EQ(Account(bank).ClearedBalance, 6000);

    // Archived rows go back to the archive; where that has no rows any more, its money would count nowhere.
    for (const bool alone : {false, true}) {
        Fill(bank, {{-9, "old", 1000}, {-8, "kept", 2000}}, true);
        GoTo(bank, true);
        ASSERT_EQ(DeleteRecMem(1), 1);
        if (alone) {
            ASSERT_EQ(DeleteRecMem(1), 1);
        }
        state.ArchiveView = 0;
        state.CurrentScreen = BinList;
        EXPECT_EQ(Restored(1), 1);
        EXPECT_EQ(Names(bank, true), alone ? "" : "old 1, kept 3");
        EXPECT_EQ(Names(bank), alone ? "old 1, a 2, b 8, c 12" : "a 1, b 7, c 11");
    }
}

TEST_F(Ledger, AnItemComesBackByItsDateAndAnAccountBehindTheLast) {
    const uint32_t bank = NewAccount(BankAccount, "bank");
    NewAccount(BankAccount, "other");
    Put(bank, {0, "kept", 5000});
    PutItem(ItemOf("later", 30, bank, 1, "Day(s)", 1, 1));
    PutItem(ItemOf("earlier", 20, bank, 1, "Day(s)", 1, 1));
    ASSERT_EQ(DeleteFrom(RecurringList, 1) + DeleteFrom(AccountList, 1), 2);
    EXPECT_EQ(Names(bank), "kept 5"); // its files wait with it
    state.CurrentScreen = BinList;
    EXPECT_EQ(Restored(1) + Restored(1), 2);
    EXPECT_EQ(Utf8(Items().at(0).Name), "earlier");
    EXPECT_EQ(Utf8(Read<ARec>("E1_01IND").at(1).Name), "bank");
    EXPECT_EQ(Account(bank).Balance, 5000);
}

TEST_F(Ledger, ARestoredAccountHasTodaysBalance) {
    const uint32_t bank = NewAccount(BankAccount, {{0, "now", 1000}, {3, "soon", 500}});
    ASSERT_EQ(DeleteToBin(Place{AccountList}, IDtoRec(bank)), 1);
    SetClock(2026, 3, 9);
    ASSERT_GT(Restored(1), 0);
    EXPECT_EQ(Account(bank).Balance, 1500);
}

TEST_F(Ledger, RowsOfNoListOrNoAccountStayInTheBin) {
    const uint32_t bank = NewAccount(BankAccount, {{-3, "a", 1000}});
    DeleteRecMem(1);
    DeleteFrom(AccountList, 1);
    std::vector<BinRec> bin = Bin();
    ASSERT_EQ(bin.size(), 2U);
    for (const uint32_t unknown : {0U, 3U, 6U, 9U, 0xFFFFFFFFU}) {
        BinRec row = bin[0];
        row.SourceList = unknown;
        state.CurrentScreen = BinList;
        ASSERT_EQ(AddRecFile(0, 1, &row, 1), 1);
        EXPECT_EQ(Restored(3), 0) << unknown;
        EXPECT_EQ(DeleteRecMem(3), 1) << unknown;
    }
    EXPECT_EQ(Restored(1), 0); // its account is in the bin
    EXPECT_EQ(Restored(2), 1);
    EXPECT_EQ(Restored(1), 1);
    EXPECT_EQ(Names(bank), "a 1");
}

TEST_F(Ledger, OnlyAnErasedAccountLosesItsFiles) {
    const uint32_t a = NewAccount(BankAccount, "a"), b = NewAccount(BankAccount, "b"), c = NewAccount(BankAccount, "c");
    for (const uint32_t id : {a, b, c}) {
        Fill(id, {{-1, "row", 1000}});
        Fill(id, {{-9, "old", 1000}}, true);
    }
    ASSERT_EQ(DeleteFrom(AccountList, 2), 1);
    ASSERT_EQ(DeleteFrom(AccountList, 1), 1);
    ASSERT_EQ(DeleteFrom(BinList, 1), 1); // b for good
    EXPECT_TRUE(Rows(b).empty() && Rows(b, true).empty());
    EXPECT_EQ(Rows(a).size() + Rows(a, true).size(), 2U);

    // A damaged row that names a living account does not take its files along.
    BinRec row = Bin()[0];
    row.OwnerID = c;
    ASSERT_EQ(AddRecFile(0, 1, &row, 1), 1);
    ASSERT_EQ(DeleteRecMem(2), 1);
    EXPECT_EQ(Rows(c).size() + Rows(c, true).size(), 2U);

    ASSERT_EQ(EmptyBin(), 1);
    EXPECT_TRUE(ReadBytes(Root.DataFile("E1_06BIN")).empty());
    EXPECT_TRUE(Rows(a).empty() && Rows(a, true).empty());
    EXPECT_EQ(Rows(c).size() + Rows(c, true).size(), 2U);

    // A heading leaves no trace.
    ARec heading = Account(c);
    heading.RowKind = HeadingRow;
    heading.ID = 50;
    for (const bool range : {false, true}) {
        state.CurrentScreen = AccountList;
        ASSERT_EQ(AddRecFile(0, 1, &heading, 0), 1);
        EXPECT_EQ(range ? DeleteRecRange(1, 1) : DeleteFrom(AccountList, 1), 1);
        EXPECT_EQ(Bin().size(), range ? 1U : 0U); // but a range takes it along
    }
}

TEST_F(Ledger, ARangeGoesWholeOrNotAtAll) {
    const uint32_t bank = NewAccount(BankAccount);
    const std::vector<Entry> five = {
        {-5, "a", 1000}, {-4, "b", 2000, 1, 1}, {-3, "c", 4000}, {-2, "d", 8000}, {-1, "e", 16000}};
    const struct {
        int32_t First, Last;
        int Result;
        const char *Live, *Archive;
        size_t Binned;
    } cases[] = {
        {3, 2, -1, Whole, Whole, 0},
        {6, 9, -1, Whole, Whole, 0},
        {0, 2, -1, Whole, Whole, 0},
        {2, 3, 1, "a 1, d 9, e 25", "a 1, d 9, e 25", 2},
        {4, 99, 1, "a 1, b 3, c 7", "a 1, b 3, c 7", 2},
        {1, 3, 1, "d 8, e 24", "Deleted 7, d 15, e 31", 3},
        {1, 5, 1, "", "Deleted 31", 5},
        {1, 1, 1, "b 2, c 6, d 14, e 30", "Deleted 1, b 3, c 7, d 15, e 31", 1},
    };
    for (const bool archive : {false, true})
        for (const auto &test : cases) {
            SCOPED_TRACE(testing::Message() << test.First << " to " << test.Last << (archive ? ", archive" : ""));
            ASSERT_EQ(EmptyBin(), 1);
            Fill(bank, five, archive);
            GoTo(bank, archive);
            EXPECT_EQ(DeleteRecRange(test.First, test.Last), test.Result);
            CalcBalance(bank);
            EXPECT_EQ(Names(bank, archive), archive ? test.Archive : test.Live);
            EXPECT_EQ(Bin().size(), test.Binned);
        }
    // A bin that can't take the rows keeps nothing, and the rows stay.
    state.ArchiveView = 0;
    ASSERT_EQ(EmptyBin(), 1);
    Fill(bank, five);
    WithFailingDisk({.Full = true}, [] { EXPECT_EQ(DeleteRecRange(1, 4), 0); });
    EXPECT_EQ(Names(bank), Whole);
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
    EXPECT_EQ(Fields(rows[0], "Name Date CashAmount ClearedCashAmount"), "Deleted, 2026-02-22, 750000, 750000");
    EXPECT_EQ(rows[0].RowKind, DeletedMarker);
    EXPECT_EQ(std::memcmp(&rows[1], &last, sizeof last), 0); // with its totals
}

TEST_F(Ledger, ARangeInTwoStepsIsOfOneList) {
    const uint32_t a = NewAccount(BankAccount), b = NewAccount(BankAccount);
    Fill(a, {{-9, "old", 1000}}, true);
    Fill(a, {{-3, "a", 1000}, {-2, "b", 2000}, {-1, "c", 4000}});
    Fill(b, {{-3, "x", 1000}, {-2, "y", 2000}});
    const char *const start = "/Now select the start entry//Start must precede or equal the finish//";
    const char *const finish = "Now select the finish entry";
    const char *const again = "Select start & finish entries again";
    const struct {
        uint32_t Account; // 0: the account list
        int32_t Row;
        bool Archive;
        bool (*Step)();
        bool Deleted;
        const char *Told;
    } steps[] = {
        {a, 3, false, SelectRangeFinish, 0, start},
        {b, 1, false, SelectRangeStart, 0, again}, // of another account
        {b, 1, false, SelectRangeStart, 0, finish},
        {0, 1, false, SelectRangeStart, 0, again}, // of another screen
        {a, 2, false, SelectRangeStart, 0, finish},
        {a, 1, false, SelectRangeFinish, 0, again}, // before the start
        {a, 1, false, SelectRangeStart, 0, finish},
        {a, 2, false, SelectRangeFinish, 1, "Deletion complete"},
        {a, 1, true, SelectRangeStart, 0, "This can alter the non-archive balance!"},
        {a, 1, false, SelectRangeFinish, 0, again}, // of the other view
    };
    for (const auto &step : steps) {
        SCOPED_TRACE(&step - steps);
        if (step.Account)
            GoTo(step.Account, step.Archive);
        else
            state.CurrentScreen = AccountList;
        state.SelectedPos[state.CurrentScreen] = step.Row;
        machine.Beeps = 0;
        EXPECT_EQ(step.Step(), step.Deleted);
        EXPECT_NE(Lines().find(step.Told), std::string::npos) << Lines();
        EXPECT_EQ(machine.Beeps, step.Told == again ? 1 : 0);
    }
    CalcBalance(a);
    EXPECT_EQ(Names(a), "c 4");
    EXPECT_EQ(Names(a, true), "old 1");
    EXPECT_EQ(Names(b), "x 1, y 3");
}

// Whichever write fails, an entry is in its file or in the bin, in one of them alone.
TEST_F(Ledger, AFailingDiskLosesAndDoublesNoEntryOnItsWayToTheBinAndBack) {
    const uint32_t bank = NewAccount(BankAccount);
    static constexpr struct {
        const char *Name;
        int (*Do)();
        size_t BinBefore, BinAfter;
    } ways[] = {
        {"row", [] { return DeleteRecMem(2); }, 0, 1},
        {"range", [] { return DeleteRecRange(2, 3); }, 0, 2},
        {"back", [] { return Restored(1); }, 1, 0},
    };
    for (const auto &way : ways)
        for (const bool tear : {false, true})
            for (int n = 1, failed = 1; failed; ++n) {
                SCOPED_TRACE(testing::Message() << way.Name << ", write " << n << (tear ? " torn" : ""));
                ASSERT_EQ(EmptyBin(), 1);
                Fill(bank, {{-5, "a", 1000}, {-4, "b", 1000}, {-3, "c", 1000}, {-2, "d", 1000}});
                if (way.BinBefore) {
                    ASSERT_EQ(DeleteRecMem(1), 1);
                    state.CurrentScreen = BinList;
                }
                int done = 0;
                failed = WithFailingAction({.FailAt = n, .TearWrite = tear}, &done, way.Do);
                EXPECT_EQ(Bin().size(), done ? way.BinAfter : way.BinBefore);
                EXPECT_EQ(Rows(bank).size() + Bin().size(), 4U);
                ExpectNoneLost("abcd", bank);
            }
}
