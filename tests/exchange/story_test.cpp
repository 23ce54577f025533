// An owner drops a statement into the device's root and takes it into the account, and sends an account out.
#include "drawing/colours.h"
#include "exchange_test.h"
#include "forms/forms.h"
#include "platform/history.h"
#include "resources/deeds.h"
#include <filesystem>
#include <set>

namespace {

class Story : public Device {
protected:
    Story() { ShowScreen(TransactionList); }
    void OpenImport(const std::string &format = "") {
        ASSERT_TRUE(SendCommand(CommandImport));
        ASSERT_EQ(form.Resource, 136);
        if (!format.empty()) {
            EXPECT_TRUE(Choose(FormatField, format));
        }
    }
    std::string FileThatIs(const std::string &name) { return TextOf(root.HostPath("\\" + name)); }
    // The lines of the report as they stand under the list, with their inks.
    std::vector<StandingText> Report() { return TextsIn(ListWindow, {0, 150, 240, 262}); }
};

constexpr const char *Statement = "<OFX><STMTTRN><DTPOSTED>20260305<TRNAMT>-12.00<NAME>Cafe</STMTTRN>"
                                  "<STMTTRN><DTPOSTED>20260315<TRNAMT>1200.00<NAME>Wages</STMTTRN>"
                                  "<STMTTRN><DTPOSTED>20261399<TRNAMT>1.00<NAME>Never</STMTTRN></OFX>";

TEST_F(Story, AStatementDroppedIntoTheRootComesIntoTheAccount) {
    PutFile(root, "March.OFX", Statement);
    PutFile(root, "april.ofx", Statement);
    PutFile(root, "a.b.qif", "!Type:Bank\n");
    PutFile(root, "noextension", "");
    std::filesystem::create_directory(root.HostPath("\\folder.qif"));
    OpenImport();
    EXPECT_EQ(Lines(), "/Select a file to import new entries/eg an on-line statement file/downloaded from your bank//");
    EXPECT_EQ(ControlItems(FormatField), (std::vector<std::string>{" qif", " ofx", " csv"}));
    EXPECT_EQ(ControlItems(FileField), std::vector<std::string>{"a.b"});
    EXPECT_EQ(ControlText(SecurityField), "<not applicable>");
    EXPECT_EQ(state.DateOption, 2);
    Choose(FormatField, " ofx");
    EXPECT_EQ(ControlItems(FileField), (std::vector<std::string>{"april", "March"}));
    Choose(FileField, "March");
    Tick();
    EXPECT_EQ(form.Resource, 0);
    // Newer than the Visa payment of 9 March: one entry; one has no date. The window opens to say so.
    EXPECT_EQ(Entries(), "Opening balance,ATM,Rent,Monday,Visa payment,Wages");
    EXPECT_EQ(state.SelectedPos[TransactionList], 6);
    EXPECT_EQ(state.HelpMode, 0u);
    ASSERT_EQ(state.MessageWindowOn, 1u);
    const std::vector<StandingText> report = Report();
    ASSERT_EQ(report.size(), 11u);
    const struct {
        const char *Words;
        Colour Ink;
    } lines[] = {{"1", Rgb(0, 128, 0)},
                 {"entries imported (well formed)", Rgb(0, 128, 0)},
                 {"0", 0},
                 {"entries imported (badly formed)", 0},
                 {"1", Rgb(180, 180, 180)},
                 {"entries skipped (as requested)", Rgb(180, 180, 180)},
                 {"1", InkOn(White, AlertRed)},
                 {"entries skipped (unreadable)", InkOn(White, AlertRed)},
                 {"0", 0},
                 {"entries skipped (file too big)", 0},
                 {"Summary:      Imported 1 of 3", 0}};
    for (size_t n = 0; n < report.size(); ++n) {
        EXPECT_EQ(report[n].Words, lines[n].Words);
        EXPECT_EQ(report[n].InkColour, lines[n].Ink) << report[n].Words;
    }
    SendKey(Key::Help);
    SendKey(Key::Help);
    EXPECT_EQ(state.MessageWindowOn, 0u);
    // All of it, by the buttons; then the day shown.
    OpenImport(" ofx");
    TapPart(FirstChoiceItem);
    EXPECT_EQ(Lines(), "/To import all entries in the file////");
    Tick();
    EXPECT_EQ(Entries(), "Opening balance,ATM,Rent,Monday,Cafe,Visa payment,Wages,Wages");
    OpenImport(" ofx");
    TapPart(ThirdChoiceItem);
    EXPECT_EQ(Lines(), "/To only import entries with dates/equal to or later than the date shown///");
    SetDate(DateField, 2026, 3, 15);
    Tick();
    EXPECT_EQ(Entries(), "Opening balance,ATM,Rent,Monday,Cafe,Visa payment,Wages,Wages,Wages");
    QuitProgram();
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(Rows().size(), 9u);
}

TEST_F(Story, WhatCannotComeInIsToldAndLosesNothing) {
    OpenImport();
    EXPECT_EQ(ControlText(FileField), "<no files>");
    const int beeps = machine.Beeps;
    Tick();
    EXPECT_EQ(Line(1), "No files found in the specified format!");
    EXPECT_GT(machine.Beeps, beeps);
    EXPECT_EQ(form.Resource, 136);
    Cross();
    const auto files = Snapshot(root.DataFile(""));
    PutFile(root, "a.qif", "!Type:Invst\nD1/3/2026\nNBuy\n^\n");
    PutFile(root, "b.qif", "!Type:Oth A\nD1/3/2026\n^\n");
    OpenImport();
    Tick();
    EXPECT_EQ(Lines(), "Incompatible data types!/Zentrik account contains:/non investment items (eg cheques)/"
                       "Import file contains:/investment items (eg shares)/See user manual for further details");
    EXPECT_EQ(state.MessageWindowOn, 1u);
    OpenImport();
    Choose(FileField, "b");
    Tick();
    EXPECT_EQ(Line(4), "unsupported items");
    // Gone between the listing and the tick.
    OpenImport();
    std::filesystem::remove(root.HostPath("\\a.qif"));
    Tick();
    EXPECT_EQ(Line(1), "Source data is invalid");
    EXPECT_EQ(form.Resource, 136);
    EXPECT_EQ(ControlItems(FileField), std::vector<std::string>{"b"});
    // A disk that takes nothing.
    PutFile(root, "c.qif", "!Type:Bank\nD1/4/2026\nT5\n^\n");
    Cross();
    OpenImport();
    Choose(FileField, "c");
    disk.Switches.Unwritable = true;
    Tick();
    EXPECT_EQ(Line(1), "Warning!");
    EXPECT_EQ(form.Resource, 136);
    EXPECT_EQ(Snapshot(root.DataFile("")), files);
    ResetDisk();
    Tick();
    EXPECT_EQ(form.Resource, 0);
    EXPECT_EQ(Rows().size(), 6u);
}

TEST_F(Story, WhatTheMachineWillNotReadIsToldByWhatItIs) {
    PutFile(root, "a.ofx", Statement);
    const auto files = Snapshot(root.DataFile(""));
    std::set<std::string> told;
    OpenImport(" ofx");
    for (int n = 1; form.Resource == 136; ++n) {
        SCOPED_TRACE(n);
        EXPECT_EQ(Snapshot(root.DataFile("")), files);
        if (n > 1)
            told.insert(Line(1) + "/" + Line(2));
        WithFailingDisk({.FailRead = n}, [&] { Tick(); });
    }
    EXPECT_EQ(told, (std::set<std::string>{"Source data is invalid/", "Warning!/Can't read xx_Data directory"}));
    EXPECT_EQ(Rows().size(), 6u);
    EXPECT_EQ(UndoLabel(), static_cast<int>(Deed::Imported));
    SendKey(Key::Undo);
    EXPECT_EQ(Rows().size(), 5u) << "an import is one action";
    // The root and the lists; an account that can't be read opens no form.
    told.clear();
    for (int n = 1;; ++n) {
        SCOPED_TRACE(n);
        const bool met = WithFailingDisk({.FailOpen = n}, [&] { SendCommand(CommandImport); });
        told.insert(Line(1));
        Cross();
        if (!met)
            break;
    }
    EXPECT_EQ(told,
              (std::set<std::string>{"Warning!", "Source data is invalid", "Select a file to import new entries"}));
}

TEST_F(Story, TheSecurityOfTheAccountIsTheOneProposed) {
    MakeAccount("Glaxo", ShareRow);
    PutFile(root, "a.qif",
            "!Type:Invst\nD1/3/2026\nNBuy\nYIBM\nI1\nQ1\n^\nD1/3/2026\nNBuy\nYGlaxo\nI2\nQ2\n^\nD1/3/2026\n"
            "YIBM\n^\n");
    PutFile(root, "b.qif", "!Type:Bank\nD1/3/2026\nYIBM\n^\n");
    OpenImport();
    EXPECT_EQ(ControlItems(SecurityField), (std::vector<std::string>{"IBM", "Glaxo"}));
    EXPECT_EQ(ControlText(SecurityField), "Glaxo");
    Choose(FileField, "b");
    EXPECT_EQ(ControlText(SecurityField), "<not applicable>");
    Choose(FileField, "a");
    TapPart(FirstChoiceItem);
    Tick();
    EXPECT_EQ(Fields(Rows(state.CurAccount.ID).front(), "Units Value"), "2, 2000");
    EXPECT_EQ(state.ImportCount[2], 2);
}

TEST_F(Story, AnAccountGoesOutUnderTheNameSuggested) {
    MakeAccount("My Acc/1", BankRow);
    ASSERT_TRUE(SendCommand(CommandExport));
    ASSERT_EQ(form.Resource, 137);
    EXPECT_EQ(Lines(), "/Specify a file for exported entries/or use the file name suggested///");
    EXPECT_EQ(Shown({TextField, FormatField}), "Acc_My_Acc_1,  csv");
    Tick();
    EXPECT_EQ(
        FileThatIs("Acc_My_Acc_1.csv"),
        "2/3/2026,Opening balance,,1,0.000,0.000,F,n,0.000\n2/3/2026,Monday,Auto generated,0,0,0.000,F,t,0.000\n");
    ShowScreen(AccountList);
    TapRow(1);
    ShowScreen(TransactionList);
    // By the kind value: qif writes QIF, csv nothing, txt CSV.
    const struct {
        const char *Format, *File, *Begins;
    } cases[] = {
        {" qif", "o_t.qif", "!Type:Bank\nD12/2'2026\n"}, {" csv", nullptr, ""}, {" txt", "o_t.csv", "12/2/2026,"}};
    for (const auto &row : cases) {
        const auto before = Snapshot(root.Path());
        SendCommand(CommandExport);
        SetText(TextField, "o t");
        Choose(FormatField, row.Format);
        Tick();
        EXPECT_EQ(form.Resource, 0);
        if (row.File)
            EXPECT_EQ(FileThatIs(row.File).rfind(row.Begins, 0), 0u) << FileThatIs(row.File);
        else
            EXPECT_EQ(Snapshot(root.Path()), before);
    }
    // From the day shown on, and up to it.
    const auto lines = [&](int choice) {
        SendCommand(CommandExport);
        SetText(TextField, "out");
        SetDate(DateField, 2026, 2, 21);
        TapPart(choice);
        Tick();
        const std::string file = FileThatIs("out.csv");
        return std::count(file.begin(), file.end(), '\n');
    };
    EXPECT_EQ(lines(FirstChoiceItem), 5);
    EXPECT_EQ(lines(SecondChoiceItem), 4);
    EXPECT_EQ(lines(ThirdChoiceItem), 2);
    // A root that can't be written: the form stays and says so.
    disk.Switches.Unwritable = true;
    SendCommand(CommandExport);
    Tick();
    EXPECT_EQ(Line(1), "The file can't be written!");
    EXPECT_EQ(form.Resource, 137);
    SetText(TextField, "");
    Tick();
    EXPECT_EQ(form.Resource, 137);
    ResetDisk();
    Cross();
    EXPECT_EQ(state.CurrentScreen, TransactionList);
}

TEST_F(Story, AFilteredAccountTakesNothingButGoesOutAsItShows) {
    TapRow(2);
    ASSERT_TRUE(SendCommand(ShowName));
    ASSERT_EQ(state.FilterShown, 1u);
    EXPECT_FALSE(SendCommand(CommandImport)) << "it is greyed";
    EXPECT_EQ(OpenImportForm(), 0);
    ASSERT_TRUE(SendCommand(CommandExport));
    SetText(TextField, "out");
    Tick();
    EXPECT_EQ(FileThatIs("out.csv").rfind("21/2/2026,ATM", 0), 0u);
    EXPECT_EQ(FileThatIs("out.csv").find("Rent"), std::string::npos);
}

TEST_F(Story, FromTheGraphTheFormsLeadBackToTheGraph) {
    PutFile(root, "a.ofx", Statement);
    ShowScreen(GraphList);
    state.GraphMode = 1;
    ASSERT_EQ(state.CurrentScreen, GraphList);
    SendCommand(CommandFilterOff); // the greys follow the mode
    ASSERT_TRUE(SendCommand(CommandImport));
    Choose(FormatField, " ofx");
    Tick();
    EXPECT_EQ(state.CurrentScreen, GraphList);
    EXPECT_EQ(Rows().size(), 6u);
}

} // namespace
