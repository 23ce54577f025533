// An owner and a device that the tests live years with: events at the door, on a disk that may fail, and after each of
// them a look at everything.
#pragma once

#include "books.h"
#include "day.h"
#include "host/fuzz.h"
#include "platform/files.h"
#include "platform/history.h"
#include "state/state.h"
#include <chrono>
#include <cstdlib>

namespace stories {

using Change = std::function<void(Books &)>; // what an event is to do to the books
inline void Nothing(Books &) {}

inline constexpr uint32_t FirstDay = 155289; // 2 March 2026

inline std::chrono::year_month_day CalendarDay(uint32_t day) {
    return std::chrono::sys_days(std::chrono::year(2026) / 3 / 2) + std::chrono::days(int(day) - int(FirstDay));
}
inline uint32_t DayNumber(const std::chrono::year_month_day &date) {
    return FirstDay + uint32_t((std::chrono::sys_days(date) - std::chrono::sys_days(CalendarDay(FirstDay))).count());
}
inline void PutName(char16_t (&to)[TextRoom], const std::string &name) {
    const std::u16string wide = Utf16(name);
    std::memset(to, 0, sizeof to);
    std::copy_n(wide.begin(), std::min<size_t>(wide.size(), TextRoom - 1), to);
}

class Life : public testing::Test {
protected:
    explicit Life() {}

    // --- Chance
    Dice dice{1};
    int Any(int below) { return static_cast<int>(dice.Below(static_cast<size_t>(std::max(below, 1)))); }
    bool Once(int in) { return Any(in) == 0; }

    // --- The device, and its books as they were after the last event
    std::unique_ptr<TestRoot> root;
    uint32_t today = FirstDay;
    int made = 0; // names given
    Files files;
    Books books;
    std::map<std::string, std::string> whole; // by its line in the bin, the line of what is no transaction
    std::vector<std::string> log;
    bool ill = false; // the disk may fail

    // The trace and what lies in the device's root belong to no action; looking at an archive makes its empty file.
    Files OnDisk() {
        Files all = Snapshot(root->Path());
        std::erase_if(all, [](const auto &file) {
            return file.first.find("E1_Data") == std::string::npos || file.second.empty();
        });
        return all;
    }
    void Look() {
        files = OnDisk();
        books = BooksOf(files);
    }
    std::string NewName(const char *kind) { return kind + std::to_string(++made); }
    bool Archived() const { return state.ArchiveView == 1; }
    uint32_t Own() const { return state.CurAccount.ID; }
    bool OwnShare() { return books.Share[Own()]; }
    size_t FileShown() const { return (Archived() ? ArchiveFile : LiveFile) + (state.FilterShown ? 2 : 0); }
    const std::vector<TRec> &Shown() { return books.Rows[Own()][FileShown()]; }
    int Selected() const { return state.SelectedPos[state.CurrentScreen]; }

    // --- An event
    DiskSwitches AnyFault() {
        static constexpr int DiskSwitches::*calls[] = {&DiskSwitches::FailAt, &DiskSwitches::FailRead,
                                                       &DiskSwitches::FailOpen, &DiskSwitches::FailSync,
                                                       &DiskSwitches::FailReserve};
        DiskSwitches switches;
        switches.*calls[Any(5)] = 1 + Any(Once(3) ? 60 : 8);
        switches.FailOnward = Once(4);
        switches.TearWrite = Once(3);
        return switches;
    }
    // Does it, on a disk that may fail, and looks at everything. False when it was refused.
    bool Event(const std::string &what, const std::function<void()> &act, const Change &change = Nothing,
               const Change &orElse = nullptr) {
        Books expected = books, other = books;
        change(expected);
        if (orElse)
            orElse(other);
        const Books before = books;
        const Files bytes = files;
        const int history = HistoryCount(), beeps = machine.Beeps;
        const bool faulty = ill && Once(8);
        bool met = false;
        log.push_back(what + (faulty ? " on a failing disk" : ""));
        if (faulty)
            met = WithFailingDisk(AnyFault(), act);
        else
            act();
        Look();
        const bool done = SameBooks(expected) || (orElse && SameBooks(other));
        if (!done && !(met && SameBooks(before)))
            ADD_FAILURE() << Difference(expected);
        if (!done && met && SameBooks(before)) {
            for (const auto &[name, now] : files)
                EXPECT_TRUE(bytes.contains(name) && bytes.at(name) == now) << "refused, and changed " << name;
            EXPECT_EQ(files.size(), bytes.size());
            EXPECT_GT(machine.Beeps, beeps) << "the owner was not told";
        }
        EXPECT_EQ(Mistake(books, today), "");
        EXPECT_EQ(WrongOnScreen(), "");
        EXPECT_EQ(disk.OpenHandles, 0);
        if (state.ShownUnread && form.Resource == 0) {
            SendEvent({.Kind = EventKind::Paint}); // anything reads anew what could not be read
            Look();
        }
        if (done && !HasFailure() && !faulty && form.Resource == 0 && HistoryCount() == history + 1 &&
            HistoryCount() < 100 /* none was dropped */ && Once(6))
            TakeBack(before);
        return done;
    }
    // What is taken back is the event, whole, and done again as well.
    void TakeBack(const Books &before) {
        log.back() += ", taken back and done again";
        const Books done = books;
        SendKey(Key::Undo);
        Look();
        EXPECT_TRUE(SameBooks(before)) << "not what was before: " << Difference(before);
        const bool again = RedoCount() > 0; // else it had no room
        SendKey(Key::Redo);
        Look();
        EXPECT_TRUE(!again || SameBooks(done)) << "not what was done: " << Difference(done);
        SendKey(Key::Up); // what was told goes
    }
    bool SameBooks(const Books &other) const {
        const auto money = [](const Books &all) {
            std::map<uint32_t, std::array<int64_t, 4>> sums;
            for (const auto &[id, sum] : all.Money)
                sums[id] = {sum.Total, sum.Cleared, sum.Shares, sum.ClearedShares};
            return sums;
        };
        return books.Facts == other.Facts && money(books) == money(other);
    }
    std::string Difference(const Books &expected) {
        std::string all = "the books differ";
        for (const auto &[line, times] : expected.Facts)
            if (const int now = books.Facts.contains(line) ? books.Facts[line] : 0; now != times)
                all += "\n  " + std::to_string(now) + " instead of " + std::to_string(times) + ": " + line;
        for (const auto &[line, times] : books.Facts)
            if (!expected.Facts.contains(line))
                all += "\n  too many: " + line;
        for (const auto &[id, sum] : expected.Money)
            if (const Sums &now = books.Money[id]; now.Total != sum.Total || now.Cleared != sum.Cleared ||
                                                   now.Shares != sum.Shares || now.ClearedShares != sum.ClearedShares)
                all += "\n  money of " + std::to_string(id) + ": " + std::to_string(now.Total) + " (" +
                       std::to_string(now.Cleared) + ") instead of " + std::to_string(sum.Total) + " (" +
                       std::to_string(sum.Cleared) + "), shares " + std::to_string(now.Shares) + " instead of " +
                       std::to_string(sum.Shares);
        return all;
    }
    // The balances that stand in the rows of the screen.
    std::string WrongOnScreen() {
        const int screen = state.CurrentScreen;
        if (state.ActiveDialog != NoDialog || state.HubState || state.ShownUnread || !ProgramRuns() ||
            !state.DataUsable || (screen != AccountList && screen != TransactionList))
            return "";
        const int count = static_cast<int>(screen == AccountList ? books.Accounts.size() : Shown().size());
        std::array<int64_t, 4> above{};
        for (int n = 1; n <= count; ++n) {
            int64_t balance;
            if (screen == AccountList) {
                const ARec &account = books.Accounts[size_t(n) - 1];
                const std::array<int64_t, 4> own = {account.Balance, account.ClearedBalance, account.ArcBalance,
                                                    account.ArcClearedBalance};
                const bool total = account.RowKind == HeadingRow; // of those above it
                balance = (total ? above : own)[(Archived() ? 2u : 0u) + state.ReconciledView];
                for (size_t i = 0; i < 4; ++i)
                    above[i] = total ? 0 : above[i] + own[i];
            } else {
                const TRec &row = Shown()[size_t(n) - 1];
                balance = row.RowKind == ReconcileEntry
                              ? row.Value
                              : SumsAt(Shown(), OwnShare(), size_t(n)).Balance(OwnShare(), state.ReconciledView == 1);
            }
            const int place = n - state.TopPos[screen] + 1;
            if (place < 1 || place > state.RowCount)
                continue;
            const std::vector<StandingText> texts = TextsIn(ListWindow, Row(place));
            if (texts.empty() || texts.back().Words != stories::Shown(balance))
                return "row " + std::to_string(n) + " shows " + TextAt(ListWindow, Row(place)) + " instead of " +
                       stories::Shown(balance);
        }
        return "";
    }

    // --- Getting about
    // What falls due on the way to a screen that posts.
    void Post(Books &all) {
        for (DDRec item : books.Items) {
            const std::string before = LineOf(item);
            for (int fired = 0; fired < 25 && item.Remaining > 0 && item.PeriodCount > 0 &&
                                item.NextDate.DayNumber <= today + uint32_t(books.Settings.CheckAheadDays);
                 ++fired) {
                const DDBlock &block = item.Block[item.FirstDone ? 1 : 0];
                if (!books.Account(block.Account))
                    break;
                TRec row{};
                row.Date = item.NextDate;
                std::memcpy(row.Name, item.Name, sizeof row.Name);
                std::memcpy(row.Memo, block.Memo, sizeof row.Memo);
                row.Cleared = block.Cleared;
                row.Cash = block.Cash && books.Share[block.Account];
                row.NoCash = block.NoCash;
                row.Flag = block.Flag;
                row.Units = block.Cash && !books.Share[block.Account] ? 1 : block.Units;
                row.CatID = block.CatID;
                row.Value = row.CashAmount = block.Value;
                Enter(all, block.Account, row, block.Transfer);
                item.FirstDone = 1;
                item.Remaining -= item.TotalCount != 314159;
                if (item.Remaining > 0)
                    Step(&item);
            }
            all.Note(before, -1);
            all.Note(LineOf(item));
        }
    }
    void Step(DDRec *item) {
        using namespace std::chrono;
        uint32_t day = item->NextDate.DayNumber;
        const char16_t unit = item->PeriodUnit[0];
        if (unit == u'D' || unit == u'W') {
            day += uint32_t(item->PeriodCount * (unit == u'W' ? 7 : 1));
        } else {
            const year_month_day now = CalendarDay(day);
            const year_month next =
                year_month(now.year(), now.month()) + months(item->PeriodCount * (unit == u'Y' ? 12 : 1));
            const std::chrono::day last = (next / std::chrono::last).day();
            day = DayNumber(next / std::min(last, std::chrono::day(item->DayWanted)));
        }
        item->NextDate.DayNumber = day;
    }
    // An entry, and on the other side what it takes from there.
    void Enter(Books &all, uint32_t account, TRec row, uint32_t partner) {
        const bool share = all.Share[account];
        if (partner && books.Account(partner)) {
            TRec counter = row;
            counter.FITID[0] = 0;
            counter.TransferID = 0;
            counter.Value = -row.Value;
            counter.CashAmount = -row.CashAmount;
            if (!share && all.Share[partner]) {
                counter.Cash = 1;
                counter.CashAmount = -row.Units * row.Value;
                counter.Units = 1;
            } else if (share && row.Cash && !all.Share[partner]) {
                counter.Cash = 0;
                counter.Units = 1;
            }
            all.Put(partner, counter);
        }
        row.TransferID = partner && books.Account(partner) ? partner : 0;
        all.Put(account, row);
    }

    void Go(int screen) {
        if (state.CurrentScreen == screen)
            return;
        const bool posts =
            screen == AccountList || screen == TransactionList || screen == RecurringList || screen == TemplateList;
        Event(
            "screen " + std::to_string(screen), [=] { ShowScreen(screen); },
            [&](Books &all) { posts ? Post(all) : void(); });
    }
    // 1 to the row of a new one.
    void Select(int position) {
        const int screen = state.CurrentScreen;
        if (position < state.TopPos[screen] || position >= state.TopPos[screen] + state.RowCount)
            Scroll(ScrollCode::ThumbTrack, position);
        TapRow(position - state.TopPos[screen] + 1);
        EXPECT_EQ(Selected(), position);
        Look();
    }
    // The rows of an account, by its row on the first screen.
    bool OpenAccount(int position) {
        Go(AccountList);
        if (state.CurrentScreen != AccountList || position < 1 || position > int(books.Accounts.size()))
            return false;
        Select(position);
        if (books.Accounts[size_t(position) - 1].RowKind == HeadingRow)
            return false;
        const bool stylus = Once(2);
        Event(
            "opened account " + std::to_string(Own()),
            [=] { stylus ? OpenRow(position - state.TopPos[AccountList] + 1) : SendKey(Key::Enter); },
            [&](Books &all) { Post(all); });
        return state.CurrentScreen == TransactionList;
    }
    bool InAccount() {
        if (state.CurrentScreen == TransactionList && books.Account(Own()) && !Once(5))
            return true;
        return OpenAccount(1 + Any(int(books.Accounts.size())));
    }
    // A row of the list shown for which the condition holds, 0 for none.
    template <typename Record, typename Holds> int Choose(const std::vector<Record> &records, Holds holds) {
        std::vector<int> found;
        for (size_t n = 0; n < records.size(); ++n)
            if (holds(records[n]))
                found.push_back(int(n) + 1);
        return found.empty() ? 0 : found[size_t(Any(int(found.size())))];
    }
    static bool IsEntry(const TRec &row) { return row.RowKind == EntryRow; }

    // --- Forms
    bool Open(const std::string &what, int command) {
        Event(what, [=] { SendCommand(command); });
        return form.Resource != 0;
    }
    // The tick; refused, the form stays open with what was typed, and is ticked again.
    void TickForm(const std::string &what, const Change &change) {
        Look(); // what was typed were events too
        for (int n = 0; n < 9 && form.Resource; ++n)
            Event(
                n ? what + " once more" : what, [] { Tick(); }, change);
        EXPECT_EQ(form.Resource, 0) << "the form does not close";
        if (form.Resource)
            Cross();
    }
    void FillAmount(int64_t value, int fraction = FractionField) {
        char text[8];
        snprintf(text, sizeof text, "%03d", int(std::llabs(value) % 1000));
        SetText(WholeField, std::to_string(std::llabs(value) / 1000));
        SetText(fraction, text);
        if ((state.FirstSign == 1) != (value >= 0))
            SendKey(Key::FirstSignPart);
    }
    void FillDate(uint32_t day) {
        const auto date = CalendarDay(day);
        SetDate(DateField, int(date.year()), int(unsigned(date.month())), int(unsigned(date.day())));
    }
    int64_t AnyValue() { return Once(12) ? 0 : (Any(40000) - 24000) * (Once(3) ? 17 : 10); }
    uint32_t AnyDay() { return today - 60 + uint32_t(Once(3) ? Any(90) : 50 + Any(12)); }
    std::vector<uint32_t> AccountIDs() const {
        std::vector<uint32_t> ids;
        for (const ARec &account : books.Accounts)
            if (account.RowKind != HeadingRow)
                ids.push_back(account.ID);
        return ids;
    }
    // Fields that an entry and a template share, by the owner's hand; `row` is what they then hold.
    void FillEntry(TRec *row, bool share) {
        const int64_t value = AnyValue();
        FillAmount(value);
        row->Value = row->CashAmount = value;
        if (!ControlText(MultiplierField).empty()) {
            row->Cash = share && Once(3);
            row->Units = row->Cash ? 1 : Once(2) ? 1 : Any(6);
            SetText(MultiplierField, row->Cash ? "Cash" : std::to_string(row->Units));
            if (Once(4))
                SendKey(Key::SecondSignPart);
            if (state.SecondSign != 1)
                row->Units = -row->Units;
            const std::string memo = Once(2) ? "" : "memo " + std::to_string(Any(5));
            SetText(TextField, memo);
            PutName(row->Memo, memo);
            if (const int n = Any(int(books.Categories.size()) + 1); testhost::Choose(CategoryField, n))
                row->CatID = n ? books.Categories[size_t(n) - 1].CatID : 0;
            if (share && Once(4))
                SendKey(Key::FreePart);
            row->NoCash = state.FormNoCash;
        }
        if (Once(3))
            SendKey(Key::FlagPart);
        if (Once(4))
            SendKey(Key::ClearedPart);
        row->Flag = uint8_t(state.FormFlag);
        row->Cleared = state.FormCleared;
    }
    void ShowAdvanced() {
        if (ControlText(MultiplierField).empty())
            SendKey(Key::ViewPart);
    }
};

} // namespace stories
