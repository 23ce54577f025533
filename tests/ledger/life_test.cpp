// Years of an account's life in random order: whatever an owner does, every entry stands in exactly one place, with
// all that was written into it, rows are in date order, and every total is the plain sum of the rows above it.
#include "ledger/ledger_test.h"
#include <map>

namespace {

struct Sums {
    int64_t Total = 0, Cleared = 0;
    int64_t Shares = 0, ClearedShares = 0;
};

// What one row adds.
void AddRow(const TRec &row, bool share, Sums *sums) {
    const bool marker = row.RowKind == ArchiveMarker, deleted = row.RowKind == DeletedMarker;
    if (row.RowKind == DayMarker)
        return;
    int64_t total = row.Value * (deleted || row.Cash || marker ? 1 : row.Units);
    int64_t cleared = marker || deleted ? row.ClearedValue : total;
    if (share) {
        const bool cash = row.Cash || deleted || marker;
        total = cash ? row.CashAmount : row.NoCash ? 0 : -row.Units * row.Value;
        cleared = marker || deleted ? row.ClearedCashAmount : total;
        if (!row.Cash) {
            sums->Shares += row.Units;
            sums->ClearedShares += marker || deleted ? row.ClearedUnits : row.Cleared ? row.Units : 0;
        }
    }
    sums->Total += total;
    if (row.Cleared)
        sums->Cleared += cleared;
}

struct Life : Ledger {
    uint32_t Random = 0, Own = 0;
    uint32_t Type = 0;
    int Made = 0;
    std::map<std::string, TRec> Entries; // as they were written

    int Pick(int below) {
        Random = Random * 1664525 + 1013904223;
        return below > 0 ? static_cast<int>((Random >> 10) % static_cast<uint32_t>(below)) : 0;
    }
    int Count(bool archive) { return static_cast<int>(Rows(Own, archive).size()); }

    TRec RandomRow(const std::string &name) {
        TRec row = RowOf({Pick(400) - 390, name.c_str(), Pick(20000) - 12000, Pick(5) + 1, Pick(2) == 1});
        row.Flag = static_cast<uint8_t>(Pick(4));
        row.CatID = 10001 + Pick(5);
        CopyText(row.Memo, TextRoom, Utf16("memo of " + name).c_str());
        if (IsShare(Type)) {
            row.Value = Pick(9000);
            row.NoCash = Pick(4) == 0;
            row.Cash = Pick(3) == 0;
            row.Units = row.Cash ? 1 : Pick(50) - 20;
            row.CashAmount = row.Cash ? row.Value : 0;
        }
        return row;
    }
    void NewEntry() {
        const std::string name = "e" + std::to_string(++Made);
        const TRec row = RandomRow(name);
        Entries[name] = row;
        MakeAccountCurrent(Own);
        ASSERT_EQ(AddRecFile(Own, CpDates(row.Date, row.Rank), &row, 0), 1);
    }
    void ChangeEntry(bool archive) {
        const int32_t position = Pick(Count(archive)) + 1;
        TRec row;
        if (!FetchTran(position, &row) || row.RowKind != EntryRow || Utf8(row.Name)[0] != 'e')
            return;
        const std::string name = Utf8(row.Name);
        row = RandomRow(name);
        if (Type == ListAccount)
            row.Date = Entries[name].Date;
        Entries[name] = row;
        ASSERT_EQ(MoveRecFile(Own, position, Type == ListAccount ? position : CpDates(row.Date, row.Rank), &row), 1);
    }
    void Do(int what) {
        const bool archive = Pick(4) == 0;
        GoTo(Own, archive);
        switch (what) {
        case 0:
            DeleteRecMem(Pick(Count(archive)) + 1);
            break;
        case 1: {
            const int first = Pick(3) ? Pick(Count(archive)) + 1 : 1;
            DeleteRecRange(first, first + Pick(4));
            break;
        }
        case 2:
            state.CurrentScreen = BinList;
            Restored(Pick(static_cast<int>(Bin().size())) + 1);
            break;
        case 3:
            GoTo(Own);
            Archived(Own, Pick(Count(false)) + 1);
            break;
        case 4:
            GoTo(Own, true);
            Unarchived(Own, Pick(3) ? Pick(Count(true)) + 1 : 1);
            break;
        case 5: {
            FilterCriteria criteria = {};
            criteria.Flag = static_cast<uint32_t>(Pick(4));
            FilterAccount(Own, Pick(2), FilterBy::Flag, criteria, Today);
            GoTo(Own, archive);
            EXPECT_EQ(DeleteRecMem(1), 0);
            ClearFiltersAndRecompute();
            break;
        }
        case 6:
            state.ArchiveView = 0;
            PutItem(ItemOf("dd", Pick(20) - 10, Own, Pick(1000), "Day(s)", Pick(5) + 1, Pick(3) + 1));
            CheckDDs();
            break;
        case 7:
            ChangeEntry(archive);
            break;
        default:
            GoTo(Own);
            NewEntry();
        }
        if (state.CurAccount.ID == Own)
            CalcBalance(Own);
    }

    void CheckFile(bool archive) {
        const std::vector<TRec> rows = Rows(Own, archive);
        const bool share = IsShare(Type);
        Sums sums;
        uint32_t day = 0, dayWithMarker = 0;
        bool ordered = true;
        int64_t price = 0, balance = 0;
        for (size_t i = 0; i < rows.size(); ++i) {
            SCOPED_TRACE(testing::Message() << "row " << i + 1);
            const TRec &row = rows[i];
            EXPECT_TRUE(Type == ListAccount || day <= row.Date.DayNumber);
            ordered = ordered && dayWithMarker <= row.Date.DayNumber;
            dayWithMarker = row.Date.DayNumber;
            if (row.RowKind != ArchiveMarker) // it heads the file, whatever was entered with an earlier date
                day = row.Date.DayNumber;
            AddRow(row, share, &sums);
            EXPECT_EQ(row.RunTotal, sums.Total);
            EXPECT_EQ(row.RunCleared, sums.Cleared);
            EXPECT_EQ(share ? row.RunUnits : 0, sums.Shares);
            EXPECT_EQ(share ? row.RunClearedUnits : 0, sums.ClearedShares);
            if (share && (row.Cash || row.RowKind == DayMarker)) {
                EXPECT_EQ(row.Value, price);
            }
            price = row.Value;
            if (row.Date.DayNumber <= Today)
                balance = share ? sums.Shares * price + sums.Total : sums.Total;
        }
        if (ordered && !rows.empty() && rows[0].Date.DayNumber <= Today) {
            EXPECT_EQ(archive ? Account(Own).ArcBalance : Account(Own).Balance, balance);
        }
    }

    void CheckAll() {
        std::map<std::string, int> places;
        for (const bool archive : {false, true})
            for (const TRec &row : Rows(Own, archive)) {
                if (row.RowKind != EntryRow)
                    continue;
                const std::string name = Utf8(row.Name);
                ++places[name];
                if (name == "dd")
                    continue;
                const TRec &was = Entries[name];
                EXPECT_EQ(std::memcmp(&row.Date, &was.Date, offsetof(TRec, ClearedUnits) - offsetof(TRec, Date)), 0)
                    << name; // date to units
                EXPECT_EQ(row.CatID, was.CatID) << name;
                EXPECT_EQ(row.Cash ? row.CashAmount : row.Value, was.Value) << name;
            }
        for (const BinRec &row : Bin())
            if (row.SourceList == TransactionList && row.RowKind == EntryRow)
                ++places[Utf8(row.Name)];
        int fired = 0;
        for (const DDRec &item : Items())
            fired += item.TotalCount - item.Remaining;
        EXPECT_EQ(places["dd"], fired);
        places.erase("dd");
        EXPECT_EQ(places.size(), Entries.size());
        for (const auto &[name, times] : places)
            EXPECT_EQ(times, 1) << name;
        CheckFile(false);
        CheckFile(true);
        EXPECT_EQ(machine.Terminal.size(), 0U) << machine.Terminal.back();
    }
};

} // namespace

TEST_F(Life, NothingIsLostDoubledOrMiscounted) {
    for (uint32_t life = 0; life < 24; ++life) {
        Random = life;
        Type = life % 3 == 0 ? ShareValue : life % 3 == 1 ? ListAccount : BankAccount;
        Own = NewAccount(Type);
        for (int step = 0; step < 120; ++step) {
            const int what = Pick(20);
            SCOPED_TRACE(testing::Message() << "life " << life << ", step " << step << ", operation " << what);
            Do(what);
            CheckAll();
            if (HasFailure())
                return;
        }
        // All to the archive and back: the same entries.
        GoTo(Own);
        Archive(IDtoRec(Own), INT32_MAX, nullptr);
        CheckAll();
        GoTo(Own, true);
        Unarchive(IDtoRec(Own), 1, nullptr);
        CheckAll();
        EXPECT_TRUE(Rows(Own, true).empty());
        for (const char *file : {"E1_06BIN", "E1_04DD"})
            WriteBytes(Root.DataFile(file), {});
        Entries.clear();
    }
}
