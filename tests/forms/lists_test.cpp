// The forms of templates, recurring items, conversions, categories; the notepad and the settings.
#include "forms/forms.h"
#include "forms/progress.h"
#include "host/device.h"
#include "store/windows.h"

using namespace testhost;

namespace {

class ListForms : public Device {
protected:
    std::vector<FRec> Templates() { return Read<FRec>("E1_05FAV"); }
    std::vector<CurRec> Conversions() { return Read<CurRec>("E1_08CUR"); }
    std::vector<CatRec> Categories() { return Read<CatRec>("E1_07CAT"); }
    int PositionOfItem(const std::string &name) { return Find<DDRec>("E1_04DD", name); }
    DDRec Item(const std::string &name) {
        const int position = PositionOfItem(name);
        EXPECT_GT(position, 0) << name;
        return position ? Read<DDRec>("E1_04DD")[static_cast<size_t>(position) - 1] : DDRec{};
    }
};

TEST_F(ListForms, ATemplateIsKeptAsItWasEnteredAndInTheOrderMade) {
    const std::string purse = std::to_string(MakeAccount("Purse", BankRow));
    const size_t before = Templates().size();
    New(TemplateList);
    Fill({{TitleField, "Wages"}, {WholeField, "1200"}, {FractionField, "125"}, {TextField, "monthly"}});
    ASSERT_TRUE(Choose(MultiplierField, "Cash") && Choose(TransferField, "Purse") && Choose(CategoryField, 2));
    TapPart(SecondSignItem);
    TapPart(FreeItem);
    Tick();
    ASSERT_EQ(Templates().size(), before + 1);
    const std::string category = std::to_string(Categories()[1].CatID);
    EXPECT_EQ(Fields(Templates().back(), "Name Value Cash Units NoCash Transfer CatID Memo"),
              "Wages, 1200125, 1, -1, 1, " + purse + ", " + category + ", monthly");
    // Another made from it: the list offers all but itself.
    New(TemplateList);
    SetText(TitleField, "Second");
    Tick();
    const int last = static_cast<int>(Templates().size());
    Modify(TemplateList, last);
    EXPECT_EQ(Line(0), "This view allows you to modify");
    EXPECT_EQ(ControlItems(TitleField).size(), static_cast<size_t>(last) - 1);
    ASSERT_TRUE(Choose(TitleField, "Wages"));
    EXPECT_EQ(Shown({MultiplierField, FractionField, TransferField}), "Cash, 125, Purse");
    Fill({{MultiplierField, "two"}, {TransferField, "nobody"}});
    Tick();
    EXPECT_EQ(Fields(Templates().back(), "Name Cash Units Transfer"), "Wages, 0, 0, 0");
    const auto files = Snapshot(root.Path());
    Modify(TemplateList, 1);
    SetText(TitleField, "never");
    Cross();
    EXPECT_EQ(Snapshot(root.Path()), files);
    Modify(TemplateList, last);
    Tick();
    EXPECT_EQ(ReadBytes(root.DataFile("E1_05FAV")), files.at("Program Files/Zentrik/E1_Data/E1_05FAV"));
}

TEST_F(ListForms, ARecurringItemKeepsItsTwoBlocksApart) {
    const std::string purse = std::to_string(MakeAccount("Purse", BankRow)),
                      savings = std::to_string(MakeAccount("Savings", BankRow));
    New(RecurringList);
    EXPECT_EQ(Shown({CountField, UnitField, RemainingField}), "1, Month(s), For ever");
    EXPECT_EQ(state.FirstSign, 0u);
    Fill({{TitleField, "Rent"}, {WholeField, "750"}, {AccountField, "Purse"}});
    SetDate(DateField, 2026, 8, 31);
    TapPart(NextItem);
    EXPECT_EQ(Lines(), "/Thereafter, the default amount (3 bars)/will be used///");
    EXPECT_EQ(ControlText(WholeField), "750"); // until it is changed, the second block is the first
    EXPECT_EQ(state.FirstSign, 0u);
    Fill({{WholeField, "800"}, {MultiplierField, "2"}, {TransferField, "Savings"}});
    TapPart(DefaultItem);
    EXPECT_EQ(Shown({WholeField, TransferField}), "750, <none>");
    Tick();
    const DDRec made = Item("Rent");
    EXPECT_EQ(Fields(made, "Value1 Units1 Account1 Transfer1"), "-750000, 1, " + purse + ", 0");
    EXPECT_EQ(Fields(made, "Value2 Units2 Account2 Transfer2"), // the account is tied
              "-800000, 2, " + purse + ", " + savings);
    EXPECT_EQ(Fields(made, "DayWanted Rank TotalCount PeriodUnit ItemStatus"), "31, 3, 314159, Month(s), 0");
}

TEST_F(ListForms, APeriodOfAnyTextIsTakenForWhatCanBeReadOfIt) {
    constexpr struct {
        const char *Count, *Unit, *Remaining, *Kept;
    } cases[] = {
        {"3", "Week(s)", "12", "3, Week(s), 12, 12"},
        {"abc", "Day(s)", "abc", "0, Day(s), 0, 0"},
        {"--2", "Year(s)", "--2", "0, Year(s), 0, 0"},
        {"123456789", "Day(s)", "For ever", "12345678, Day(s), 314159, 314159"},
        {"-4", "Month(s)", "-5", "4, Month(s), 5, 5"},
        {"", "Month(s)", "", "0, Month(s), 0, 0"},
    };
    for (const auto &row : cases) {
        New(RecurringList);
        SetDate(DateField, 2030, 1, 31);
        Fill({{TitleField, "Period"}, {CountField, row.Count}, {UnitField, row.Unit}, {RemainingField, row.Remaining}});
        Tick();
        EXPECT_EQ(Fields(Item("Period"), "PeriodCount PeriodUnit TotalCount Remaining"), row.Kept);
        state.SelectedPos[RecurringList] = PositionOfItem("Period");
        SendCommand(CommandDeleteOne);
    }
}

TEST_F(ListForms, AnItemChangedKeepsItsWantedDayAndItsPlaceByDate) {
    MakeAccount("Purse", BankRow);
    for (const int day : {28, 20}) {
        New(RecurringList);
        SetDate(DateField, 2027, 2, day);
        Fill({{TitleField, "Day " + std::to_string(day)}, {AccountField, "Purse"}, {RemainingField, "2"}});
        Tick();
    }
    EXPECT_EQ(PositionOfItem("Day 20") + 1, PositionOfItem("Day 28"));
    // As after a month too short for the 31st.
    std::vector<uint8_t> bytes = ReadBytes(root.DataFile("E1_04DD"));
    const size_t at = static_cast<size_t>(PositionOfItem("Day 28") - 1) * sizeof(DDRecFile);
    bytes[at + offsetof(DDRec, DayWanted)] = 31;
    bytes[at + offsetof(DDRec, FirstDone)] = 1;
    bytes[at + offsetof(DDRec, Remaining)] = 0;
    WriteBytes(root.DataFile("E1_04DD"), bytes);
    ShowScreen(AccountList);
    Modify(RecurringList, PositionOfItem("Day 28"));
    EXPECT_EQ(state.BlockIndex, 1);
    EXPECT_EQ(ControlText(RemainingField), "0");
    SetText(RemainingField, "6");
    Tick();
    EXPECT_EQ(Fields(Item("Day 28"), "DayWanted FirstDone Remaining"), "31, 1, 6");
    Modify(RecurringList, PositionOfItem("Day 28"));
    SetDate(DateField, 2027, 2, 3);
    Tick();
    EXPECT_EQ(Item("Day 28").DayWanted, 3);
    EXPECT_EQ(PositionOfItem("Day 28") + 1, PositionOfItem("Day 20"));
    EXPECT_EQ(state.SelectedPos[RecurringList], PositionOfItem("Day 28"));
}

TEST_F(ListForms, ARateIsShownAndKeptWithItsReciprocal) {
    constexpr struct {
        const char *Whole, *Fraction;
        bool Plus, Reversed;
        const char *Rates;
    } cases[] = {
        {"2", "", true, false, "2000, 500"},    {"3", "", true, false, "3000, 333"},
        {"0", "", true, false, "0, 0"},         {"-3", "", true, false, "3000, 333"},
        {"3", "", false, false, "-3000, -333"}, {"0", "333", true, true, "3003, 333"},
        {"abc", "", true, false, "0, 0"},       {"99999999", "999", true, false, "99999999999, 0"},
    };
    for (const auto &row : cases) {
        New(ConversionList);
        if (row.Reversed)
            TapPart(DirectionItem);
        ASSERT_TRUE(Choose(FromField, "USD (USA) Dollar"));
        Fill({{ToField, "shells"}, {WholeField, row.Whole}, {FractionField, row.Fraction}});
        if (!row.Plus)
            TapPart(FirstSignItem);
        TapPart(FlagItem);
        Tick();
        const CurRec made = Conversions().back();
        EXPECT_EQ(Fields(made, "Rate InverseRate"), row.Rates) << row.Whole;
        EXPECT_EQ(Fields(made, "FromName ToName DirectionState ColourFlag"),
                  row.Reversed ? "shells, USD (USA) Dollar, 1, 1" : "USD (USA) Dollar, shells, 0, 1");
    }
}

TEST_F(ListForms, TurningAConversionRoundTwiceLeavesItAsItWas) {
    New(ConversionList);
    EXPECT_EQ(ControlItems(FromField).size(), 75u);
    ASSERT_TRUE(Choose(FromField, "GBP (UK) Pound") && Choose(ToField, "EUR (European Union) Euro"));
    Fill({{WholeField, "3"}, {TextField, "May"}});
    Tick();
    const int last = static_cast<int>(Conversions().size());
    const auto before = Snapshot(root.Path());
    Modify(ConversionList, last);
    TapPart(DirectionItem);
    EXPECT_EQ(Shown({FromField, WholeField, FractionField}), "EUR (European Union) Euro, 0, 333");
    TapPart(DirectionItem);
    EXPECT_EQ(ControlText(WholeField), "3");
    Tick();
    EXPECT_EQ(Snapshot(root.Path()), before);
    Modify(ConversionList, last);
    TapPart(DirectionItem);
    Tick();
    EXPECT_EQ(Fields(Conversions().back(), "DirectionState Rate"), "1, 3000");
    Modify(ConversionList, last);
    EXPECT_EQ(ControlText(FromField), "EUR (European Union) Euro");
}

TEST_F(ListForms, ACategoryIsNamedColouredAndKeptThroughTheCross) {
    const size_t before = Categories().size();
    const std::string proposal = "Cat " + std::to_string(before + 1) + " - ";
    New(CategoryList);
    EXPECT_EQ(ControlText(TextField), proposal);
    Cross();
    ASSERT_EQ(Categories().size(), before + 1); // it was there before its form
    const CatRec made = Categories().back();
    EXPECT_EQ(Utf8(made.Name), proposal);
    EXPECT_GT(made.CatID, 10000);
    EXPECT_TRUE(ColourIn(ListWindow, {0, 0, 240, 205},
                         Rgb(static_cast<int>(made.Red), static_cast<int>(made.Green), static_cast<int>(made.Blue))));
    const int last = static_cast<int>(before) + 1;
    Modify(CategoryList, last);
    Fill({{TextField, "Hobby"}, {DescriptionField, "boats"}});
    TapPart(UpItem); // commits
    EXPECT_EQ(Line(3), "or previous category respectively");
    EXPECT_EQ(ControlText(TextField), Utf8(Categories()[before - 1].Name));
    SendKey(Key::Down);
    EXPECT_EQ(ControlText(TextField), "Hobby");
    SendKey(Key::Down);
    EXPECT_EQ(ControlText(TextField), Utf8(Categories()[0].Name));
    TapPart(UpItem);
    TapPart(DuplicateItem);
    SetText(TextField, "Boats");
    Tick();
    ASSERT_EQ(Categories().size(), before + 2);
    const CatRec hobby = Categories()[before], boats = Categories()[before + 1];
    EXPECT_EQ(Fields(hobby, "Name Description"), "Hobby, boats");
    EXPECT_EQ(Fields(boats, "Name Description"), "Boats, boats");
    EXPECT_NE(boats.CatID, hobby.CatID);
    EXPECT_EQ(Fields(boats, "Red Green Blue"), Fields(made, "Red Green Blue"));
    // A category that goes leaves its entries with an ID of nothing.
    const uint32_t purse = MakeAccount("Purse", BankRow);
    New(TransactionList);
    TapPart(ViewItem);
    ASSERT_TRUE(Choose(CategoryField, "Hobby"));
    Tick();
    EXPECT_EQ(Rows(purse)[1].CatID, made.CatID);
    ShowScreen(CategoryList);
    state.SelectedPos[CategoryList] = last;
    SendCommand(CommandDeleteOne);
    Modify(TransactionList, 2);
    EXPECT_EQ(ControlText(CategoryField), "category deleted");
    SetText(TitleField, "sail");
    Tick();
    EXPECT_EQ(Rows(purse)[1].CatID, made.CatID);
}

TEST_F(ListForms, TheNotepadKeepsWhatFitsAndTheCrossKeepsTheOld) {
    std::string boats; // of two units each
    for (int n = 0; n < 600; ++n)
        boats += "⛵︎😀";
    const struct {
        std::string Text, Kept;
    } cases[] = {
        {"milk\nbread", "milk\nbread"},
        {std::string(1001, 'x'), std::string(999, 'x')},
        {"", ""},
        {std::string(998, 'x') + "😀", std::string(998, 'x')},
        {boats, boats.substr(0, 249 * 10 + 6)}, // whole characters, as many as fit
    };
    for (const auto &row : cases) {
        ASSERT_TRUE(SendCommand(CommandNotepad));
        SetText(TextField, row.Text);
        Tick();
        ASSERT_TRUE(SendCommand(CommandNotepad));
        EXPECT_EQ(ControlText(TextField), row.Kept);
        SetText(TextField, "crossed out");
        Cross();
        QuitProgram();
        ASSERT_TRUE(StartProgram());
        ASSERT_TRUE(SendCommand(CommandNotepad));
        EXPECT_EQ(ControlText(TextField), row.Kept);
        Cross();
        EXPECT_EQ(ReadBytes(root.DataFile("E1_00NOT")).size(), 2400u);
    }
}

TEST_F(ListForms, SettingsHoldAtOnceAndAfterARestart) {
    constexpr struct {
        const char *Days;
        int32_t Kept;
    } cases[] = {{"abc", 7}, {"0", 0}, {"31", 31}, {"", 7}, {"-3", 7}, {"123", 12}};
    for (const auto &row : cases) {
        ASSERT_TRUE(SendCommand(CommandGeneral));
        SetText(LookAheadField, row.Days);
        Tick();
        EXPECT_EQ(state.CheckAheadDays, row.Kept) << row.Days;
    }
    ASSERT_TRUE(SendCommand(CommandGeneral));
    Check(AdvancedCheck, true);
    Check(FrontPageCheck, false);
    SetText(LookAheadField, "60"); // longer than any listed
    Tick();
    New(TransactionList);
    EXPECT_EQ(form.Resource, 144);
    Cross();
    QuitProgram();
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.CheckAheadDays, 60);
    EXPECT_EQ(state.NewUserFields, 1u);
    const auto before = Snapshot(root.Path());
    ASSERT_TRUE(SendCommand(CommandGeneral));
    EXPECT_EQ(ControlText(LookAheadField), "60");
    EXPECT_FALSE(form.Controls[FrontPageCheck].Checked);
    EXPECT_TRUE(form.Controls[AdvancedCheck].Checked);
    Check(FrontPageCheck, true);
    Cross();
    EXPECT_EQ(Snapshot(root.Path()), before);
}

TEST_F(ListForms, ProgressIsShownAsItComes) {
    ASSERT_TRUE(OpenProgressForm(ArchiveDialog));
    EXPECT_EQ(TextAt(DialogWindow, {0, 0, 240, 60}), "ARCHIVING | Please wait");
    state.Restructuring = 1;
    TellProgress(40);
    EXPECT_EQ(TextAt(DialogWindow, {0, 0, 240, 60}), "ARCHIVING | Restructuring ...");
    EXPECT_EQ(form.Controls[ProgressField].Progress, 40);
    SendKey(Key::Escape); // takes no input
    EXPECT_EQ(form.Resource, 141);
    EXPECT_EQ(OpenProgressForm(UnarchiveDialog), 0);
    CloseProgressForm();
    EXPECT_EQ(form.Resource, 0);
    EXPECT_EQ(state.ActiveDialog, NoDialog);
}

} // namespace
