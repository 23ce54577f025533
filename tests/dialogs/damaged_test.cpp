// Forms over rows of any bytes: they open, answer every tap and close.
#include "device.h"
#include "host/fuzz.h"

using namespace testhost;

namespace {

class DamagedRows : public Device {
protected:
    // Any bytes in every row of a file but for the version, without which the data are refused.
    void Damage(const std::string &file, size_t recordBytes, uint64_t seed) {
        Dice dice(seed);
        std::vector<uint8_t> bytes = ReadBytes(root.DataFile(file));
        for (size_t n = 0; n < bytes.size(); ++n)
            if (n % recordBytes != 0 && dice.Below(3) == 0)
                bytes[n] = static_cast<uint8_t>(dice.Next());
        WriteBytes(root.DataFile(file), bytes);
    }
    void WorkTheForm() {
        for (int y = 0; y < 190 && state.OpenedForm; y += 12)
            for (int x = 3; x < 240 && state.OpenedForm; x += 24)
                Tap(x, 26 + y);
        for (const int id : std::vector<int>(form.Order)) {
            Choose(id, ControlItemCount(id) - 1);
            SetText(id, "7");
        }
    }
};

TEST_F(DamagedRows, OpenAndCloseWithoutHarm) {
    const uint32_t shares = MakeAccount("Shares", ShareRow);
    MakeEntry("a", "1", true);
    const struct {
        int Screen;
        std::string File;
        size_t Bytes;
    } lists[] = {
        {AccountList, "E1_01IND", sizeof(ARecFile)},
        {TransactionList, "E1_02A" + std::to_string(shares), sizeof(TRecFile)},
        {RecurringList, "E1_04DD", sizeof(DDRecFile)},
        {TemplateList, "E1_05FAV", sizeof(FRecFile)},
        {CategoryList, "E1_07CAT", sizeof(CatRecFile)},
        {ConversionList, "E1_08CUR", sizeof(CurRecFile)},
    };
    int opened = 0;
    for (const uint64_t seed : FuzzSeeds(2)) {
        SCOPED_TRACE(seed);
        for (const auto &list : lists) {
            const auto good = ReadBytes(root.DataFile(list.File));
            Damage(list.File, list.Bytes, seed);
            for (const bool ticked : {false, true})
                for (int position = 1; position <= 3; ++position) {
                    Show(list.Screen);
                    state.SelectedPos[list.Screen] = position;
                    SendCommand(CommandModify);
                    opened += state.OpenedForm != nullptr;
                    WorkTheForm();
                    if (ticked)
                        Tick();
                    if (state.OpenedForm) // not opened, crossed out, or its tick refused
                        Cross();
                    ASSERT_EQ(state.ActiveDialog, NoDialog);
                    if (state.HelpMode)
                        SendCommand(CommandLeftEye);
                }
            WriteBytes(root.DataFile(list.File), good);
            ASSERT_TRUE(ProgramRuns());
        }
    }
    EXPECT_GT(opened, 40);
}

} // namespace
