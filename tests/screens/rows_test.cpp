// What an owner reads in a row.
#include "device.h"
#include "drawing/colours.h"
#include "platform/text.h"
#include "screens/screens.h"
#include "store/index.h"
#include "store/windows.h"

namespace {

struct Ink {
    std::string Words;
    Colour Colours;
};
// The text between two x of the first row.
Ink TextOfFirstRow(int left, int right) {
    const std::vector<StandingText> texts = TextsIn(ListWindow, Row(1, left, right));
    return texts.size() == 1 ? Ink{texts[0].Words, texts[0].InkColour} : Ink{"", 0};
}

// A row with a different number in every field, so that a wrong one shows.
TRec Entry(int kind) {
    TRec row;
    InitTRec(&row);
    row.RowKind = static_cast<uint8_t>(kind);
    CopyText(row.Name, TextRoom, u"Title");
    CopyText(row.Memo, TextRoom, u"Memo");
    row.Units = -3;
    row.ClearedUnits = 4;
    row.Value = 10509;
    row.ClearedValue = 20000;
    row.CashAmount = -7770;
    row.ClearedCashAmount = 1110;
    row.RunUnits = 50;
    row.RunClearedUnits = -60;
    row.RunTotal = 800;
    row.RunCleared = -900;
    return row;
}

enum Made { Plain, Cash, Free, Marker, Deleted, Day };

TEST_F(Device, ShareColumnsShowTheirMeasure) {
    static constexpr struct {
        int Kind, Row, Cleared;
        const char *Text;
        bool Red;
    } cases[] = {
        {BankAccount, Plain, 0, "31.52", true},  {BankAccount, Deleted, 1, "80.00", false},
        {BankAccount, Day, 0, "", false},        {ListAccount, Cash, 0, "7.77", true},
        {ShareNumber, Plain, 0, "3", true},      {ShareNumber, Cash, 0, "Cash", false},
        {ShareNumber, Marker, 1, "4", false},    {ShareNumber, Day, 0, "", false},
        {ShareTotal, Plain, 0, "50", false},     {ShareTotal, Plain, 1, "60", true},
        {ShareTotal, Cash, 0, "", false},        {SharePrice, Plain, 0, "10.509", false},
        {SharePrice, Plain, 1, "20.000", false}, {SharePrice, Free, 0, "", false},
        {SharePrice, Day, 0, "10.509", false},   {ShareValue, Plain, 0, "31.52", false}, // buying is red, selling black
        {ShareValue, Free, 0, "0.00", false},    {ShareValue, Cash, 0, "7.77", true},
        {ShareValue, Marker, 0, "39.29", true},  {ShareCash, Plain, 0, "0.80", false},
        {ShareCash, Plain, 1, "0.90", true},
    };
    OpenRow(1);
    for (const auto &row : cases) {
        static constexpr int KindOf[] = {EntryRow, EntryRow, EntryRow, ArchiveMarker, DeletedMarker, DayMarker};
        const int kind = KindOf[row.Row];
        TRec &shown = state.TranRows[1].Rec = Entry(kind);
        shown.Cash = row.Row == Cash;
        shown.NoCash = row.Row == Free;
        state.AccountKind = row.Kind;
        state.ReconciledView = static_cast<uint32_t>(row.Cleared);
        UpdateTRec(ListWindow, 1, 0);
        const Ink ink = TextOfFirstRow(134, 180);
        EXPECT_EQ(ink.Words, row.Text) << row.Kind << ' ' << row.Row;
        EXPECT_EQ(IsRed(ink.Colours), row.Red) << row.Kind << ' ' << row.Row;
    }
    // Any type that a damaged account may hold is told in the log and shows nothing.
    state.AccountKind = 77;
    machine.Beeps = 0;
    UpdateTRec(ListWindow, 1, 0);
    EXPECT_EQ(TextOfFirstRow(134, 180).Words, "");
    EXPECT_EQ(machine.Beeps, 1);
}

TEST_F(Device, ShareTitlesAreSteppedAndKept) {
    MakeAccount("Shares", ShareRow);
    static constexpr struct {
        const char *Lines, *Title;
        uint32_t Type;
    } steps[] = {
        {"0,224,225,0,0,0", "Cash | total", 6},  {"0,102,101,0,107,127", "Number", 2},
        {"0,103,104,0,0,0", "Share | total", 4}, {"0,210,0,0,0,0", "Price", 3},
        {"0,100,0,0,0,0", "Value", 5},
    };
    for (const auto &step : steps) {
        Tap(156, 50);
        EXPECT_EQ(Ids(), step.Lines);
        EXPECT_EQ(TextAt(TopWindow, {134, 15, 180, 40}), step.Title);
        EXPECT_EQ(Accounts()[3].AccType, step.Type);
        EXPECT_NE(TextAt(TopWindow, {44, 15, 134, 36}).find("Share"), std::string::npos);
    }
    Tap(200, 50);
    Tap(200, 50);
    EXPECT_EQ(Ids(), "0,105,106,0,0,0");
}

TEST_F(Device, TitlesOfMarkersStandWhereTheyAreOfUse) {
    static constexpr struct {
        int Kind, Archive, Ref;
        const char *Text;
        bool Centred;
    } cases[] = {
        {EntryRow, 0, 0, "Title", false},
        {EntryRow, 0, 1, "Memo", false},
        {DayMarker, 0, 1, "Title", true},
        {DayMarker, 1, 1, "Title", true},
        {ArchiveMarker, 0, 1, "Title", true},
        {ArchiveMarker, 1, 1, "Memo", false},
        {DeletedMarker, 0, 1, "Memo", false},
        {DeletedMarker, 1, 1, "Title", true},
        {ReconcileEntry, 0, 1, "Title", true},
        {ReconcileEntry, 1, 1, "Memo", false},
        {99, 0, 0, "Title", false},
    };
    OpenRow(1);
    for (const auto &row : cases) {
        state.TranRows[1].Rec = Entry(row.Kind);
        state.ArchiveView = static_cast<uint32_t>(row.Archive);
        state.RefColumn = static_cast<uint32_t>(row.Ref);
        UpdateTRec(ListWindow, 1, 0);
        const std::vector<StandingText> texts = TextsIn(ListWindow, Row(1, 45, 134));
        ASSERT_EQ(texts.size(), 1U) << row.Kind;
        EXPECT_EQ(texts[0].Words, row.Text) << row.Kind;
        EXPECT_EQ(texts[0].Face == Font::Bold, row.Centred) << row.Kind;
    }
}

TEST_F(Device, BinRowsLookAsTheyDidWhereTheyCameFrom) {
    static constexpr struct {
        int List, Changed; // 1: reconciled, flagged, expired, reversed, in the second block
        int Brush;
        const char *Title, *Value;
        bool Red;
    } cases[] = {
        {AccountList, 0, GoldBrush, "Name", "1.00", false},
        {TransactionList, 0, SilverBrush, "Name", "6.00", true},
        {TransactionList, 1, ReconciledBrush, "Name", "6.00", true},
        {RecurringList, 0, LavenderBrush, "Name", "6.00", true},
        {RecurringList, 1, ExpiredBrush, "Name", "45.00", false},
        {TemplateList, 0, GreenBrush, "Name", "6.00", true},
        {TemplateList, 1, FlaggedBrush, "Name", "6.00", true},
        {ConversionList, 0, ConversionBrush, "From", "3.00", true},
        {ConversionList, 1, ConversionBrush, "To", "9.00", false},
    };
    ShowScreen(TemplateList);
    SendKey(Key::Delete);
    ShowScreen(BinList);
    for (const auto &row : cases) {
        BinRec &shown = state.BinRows[1];
        InitBinRec(&shown);
        shown.SourceList = static_cast<uint32_t>(row.List);
        shown.OwnerID = 1;
        CopyText(shown.Name, TextRoom, u"Name");
        CopyText(shown.FromName, TextRoom, u"From");
        CopyText(shown.ToName, TextRoom, u"To");
        shown.Units = 2;
        shown.Value = -3000;
        shown.Units2 = 5;
        shown.Value2 = 9000;
        shown.Totals[0] = 1000;
        shown.Cleared = static_cast<uint32_t>(row.Changed);
        shown.FirstDone = static_cast<uint8_t>(row.Changed);
        shown.Remaining = !row.Changed;
        UpdateBinRec(ListWindow, 1, 0);
        EXPECT_EQ(ColourAt(ListWindow, 20, 4), BrushColour(row.Brush)) << row.List << row.Changed;
        EXPECT_EQ(TextOfFirstRow(38, 120).Words, row.Title) << row.List << row.Changed;
        const Ink value = TextOfFirstRow(175, 226);
        EXPECT_EQ(value.Words, row.Value) << row.List << row.Changed;
        EXPECT_EQ(IsRed(value.Colours), row.Red) << row.List << row.Changed;
    }
    // What a share entry did to the money is the other way round; one that was free did nothing.
    BinRec &shown = state.BinRows[1];
    shown.SourceList = TransactionList;
    shown.OwnerType = ShareValue;
    UpdateBinRec(ListWindow, 1, 0);
    EXPECT_EQ(TextOfFirstRow(175, 226).Colours, Black);
    shown.Cash = 1;
    shown.CashAmountLow = static_cast<uint32_t>(-2500);
    UpdateBinRec(ListWindow, 1, 0);
    EXPECT_EQ(TextOfFirstRow(175, 226).Words, "2.50");
    EXPECT_TRUE(IsRed(TextOfFirstRow(175, 226).Colours));
}

TEST_F(Device, TroubleWithRecurringItemsIsRed) {
    ShowScreen(RecurringList);
    DDRec &row = state.DDRows[1];
    row.ItemStatus = 3;
    row.Block[0].Account = 99;
    NameItemAccounts();
    UpdateDDRec(ListWindow, 1, 0);
    for (const StandingText &text : TextsIn(ListWindow, Row(1, 0, 38)))
        EXPECT_TRUE(IsRed(text.InkColour));
    EXPECT_EQ(TextOfFirstRow(120, 175).Words, "*** ! ***");
    EXPECT_TRUE(IsRed(TextOfFirstRow(120, 175).Colours));
    TapRow(1);
    EXPECT_EQ(state.MessageLine[2], 204);
    row.Remaining = 0;
    SendKey(Key::Down);
    EXPECT_EQ(ColourAt(ListWindow, 60, 3), BrushColour(ExpiredBrush));
}

TEST_F(Device, AFilteredAccountIsRedInTheAccountList) {
    OpenRow(1);
    TapRow(2);
    ASSERT_TRUE(SendCommand(ShowName));
    ShowScreen(AccountList);
    EXPECT_TRUE(ColourIn(ListWindow, Row(1, 155), BrushColour(RedBrush)));
    EXPECT_FALSE(ColourIn(ListWindow, Row(2, 155), BrushColour(RedBrush)));
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
}

} // namespace
