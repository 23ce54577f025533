// A started device for the tests of forms: accounts made through their form, rows read back from the files.
#pragma once

#include "core/state.h"
#include "host/hands.h"
#include "platform/text.h"
#include "resources/forms.h"
#include "resources/menus.h"
#include "screens/frame/form.h"
#include "store/records/records.h"
#include <cstring>
#include <gtest/gtest.h>

namespace testhost {

inline constexpr int BankRow = 0, ShareRow = 1, ListRow = 2; // of the account form's type list

// Text into a record's field.
inline void CopyUnits(char16_t (&to)[TextRoom], const char16_t *from) {
    CopyText(to, TextRoom, from);
}

template <typename Record> std::vector<Record> RecordsIn(const TestRoot &root, const std::string &file) {
    const std::vector<uint8_t> bytes = ReadBytes(root.DataFile(file));
    constexpr size_t size = sizeof(InFile<Record>);
    std::vector<Record> records(bytes.size() / size);
    for (size_t n = 0; n < records.size(); ++n)
        std::memcpy(&records[n], bytes.data() + n * size, sizeof(Record));
    return records;
}

class Device : public testing::Test {
protected:
    TestRoot root;

    void SetUp() override {
        SetClock(2026, 3, 2); // a Monday
        ASSERT_TRUE(StartProgram());
        SendCommand(CommandLeftEye); // the first start opens the help
    }

    void Show(int screen) { SendKey(static_cast<Key>(static_cast<int>(Key::Tab1) + screen - 1)); }
    void New(int screen) {
        Show(screen);
        ASSERT_TRUE(SendCommand(CommandNew));
        ASSERT_NE(form.Resource, 0);
    }
    void Modify(int screen, int position) {
        Show(screen);
        state.SelectedPos[screen] = position;
        ASSERT_TRUE(SendCommand(CommandModify));
    }
    void Tick() { SendCommand(CommandTick); }
    void Cross() { SendCommand(CommandCross); }
    // A tap on the open form's part, in the middle of where it is hit.
    bool TapPartOf(int item) {
        for (const FormPart &part : state.OpenedForm->Parts)
            if (part.Item == item && (!part.Present || part.Present())) {
                Tap((part.Hit.Left + part.Hit.Right) / 2, 26 + (part.Hit.Top + part.Hit.Bottom) / 2);
                return true;
            }
        return false;
    }

    std::vector<ARec> Accounts() { return RecordsIn<ARec>(root, "E1_01IND"); }
    std::vector<TRec> Rows(uint32_t account) { return RecordsIn<TRec>(root, "E1_02A" + std::to_string(account)); }

    // Makes an account through its form and shows its transactions. Its ID.
    uint32_t MakeAccount(const std::string &name, int type) {
        New(AccountList);
        SetText(TextField, name);
        Choose(TypeField, type);
        Tick();
        EXPECT_EQ(form.Resource, 0);
        Show(TransactionList);
        return Accounts().back().ID;
    }
    void ShowAccount(uint32_t id) {
        Show(AccountList);
        const std::vector<ARec> accounts = Accounts();
        for (size_t n = 0; n < accounts.size(); ++n)
            if (accounts[n].ID == id)
                state.SelectedPos[AccountList] = static_cast<int32_t>(n) + 1;
        Show(TransactionList);
    }
    void NewAdvanced() {
        New(TransactionList);
        if (!state.ViewIsAdvanced)
            TapPartOf(ViewItem);
    }
    // An entry through the form in its Advanced view. `units` "" leaves the proposal.
    void MakeEntry(const std::string &name, const std::string &whole, bool plus, const std::string &units = "",
                   const std::string &partner = "") {
        NewAdvanced();
        SetText(TitleField, name);
        SetText(WholeField, whole);
        if ((state.FirstSign != 0) != plus)
            TapPartOf(FirstSignItem);
        if (!units.empty())
            SetText(MultiplierField, units);
        if (!partner.empty()) {
            ASSERT_TRUE(Choose(TransferField, partner));
        }
        Tick();
        ASSERT_EQ(form.Resource, 0);
    }
};

} // namespace testhost
