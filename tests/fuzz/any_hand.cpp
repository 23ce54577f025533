// A child with a stylus: taps, strokes, drags, keys, commands and words anywhere and in any order. Whatever comes, the
// program goes on, keeps its files in order, and finds them again after a restart.
#include "core/state.h"
#include "host/fuzz.h"
#include "host/hands.h"
#include "resources/menus.h"
#include "store/records/records.h"
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>

using namespace testhost;

namespace {

int Any(Dice &dice, int below) {
    return static_cast<int>(dice.Below(static_cast<size_t>(below)));
}

void WorkControl(Dice &dice) {
    static constexpr const char *words[] = {"", "7", "Bus", "99999999", "-3", "0.5", "Cash", "\xE2\x82\xAC 12", "abc"};
    if (form.Order.empty())
        return;
    const int id = form.Order[dice.Below(form.Order.size())];
    switch (Any(dice, 4)) {
    case 0:
        Choose(id, Any(dice, 12));
        break;
    case 1:
        Check(id, Any(dice, 2) != 0);
        break;
    case 2:
        SetDate(id, 1690 + Any(dice, 8400), 1 + Any(dice, 12), 1 + Any(dice, 28));
        break;
    default:
        SetText(id, words[dice.Below(std::size(words))]);
    }
}

void DoAnything(Dice &dice) {
    const int x = Any(dice, 240), y = 26 + Any(dice, 294);
    switch (Any(dice, 12)) {
    case 0:
    case 1:
        Tap(x, y);
        break;
    case 2:
        DoubleTap(x, y);
        break;
    case 3:
        Drag(x, y, Any(dice, 240), 26 + Any(dice, 294));
        break;
    case 4:
        Drag(x, y, std::min(239, x + 40), y);
        break;
    case 5: { // to a tab
        const Point tab = TabMiddle(1 + Any(dice, 7));
        Drag(x, y, tab.X, tab.Y);
        break;
    }
    case 6: {
        const Point tab = TabMiddle(1 + Any(dice, 7));
        Tap(tab.X, tab.Y);
        break;
    }
    case 7:
        SendKey(static_cast<Key>(1 + Any(dice, static_cast<int>(Key::Tick))));
        break;
    case 8: {
        const int command = Menu[dice.Below(MenuRows)].Id;
        if (command != CommandExit)
            SendCommand(command);
        break;
    }
    case 9:
        SendCommand(Any(dice, 4) ? CommandTick : CommandNew);
        break;
    case 10:
        Scroll(static_cast<ScrollCode>(Any(dice, 7)), Any(dice, 40));
        break;
    default:
        WorkControl(dice);
    }
}

// What a row of a money account adds to its balance.
FixedAmount Moves(const TRec &entry) {
    if (entry.RowKind == DayMarker || entry.RowKind == ReconcileEntry)
        return 0;
    return entry.RowKind == EntryRow && !entry.Cash ? TimesUnits(entry.Units, entry.Value) : entry.Value;
}

// Entries in the order of their days, but in a List account, and every balance the sum of what stands above it; no file
// with a part of a record.
void ExpectOrder(const TestRoot &root) {
    const std::vector<uint8_t> accounts = ReadBytes(root.DataFile("E1_01IND"));
    EXPECT_EQ(accounts.size() % sizeof(ARecFile), 0u);
    for (size_t at = 0; at + sizeof(ARecFile) <= accounts.size(); at += sizeof(ARecFile)) {
        ARec account;
        std::memcpy(&account, &accounts[at], sizeof account);
        EXPECT_EQ(account.Version, 1);
        if (account.RowKind == HeadingRow)
            continue;
        const std::string name = "E1_02A" + std::to_string(account.ID);
        const std::vector<uint8_t> entries = ReadBytes(root.DataFile(name));
        EXPECT_EQ(entries.size() % sizeof(TRecFile), 0u) << name;
        uint32_t day = 0;
        FixedAmount balance = 0;
        for (size_t n = 0; n + sizeof(TRecFile) <= entries.size(); n += sizeof(TRecFile)) {
            TRec entry;
            std::memcpy(&entry, &entries[n], sizeof entry);
            EXPECT_EQ(entry.Version, 1) << name;
            const size_t position = n / sizeof(TRecFile) + 1;
            EXPECT_TRUE(entry.Date.DayNumber >= day || account.AccType == ListAccount) << name << ", " << position;
            day = entry.Date.DayNumber;
            balance = AddAmounts(balance, Moves(entry));
            EXPECT_TRUE(entry.RunTotal == balance || IsShare(account.AccType)) << name << ", " << position;
        }
    }
}

} // namespace

TEST(AnyHand, NeverBreaksTheProgramOrItsFiles) {
    for (const uint64_t seed : FuzzSeeds(12)) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        SetClock(2026, 3, 2);
        const TestRoot root;
        ASSERT_TRUE(StartProgram());
        for (int event = 0; event < 300; ++event) {
            DoAnything(dice);
            ASSERT_TRUE(ProgramRuns() || StartProgram());
            ASSERT_EQ(state.DataUsable, 1u) << "event " << event;
            ASSERT_EQ(disk.OpenHandles, 0) << "event " << event;
            for (const Window window : {TopWindow, ListWindow, DialogWindow})
                EXPECT_TRUE(!machine.Shown[window] || Remains(window).empty()) << "event " << event;
        }
        ExpectOrder(root);
        QuitProgram();
        SetClock(2026, 4, 20);
        ASSERT_TRUE(StartProgram());
        EXPECT_EQ(state.DataUsable, 1u);
        QuitProgram();
        ExpectOrder(root);
        if (HasFailure())
            return;
    }
}
