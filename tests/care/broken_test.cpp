// A record that was damaged under its seal: everything else stays at hand, and its bytes are never lost.
#include "care.h"
#include "exchange/export.h"
#include "ledger/entries.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/windows.h"

namespace {

using Bytes = std::vector<uint8_t>;

class BrokenSeal : public FullDevice {
protected:
    BrokenSeal() {
        SetPassCode("1234");
        QuitProgram();
    }
    // Damages the record at a position (from 1; 0 the last) and starts. The damaged bytes.
    Bytes Break(const CoveredFile &file, size_t position) {
        const std::string path = root.DataFile(file.Name);
        Bytes bytes = ReadBytes(path);
        const auto size = static_cast<size_t>(RecordSize(file.Kind));
        const size_t at = (position ? position - 1 : bytes.size() / size - 1) * size;
        bytes[at + 30] ^= 4;
        WriteBytes(path, bytes);
        Start();
        return {bytes.begin() + static_cast<long>(at), bytes.begin() + static_cast<long>(at + size)};
    }
    static void Start() {
        ASSERT_TRUE(StartProgram());
        TapDigits("1234");
        ASSERT_EQ(state.ActiveDialog, NoDialog);
        ASSERT_EQ(state.DataUsable, 1U);
    }
    bool Holds(const char *name, const Bytes &record) const {
        return Contains(ReadBytes(root.DataFile(name)), record.data(), record.size());
    }
    // The data as they stand without anything broken.
    const std::string whole = root.Path() + "-whole";
    void Keep() const { fs::copy(root.Path(), whole, fs::copy_options::recursive); }
    void BringBack() const {
        QuitProgram();
        fs::remove_all(root.HostPath("\\Program Files"));
        fs::copy(whole, root.Path(), fs::copy_options::recursive);
    }
    ~BrokenSeal() override { fs::remove_all(whole); }
};

} // namespace

TEST_F(BrokenSeal, EveryListCanBeLookedAtAndTheOwnerIsToldOnce) {
    const std::map<std::string, std::string> places = {{"E1_01IND", "the list of the accounts"},
                                                       {"E1_02A1", "Current account"},
                                                       {"E1_04DD", "the recurring items"},
                                                       {"E1_05FAV", "the templates"},
                                                       {"E1_06BIN", "the bin"},
                                                       {"E1_07CAT", "the categories"},
                                                       {"E1_08CUR", "the conversions"}};
    Keep();
    for (const CoveredFile &file : CoveredFiles)
        for (const size_t position : {1U, 0U}) {
            const auto place = places.find(file.Name);
            if (place == places.end())
                continue;
            SCOPED_TRACE(testing::Message() << file.Name << (position ? ", the first" : ", the last"));
            const Bytes broken = Break(file, position);
            ASSERT_FALSE(HasFailure());
            int told = 0;
            for (int screen = 0; screen <= 8; ++screen) {
                if (screen == TransactionList)
                    OpenRow(position ? 2 : 1);
                if (screen > 0)
                    ShowScreen(screen);
                told += Lines().find("can't be read! It is of/" + place->second) != std::string::npos;
                TapRow(2);
                EXPECT_EQ(state.DataUsable, 1U);
                EXPECT_TRUE(screen == 0 || state.EntryCount[screen] > 0 || screen == GraphList);
            }
            EXPECT_EQ(told, 1);
            BringBack();
            EXPECT_FALSE(Holds(file.Name, broken));
        }
}

TEST_F(BrokenSeal, NoChangeRestsOnItOrLosesIt) {
    const CoveredFile current = {"E1_02A1", FileKind::Transactions}, savings = {"E1_02A2", FileKind::Transactions},
                      accounts = {"E1_01IND", FileKind::Accounts}, items = {"E1_04DD", FileKind::Recurring},
                      templates = {"E1_05FAV", FileKind::Templates}, categories = {"E1_07CAT", FileKind::Categories},
                      bin = {"E1_06BIN", FileKind::Bin}, note = {"E1_00NOT", FileKind::Notepad};
    static const auto enter = [](int account) {
        ShowScreen(AccountList);
        OpenRow(account);
        SendCommand(CommandNew);
        SetText(TitleField, "Fresh");
        SetText(WholeField, "5");
        SendCommand(CommandTick);
    };
    static const auto change = [](int list, int position, int field) {
        ShowScreen(list);
        state.SelectedPos[list] = position;
        SendCommand(CommandModify);
        SetText(field, "Changed");
        SendCommand(CommandTick);
    };
    static const auto order = [](int account, int row, int command) {
        OpenRow(account);
        TapRow(row);
        SendCommand(command);
    };
    struct {
        const char *What;
        const CoveredFile &File;
        size_t Position;
        void (*Do)();
        const char *Changed; // the file that changed; null: none, and it is told; "": none
    } const rows[] = {
        {"an entry beside it", savings, 3, [] { enter(2); }, nullptr},
        {"an entry elsewhere", savings, 3, [] { enter(1); }, "E1_02A1"},
        {"a stroke before it", current, 4,
         [] {
             OpenRow(1);
             StrokeRow(2);
         },
         nullptr},
        {"the row itself to the bin", savings, 3,
         [] {
             OpenRow(2);
             TapRow(3);
             SendKey(Key::Delete);
         },
         nullptr},
        {"a range with it", current, 2, [] { order(1, 3, CommandDeletePreceding); }, nullptr},
        {"archived", current, 2, [] { order(1, 3, CommandArchive); }, nullptr},
        {"filtered", current, 3, [] { order(1, 2, ShowName); }, nullptr},
        {"a new day", current, 2,
         [] {
             QuitProgram();
             SetClock(2026, 3, 5);
             Start();
             OpenRow(1);
         },
         ""},
        {"another template", templates, 2, [] { change(TemplateList, 1, TitleField); }, "E1_05FAV"},
        {"the template itself", templates, 2, [] { change(TemplateList, 2, TitleField); }, nullptr},
        {"a template moved past it", templates, 2,
         [] {
             ShowScreen(TemplateList);
             TapRow(1);
             SendKey(Key::RowDown);
             SendKey(Key::RowDown);
         },
         "E1_05FAV"},
        {"a category beside it", categories, 1, [] { change(CategoryList, 2, DescriptionField); }, "E1_07CAT"},
        {"the bin emptied", bin, 1,
         [] {
             ShowScreen(BinList);
             SendCommand(CommandEmptyBin); // asks
             SendCommand(CommandEmptyBin);
         },
         nullptr},
        {"the note", note, 1,
         [] {
             SendCommand(CommandNotepad);
             SetText(TextField, "New");
             SendCommand(CommandTick);
         },
         nullptr},
        {"an entry past a lost account", accounts, 1, [] { enter(2); }, "E1_02A2"},
        {"an item", items, 1,
         [] {
             change(RecurringList, 1, TitleField);
             Choose(AccountField, 1);
             SendCommand(CommandTick);
         },
         nullptr},
    };
    Keep();
    for (const auto &row : rows) {
        SCOPED_TRACE(row.What);
        const Bytes broken = Break(row.File, row.Position);
        auto before = Snapshot(root.DataFile(""));
        machine.Beeps = 0;
        row.Do();
        auto after = Snapshot(root.DataFile(""));
        before.erase("E1_03CON");
        after.erase("E1_03CON");
        if (row.Changed && *row.Changed) {
            EXPECT_FALSE(before[row.Changed] == after[row.Changed]);
        } else {
            for (const auto &[name, bytes] : before)
                EXPECT_TRUE(after[name] == bytes) << name;
            EXPECT_EQ(Lines().find("nothing has been changed") == std::string::npos, row.Changed != nullptr) << Lines();
        }
        EXPECT_TRUE(Holds(row.File.Name, broken));
        BringBack();
        SetClock(2026, 3, 2);
    }
}

TEST_F(BrokenSeal, TheOtherEntriesAreExportedAndWhatIsDueElsewhereIsPosted) {
    SetClock(2026, 4, 3);
    Break({"E1_02A1", FileKind::Transactions}, 2);
    BeginAction();
    EXPECT_EQ(ExportCSVFile(LiveRows(1), "\\out.csv", 0, ExportAll, nullptr), ExportDone);
    EXPECT_TRUE(CommitAction());
    const Bytes out = ReadBytes(root.HostPath("\\out.csv"));
    const std::string text(out.begin(), out.end());
    EXPECT_NE(text.find("Visa payment"), std::string::npos) << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4) << text;
    OpenRow(2);
    EXPECT_EQ(state.EntryCount[TransactionList], 5) << "the monthly credit";
}

TEST_F(BrokenSeal, WhatMayBeTheBrokenRecordIsNotTakenForMissing) {
    const CoveredFile accounts = {"E1_01IND", FileKind::Accounts}, templates = {"E1_05FAV", FileKind::Templates},
                      categories = {"E1_07CAT", FileKind::Categories};
    struct {
        const char *What;
        const CoveredFile &File;
        void (*Do)();
    } const rows[] = {
        {"a partner", accounts,
         [] {
             TRec row;
             InitTRec(&row);
             row.TransferID = 2;
             EXPECT_GT(EnterEntry(LiveRows(1), 0, &row), 0);
         }},
        {"the accounts of items", accounts,
         [] {
             KnowAccounts();
             EXPECT_TRUE(RemoveRecord(Place{TemplateList}, 1));
         }},
        {"a category", categories,
         [] {
             EXPECT_LT(CatIDToPosition(12345), 1);
             EXPECT_TRUE(RemoveRecord(Place{TemplateList}, 1));
         }},
        {"the record itself", templates, [] { EXPECT_FALSE(RemoveRecord(Place{TemplateList}, 2)); }},
    };
    Keep();
    for (const auto &row : rows) {
        SCOPED_TRACE(row.What);
        Break(row.File, 2);
        const auto before = Snapshot(root.DataFile(""));
        EXPECT_FALSE(AsAction(row.Do));
        EXPECT_EQ(ActionRefused(), DoubtRefused);
        EXPECT_TRUE(Snapshot(root.DataFile("")) == before);
        BringBack();
    }
}

TEST_F(BrokenSeal, StoredTotalsStayAsTheyWere) {
    const std::string accounts = root.DataFile("E1_01IND");
    Start();
    StrokeRow(2); // a Total marker
    QuitProgram();
    for (const CoveredFile &file : {CoveredFile{"E1_01IND", FileKind::Accounts}, {"E1_02A2", FileKind::Transactions}}) {
        Bytes before = ReadBytes(accounts);
        if (file.Kind == FileKind::Accounts)
            before[30] ^= 4;
        SetClock(2026, 3, 3); // the totals are told anew each day
        Break(file, file.Kind == FileKind::Accounts ? 1 : 0);
        for (const int screen : {RecurringList, AccountList})
            ShowScreen(screen);
        EXPECT_TRUE(ReadBytes(accounts) == before) << file.Name;
        SetClock(2026, 3, 2);
        QuitProgram();
    }
}
