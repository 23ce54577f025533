// The forms of templates, recurring items, conversions, categories; the notepad and the settings.
#include "device.h"
#include "ledger/dialogs/forms.h"
#include "store/windows.h"

using namespace testhost;

namespace {

class ListForms : public Device {
protected:
    std::vector<FRec> Templates() { return RecordsIn<FRec>(root, "E1_05FAV"); }
    std::vector<DDRec> Items() { return RecordsIn<DDRec>(root, "E1_04DD"); }
    std::vector<CurRec> Conversions() { return RecordsIn<CurRec>(root, "E1_08CUR"); }
    std::vector<CatRec> Categories() { return RecordsIn<CatRec>(root, "E1_07CAT"); }
    DDRec Item(const std::string &name) {
        for (const DDRec &item : Items())
            if (Utf8(item.Name) == name)
                return item;
        ADD_FAILURE() << name;
        return {};
    }
    int PositionOfItem(const std::string &name) {
        int position = 0;
        for (const DDRec &item : Items()) {
            ++position;
            if (Utf8(item.Name) == name)
                return position;
        }
        return 0;
    }
};

TEST_F(ListForms, ATemplateIsKeptAsItWasEnteredAndInTheOrderMade) {
    const uint32_t purse = MakeAccount("Purse", BankRow);
    const size_t before = Templates().size();
    New(TemplateList);
    EXPECT_EQ(Lines(), "This view allows you to enter new/details for a template/Tap an item on the screen/for "
                       "information on that item/Tap 'tick' or 'cross' below to exit/");
    SetText(TitleField, "Wages");
    SetText(WholeField, "1200");
    SetText(FractionField, "125");
    ASSERT_TRUE(Choose(MultiplierField, "Cash"));
    SetText(TextField, "monthly");
    ASSERT_TRUE(Choose(TransferField, "Purse"));
    Choose(CategoryField, 2);
    TapPartOf(SecondSignItem);
    TapPartOf(FreeItem);
    Tick();
    ASSERT_EQ(Templates().size(), before + 1);
    FRec made = Templates().back();
    EXPECT_EQ(Utf8(made.Name), "Wages");
    EXPECT_EQ(made.Value, 1200125);
    EXPECT_EQ(made.Cash, 1u);
    EXPECT_EQ(made.Units, -1);
    EXPECT_EQ(made.NoCash, 1u);
    EXPECT_EQ(made.Transfer, purse);
    EXPECT_EQ(made.CatID, Categories()[1].CatID);
    EXPECT_EQ(Utf8(made.Memo), "monthly");
    // Another made from it: the list offers all but itself.
    New(TemplateList);
    SetText(TitleField, "Second");
    Tick();
    const int last = static_cast<int>(Templates().size());
    Modify(TemplateList, last);
    EXPECT_EQ(Line(0), "This view allows you to modify");
    EXPECT_EQ(ControlItems(TitleField).size(), static_cast<size_t>(last) - 1);
    ASSERT_TRUE(Choose(TitleField, "Wages"));
    EXPECT_EQ(ControlText(MultiplierField), "Cash");
    EXPECT_EQ(ControlText(FractionField), "125");
    EXPECT_EQ(ControlText(TransferField), "Purse");
    SetText(MultiplierField, "two");
    SetText(TransferField, "nobody");
    Tick();
    made = Templates().back();
    EXPECT_EQ(Utf8(made.Name), "Wages");
    EXPECT_EQ(made.Cash, 0u);
    EXPECT_EQ(made.Units, 0);
    EXPECT_EQ(made.Transfer, 0u);
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
    const uint32_t purse = MakeAccount("Purse", BankRow), savings = MakeAccount("Savings", BankRow);
    New(RecurringList);
    EXPECT_EQ(Line(1), "details for a recurring entry");
    EXPECT_EQ(ControlText(CountField), "1");
    EXPECT_EQ(ControlText(UnitField), "Month(s)");
    EXPECT_EQ(ControlText(RemainingField), "For ever");
    EXPECT_EQ(state.FirstSign, 0u);
    SetText(TitleField, "Rent");
    SetDate(DateField, 2026, 8, 31);
    SetText(WholeField, "750");
    ASSERT_TRUE(Choose(AccountField, "Purse"));
    TapPartOf(NextItem);
    EXPECT_EQ(Lines(), "/Thereafter, the default amount (3 bars)/will be used///");
    EXPECT_EQ(ControlText(WholeField), "0");
    EXPECT_EQ(state.FirstSign, 0u);
    SetText(WholeField, "800");
    SetText(MultiplierField, "2");
    ASSERT_TRUE(Choose(TransferField, "Savings"));
    TapPartOf(DefaultItem);
    EXPECT_EQ(Lines(), "/The above amount will be used next////");
    EXPECT_EQ(ControlText(WholeField), "750");
    EXPECT_EQ(ControlText(TransferField), "<none>");
    Tick();
    const DDRec made = Item("Rent");
    EXPECT_EQ(made.Block[0].Value, -750000);
    EXPECT_EQ(made.Block[0].Units, 1);
    EXPECT_EQ(made.Block[0].Account, purse);
    EXPECT_EQ(made.Block[0].Transfer, 0u);
    EXPECT_EQ(made.Block[1].Value, -800000);
    EXPECT_EQ(made.Block[1].Units, 2);
    EXPECT_EQ(made.Block[1].Account, purse); // tied
    EXPECT_EQ(made.Block[1].Transfer, savings);
    EXPECT_EQ(made.DayWanted, 31);
    EXPECT_EQ(made.Rank, EntryRank);
    EXPECT_EQ(made.TotalCount, ForEver);
    EXPECT_EQ(Utf8(made.PeriodUnit), "Month(s)");
    EXPECT_EQ(made.ItemStatus, 0u);
}

TEST_F(ListForms, APeriodOfAnyTextIsTakenForWhatCanBeReadOfIt) {
    MakeAccount("Purse", BankRow);
    constexpr struct {
        const char *Count, *Unit, *Remaining;
        int32_t PeriodCount, Total;
    } cases[] = {
        {"3", "Week(s)", "12", 3, 12},   {"abc", "Day(s)", "abc", 0, 0},
        {"--2", "Year(s)", "--2", 0, 0}, {"123456789", "Day(s)", "For ever", 12345678, ForEver},
        {"-4", "Month(s)", "-5", 4, 5},  {"", "Month(s)", "", 0, 0},
    };
    for (const auto &row : cases) {
        New(RecurringList);
        SetText(TitleField, "Period");
        SetDate(DateField, 2030, 1, 31);
        SetText(CountField, row.Count);
        ASSERT_TRUE(Choose(UnitField, row.Unit));
        SetText(RemainingField, row.Remaining);
        Tick();
        const DDRec made = Item("Period");
        EXPECT_EQ(made.PeriodCount, row.PeriodCount) << row.Count;
        EXPECT_EQ(made.TotalCount, row.Total) << row.Remaining;
        EXPECT_EQ(made.Remaining, row.Total) << row.Remaining;
        EXPECT_EQ(Utf8(made.PeriodUnit), row.Unit);
        state.SelectedPos[RecurringList] = PositionOfItem("Period");
        SendCommand(CommandDeleteOne);
    }
}

TEST_F(ListForms, AnItemChangedKeepsItsWantedDayAndItsPlaceByDate) {
    MakeAccount("Purse", BankRow);
    for (const int day : {28, 20}) {
        New(RecurringList);
        SetText(TitleField, "Day " + std::to_string(day));
        SetDate(DateField, 2027, 2, day);
        ASSERT_TRUE(Choose(AccountField, "Purse"));
        SetText(RemainingField, "2");
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
    Show(AccountList);
    Modify(RecurringList, PositionOfItem("Day 28"));
    EXPECT_EQ(state.BlockIndex, 1);
    EXPECT_EQ(ControlText(RemainingField), "0");
    SetText(RemainingField, "6");
    Tick();
    EXPECT_EQ(Item("Day 28").DayWanted, 31);
    EXPECT_EQ(Item("Day 28").FirstDone, 1);
    EXPECT_EQ(Item("Day 28").Remaining, 6);
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
        FixedAmount Rate, Inverse;
    } cases[] = {
        {"2", "", true, false, 2000, 500},    {"3", "", true, false, 3000, 333},
        {"0", "", true, false, 0, 0},         {"-3", "", true, false, 3000, 333},
        {"3", "", false, false, -3000, -333}, {"0", "333", true, true, 3003, 333},
        {"abc", "", true, false, 0, 0},       {"99999999", "999", true, false, 99999999999, 0},
    };
    for (const auto &row : cases) {
        New(ConversionList);
        if (row.Reversed)
            TapPartOf(DirectionItem);
        ASSERT_TRUE(Choose(FromField, "USD (USA) Dollar"));
        SetText(ToField, "shells");
        SetText(WholeField, row.Whole);
        SetText(FractionField, row.Fraction);
        if (!row.Plus)
            TapPartOf(FirstSignItem);
        TapPartOf(FlagItem);
        Tick();
        const CurRec made = Conversions().back();
        EXPECT_EQ(made.Rate, row.Rate) << row.Whole;
        EXPECT_EQ(made.InverseRate, row.Inverse) << row.Whole;
        EXPECT_EQ(Utf8(row.Reversed ? made.ToName : made.FromName), "USD (USA) Dollar");
        EXPECT_EQ(Utf8(row.Reversed ? made.FromName : made.ToName), "shells");
        EXPECT_EQ(made.DirectionState, row.Reversed);
        EXPECT_EQ(made.ColourFlag, 1u);
    }
}

TEST_F(ListForms, TurningAConversionRoundTwiceLeavesItAsItWas) {
    New(ConversionList);
    EXPECT_EQ(ControlItems(FromField).size(), 75u);
    ASSERT_TRUE(Choose(FromField, "GBP (UK) Pound"));
    ASSERT_TRUE(Choose(ToField, "EUR (European Union) Euro"));
    SetText(WholeField, "3");
    SetText(TextField, "May");
    Tick();
    const int last = static_cast<int>(Conversions().size());
    const auto before = Snapshot(root.Path());
    Modify(ConversionList, last);
    TapPartOf(DirectionItem);
    EXPECT_EQ(Lines(), "/Tap this item/to reverse the conversion///");
    EXPECT_EQ(ControlText(FromField), "EUR (European Union) Euro");
    EXPECT_EQ(ControlText(WholeField), "0");
    EXPECT_EQ(ControlText(FractionField), "333");
    TapPartOf(DirectionItem);
    EXPECT_EQ(ControlText(WholeField), "3");
    Tick();
    EXPECT_EQ(Snapshot(root.Path()), before);
    Modify(ConversionList, last);
    TapPartOf(DirectionItem);
    Tick();
    EXPECT_EQ(Conversions().back().DirectionState, 1u);
    EXPECT_EQ(Conversions().back().Rate, 3000);
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
    EXPECT_EQ(ColourIn(ListWindow, {0, 0, 240, 205},
                       Rgb(static_cast<int>(made.Red), static_cast<int>(made.Green), static_cast<int>(made.Blue))),
              true);
    const int last = static_cast<int>(before) + 1;
    Modify(CategoryList, last);
    SetText(TextField, "Hobby");
    SetText(DescriptionField, "boats");
    TapPartOf(UpItem); // commits
    EXPECT_EQ(Line(3), "or previous category respectively");
    EXPECT_EQ(ControlText(TextField), Utf8(Categories()[before - 1].Name));
    SendKey(Key::Down);
    EXPECT_EQ(ControlText(TextField), "Hobby");
    SendKey(Key::Down);
    EXPECT_EQ(ControlText(TextField), Utf8(Categories()[0].Name));
    TapPartOf(UpItem);
    TapPartOf(DuplicateItem);
    SetText(TextField, "Boats");
    Tick();
    ASSERT_EQ(Categories().size(), before + 2);
    EXPECT_EQ(Utf8(Categories()[before].Name), "Hobby");
    EXPECT_EQ(Utf8(Categories()[before + 1].Name), "Boats");
    EXPECT_EQ(Utf8(Categories()[before + 1].Description), "boats");
    EXPECT_NE(Categories()[before + 1].CatID, Categories()[before].CatID);
    EXPECT_EQ(Categories()[before + 1].Red, made.Red);
    // A category that goes leaves its entries with an ID of nothing.
    const uint32_t purse = MakeAccount("Purse", BankRow);
    NewAdvanced();
    ASSERT_TRUE(Choose(CategoryField, "Hobby"));
    Tick();
    const int64_t catID = Rows(purse)[1].CatID;
    EXPECT_EQ(catID, made.CatID);
    Show(CategoryList);
    state.SelectedPos[CategoryList] = last;
    SendCommand(CommandDeleteOne);
    ShowAccount(purse);
    Modify(TransactionList, 2);
    EXPECT_EQ(ControlText(CategoryField), "category deleted");
    SetText(TitleField, "sail");
    Tick();
    EXPECT_EQ(Rows(purse)[1].CatID, catID);
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
    };
    for (const auto &row : cases) {
        ASSERT_TRUE(SendCommand(CommandNotepad));
        SetText(TextField, row.Text);
        Tick();
        ASSERT_TRUE(SendCommand(CommandNotepad));
        EXPECT_EQ(ControlText(TextField), row.Kept);
        EXPECT_EQ(Line(2), "currently limited to 2000 characters");
        SetText(TextField, "crossed out");
        Cross();
        QuitProgram();
        ASSERT_TRUE(StartProgram());
        ASSERT_TRUE(SendCommand(CommandNotepad));
        EXPECT_EQ(ControlText(TextField), row.Kept);
        Cross();
        EXPECT_EQ(ReadBytes(root.DataFile("E1_00NOT")).size(), 2400u);
    }
    ASSERT_TRUE(SendCommand(CommandNotepad));
    SetText(TextField, boats);
    Tick();
    ASSERT_TRUE(SendCommand(CommandNotepad));
    EXPECT_EQ(boats.find(ControlText(TextField)), 0u); // whole characters, as many as fit
    EXPECT_GT(ControlText(TextField).size(), 1800u);
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
    EXPECT_EQ(Lines(), "/Only essential data input fields are/presented initially to new users///");
    Check(FrontPageCheck, false);
    ASSERT_TRUE(Choose(LookAheadField, "14"));
    Tick();
    MakeAccount("Purse", BankRow);
    New(TransactionList);
    EXPECT_EQ(form.Resource, 144);
    Cross();
    QuitProgram();
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.CheckAheadDays, 14);
    EXPECT_EQ(state.NewUserFields, 1u);
    const auto before = Snapshot(root.Path());
    ASSERT_TRUE(SendCommand(CommandGeneral));
    EXPECT_EQ(ControlText(LookAheadField), "14");
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
