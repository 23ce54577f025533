// Years of an owner's life in random order, at the door: entries, transfers, strokes, the bin, archives, filters,
// recurring items, imports, reconciling, days that pass, restarts, and a disk that fails now and then. After every
// event each record stands where it belongs with all that was written into it, every total is the plain sum of the
// rows, and an event that was refused has changed no byte.
//
//     ZENTRIK_LIVES=200       that many years instead of a part of one
//     ZENTRIK_LIVES=37-37     the 37th alone
#include "life.h"
#include "resources/hub_keys.h"
#include <span>

using namespace stories;

namespace {

class Owner : public Life {
protected:
    // --- What an owner does
    void NewEntry() {
        if (!InAccount() || !Open("a new entry", CommandNew))
            return;
        const uint32_t own = Own();
        TRec row{};
        row.Units = 1;
        uint32_t partner = 0;
        if (const int n = Any(int(books.Templates.size()) + 2);
            n > 0 && Once(4) && testhost::Choose(TitleField, n - 1)) {
            const FRec &made_of = books.Templates[size_t(n) - 1];
            std::memcpy(row.Memo, made_of.Memo, sizeof row.Memo);
            row.Value = row.CashAmount = made_of.Value;
            row.Cash = made_of.Cash && OwnShare();
            row.Units = made_of.Cash && !OwnShare() ? 1 : made_of.Units;
            row.NoCash = made_of.NoCash;
            row.Cleared = made_of.Cleared;
            row.Flag = uint8_t(made_of.Flag);
            row.CatID = made_of.CatID;
            partner = made_of.Transfer;
            if (Once(2))
                SendKey(Key::ViewPart);
        } else {
            if (Once(2))
                ShowAdvanced();
            FillEntry(&row, OwnShare());
            const std::vector<uint32_t> ids = AccountIDs();
            if (const int to = Any(int(ids.size())); Once(3) && testhost::Choose(TransferField, to + 1))
                partner = ids[size_t(to)];
        }
        const std::string name = NewName("e");
        SetText(TitleField, name);
        PutName(row.Name, name);
        row.Date.DayNumber = AnyDay();
        FillDate(row.Date.DayNumber);
        TickForm("ticked " + name + (partner ? " with a transfer" : ""),
                 [&](Books &all) { Enter(all, own, row, partner); });
    }
    void ChangeEntry() {
        const int position = InAccount() ? Choose(Shown(), IsEntry) : 0;
        if (position == 0)
            return;
        const uint32_t own = Own();
        Select(position);
        TRec was = Shown()[size_t(position) - 1], row = was;
        if (!Open("modify " + Utf8(was.Name), CommandModify))
            return;
        const bool twin = Once(5);
        if (twin)
            SendKey(Key::DuplicatePart);
        if (twin)
            row.Date.DayNumber = today;
        if (Once(2)) {
            row.Date.DayNumber = AnyDay();
            FillDate(row.Date.DayNumber);
        }
        if (twin || Once(2)) {
            const std::string name = NewName("e");
            SetText(TitleField, name);
            PutName(row.Name, name);
        }
        if (Once(2))
            FillEntry(&row, OwnShare());
        if (twin) {
            row.TransferID = 0;
            row.FITID[0] = 0;
        }
        TickForm(std::string(twin ? "duplicate " : "changed ") + Utf8(row.Name), [&](Books &all) {
            if (!twin)
                all.Take(own, was);
            all.Put(own, row);
        });
    }
    // By key, command or stylus.
    void DoToRow(const std::string &what, Key key, const std::function<void(int)> &stylus, const Change &change) {
        const int place = Selected() - state.TopPos[state.CurrentScreen] + 1;
        const bool byHand = stylus && Once(2);
        Event(
            what, [=] { byHand ? stylus(place) : SendKey(key); }, change);
    }
    void Stroke() {
        const int position =
            InAccount() ? Choose(Shown(), [](const TRec &row) { return row.RowKind != ReconcileEntry; }) : 0;
        if (position == 0)
            return;
        const uint32_t own = Own();
        Select(position);
        const TRec row = Shown()[size_t(position) - 1];
        const bool works = !state.FilterShown && row.RowKind != DayMarker && row.RowKind != ArchiveMarker;
        DoToRow(
            "stroke on " + Utf8(row.Name), Key::Stroke, [](int place) { StrokeRow(place); },
            [&](Books &all) {
                TRec now = row;
                now.Cleared = !row.Cleared;
                if (works) {
                    all.Take(own, row);
                    all.Put(own, now);
                }
            });
    }
    static constexpr int BinSlot = 6;
    void DeleteEntry() {
        const int position =
            InAccount() ? Choose(Shown(), [](const TRec &row) { return row.RowKind != ArchiveMarker; }) : 0;
        if (position == 0)
            return;
        const uint32_t own = Own();
        Select(position);
        const TRec row = Shown()[size_t(position) - 1];
        const bool works = !state.FilterShown;
        DoToRow(Utf8(row.Name) + " to the bin", Once(2) ? Key::Delete : Key::Drop6, nullptr,
                [&](Books &all) { works ? all.Discard(own, row) : void(); });
    }
    void DeleteRange() {
        if (!InAccount() || Shown().empty() || state.FilterShown)
            return;
        const uint32_t own = Own();
        const int count = int(Shown().size()), first = Once(4) ? 1 : 1 + Any(count),
                  last = std::min(count, first + Any(5));
        const auto inRange = [&] { return std::span(Shown()).subspan(size_t(first) - 1, size_t(last - first) + 1); };
        if (std::any_of(Shown().begin(), Shown().begin() + last,
                        [](const TRec &row) { return row.RowKind == ArchiveMarker; }))
            return;
        const auto change = [&](Books &all) { // a Day marker may have moved since
            const Sums money = all.Money[own];
            for (const TRec &row : inRange())
                all.Discard(own, row);
            if (Archived() && first == 1) // a Deleted marker keeps it
                all.Money[own] = money;
        };
        const std::string what = "rows " + std::to_string(first) + " to " + std::to_string(last) + " to the bin";
        Select(last);
        if (first == 1 && Once(2)) {
            Event(
                what, [] { SendCommand(CommandDeletePreceding); }, change);
            return;
        }
        if (!Event("range", [] { SendCommand(CommandDeleteFinish); }))
            return;
        Select(first);
        Event(
            what, [] { SendCommand(CommandDeleteStart); }, change, Nothing);
    }
    // What stands in the bin is put back, or goes for good.
    void Bin() {
        Go(BinList);
        if (state.CurrentScreen != BinList || books.Bin.empty())
            return;
        const int position = 1 + Any(int(books.Bin.size()));
        Select(position);
        const BinRec row = books.Bin[size_t(position) - 1];
        const int list = int(row.SourceList);
        const std::string name = Utf8(row.Name);
        if (Once(8)) {
            Asked([] { SendKey(Key::Delete); });
            Event(
                name + " for good", [] { SendKey(Key::Delete); }, [&](Books &all) { Erase(all, row); });
            return;
        }
        if (row.RowKind == ArchiveMarker)
            return;
        Event(
            name + " back from the bin", [=] { SendKey(static_cast<Key>(int(Key::Drop1) + list - 1)); },
            [&](Books &all) {
                if (list == TransactionList && !books.Account(row.OwnerID))
                    return;
                Leave(all, row);
                if (list == TransactionList)
                    all.Put(row.OwnerID, RowOf(row));
                else
                    all.Note(whole[BinnedLine(list, name)]);
            });
    }
    // What leaves the bin for good is asked for: here on a disk in health, as a failing one may ask again.
    void Asked(const std::function<void()> &act) {
        const bool before = std::exchange(ill, false);
        for (int times = 0; times < 2 && !state.AskedCommand && !books.Bin.empty(); ++times)
            Event("asked", act);
        ill = before;
    }
    void Leave(Books &all, const BinRec &row) {
        if (row.SourceList != TransactionList)
            all.Note(BinnedLine(int(row.SourceList), Utf8(row.Name)), -1);
        else if (row.RowKind == EntryRow)
            all.Note("bin " + EntryLine(row.OwnerID, RowOf(row), IsShare(row.OwnerType)), -1);
    }
    void Erase(Books &all, const BinRec &row) {
        Leave(all, row);
        if (row.SourceList != AccountList)
            return;
        for (const size_t file : {LiveFile, ArchiveFile})
            for (const TRec &entry : books.Rows[row.OwnerID][file])
                all.Take(row.OwnerID, entry);
        all.Money.erase(row.OwnerID);
    }
    void EmptyBin() {
        Asked([] { SendCommand(CommandEmptyBin); });
        Event(
            "the bin emptied", [] { SendCommand(CommandEmptyBin); },
            [&](Books &all) {
                for (const BinRec &row : books.Bin)
                    Erase(all, row);
            });
    }
    // An owner may date an archived row after live ones, even after today, and a live one before the Archive marker:
    // the marker brings it to account in its own turn, and shares are worth the price seen last.
    bool OutOfTurn(uint32_t id) {
        uint32_t earliest = today;
        const std::vector<TRec> &live = books.Rows[id][LiveFile], &archive = books.Rows[id][ArchiveFile];
        for (const TRec &row : live) {
            if (!books.Share[id])
                break;
            if (row.RowKind == ArchiveMarker &&
                (&row != live.data() || archive.empty() || row.Value != archive.back().Value ||
                 row.ClearedValue != archive.back().ClearedValue))
                return true;
            earliest = std::min(earliest, row.Date.DayNumber);
        }
        return std::any_of(archive.begin(), archive.end(),
                           [=](const TRec &row) { return row.Date.DayNumber > earliest; });
    }
    static std::string Told(Books &all, uint32_t id) {
        std::string text;
        for (const size_t file : {LiveFile, ArchiveFile, LiveFilterFile, ArchiveFilterFile}) {
            text += "\n  file " + std::to_string(file);
            for (const TRec &row : all.Rows[id][file])
                text += "\n    " +
                        Fields(row, "RowKind Date Name Value Units CashAmount Cash NoCash Cleared RunTotal RunUnits");
        }
        return text;
    }
    // Nothing that only rearranges changes a balance.
    void Rearrange(const std::string &what, const std::function<void()> &act) {
        const std::vector<ARec> before = books.Accounts;
        std::map<uint32_t, bool> exempt;
        for (const ARec &account : before)
            exempt[account.ID] = account.AccType == ListAccount || OutOfTurn(account.ID);
        Books old = books;
        Event(what, act);
        if (books.Accounts.size() != before.size())
            return;
        for (const ARec &was : before) {
            const ARec *now = books.Account(was.ID);
            if (now && !exempt[was.ID]) {

                EXPECT_TRUE(now->Balance == was.Balance && now->ClearedBalance == was.ClearedBalance)
                    << was.ID << ": " << now->Balance << " instead of " << was.Balance << Told(old, was.ID)
                    << Told(books, was.ID);
            }
        }
    }
    void Archive() {
        if (!InAccount() || Shown().empty() || state.FilterShown)
            return;
        Select(1 + Any(int(Shown().size())));
        if (Archived())
            Rearrange("unarchived from " + std::to_string(Selected()), [] { SendCommand(CommandUnarchive); });
        else
            Rearrange("archived up to " + std::to_string(Selected()), [] { SendCommand(CommandArchive); });
    }
    void Filter() {
        static constexpr int commands[] = {ShowName,    ShowCategory, ShowFlag,         ShowRef,         ShowMonth,
                                           ExcludeName, ExcludeFlag,  ExcludeRef,       ExcludeMonth,    ExcludeEntry,
                                           ExcludeDate, ExcludeYear,  ExcludePreceding, ExcludeFollowing};
        if (!InAccount())
            return;
        if (Shown().empty() || Once(4)) {
            Rearrange("no filter", [] { SendCommand(CommandFilterOff); });
            return;
        }
        Select(1 + Any(int(Shown().size())));
        const int command = commands[Any(int(std::size(commands)))];
        Rearrange("filter " + std::to_string(command), [=] { SendCommand(command); });
    }
    void OtherView() {
        if (state.CurrentScreen <= TransactionList)
            Rearrange("the other view", [] { SendKey(Key::Header); });
    }
    void Title() {
        static constexpr Key keys[] = {Key::Title2, Key::Title3, Key::Title4};
        const Key key = keys[Any(3)];
        if (state.CurrentScreen <= TransactionList)
            Rearrange("a tap on a title", [=] { SendKey(key); });
    }
    void MoveRow() {
        if (Once(2) ? !InAccount() : (Go(AccountList), state.CurrentScreen != AccountList))
            return;
        const int count = int(state.CurrentScreen == AccountList ? books.Accounts.size() : Shown().size());
        if (count == 0)
            return;
        Select(1 + Any(count));
        const int place = Selected() - state.TopPos[state.CurrentScreen] + 1,
                  to = 1 + Any(std::min(count, int(state.RowCount)));
        const Key key = Once(2) ? Key::RowUp : Key::RowDown;
        const bool drag = Once(2) && state.CurrentScreen == AccountList;
        Rearrange("a row moved", [=] {
            if (drag)
                Drag(RowMiddle(place).X, RowMiddle(place).Y, RowMiddle(to).X, RowMiddle(to).Y);
            else
                SendKey(key);
        });
    }
    void Reconcile() {
        if (!InAccount() || state.CurAccount.AccType != BankAccount || state.FilterShown || Archived())
            return;
        const uint32_t own = Own();
        std::vector<int64_t> open;
        for (const TRec &row : Shown())
            if (open.size() < 20 && IsEntry(row) && (!row.Cleared || row.Date.DayNumber > today))
                open.push_back(row.Units * row.Value);
        int64_t target = books.Account(own)->ClearedBalance;
        for (const int64_t value : open)
            target += Once(3) ? value : 0;
        if (!Open("a statement", CommandInsertReconcile))
            return;
        FillAmount(target);
        TickForm("the statement's balance", Nothing);
        // Until the solution has been in view the stroke shows it.
        for (int n = 0; n < 12; ++n) {
            const auto entry = std::find_if(Shown().begin(), Shown().end(),
                                            [](const TRec &row) { return row.RowKind == ReconcileEntry; });
            if (entry == Shown().end() || state.CurrentScreen != TransactionList)
                return;
            Select(int(entry - Shown().begin()) + 1);
            std::vector<int> marks;
            for (int i = 0; state.ReconcileState == ReconcileStep::Solved && i < state.CandidateCount; ++i)
                if (state.Candidates[i].Selected)
                    marks.push_back(state.Candidates[i].Position);
            const Books before = books;
            Event(
                "stroke on the statement", [] { SendKey(Key::Stroke); },
                [&](Books &all) {
                    for (const int position : marks) {
                        const TRec &row = before.Rows.at(own)[LiveFile][size_t(position) - 1];
                        TRec now = row;
                        now.Cleared = 1;
                        all.Take(own, row);
                        all.Put(own, now);
                    }
                },
                Nothing);
        }
    }
    void NewAccount() {
        Go(AccountList);
        if (state.CurrentScreen != AccountList || books.Accounts.size() > 9 || !Open("a new account", CommandNew))
            return;
        const std::string name = NewName("a");
        const int type = Any(3);
        SetText(TextField, name);
        testhost::Choose(TypeField, type);
        ARec account{};
        PutName(account.Name, name);
        account.AccType = type == 0 ? BankAccount : type == 1 ? ShareValue : ListAccount;
        account.MaxLimit = 50000;
        account.LowWatch = Once(2);
        Check(MinCheck, account.LowWatch == 1);
        TRec opening{};
        PutName(opening.Name, "Opening balance");
        opening.Date.DayNumber = today;
        opening.Units = type == 1 ? 0 : 1;
        account.ID = books.Settings.NextID;
        TickForm("account " + name, [&](Books &all) {
            all.Note(LineOf(account));
            all.Share[account.ID] = type == 1;
            all.Put(account.ID, opening);
        });
    }
    void ChangeAccount() {
        Go(AccountList);
        const int position = Choose(books.Accounts, [](const ARec &account) { return account.RowKind == EntryRow; });
        if (state.CurrentScreen != AccountList || position == 0)
            return;
        Select(position);
        const ARec was = books.Accounts[size_t(position) - 1];
        ARec now = was;
        if (Once(2)) {
            const bool on = Once(2);
            now.HighWatch = on && was.LowWatch;
            now.LowWatch = on;
            Event(
                "watching", [=] { SendCommand(on ? CommandJeopardyOn : CommandJeopardyOff); },
                [&](Books &all) {
                    all.Note(LineOf(was), -1);
                    all.Note(LineOf(now));
                });
            return;
        }
        if (!Open("modify the account", CommandModify))
            return;
        PutName(now.Name, NewName("a"));
        SetText(TextField, Utf8(now.Name));
        now.MaxLimit = Any(900);
        SetText(MaxField, std::to_string(now.MaxLimit));
        if (state.FirstSign != 1)
            SendKey(Key::FirstSignPart);
        now.MinLimit = -Any(900);
        SetText(MinField, std::to_string(-now.MinLimit));
        if (state.SecondSign == 1)
            SendKey(Key::SecondSignPart);
        now.HighWatch = Once(2);
        Check(MaxCheck, now.HighWatch == 1);
        TickForm("account changed", [&](Books &all) {
            all.Note(LineOf(was), -1);
            all.Note(LineOf(now));
        });
    }
    void DropAccount() {
        Go(AccountList);
        if (state.CurrentScreen != AccountList || AccountIDs().size() < 4)
            return;
        const int position = Choose(books.Accounts, [](const ARec &account) { return account.RowKind == EntryRow; });
        Select(position);
        const ARec account = books.Accounts[size_t(position) - 1];
        DoToRow("account " + Utf8(account.Name) + " to the bin", Once(2) ? Key::Delete : Key::Drop6, nullptr,
                [&](Books &all) {
                    all.Note(LineOf(account), -1);
                    all.Note(BinnedLine(AccountList, Utf8(account.Name)));
                    whole[BinnedLine(AccountList, Utf8(account.Name))] = LineOf(account);
                });
    }
    // A stroke makes a Total marker, and takes one away.
    void TotalMarker() {
        Go(AccountList);
        if (state.CurrentScreen != AccountList || books.Accounts.empty())
            return;
        const int position = 1 + Any(int(books.Accounts.size()));
        Select(position);
        const ARec at = books.Accounts[size_t(position) - 1];
        ARec marker{};
        marker.RowKind = HeadingRow;
        PutName(marker.Name, "Total");
        marker.ID = books.Settings.NextID;
        marker.MinLimit = 50;
        marker.MaxLimit = 50000;
        DoToRow(
            "stroke on an account", Key::Stroke, [](int place) { StrokeRow(place); },
            [&](Books &all) {
                if (at.RowKind == HeadingRow)
                    all.Note(LineOf(at), -1);
                else
                    all.Note(LineOf(marker));
            });
    }
    void RecurringItem() {
        Go(RecurringList);
        if (state.CurrentScreen != RecurringList || books.Accounts.empty())
            return;
        if (books.Items.size() > 8 || (!books.Items.empty() && Once(3))) {
            const int position = 1 + Any(int(books.Items.size()));
            Select(position);
            const DDRec item = books.Items[size_t(position) - 1];
            DoToRow(Utf8(item.Name) + " to the bin", Key::Delete, nullptr, [&](Books &all) {
                all.Note(LineOf(item), -1);
                all.Note(BinnedLine(RecurringList, Utf8(item.Name)));
                whole[BinnedLine(RecurringList, Utf8(item.Name))] = LineOf(item);
            });
            return;
        }
        if (!Open("a new item", CommandNew))
            return;
        static constexpr const char *units[] = {"Day(s)", "Week(s)", "Month(s)", "Year(s)"};
        DDRec item{};
        const std::string name = NewName("d");
        SetText(TitleField, name);
        PutName(item.Name, name);
        item.NextDate.DayNumber = today - 20 + uint32_t(Any(40));
        FillDate(item.NextDate.DayNumber);
        item.DayWanted = uint8_t(unsigned(CalendarDay(item.NextDate.DayNumber).day()));
        TRec row{};
        row.Units = 1;
        FillEntry(&row, true);
        DDBlock &block = item.Block[0];
        block.Value = row.Value;
        block.Units = row.Units;
        block.Cash = row.Cash;
        block.NoCash = row.NoCash;
        block.Cleared = row.Cleared;
        block.Flag = row.Flag;
        block.CatID = row.CatID;
        std::memcpy(block.Memo, row.Memo, sizeof block.Memo);
        const std::vector<uint32_t> ids = AccountIDs();
        const int account = Any(int(ids.size())), partner = Any(int(ids.size()));
        testhost::Choose(AccountField, account);
        block.Account = ids[size_t(account)];
        if (Once(2) && testhost::Choose(TransferField, partner + 1))
            block.Transfer = ids[size_t(partner)];
        item.PeriodCount = 1 + Any(9);
        const int unit = Any(4);
        SetText(CountField, std::to_string(item.PeriodCount));
        testhost::Choose(UnitField, unit);
        for (size_t n = 0; units[unit][n]; ++n)
            item.PeriodUnit[n] = char16_t(units[unit][n]);
        item.TotalCount = item.Remaining = Once(2) ? 314159 : 1 + Any(6);
        if (item.TotalCount != 314159)
            SetText(RemainingField, std::to_string(item.TotalCount));
        item.Block[1] = block; // which follows as long as nobody changes it
        if (Once(3)) {
            SendKey(Key::OtherSidePart);
            item.Block[1].Value = AnyValue();
            FillAmount(item.Block[1].Value);
        }
        TickForm("item " + name, [&](Books &all) { all.Note(LineOf(item)); });
    }
    void MakeTemplate() {
        const int position = InAccount() ? Choose(Shown(), IsEntry) : 0;
        if (position == 0)
            return;
        Select(position);
        const TRec row = Shown()[size_t(position) - 1];
        if (Once(2)) {
            const auto category =
                std::find_if(books.Categories.begin(), books.Categories.end(),
                             [&](const CatRec &known) { return known.CatID == row.CatID && row.CatID; });
            CatRec made_of{};
            std::memcpy(made_of.Name, category == books.Categories.end() ? row.Name : category->Name,
                        sizeof made_of.Name);
            Event(
                "a category of it", [] { SendKey(Key::Drop7); }, [&](Books &all) { all.Note(LineOf(made_of)); });
            return;
        }
        FRec made_of{};
        std::memcpy(made_of.Name, row.Name, sizeof row.Name);
        std::memcpy(made_of.Memo, row.Memo, sizeof row.Memo);
        made_of.Value = row.Cash ? row.CashAmount : row.Value;
        made_of.Units = row.Units;
        made_of.Cash = row.Cash;
        made_of.NoCash = row.NoCash;
        made_of.Flag = row.Flag;
        made_of.CatID = row.CatID;
        Event(
            "a template of it", [] { SendKey(Key::Drop5); }, [&](Books &all) { all.Note(LineOf(made_of)); });
    }
    void NewTemplate() {
        Go(TemplateList);
        if (state.CurrentScreen != TemplateList || !Open("a new template", CommandNew))
            return;
        TRec row{};
        FillEntry(&row, true);
        FRec made_of{};
        const std::string name = NewName("t");
        SetText(TitleField, name);
        PutName(made_of.Name, name);
        std::memcpy(made_of.Memo, row.Memo, sizeof row.Memo);
        made_of.Value = row.Value;
        made_of.Units = row.Units;
        made_of.Cash = row.Cash;
        made_of.NoCash = row.NoCash;
        made_of.Cleared = row.Cleared;
        made_of.Flag = row.Flag;
        made_of.CatID = row.CatID;
        const std::vector<uint32_t> ids = AccountIDs();
        if (const int to = Any(int(ids.size())); Once(2) && testhost::Choose(TransferField, to + 1))
            made_of.Transfer = ids[size_t(to)];
        TickForm("template " + name, [&](Books &all) { all.Note(LineOf(made_of)); });
    }
    void Import() {
        if (!InAccount() || OwnShare() || Archived() || state.FilterShown)
            return;
        const uint32_t own = Own();
        std::vector<TRec> rows(size_t(1 + Any(4)));
        std::string lines;
        for (TRec &row : rows) {
            const std::string name = NewName("i");
            PutName(row.Name, name);
            row.Date.DayNumber = AnyDay();
            row.Units = 1 + Any(3);
            row.Value = Any(90000);
            const auto date = CalendarDay(row.Date.DayNumber);
            char line[120];
            snprintf(line, sizeof line, "%u/%u/%d,%s,,%d,%lld.%03lld,0,F,n,0\n", unsigned(date.day()),
                     unsigned(date.month()), int(date.year()), name.c_str(), row.Units,
                     static_cast<long long>(row.Value / 1000), static_cast<long long>(row.Value % 1000));
            lines += line;
        }
        WriteBytes(root->HostPath("\\bank.csv"), {lines.begin(), lines.end()});
        Look();
        if (!Open("import", CommandImport))
            return;
        if (!testhost::Choose(FormatField, " csv") || ControlText(FileField) != "bank") {
            Cross();
            return;
        }
        SendKey(Key::FlagPart); // all of it
        Event(
            "imported", [] { Tick(); },
            [&](Books &all) {
                for (const TRec &row : rows)
                    all.Put(own, row);
            });
        if (form.Resource) // a refusal lists the files anew, as far as they can be read
            Cross();
    }
    void FromHub() {
        const int position = InAccount() && !OwnShare() ? Choose(Shown(), IsEntry) : 0;
        if (position == 0)
            return;
        const uint32_t own = Own();
        Select(position);
        Event("the hub", [] { SendCommand(CommandHub); });
        if (Selected() > int(Shown().size())) // a Day marker has moved meanwhile
            return;
        const TRec was = Shown()[size_t(Selected()) - 1];
        TRec now = was;
        now.Units = 1;
        const bool works = !state.FilterShown && IsEntry(was);
        const int digits = 1 + Any(5);
        for (int n = 0; n < digits; ++n)
            SendKey(static_cast<Key>(int(Key::Digit1) + Any(9)));
        now.Value = state.CalcX;
        if (state.HubState == SmallHub && IsEntry(was))
            Event(
                "the hub's number into " + Utf8(was.Name),
                [] { SendKey(static_cast<Key>(int(Key::HubKeys) + WriteKey)); },
                [&](Books &all) {
                    if (works) {
                        all.Take(own, was);
                        all.Put(own, now);
                    }
                });
        while (state.HubState)
            SendCommand(CommandHub);
        Look();
    }
    void LookAhead() {
        if (!Open("the settings", CommandGeneral))
            return;
        SetText(LookAheadField, std::to_string(Any(15)));
        TickForm("look ahead", Nothing);
    }
    void InsertDay() {
        if (InAccount() && !Archived() && !state.FilterShown)
            Rearrange("a Day marker", [] { SendCommand(CommandInsertDay); });
    }
    // Left in order, or killed. A start on a failing disk may refuse everything, or do the first steps of it.
    void Restart() {
        if (Once(2)) {
            log.push_back("left");
            QuitProgram();
            Look();
        }
        if (ill && Once(3)) {
            log.push_back("started on a failing disk");
            const Books before = books;
            Books posted = books;
            Post(posted);
            WithFailingDisk(AnyFault(), [] { StartProgram(); });
            Look();
            EXPECT_TRUE(SameBooks(before) || SameBooks(posted)) << Difference(posted);
            if (state.DataUsable && Once(2))
                QuitProgram();
            Look();
        }
        const bool failing = std::exchange(ill, false);
        Event(
            "started", [] { EXPECT_TRUE(StartProgram()); }, [&](Books &all) { Post(all); });
        ill = failing;
        EXPECT_EQ(state.DataUsable, 1u);
    }
    void NextDay() {
        ++today;
        const auto date = CalendarDay(today);
        SetClock(int(date.year()), int(unsigned(date.month())), int(unsigned(date.day())));
        log.push_back("day " + std::to_string(today));
        if (Once(3) || state.CurrentScreen == AccountList) {
            Restart();
            return;
        }
        const bool failing = std::exchange(ill, false); // yesterday's balances would stay
        Go(AccountList);
        ill = failing;
    }

    void Live(uint64_t seed, int days) {
        dice = Dice(seed * 7919);
        root = nullptr;
        root = std::make_unique<TestRoot>();
        today = FirstDay;
        SetClock(2026, 3, 2);
        made = 0;
        whole.clear();
        log.clear();
        ill = false;
        ASSERT_TRUE(StartProgram());
        SendKey(Key::Help);
        Look();
        ill = seed % 3 != 0;
        static constexpr struct {
            int Often;
            void (Owner::*Do)();
        } acts[] = {
            {20, &Owner::NewEntry},   {12, &Owner::ChangeEntry},  {8, &Owner::Stroke},        {6, &Owner::DeleteEntry},
            {3, &Owner::DeleteRange}, {9, &Owner::Bin},           {1, &Owner::EmptyBin},      {6, &Owner::Archive},
            {6, &Owner::Filter},      {5, &Owner::OtherView},     {2, &Owner::Title},         {5, &Owner::MoveRow},
            {4, &Owner::Reconcile},   {2, &Owner::NewAccount},    {3, &Owner::ChangeAccount}, {1, &Owner::DropAccount},
            {2, &Owner::TotalMarker}, {3, &Owner::RecurringItem}, {2, &Owner::MakeTemplate},  {1, &Owner::NewTemplate},
            {2, &Owner::Import},      {2, &Owner::FromHub},       {1, &Owner::LookAhead},     {1, &Owner::InsertDay},
            {2, &Owner::Restart}};
        int often = 0;
        for (const auto &act : acts)
            often += act.Often;
        while (today < FirstDay + uint32_t(days) && !HasFailure()) {
            if (Once(4)) {
                NextDay();
                continue;
            }
            int n = Any(often);
            for (const auto &act : acts)
                if ((n -= act.Often) < 0) {
                    (this->*act.Do)();
                    break;
                }
        }
        if (HasFailure()) {
            std::string last = "life " + std::to_string(seed) + ", event " + std::to_string(log.size());
            for (size_t n = log.size() > 14 ? log.size() - 14 : 0; n < log.size(); ++n)
                last += "\n  " + log[n];
            ADD_FAILURE() << last;
        }
        QuitProgram();
    }
};

} // namespace

TEST_F(Owner, NothingIsLostDoubledOrMiscounted) {
    int first = 1, last = 1, days = 100;
    if (const char *lives = getenv("ZENTRIK_LIVES")) {
        days = 365;
        if (sscanf(lives, "%d-%d", &first, &last) == 1)
            last = std::exchange(first, 1);
    }
    for (int seed = first; seed <= last && !HasFailure(); ++seed)
        Live(static_cast<uint64_t>(seed), days);
}
