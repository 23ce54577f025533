// Forms on a disk that refuses, and over midnight: what a form is for stays what it is for.
#include "host/device.h"

using namespace testhost;

namespace {

class RefusedForm : public Device {
protected:
    // Each read of the work fails in turn.
    template <typename Work, typename Look> void WithEveryReadFailing(const Work &work, const Look &look) {
        bool met = true;
        for (int n = 1; met; ++n) {
            SCOPED_TRACE(n);
            const int beeps = machine.Beeps;
            met = WithFailingDisk({.FailRead = n}, work);
            look(machine.Beeps > beeps);
        }
    }
};

} // namespace

TEST_F(RefusedForm, AnEntryGoesToItsAccountWhenTheDiskCanBeReadAgain) {
    ShowScreen(AccountList);
    state.SelectedPos[AccountList] = 2;
    ShowScreen(TransactionList);
    const std::string own = Entries(2), first = Entries(1);
    New(TransactionList);
    Fill({{TitleField, "Kept"}, {WholeField, "5"}});
    for (int n = 0; n < 2; ++n)
        WithFailingDisk({.FailOnward = true, .FailRead = 1, .FailOpen = 1}, [this] { Tick(); });
    EXPECT_EQ(ControlText(TitleField), "Kept");
    Tick();
    EXPECT_EQ(form.Resource, 0);
    EXPECT_NE(Find<TRec>("E1_02A2", "Kept"), 0);
    EXPECT_EQ(Rows(2).size(), size_t(std::count(own.begin(), own.end(), ',')) + 2);
    EXPECT_EQ(Entries(1), first);
}

TEST_F(RefusedForm, AFormThatCouldNotBeReadWholeClosesAgain) {
    ShowScreen(TransactionList);
    for (const int command : {CommandNew, CommandModify}) {
        const int32_t selected = state.SelectedPos[TransactionList] = 3;
        WithEveryReadFailing([=] { SendCommand(command); },
                             [&](bool refused) {
                                 EXPECT_EQ(form.Resource == 0, refused);
                                 if (refused) {
                                     EXPECT_EQ(state.SelectedPos[TransactionList], selected);
                                 }
                                 if (form.Resource)
                                     Cross();
                                 ASSERT_TRUE(ProgramRuns());
                                 state.SelectedPos[TransactionList] = selected;
                             });
    }
}

TEST_F(RefusedForm, AStepThatWasRefusedShowsTheEntryBefore) {
    const auto files = Snapshot(root.Path());
    for (const Key key : {Key::RowUp, Key::RowDown}) {
        Modify(TransactionList, 3);
        WithEveryReadFailing([=] { SendKey(key); },
                             [&](bool) {
                                 EXPECT_EQ(ControlText(TitleField),
                                           Utf8(Rows()[size_t(state.SelectedPos[2]) - 1].Name));
                                 Tick(); // nothing was changed
                                 EXPECT_EQ(Snapshot(root.Path()), files);
                                 Modify(TransactionList, 3);
                             });
        Cross();
    }
}

TEST_F(RefusedForm, AnEntryChangedOverMidnightIsTheOneThatWasOpened) {
    ShowScreen(TransactionList);
    state.SelectedPos[TransactionList] = 2;
    SendCommand(ExcludeName);
    Modify(TransactionList, 4);
    ASSERT_EQ(ControlText(TitleField), "Visa payment");
    SetText(WholeField, "1");
    SetClock(2026, 3, 10); // the Day marker before it is yesterday's
    Tick();
    EXPECT_EQ(Entries(), "Opening balance,ATM,Rent,Visa payment,Tuesday");
    EXPECT_EQ(Rows()[3].Value, -1980);
}

TEST_F(RefusedForm, WhatIsTypedBackToTheFirstValueCounts) {
    const std::string rent = Fields(Rows()[2], "Name Date Value");
    Modify(TransactionList, 3);
    SetText(WholeField, "50");
    SetDate(DateField, 2026, 2, 25);
    WithFailingDisk({.FailAt = 1}, [this] { Tick(); });
    ASSERT_NE(form.Resource, 0);
    SetText(WholeField, "248");
    SetDate(DateField, 2026, 2, 23);
    Tick();
    EXPECT_EQ(Fields(Rows()[2], "Name Date Value"), rent);
}

TEST_F(RefusedForm, AnItemWithoutAnAccountKeepsTheFormOpen) {
    New(RecurringList);
    SetText(TitleField, "Where to");
    SetText(AccountField, "");
    Tick();
    EXPECT_NE(form.Resource, 0);
    EXPECT_EQ(Find<DDRec>("E1_04DD", "Where to"), 0);
    Choose(AccountField, 0);
    Tick();
    EXPECT_NE(Find<DDRec>("E1_04DD", "Where to"), 0);
}
