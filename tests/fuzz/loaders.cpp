// Any bytes in any data file: the store answers, reads nothing past its end, and the lists it then shows can be drawn.
#include "frame/changes.h"
#include "host/fuzz.h"
#include "host/test_host.h"
#include "platform/text.h"
#include "state/state.h"
#include "store/configuration.h"
#include "store/index.h"
#include "store/side_files.h"
#include "store/windows.h"
#include <gtest/gtest.h>

using namespace testhost;

namespace {

constexpr const char *Names[] = {"E1_00NOT", "E1_01IND", "E1_02A5",  "E1_03CON", "E1_04DD",
                                 "E1_05FAV", "E1_06BIN", "E1_07CAT", "E1_08CUR", "E1_09SST"};

template <typename Rec> void AddSome(int list, void (*init)(Rec *)) {
    state.CurrentScreen = list;
    Rec row;
    init(&row);
    for (int i = 1; i <= 20; ++i)
        ASSERT_EQ(AddRecFile(5, i, &row, 1), 1);
}

void WriteGoodFiles() {
    EXPECT_EQ(LoadConfFile(), 1);
    AddSome(AccountList, InitARec);
    AddSome(TransactionList, InitTRec);
    AddSome(RecurringList, InitDDRec);
    AddSome(TemplateList, InitFRec);
    AddSome(BinList, InitBinRec);
    AddSome(CategoryList, InitCatRec);
    AddSome(ConversionList, InitCurRec);
    ASSERT_EQ(SaveNote(u"Buy milk"), 1);
    const ConfRec check = {};
    ASSERT_EQ(StoreRecord(CheckRecord, &check), 1);
}

bool Terminated(const char16_t *text) {
    for (int i = 0; i < TextRoom; ++i)
        if (text[i] == 0)
            return true;
    return false;
}

void LoadEverything(Dice &dice) {
    EXPECT_EQ(LoadConfFile(), 1);
    UpdateBmap();
    for (int list = AccountList; list < ListCount; ++list)
        for (int i = 1; i < 5; ++i) {
            EXPECT_GE(state.ColumnEdge[list][i], 0);
            EXPECT_LE(state.ColumnEdge[list][i], RightEdge);
        }
    const auto top = static_cast<int32_t>(dice.Below(60)) - 30;
    LoadAccFile(top), LoadDDFile(top), LoadFavFile(top), LoadBinFile(top), LoadCatFile(top), LoadCurFile(top);
    for (int i = 1; i <= MostRows; ++i) {
        EXPECT_TRUE(Terminated(state.AccRows[i].Name) && Terminated(state.DDRows[i].Block[1].Memo) &&
                    Terminated(state.FavRows[i].Memo) && Terminated(state.BinRows[i].ToName) &&
                    Terminated(state.CatRows[i].Description) && Terminated(state.CurRows[i].Note));
        RecDate date = state.BinRows[i].Date;
        InsertAbs(&date);
        EXPECT_LE(DateFromDayNumber(state.DDRows[i].NextDate.DayNumber).Month, 12);
        StepDate(static_cast<int>(dice.Below(2)), static_cast<DateUnit>(1 + dice.Below(3)), &state.DDRows[i].NextDate);
        char16_t text[24];
        WriteAmount(text, 24, state.AccRows[i].Balance);
        CatIDToPosition(state.FavRows[i].CatID);
        AccountIdToName(state.AccRows[i].ID);
        IDtoRec(state.AccRows[i].ID);
    }
    AccountNameToId(state.AccRows[1].Name);
    ARec account;
    FetchAccount(static_cast<int32_t>(dice.Below(30)), &account);
    state.CurAccount.ID = 5;
    TRec row;
    FetchTran(static_cast<int32_t>(dice.Below(30)), &row);
    EXPECT_TRUE(Terminated(row.Name) && Terminated(row.FITID));
    state.CurrentScreen = TransactionList;
    ModRecFile(5, static_cast<int32_t>(dice.Below(30)), &row);
    AddRecFile(5, static_cast<int32_t>(dice.Below(30)), &row, 0);
    DeleteRecFile(5, static_cast<int32_t>(dice.Below(30)));
    GetNextID();
    char16_t note[1000];
    LoadNote(note);
    EXPECT_LT(TextLength(note), 1000);
    ConfRec check;
    FetchRecord(CheckRecord, &check);
    StoreConfFile();
}

} // namespace

TEST(Loaders, AnyBytesInAnyFileAreSurvived) {
    TestRoot root;
    root.MakeDataDirectory();
    WriteGoodFiles();
    std::vector<std::vector<uint8_t>> good;
    for (const char *name : Names)
        good.push_back(ReadBytes(root.DataFile(name)));
    for (const uint64_t seed : FuzzSeeds(300)) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        ResetState();
        for (size_t i = 0; i < good.size(); ++i) {
            const bool noise = dice.Below(4) == 0;
            std::vector<uint8_t> bytes = noise ? FuzzBytes(seed * 16 + i, 20000) : DamagedBytes(seed * 16 + i, good[i]);
            if (!bytes.empty() && dice.Below(40))
                bytes[0] = RecordVersion; // or the version alone would keep the rest from being read
            WriteBytes(root.DataFile(Names[i]), bytes);
        }
        LoadEverything(dice);
        EXPECT_EQ(disk.OpenHandles, 0);
        machine.Terminal.clear();
    }
}

TEST(Loaders, AFileCutAnywhereStillShowsItsWholeRecords) {
    TestRoot root;
    root.MakeDataDirectory();
    WriteGoodFiles();
    const std::vector<uint8_t> good = ReadBytes(root.DataFile("E1_05FAV"));
    for (size_t length = 0; length <= good.size(); length += 67) {
        WriteBytes(root.DataFile("E1_05FAV"), {good.begin(), good.begin() + static_cast<long>(length)});
        EXPECT_EQ(LoadFavFile(1), 1);
        EXPECT_EQ(state.EntryCount[TemplateList], static_cast<int32_t>(length / 536));
    }
}
