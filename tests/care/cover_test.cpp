// With a code set, no byte of what an owner enters stands plain in any file, whatever he does, but in those files that
// are never enciphered.
#include "care.h"
#include "cipher/hooks.h"
#include "exchange/import.h"
#include "records/fields.h"
#include "store/lists.h"
#include "store/operations.h"
#include <span>

namespace {

using Bytes = std::vector<uint8_t>;

constexpr int64_t MarkedAmount = 1234567890; // thousandths
constexpr char MarkedText[] = "Zqx", MarkedWhole[] = "1234567", MarkedFraction[] = "89";
constexpr char16_t MarkedUnits[] = u"Zqx";

// A record of the list with the marker in every text and amount.
RecordBuffer Marked(int list) {
    RecordBuffer record = {};
    InitRow(list, &record);
    const RecordFields fields = FieldsOfList(list);
    for (const Field &field : std::span(fields.Rows, static_cast<size_t>(fields.Count))) {
        if (field.Type == FieldType::Text32)
            std::memcpy(record.Bytes + field.Offset, MarkedUnits, sizeof MarkedUnits);
        if (field.Type == FieldType::Amount)
            std::memcpy(record.Bytes + field.Offset, &MarkedAmount, sizeof MarkedAmount);
    }
    return record;
}

class Cover : public FullDevice {
protected:
    Cover() {
        SetPassCode("1234");
        SendKey(Key::Help);
    }

    // Every file: nothing marked in it; every record of a file under the key: sealed by it, one by one.
    void ExpectCovered() const {
        auto files = Snapshot(root.HostPath("\\Program Files"));
        files["the journal"] = ReadBytes(root.HostPath("\\Program Files\\Zentrik\\E1_Journal"));
        const int64_t negative = -MarkedAmount;
        for (const auto &[path, bytes] : files) {
            const std::string name = fs::path(path).filename().string();
            if (name == "E1_03CON" || name == "CHART" || name == "COL")
                continue;
            EXPECT_FALSE(Contains(bytes, MarkedUnits, sizeof MarkedUnits - 2)) << path << " holds the text";
            EXPECT_FALSE(Contains(bytes, &MarkedAmount, 8) || Contains(bytes, &negative, 8)) << path << " the amount";
            if (name.substr(0, 4) != "E1_0")
                continue;
            ExpectSealed(name, static_cast<FileKind>(name[4] - '0'), bytes);
        }
    }
    static void ExpectSealed(const std::string &name, FileKind kind, Bytes bytes) {
        const auto size = static_cast<size_t>(RecordSize(kind));
        EXPECT_EQ(bytes.size() % size, 0U) << name;
        for (size_t at = 0; at + size <= bytes.size(); at += size)
            EXPECT_TRUE(DecipherUnder(state.CurrentKey, kind, &bytes[at])) << name << ", record " << at / size + 1;
    }
};

void Tick() {
    SendCommand(CommandTick);
}
// What a command or a key does to a row, from 1, of a list or of the one shown.
template <typename What> void ToRow(int position, What what, int list = 0) {
    if (list)
        ShowScreen(list);
    state.SelectedPos[state.CurrentScreen] = position;
    if constexpr (std::is_same_v<What, Key>)
        SendKey(what);
    else
        SendCommand(what);
}
void FillEntry(int field = TitleField) {
    SetText(field, MarkedText);
    SetText(WholeField, MarkedWhole);
    SetText(FractionField, MarkedFraction);
}
void NewEntry(int field = TitleField) {
    SendCommand(CommandNew);
    FillEntry(field);
}
void AddMarked() {
    for (const int list : {AccountList, RecurringList, TemplateList, BinList, CategoryList, ConversionList})
        EXPECT_TRUE(AsAction([=] { EXPECT_GT(AddBytes(Place{list}, 99, Marked(list)), 0); }));
    for (const View view : {View::Live, View::Archive})
        EXPECT_TRUE(AsAction([=] { EXPECT_GT(AddBytes(RowsOf(1, view), 2, Marked(TransactionList)), 0); }));
}
void Import() {
    EXPECT_TRUE(AsAction([] { EXPECT_EQ(ImportQIFFile(LiveRows(2), "\\in.qif", 0, u"", nullptr), ImportDone); }));
}
void NewRow(int list, int field) {
    ShowScreen(list);
    NewEntry(field);
    Choose(AccountField, 1);
    Tick();
}

// Each changes something, in the account shown unless it says otherwise.
const struct {
    const char *Name;
    void (*Do)();
} Steps[] = {
    {"every field of every kind", AddMarked},
    {"an entry",
     [] {
         OpenRow(1);
         NewEntry();
         Tick();
     }},
    {"a transfer",
     [] {
         NewEntry();
         Choose(TransferField, 2);
         Tick();
     }},
    {"an entry before the others",
     [] {
         NewEntry();
         SetDate(DateField, 2026, 1, 20);
         Tick();
     }},
    {"an entry changed",
     [] {
         ToRow(4, CommandModify);
         FillEntry();
         Tick();
     }},
    {"a stroke", [] { StrokeRow(3); }},
    {"a Reconcile entry",
     [] {
         ToRow(2, CommandInsertReconcile);
         Tick();
     }},
    {"a Day marker", [] { ToRow(2, CommandInsertDay); }},
    {"into the bin", [] { ToRow(5, Key::Delete); }},
    {"and back", [] { ToRow(3, Key::Drop2, BinList); }},
    {"a filter", [] { ToRow(2, ExcludeName, TransactionList); }},
    {"no filter", [] { SendCommand(CommandFilterOff); }},
    {"a template of an entry", [] { ToRow(5, Key::Drop5); }},
    {"archived", [] { ToRow(6, CommandArchive, TransactionList); }},
    {"the archive filtered",
     [] {
         SendKey(Key::Header);
         ToRow(2, ExcludeName);
     }},
    {"unarchived",
     [] {
         SendCommand(CommandFilterOff);
         ToRow(2, CommandUnarchive);
     }},
    {"a range deleted", [] { ToRow(3, CommandDeletePreceding); }},
    {"an import", Import},
    {"a template", [] { NewRow(TemplateList, TitleField); }},
    {"a category", [] { NewRow(CategoryList, DescriptionField); }},
    {"a conversion", [] { NewRow(ConversionList, FromField); }},
    {"an item", [] { NewRow(RecurringList, TitleField); }},
    {"a note",
     [] {
         SendCommand(CommandNotepad);
         SetText(TextField, MarkedText);
         Tick();
     }},
    {"an account", [] { NewRow(AccountList, TextField); }},
    {"an account moved", [] { ToRow(1, Key::RowDown, AccountList); }},
    {"a Total marker", [] { StrokeRow(2); }},
    {"an account deleted", [] { ToRow(5, Key::Delete); }},
    {"due items",
     [] {
         QuitProgram();
         SetClock(2026, 5, 2);
         ASSERT_TRUE(StartProgram());
         TapDigits("1234");
     }},
    {"another code", [] { SetPassCode("4321"); }},
    {"the bin emptied",
     [] {
         ShowScreen(BinList);
         SendCommand(CommandEmptyBin); // asks
         SendCommand(CommandEmptyBin);
     }},
};

} // namespace

TEST_F(Cover, WhateverTheOwnerDoesNothingStandsPlain) {
    const std::string qif = "!Type:Bank\nD12/2/2026\nT-1234567.89\nPZqx\nMZqx\n^\n";
    WriteBytes(root.HostPath("\\in.qif"), {qif.begin(), qif.end()});
    machine.Rests = false; // the journal keeps what was done
    for (const auto &step : Steps) {
        SCOPED_TRACE(step.Name);
        const auto before = Snapshot(root.DataFile(""));
        step.Do();
        EXPECT_EQ(state.ActiveDialog, NoDialog) << Lines();
        EXPECT_FALSE(Snapshot(root.DataFile("")) == before) << "nothing was done: " << Lines();
        ExpectCovered();
        if (HasFailure())
            return;
    }
    SendCommand(CommandPasswordOff);
    const Bytes plain = ReadBytes(root.DataFile("E1_05FAV"));
    EXPECT_TRUE(Contains(plain, MarkedUnits, sizeof MarkedUnits - 2) && Contains(plain, &MarkedAmount, 8))
        << "else in vain";
}
