// A record that was damaged under its seal: everything else stays at hand, and its bytes are never lost.
#include "care.h"
#include "exchange/export.h"
#include "platform/text.h"

namespace fs = std::filesystem;
using namespace testhost;

namespace {

using Bytes = std::vector<uint8_t>;

class BrokenSeal : public FullDevice {
protected:
    BrokenSeal() {
        SetPassCode("1234");
        QuitProgram();
    }
    // Damages the record at a position (from 1; 0 the last) and starts. The damaged bytes.
    Bytes Break(const CoveredFile &file, size_t position) {
        const std::string path = root.DataFile(file.Name);
        Bytes bytes = ReadBytes(path);
        const auto size = static_cast<size_t>(RecordSize(file.Kind));
        const size_t at = (position ? position - 1 : bytes.size() / size - 1) * size;
        bytes[at + 30] ^= 4;
        WriteBytes(path, bytes);
        Start();
        return {bytes.begin() + static_cast<long>(at), bytes.begin() + static_cast<long>(at + size)};
    }
    static void Start() {
        ASSERT_TRUE(StartProgram());
        TapDigits("1234");
        ASSERT_EQ(state.ActiveDialog, NoDialog);
        ASSERT_EQ(state.DataUsable, 1U);
    }
    bool Holds(const char *name, const Bytes &record) const {
        const Bytes bytes = ReadBytes(root.DataFile(name));
        return std::search(bytes.begin(), bytes.end(), record.begin(), record.end()) != bytes.end();
    }
    static void LookAtAll() {
        for (int screen = 1; screen <= 8; ++screen) {
            ShowScreen(screen);
            TapRow(1);
        }
        ShowScreen(AccountList);
    }
};

} // namespace

TEST_F(BrokenSeal, EveryListCanBeLookedAtAndTheOwnerIsToldOnce) {
    const std::map<std::string, std::string> places = {
        {"E1_01IND", "the list of the accounts"}, {"E1_02A1", "Current account"}, {"E1_04DD", "the recurring items"},
        {"E1_05FAV", "the templates"},            {"E1_06BIN", "the bin"},        {"E1_07CAT", "the categories"},
        {"E1_08CUR", "the conversions"}};
    fs::remove_all(root.Path() + "-copy");
    fs::copy(root.Path(), root.Path() + "-copy", fs::copy_options::recursive);
    for (const CoveredFile &file : CoveredFiles)
        for (const size_t position : {1U, 0U}) {
            const auto place = places.find(file.Name);
            if (place == places.end())
                continue;
            SCOPED_TRACE(testing::Message() << file.Name << (position ? ", the first" : ", the last"));
            const Bytes broken = Break(file, position);
            if (HasFailure())
                return;
            const auto before = Snapshot(root.Path());
            int told = 0;
            const auto listen = [&] { told += Lines().find("can't be read! It is of/" + place->second) != std::string::npos; };
            listen();
            for (int screen = 1; screen <= 8; ++screen) {
                if (screen == TransactionList)
                    OpenRow(position ? 2 : 1);
                ShowScreen(screen);
                listen();
                std::printf("%s %zu screen %d: %s | %s\n", file.Name, position, screen, Lines().c_str(), TextAt(ListWindow, Row(1)).c_str());
                TapRow(2);
                EXPECT_EQ(state.DataUsable, 1U);
            }
            EXPECT_EQ(told, 1);
            QuitProgram();
            EXPECT_TRUE(Holds(file.Name, broken));
            fs::copy(root.Path() + "-copy", root.Path(), fs::copy_options::recursive | fs::copy_options::overwrite_existing);
        }
    fs::remove_all(root.Path() + "-copy");
}
