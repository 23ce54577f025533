// The owner's hub: read and written on every tab, under forms, enlarged, and over the rates.
#include "frame/form.h"
#include "host/device.h"
#include "screens/hub_face.h"
#include "values/amounts.h"
#include <span>

using namespace testhost;

namespace {

constexpr int PanelTop = 215, PageTop = 26; // on the device

class Hub : public Device {
protected:
    static std::span<const HubKeyPlace> Places() {
        return state.HubState == LargeHub ? std::span<const HubKeyPlace>(CalculatorKeys)
                                          : std::span<const HubKeyPlace>(HubPanel);
    }
    bool TapHub(int key) {
        const int top = state.HubState == LargeHub ? PageTop : PanelTop;
        for (const HubKeyPlace &place : Places())
            if (place.Key == key) {
                Tap((place.Box.Left + place.Box.Right) / 2, top + (place.Box.Top + place.Box.Bottom) / 2);
                return true;
            }
        return false;
    }
    void TypeOnHub(const std::string &digits) {
        for (const char digit : digits)
            EXPECT_TRUE(TapHub(digit == '.' ? +PointKey : digit == 'n' ? +SignKey : digit - '0')) << digits;
    }
    void Open() { SendCommand(CommandHub); }
    void OpenOn(int screen, int position) {
        ShowScreen(screen);
        while (state.SelectedPos[screen] != position)
            SendKey(state.SelectedPos[screen] < position ? Key::Down : Key::Up);
        if (state.HubState == HubClosed)
            Open();
    }
    // Text on the panel's display.
    static std::string Display() { return TextAt(HubWindow, {18, 42, 111, 76}); }
    TRec Entry(int position, uint32_t account = 1) const { return Rows(account).at(static_cast<size_t>(position) - 1); }
};

TEST_F(Hub, EveryKeyIsHitWhereItIsSeenAndNoTwoAreOneAnother) {
    for (const int hub : {+SmallHub, +LargeHub}) {
        state.HubState = hub;
        const Rect whole = hub == SmallHub ? HubPlace : CalculatorPlace;
        for (const HubKeyPlace &place : Places()) {
            EXPECT_EQ(HubHit(place.Box.Left, place.Box.Top), place.Key);
            EXPECT_EQ(HubHit(place.Box.Right - 1, place.Box.Bottom - 1), place.Key);
            EXPECT_LE(place.Box.Right, whole.Right);
            EXPECT_LE(place.Box.Bottom, whole.Bottom - whole.Top);
            for (const HubKeyPlace &other : Places())
                EXPECT_TRUE(&other == &place || other.Hit.Left >= place.Hit.Right ||
                            other.Hit.Right <= place.Hit.Left || other.Hit.Top >= place.Hit.Bottom ||
                            other.Hit.Bottom <= place.Hit.Top)
                    << place.Key << " and " << other.Key;
        }
    }
    static constexpr struct {
        int Hub, X, Y, Key;
    } points[] = {
        {SmallHub, 120, 1, 7},           {SmallHub, 120, 28, 7},         {SmallHub, 120, 29, 4},
        {SmallHub, 120, 53, 4},          {SmallHub, 120, 54, 1},         {SmallHub, 239, 78, BackKey},
        {SmallHub, 120, 0, NoHubKey},    {SmallHub, 120, -1, AboveHub},  {SmallHub, 60, 60, NoHubKey},
        {LargeHub, 59, 110, NoHubKey},   {LargeHub, 60, 101, DivideKey}, {LargeHub, 92, 124, TimesKey},
        {LargeHub, 124, 110, MinusKey},  {LargeHub, 156, 110, PlusKey},  {LargeHub, 189, 110, EqualsKey},
        {LargeHub, 226, 110, EqualsKey}, {LargeHub, 227, 110, NoHubKey}, {LargeHub, 100, 125, NoHubKey},
        {LargeHub, 56, 140, StoreKey},   {LargeHub, 57, 140, 7},         {LargeHub, 100, 170, 5},
        {LargeHub, 143, 200, 3},         {LargeHub, 186, 230, PiKey},    {LargeHub, 50, 50, NextOperatorKey},
    };
    for (const auto &point : points) {
        state.HubState = point.Hub;
        EXPECT_EQ(HubHit(point.X, point.Y), point.Key) << point.Hub << ": " << point.X << "," << point.Y;
    }
    state.HubState = HubClosed;
}

TEST_F(Hub, TheReadArrowTakesWhatTheSelectedRowIsWorth) {
    StrokeRow(4); // below the accounts: a Total marker
    ShowScreen(RecurringList);
    static constexpr struct {
        int Screen, Position;
        const char *Shown; // "" where there is nothing to read
        FixedAmount Value;
    } rows[] = {
        {AccountList, 1, "516.000", 516000},
        {AccountList, 3, "162.030", -162030},
        {AccountList, 4, "", 0},
        {TransactionList, 2, "200.000", -200000},
        {TransactionList, 4, "", 0},
        {TransactionList, 6, "", 0},
        {RecurringList, 1, "2000.000", 2000000},
        {RecurringList, 2, "", 0},
        {TemplateList, 3, "1.700", -1700},
        {CategoryList, 1, "", 0},
        {ConversionList, 4, "2.329", 2329},
        {ConversionList, 6, "", 0},
    };
    for (const auto &row : rows) {
        OpenOn(row.Screen, row.Position);
        state.CalcX = 7000;
        machine.Beeps = 0;
        TapHub(ReadKey);
        const bool reads = *row.Shown;
        EXPECT_EQ(state.CalcX, reads ? row.Value : 7000) << row.Screen << ": " << row.Position;
        EXPECT_EQ(Display(), reads ? row.Shown : "7.000");
        EXPECT_EQ(machine.Beeps, reads ? 0 : 1);
        TypeOnHub("5"); // what was read is a whole number: a digit begins the next
        EXPECT_EQ(state.CalcX, reads ? 5000 : state.CalcX);
    }
    OpenOn(ConversionList, 5);
    SendKey(Key::Stroke);
    TapHub(ReadKey);
    EXPECT_EQ(state.CalcX, 450) << "of the direction that is shown";
    OpenOn(TransactionList, 1);
    Cross();
    SendKey(Key::Delete);
    OpenOn(BinList, 1);
    TapHub(ReadKey);
    EXPECT_EQ(Display(), "964.000");
    OpenOn(AccountList, 2);
    state.ReconciledView = 1;
    TapHub(ReadKey);
    EXPECT_EQ(state.CalcX, Accounts()[1].ClearedBalance);
}

TEST_F(Hub, TheWriteArrowChangesTheRowAndAllThatFollowsFromIt) {
    OpenOn(TransactionList, 2); // of the first account: ATM -200
    TypeOnHub("150.25n");
    TapHub(WriteKey);
    EXPECT_EQ(Fields(Entry(2), "Name Units Value RunTotal"), "ATM, 1, -150250, 813750");
    EXPECT_EQ(TextAt(ListWindow, Row(2, 136)), "150.25 | 813.75");
    EXPECT_EQ(Entry(5).RunTotal, 964000 - 150250 - 248000 - 344980);
    TypeOnHub("9");
    EXPECT_EQ(state.CalcX, 9000) << "after writing a digit begins a new number";
    const auto files = Snapshot(root.Path());
    machine.Beeps = 0;
    OpenOn(TransactionList, 4);
    TapHub(WriteKey); // a Day marker takes nothing
    OpenOn(TransactionList, 6);
    TapHub(WriteKey); // nor does a blank row, a category, an account or the bin
    for (const int screen : {+AccountList, +BinList, +CategoryList}) {
        OpenOn(screen, 1);
        TapHub(WriteKey);
    }
    EXPECT_EQ(machine.Beeps, 5);
    EXPECT_EQ(Snapshot(root.Path()), files);

    OpenOn(RecurringList, 1);
    TapHub(WriteKey);
    EXPECT_EQ(Fields(Read<DDRec>("E1_04DD").at(0), "Units1 Value1 Value2"), "1, 9000, 2500000");
    OpenOn(TemplateList, 4);
    TapHub(WriteKey);
    EXPECT_EQ(Fields(Read<FRec>("E1_05FAV").at(3), "Name Units Value"), "Bus (return), 1, 9000");
    OpenOn(ConversionList, 2);
    TypeOnHub("4");
    TapHub(WriteKey);
    EXPECT_EQ(Fields(Read<CurRec>("E1_08CUR").at(1), "Rate InverseRate"), "4000, 250");
    SendKey(Key::Stroke);
    TypeOnHub("8");
    TapHub(WriteKey);
    EXPECT_EQ(Fields(Read<CurRec>("E1_08CUR").at(1), "Rate InverseRate"), "125, 8000");
    TypeOnHub("0");
    TapHub(WriteKey);
    EXPECT_EQ(Fields(Read<CurRec>("E1_08CUR").at(1), "Rate InverseRate"), "0, 0");
    state.CalcError = 1;
    TapHub(WriteKey);
    EXPECT_EQ(machine.Beeps, 6) << "stars are no value";
    EXPECT_EQ(Display(), "*** ! ***");
}

TEST_F(Hub, AWriteThatFailsAtAnyPlaceIsRefusedAloudAndLosesNothing) {
    OpenOn(ConversionList, 3);
    TypeOnHub("2");
    const auto before = Read<CurRec>("E1_08CUR");
    for (int n = 1;; ++n) {
        machine.Beeps = 0;
        const bool met = WithFailingDisk({.FailAt = n}, [this] { TapHub(WriteKey); });
        const std::string now = Fields(Read<CurRec>("E1_08CUR").at(2), "Rate InverseRate");
        if (!met)
            break;
        EXPECT_TRUE(now == "1580, 632" ? machine.Beeps > 0 : now == "2000, 500") << n << ": " << now;
    }
    EXPECT_EQ(Read<CurRec>("E1_08CUR").size(), before.size());
}

TEST_F(Hub, ShareColumnsTakeAndGiveTheirOwnMeasure) {
    const uint32_t account = MakeAccount("Shares", ShareRow);
    New(TransactionList);
    SendKey(Key::ViewPart);
    Fill({{TitleField, "Buy"}, {WholeField, "4"}, {FractionField, "5"}, {MultiplierField, "10"}});
    Tick();
    static constexpr struct {
        int Kind;
        FixedAmount Read;
        const char *Written; // after writing 7.250
    } columns[] = {
        {ShareValue, 45000, "10, 4500"}, {ShareCash, -45000, "10, 4500"}, {ShareNumber, 10000, "7, 4500"},
        {ShareTotal, 7000, "7, 4500"},   {SharePrice, 4500, "7, 7250"},
    };
    for (const auto &column : columns) {
        OpenOn(TransactionList, 2); // behind the opening balance
        while (state.AccountKind != column.Kind)
            SendKey(Key::Title3);
        TapHub(ReadKey);
        EXPECT_EQ(state.CalcX, column.Read) << column.Kind;
        TypeOnHub("7.25");
        machine.Beeps = 0;
        TapHub(WriteKey);
        EXPECT_EQ(Fields(Entry(2, account), "Units Value"), column.Written) << column.Kind;
        EXPECT_EQ(machine.Beeps, column.Kind > static_cast<int>(SharePrice) ? 1 : 0) << column.Kind;
        state.CalcX = INT64_C(3000000000000); // more shares than a record holds
        if (column.Kind == static_cast<int>(ShareNumber))
            TapHub(WriteKey);
        EXPECT_EQ(Fields(Entry(2, account), "Units Value"), column.Written) << column.Kind;
    }
}

TEST_F(Hub, AReconcileEntryIsMadeAtOnceAndItsTargetSetByTheArrow) {
    OpenRow(1);
    ASSERT_EQ(state.CurrentScreen, TransactionList);
    Open();
    StrokeRow(7);
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    const int position = state.SelectedPos[TransactionList];
    EXPECT_EQ(Fields(Entry(position), "Name Date RowKind Value"), "Reconcile, 2026-03-02, 8, 0");
    const FixedAmount cleared = Accounts()[0].ClearedBalance;
    state.CalcX = cleared - 248000; // the rent explains it
    TapHub(WriteKey);
    EXPECT_EQ(Entry(position).Value, cleared - 248000);
    EXPECT_EQ(state.ReconcileState, ReconcileStep::Solved);
    EXPECT_EQ(state.SelectedCount, 1);
    state.CalcX = 1;
    TapHub(WriteKey);
    EXPECT_EQ(state.ReconcileState, ReconcileStep::Impossible) << "another target is searched anew";
    TapHub(ReadKey);
    EXPECT_EQ(state.CalcX, 1);
    // A solution that is shown is applied before the next entry begins.
    state.CalcX = cleared - 248000;
    TapHub(WriteKey);
    const size_t entries = Rows().size();
    StrokeRow(7);
    EXPECT_EQ(Rows().size(), entries + 1);
    EXPECT_EQ(Entry(3).Cleared, 1u);
}

TEST_F(Hub, AFilterGivesWayToAWrite) {
    OpenRow(1);
    TapRow(2);
    SendCommand(ShowName);
    ASSERT_EQ(Lines().find("Filtering enabled"), 0u);
    Open();
    TypeOnHub("3");
    const auto rows = Rows().size();
    TapHub(WriteKey);
    EXPECT_EQ(state.FilterShown, 0u);
    EXPECT_EQ(Entry(2).Value, -200000);
    EXPECT_EQ(Rows().size(), rows);
}

TEST_F(Hub, UnderAFormThePadIsItsKeyboard) {
    ShowScreen(TransactionList);
    Open();
    New(TransactionList);
    Focus(WholeField);
    SetText(WholeField, "");
    SetText(FractionField, "");
    Focus(WholeField);
    TypeOnHub("128");
    TapHub(BackKey);
    TypeOnHub(".75");
    EXPECT_EQ(Shown({WholeField, FractionField}), "12, 75") << "the point leads on to the fraction";
    EXPECT_EQ(Lines(),
              "HUB is the Zent focus for data control/enabling quick & easy transfer of data/Tap the blue cone "
              "to toggle between/the Zent HUB & the Zent calculator//");
    EXPECT_EQ(state.CalcX, 0) << "the form alone hears it";
    Focus(TitleField);
    TypeOnHub("1.5");
    EXPECT_EQ(ControlText(TitleField), "1.5");
    // The arrows read and write the form's own amount, not the row behind it.
    TapHub(ReadKey);
    EXPECT_EQ(state.CalcX, -12750);
    state.CalcX = 8001;
    TapHub(WriteKey);
    EXPECT_EQ(Shown({WholeField, FractionField}), "8, 001");
    EXPECT_EQ(state.FirstSign, 1u);
    state.CalcX = 100000000000;
    machine.Beeps = 0;
    TapHub(WriteKey);
    EXPECT_EQ(machine.Beeps, 1) << "the box has no room for nine digits";
    EXPECT_EQ(ControlText(WholeField), "8");
    Tick();
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    EXPECT_EQ(state.RowCount, 7) << "the hub stays, and the list leaves it its room";
    EXPECT_EQ(Fields(Entry(Find<TRec>("E1_02A1", "1.5")), "Name Value"), "1.5, 8001");
}

TEST_F(Hub, TheCalculatorHidesAFormAndGivesItBackUntouched) {
    New(TransactionList);
    SetText(WholeField, "3");
    Open();
    SendCommand(CommandHub);
    ASSERT_EQ(state.HubState, LargeHub);
    EXPECT_FALSE(machine.Shown[DialogWindow]);
    TypeOnHub("12");
    SendKey(Key::New);
    SendKey(Key::Down);
    SendKey(Key::Tab1);
    EXPECT_EQ(state.CalcX, 12000);
    EXPECT_EQ(ControlText(WholeField), "3");
    EXPECT_EQ(state.CurrentScreen, TransactionList);
    TapHub(ConversionsKey); // and so do the rates
    ASSERT_TRUE(state.HubPicking);
    EXPECT_FALSE(machine.Shown[DialogWindow]);
    TapHub(ConeKey);
    EXPECT_EQ(state.HubState, LargeHub);
    TapHub(ConeKey);
    EXPECT_EQ(state.HubState, SmallHub);
    EXPECT_TRUE(machine.Shown[DialogWindow]);
    EXPECT_EQ(form.Focus, WholeField);
    SendKey(Key::Escape); // closes the hub before the form
    EXPECT_EQ(state.HubState, HubClosed);
    EXPECT_EQ(state.ActiveDialog, TransactionDialog);
    const auto files = Snapshot(root.Path());
    Open();
    SendCommand(CommandHub);
    Tick(); // nothing is saved unseen
    EXPECT_EQ(Snapshot(root.Path()), files);
    EXPECT_EQ(state.ActiveDialog, TransactionDialog);
    EXPECT_TRUE(machine.Shown[DialogWindow]);
}

TEST_F(Hub, ARateIsPickedIntoTheLineThatIsActive) {
    OpenOn(TransactionList, 2);
    TapHub(ConeKey);
    SendCommand(CommandNew);
    EXPECT_EQ(state.ActiveDialog, NoDialog) << "no form opens unseen";
    TapHub(LineYKey);
    TapHub(ConversionsKey);
    EXPECT_EQ(Lines(), "/Conversion details/are also accessible through/the Zent calculator//");
    EXPECT_EQ(TextAt(TopWindow, {60, 0, 180, 16}), "Conversions");
    TapRow(3);
    TapSlot(1); // no tab leads away from the rates
    SendKey(Key::Tab4);
    SendCommand(CommandNew);
    EXPECT_EQ(state.CurrentScreen, ConversionList);
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    OpenRow(7); // a blank row has no rate
    EXPECT_TRUE(state.HubPicking);
    OpenRow(3);
    EXPECT_FALSE(state.HubPicking);
    EXPECT_EQ(state.CalcY, 1580);
    EXPECT_EQ(state.HubState, LargeHub);
    EXPECT_EQ(state.CurrentScreen, TransactionList);
    TapHub(ConversionsKey);
    Tick(); // ends it without a rate
    EXPECT_EQ(state.HubState, LargeHub);
    EXPECT_EQ(state.CalcY, 1580);
    TapHub(ConversionsKey);
    Cross();
    EXPECT_EQ(state.HubState, HubClosed);
    EXPECT_EQ(state.CurrentScreen, TransactionList);
    EXPECT_EQ(TextAt(TopWindow, {47, 0, 193, 16}), "Current account");
    // Over a conversion's own form the form's row stays the one that it is for.
    Modify(ConversionList, 2);
    Open();
    SendCommand(CommandHub);
    TapHub(ConversionsKey);
    const auto rates = ReadBytes(root.DataFile("E1_08CUR"));
    Drag(60, RowMiddle(2).Y, 60, RowMiddle(5).Y);
    EXPECT_EQ(ReadBytes(root.DataFile("E1_08CUR")), rates);
    OpenRow(5);
    EXPECT_EQ(state.CalcY, 2222);
    TapHub(ConeKey);
    Cross();
    SetText(WholeField, "9");
    Tick();
    EXPECT_EQ(Fields(Read<CurRec>("E1_08CUR").at(1), "ToName Rate"), "EUR (European Union) Euro, 9837");
    EXPECT_EQ(Read<CurRec>("E1_08CUR").at(4).Rate, 2222);
}

TEST_F(Hub, OpenedOnAnyTabItLeavesTheTabsInReachAndClosesWithoutATrace) {
    for (int screen = AccountList; screen <= ConversionList; ++screen) {
        ShowScreen(screen);
        for (const bool help : {false, true}) {
            if (help)
                SendKey(Key::Help);
            const int rows = state.RowCount;
            Open();
            EXPECT_EQ(state.RowCount, 7) << screen;
            EXPECT_EQ(ColourAt(ListWindow, 20, HubPlace.Top - 37), Rgb(255, 255, 255)) << "no row shows under the tabs";
            EXPECT_FALSE(CommandEnabled(CommandNotepad));
            EXPECT_EQ(Lines().substr(0, 38), "HUB is the Zent focus for data control");
            EXPECT_GE(PanelTop, TabMiddle(1).Y + 8) << "the tabs stay in sight";
            SendKey(Key::Help); // the eyes leave the hub where it is
            EXPECT_EQ(state.RowCount, 7);
            EXPECT_TRUE(machine.Shown[HubWindow]);
            SendKey(Key::Help);
            SendCommand(CommandHub);
            EXPECT_TRUE(machine.Shown[HostWindow] && !machine.Shown[HubWindow]);
            SendCommand(CommandHub);
            EXPECT_FALSE(machine.Shown[HostWindow] || machine.Shown[HubWindow]);
            EXPECT_EQ(state.RowCount, rows) << screen;
            EXPECT_TRUE(CommandEnabled(CommandNotepad));
            EXPECT_TRUE(Remains(ListWindow).empty() && Remains(TopWindow).empty()) << screen;
        }
        SendKey(Key::Help);
    }
    state.DataUsable = 0;
    Open();
    EXPECT_EQ(state.HubState, HubClosed) << "where no data are, nothing is there to read";
    state.DataUsable = 1;
    // The lines last until the program ends.
    Open();
    TypeOnHub("42");
    Cross();
    EXPECT_TRUE(ProgramRuns());
    Open();
    EXPECT_EQ(Display(), "42.000");
    SendKey(Key::Digit7);
    SendKey(Key::Backspace);
    SendKey(static_cast<Key>(static_cast<int>(Key::HubKeys) + ConeKey));
    SendEvent({.Kind = EventKind::Character, .Code = '+'});
    SendKey(Key::Digit8);
    SendKey(Key::Enter);
    EXPECT_EQ(TextAt(HostWindow, {80, 67, 232, 95}), "50.000") << "a keyboard works it too";
}

} // namespace
