// Data of the generation before, written byte by byte, and what an owner finds after the first start.
#include "care.h"
#include "care/migration.h"
#include "host/fuzz.h"

namespace {

using Bytes = std::vector<uint8_t>;

// An old record: numbers and texts put at offsets.
struct OldRecord {
    Bytes Raw;
    explicit OldRecord(size_t size) : Raw(size) { Raw[0] = 1; }
    OldRecord &Put(size_t at, int64_t value, size_t bytes = 4) {
        memcpy(&Raw[at], &value, bytes);
        return *this;
    }
    OldRecord &Text(size_t at, const std::string &text) {
        const std::u16string wide = Utf16(text);
        memcpy(&Raw[at], wide.data(), wide.size() * 2);
        return *this;
    }
};

OldRecord OldAccount(const std::string &name, uint32_t id, uint32_t type) {
    OldRecord record(328);
    record.Text(20, name).Put(84, id).Put(88, type).Put(92, 2);
    record.Put(96, 1234567, 8).Put(104, -5000, 8).Put(112, 77, 8).Put(120, 88, 8);
    const int pixels[] = {0, 38, 120, 175, 226};
    for (size_t n = 0; n < 5; ++n)
        record.Put(128 + 4 * n, pixels[n]);
    return record.Put(148, 1).Put(152, 0).Put(156, -10).Put(160, 900).Put(164, 1).Put(168, 1);
}

OldRecord OldEntry(const std::string &name, int day, int64_t value) {
    OldRecord record(328);
    record.Put(1, 0, 1).Put(4, 2026).Put(8, 2, 1).Put(9, day, 1).Put(12, 155261 + day - 1).Put(16, 3);
    record.Text(20, name).Put(84, 1).Put(88, 0).Put(92, 1).Put(96, 3, 1).Text(98, "a memo");
    record.Put(164, 2).Put(168, 5).Put(176, 61, 8).Put(184, 62, 8).Put(192, value, 8).Put(200, value, 8);
    record.Put(208, 9).Put(212, 11).Put(216, 12).Put(224, 2 * value, 8).Put(232, 2 * value, 8);
    return record.Put(240, 99).Put(248, 98, 8).Put(264, 97, 8); // was not yet what it is now
}

struct Migration : testing::Test {
    TestRoot root;
    const std::string Old = root.HostPath("\\Program Files\\Zentrik\\Data");

    Migration() {
        SetClock(2026, 3, 2);
        fs::create_directories(Old);
    }
    void Write(const std::string &name, const std::vector<OldRecord> &records, size_t loose = 0) const {
        Bytes all;
        for (const OldRecord &record : records)
            all.insert(all.end(), record.Raw.begin(), record.Raw.end());
        all.resize(all.size() + loose, 0xEE);
        WriteBytes(Old + "/" + name, all);
    }
    void WriteAll() const {
        Write("IND", {OldAccount("Purse", 7, 1), OldAccount("Bank", 8, 0)}, 100);
        Write("A7", {OldEntry("Tea", 3, -1500), OldEntry("Cake", 4, -2500)}, 327);
        Write("R8", {OldEntry("Long ago", 1, 42)});
        Write("README", {OldEntry("No account", 1, 1)});
        OldRecord note(2000);
        note.Raw[0] = 0;
        Write("NOT", {note.Text(0, "An old note")});
        OldRecord configuration(576);
        configuration.Put(4, 9).Put(8, 0).Put(12, 14).Put(16, 25).Put(20, 1).Put(24, 1).Put(44, 3).Put(48, 1);
        const int accountPixels[] = {0, 100, 226};
        for (size_t n = 0; n < 3; ++n)
            configuration.Put(460 + 4 * n, accountPixels[n]);
        Write("CON", {configuration});
        OldRecord item(528);
        item.Put(8, 2026).Put(12, 5, 1).Put(13, 1, 1).Put(16, 155349).Put(20, 3).Put(24, 31, 1).Text(26, "Rent");
        item.Put(112, 1).Put(120, -700000, 8).Put(128, 8).Text(480, "Month(s)").Put(500, 1).Put(504, 314159);
        item.Put(288 + 16, 1).Put(312, -710000, 8).Put(320, 8).Put(508, 314159);
        Write("DD", {item});
        OldRecord templ(336);
        Write("FAV", {templ.Text(2, "Bread").Put(148, 1).Put(152, -3000, 8).Put(160, 8)});
        OldRecord binned(784);
        binned.Text(20, "Gone").Put(520, AccountList).Put(472, 5).Put(488, 17, 8).Put(736, 0).Put(740, 38);
        Write("BIN", {binned});
    }
};

} // namespace

TEST_F(Migration, EveryFieldArrivesAndTheOldFilesStay) {
    WriteAll();
    const auto before = Snapshot(Old);
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.Migrated, 1U);
    EXPECT_TRUE(Snapshot(Old) == before);
    const auto accounts = RecordsIn<ARec>(root.DataFile("E1_01IND"));
    ASSERT_EQ(accounts.size(), 2U);
    EXPECT_EQ(Fields(accounts[0], "Version RowKind Name ID AccType Flag LowWatch HighWatch MinLimit MaxLimit"),
              "1, 0, Purse, 7, 1, 2, 1, 0, -10, 900");
    const uint32_t dividers[] = {0, 158, 500, 729, 941};
    EXPECT_TRUE(std::equal(std::begin(dividers), std::end(dividers), accounts[0].ColumnPos));
    EXPECT_FALSE(fs::exists(root.DataFile("E1_02README")));
    const auto archived = RecordsIn<TRec>(root.DataFile("E1_02R8"));
    ASSERT_EQ(archived.size(), 1U);
    EXPECT_EQ(Fields(archived[0], "Version Name Memo Date Rank Cleared NoCash Flag Units ClearedUnits CashAmount "
                                  "ClearedCashAmount Value TransferID ParentRow CatID"),
              "1, Long ago, a memo, 2026-02-01, 3, 1, 1, 3, 2, 5, 61, 62, 42, 9, 0, 0");
    EXPECT_EQ(RecordsIn<TRec>(root.DataFile("E1_02A7")).size(), 2U) << "a partial record is none";
    const auto items = RecordsIn<DDRec>(root.DataFile("E1_04DD"));
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(Fields(items[0], "Name NextDate DayWanted Value1 Account1 Value2 PeriodUnit PeriodCount TotalCount"),
              "Rent, 2026-05-01, 31, -700000, 8, -710000, Month(s), 1, 314159");
    EXPECT_EQ(Fields(RecordsIn<FRec>(root.DataFile("E1_05FAV")).at(0), "Name Value Transfer"), "Bread, -3000, 8");
    const auto binned = RecordsIn<BinRec>(root.DataFile("E1_06BIN"));
    ASSERT_EQ(binned.size(), 1U);
    EXPECT_EQ(binned[0].Version, 1);
    EXPECT_EQ(Utf8(binned[0].Name) + std::to_string(binned[0].OwnerID), "Gone5");
    EXPECT_EQ(binned[0].AccountLayout[4], 158);
    EXPECT_EQ(RecordsIn<CatRec>(root.DataFile("E1_07CAT")).size(), 3U);
    EXPECT_EQ(RecordsIn<CurRec>(root.DataFile("E1_08CUR")).size(), 5U);
    const auto configuration = RecordsIn<ConfRec>(root.DataFile("E1_03CON")).at(0);
    EXPECT_EQ(configuration.PasswordOn, 0U);
    EXPECT_EQ(configuration.AccountColumns[1], 416U);
    EXPECT_EQ(configuration.CheckAheadDays, 14);
    SendCommand(CommandNotepad);
    EXPECT_EQ(ControlText(TextField), "An old note");
    SendCommand(CommandCross);

    // A second start converts nothing, whatever the owner has deleted since.
    QuitProgram();
    fs::remove(root.DataFile("E1_05FAV"));
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.Migrated, 0U);
    EXPECT_NE(Fields(RecordsIn<FRec>(root.DataFile("E1_05FAV")).at(0), "Name"), "Bread");
}

TEST_F(Migration, OnlyADirectoryJustMadeTakesOverAndOnlyFromOldData) {
    WriteBytes(Old + "/ZentErrorLog.txt", {'x', '\n'});
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.Migrated, 0U);
    EXPECT_EQ(RecordsIn<CatRec>(root.DataFile("E1_07CAT")).size(), 3U) << "an ordinary first run";
    QuitProgram();
    fs::remove_all(root.DataFile(""));
    fs::create_directories(root.DataFile(""));
    WriteAll();
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.Migrated, 0U);
    EXPECT_EQ(Utf8(RecordsIn<ARec>(root.DataFile("E1_01IND")).at(0).Name), "Current account");
}

// Old files of noise, cut at odd places: they are taken over or refused, and nothing else happens.
TEST_F(Migration, DamagedOldFilesDoNotStopTheRest) {
    const char *const names[] = {"IND", "A7", "R8", "NOT", "CON", "DD", "FAV", "BIN"};
    Dice dice(1);
    for (int round = 0; round < 24; ++round) {
        SCOPED_TRACE(round);
        fs::remove_all(root.DataFile(""));
        WriteAll();
        const std::string damaged = names[round % 8];
        Bytes bytes(ReadBytes(Old + "/" + damaged).size() * static_cast<size_t>(round % 3) / 2);
        for (uint8_t &byte : bytes)
            byte = static_cast<uint8_t>(dice.Below(256));
        WriteBytes(Old + "/" + damaged, bytes);
        fs::remove(Old + "/ZentErrorLog.txt");
        const auto before = Snapshot(Old);
        ASSERT_TRUE(StartProgram());
        for (int screen = 1; screen <= 8; ++screen)
            ShowScreen(screen);
        QuitProgram();
        fs::remove(Old + "/ZentErrorLog.txt");
        EXPECT_TRUE(Snapshot(Old) == before);
        if (damaged != "FAV") {
            EXPECT_EQ(Utf8(RecordsIn<FRec>(root.DataFile("E1_05FAV")).at(0).Name), "Bread");
        }
    }
}

// A machine that stops reading in the middle may not leave a data directory that hides the old data for good.
TEST_F(Migration, AStartThatCouldNotReadIsMadeUpForByTheNext) {
    int met = 1, n = 1;
    for (; met && n < 400; n += 1 + n / 6) {
        SCOPED_TRACE(n);
        fs::remove_all(root.DataFile(""));
        WriteAll();
        met = WithFailingDisk({.FailOnward = true, .FailRead = n}, [] {
            static_cast<void>(StartProgram());
            QuitProgram();
        });
        fs::remove(Old + "/ZentErrorLog.txt");
        ASSERT_TRUE(StartProgram());
        const auto accounts = RecordsIn<ARec>(root.DataFile("E1_01IND"));
        EXPECT_EQ(accounts.empty() ? "" : Utf8(accounts[0].Name), "Purse");
        QuitProgram();
    }
    EXPECT_GT(n, 20);
    EXPECT_FALSE(met);
}
