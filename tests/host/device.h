// A started device, worked by its owner: the fixture for tests of the whole program.
#pragma once

#include "frame/form.h"
#include "host/hands.h"
#include "host/rows.h"
#include "resources/forms.h"
#include "resources/menus.h"
#include "state/state.h"
#include <gtest/gtest.h>

namespace testhost {

inline constexpr int BankRow = 0, ShareRow = 1, ListRow = 2; // of the account form's type list

// Monday, 2 March 2026; the sample's three accounts, help mode off. Account 1 has the rows Opening balance 12 February,
// ATM 21 February, Rent 23 February, the Day marker of today, Visa payment 9 March.
class Device : public testing::Test {
protected:
    TestRoot root;

    Device() {
        SetClock(2026, 3, 2);
        EXPECT_TRUE(StartProgram());
        SendKey(Key::Help); // the first start opens the help
        EXPECT_EQ(state.RowCount, 12);
    }

    template <typename Record> std::vector<Record> Read(const std::string &file) const {
        return RecordsIn<Record>(root.DataFile(file));
    }
    std::vector<ARec> Accounts() const { return Read<ARec>("E1_01IND"); }
    std::vector<TRec> Rows(uint32_t account = 1) const { return Read<TRec>("E1_02A" + std::to_string(account)); }
    // The names of a file's records, with commas between them.
    template <typename Record> std::string Names(const std::string &file) const {
        std::string names;
        for (const Record &record : Read<Record>(file))
            names += (names.empty() ? "" : ",") + Utf8(record.Name);
        return names;
    }
    std::string AccountNames() const { return Names<ARec>("E1_01IND"); }
    std::string Entries(uint32_t account = 1) const { return Names<TRec>("E1_02A" + std::to_string(account)); }
    // The position of the first record of this name, from 1; 0 none.
    template <typename Record> int Find(const std::string &file, const std::string &name) const {
        const std::vector<Record> records = Read<Record>(file);
        for (size_t n = 0; n < records.size(); ++n)
            if (Utf8(records[n].Name) == name)
                return static_cast<int>(n) + 1;
        return 0;
    }

    // --- Forms
    void New(int screen) {
        ShowScreen(screen);
        ASSERT_TRUE(SendCommand(CommandNew));
        ASSERT_NE(form.Resource, 0);
    }
    void Modify(int screen, int position) {
        ShowScreen(screen);
        state.SelectedPos[screen] = position;
        ASSERT_TRUE(SendCommand(CommandModify));
    }
    void Tick() { SendCommand(CommandTick); }
    void Cross() { SendCommand(CommandCross); }
    // Types each text into its control, or chooses it where nothing can be typed.
    void Fill(const std::vector<std::pair<int, std::string>> &texts) {
        for (const auto &[id, text] : texts)
            EXPECT_TRUE(SetText(id, text) || Choose(id, text)) << id << ": " << text;
    }
    // The texts of the open form's controls, with ", " between them.
    std::string Shown(const std::vector<int> &ids) {
        std::string all;
        for (const int id : ids)
            all += (all.empty() ? "" : ", ") + ControlText(id);
        return all;
    }
    // Taps the open form's part, in the middle of where it is hit.
    bool TapPart(int item) {
        for (const FormPart &part : state.OpenedForm->Parts)
            if (part.Item == item && (!part.Present || part.Present())) {
                Tap((part.Hit.Left + part.Hit.Right) / 2, 26 + (part.Hit.Top + part.Hit.Bottom) / 2);
                return true;
            }
        return false;
    }
    // Makes an account through its form and shows its transactions. Its ID.
    uint32_t MakeAccount(const std::string &name, int type) {
        New(AccountList);
        SetText(TextField, name);
        Choose(TypeField, type);
        Tick();
        EXPECT_EQ(form.Resource, 0);
        ShowScreen(TransactionList);
        return Accounts().back().ID;
    }
};

} // namespace testhost
