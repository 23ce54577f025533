// The pass code by the owner's hands: on, off, the gate, wrong codes.
#include "care.h"
#include "cipher/hooks.h"
#include "cipher/keys.h"
#include "platform/cipher.h"
#include <array>

namespace {

constexpr Colour Failure = 0xFF0000, Right = 0x008000;

std::string Wide(const std::string &text) {
    std::string wide;
    for (const char unit : text)
        wide += std::string{unit, '\0'};
    return wide;
}

class PassCode : public FullDevice {};

} // namespace

TEST_F(PassCode, SetRestartedWrongEightTimesRightAndOffAgain) {
    const auto plain = AllPayloads(root);
    for (const auto &[name, payload] : plain)
        EXPECT_FALSE(payload.empty()) << name;
    EXPECT_FALSE(CommandEnabled(CommandPasswordOff));

    SendCommand(CommandPasswordOn);
    EXPECT_EQ(PassTitle(), "Enter new pass code");
    TapDigits("0123");
    EXPECT_EQ(PassTitle(), "Confirm new pass code");
    TapDigits("0123");
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
    EXPECT_TRUE(CommandEnabled(CommandPasswordOff));
    for (const auto &[name, payload] : AllPayloads(root))
        EXPECT_TRUE(payload != plain.at(name)) << name;

    Restart();
    EXPECT_EQ(PassTitle(), "Enter pass code");
    EXPECT_EQ(state.EntryCount[AccountList], 0) << "no data before the code";
    EXPECT_EQ(Sectors(Failure), 1);
    for (int tries = 1; tries <= 8; ++tries) {
        TapDigits("9999");
        EXPECT_EQ(ColourAt(HostWindow, 87, 33), Failure);
        EXPECT_EQ(state.FailedTries, tries);
        if (tries < 8) {
            EXPECT_EQ(Sectors(Failure), tries + 1);
        }
    }
    EXPECT_EQ(Sectors(Failure), 7) << "the colours have swapped: one sector in the other";
    TapDigits("0123"); // right, but too late in this run
    EXPECT_EQ(state.FailedTries, 9);
    EXPECT_EQ(state.ActiveDialog, PassCodeDialog);
    EXPECT_NE(TextAt(HostWindow, {0, 200, 240, 268}).find("Too many"), std::string::npos);

    Restart();
    TapDigits("0128");
    TapDigits("0123");
    EXPECT_EQ(state.FailedTries, 0);
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
    OpenRow(1);
    EXPECT_NE(TextAt(ListWindow, Row(2)).find("ATM"), std::string::npos);
    SendCommand(CommandNotepad);
    EXPECT_EQ(ControlText(TextField), "Remember the milk");
    SendCommand(CommandCross);

    SendCommand(CommandPasswordOff);
    EXPECT_FALSE(CommandEnabled(CommandPasswordOff));
    EXPECT_TRUE(AllPayloads(root) == plain);
    Restart();
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
}

TEST_F(PassCode, EveryFieldOfEveryRecordIsCoveredAndTheCodeIsNowhere) {
    SetLongCode("Xylophon 77");
    ASSERT_EQ(state.PasswordOn, 1U);
    fs::create_directories(root.HostPath("\\Program Files\\Zentrik\\Data")); // the error log's place
    Restart();
    TapPassSpot(11);
    SetText(TextField, "Xylophon 78");
    SendCommand(CommandTick);
    SetText(TextField, "Xylophon 77");
    SendCommand(CommandTick);
    ASSERT_EQ(state.ActiveDialog, NoDialog);
    QuitProgram();
    const std::string words[] = {"Savings", "account", "ATM",      "Rent",     "Monthly",  "Bus",
                                 "Cat ",    "Dollar",  "Remember", "Xylophon", ".v.Q .5.-"};
    auto files = Snapshot(root.Path());
    files["the journal"] = ReadBytes(root.HostPath("\\Program Files\\Zentrik\\E1_Journal"));
    for (const auto &[name, bytes] : files)
        for (const std::string &word : words) {
            const std::string wide = Wide(word);
            EXPECT_FALSE(Contains(bytes, wide.data(), wide.size())) << name << " holds " << word;
            EXPECT_FALSE(Contains(bytes, "Xylophon", 8)) << name;
        }
    // Nothing of it stays in the state block either.
    const auto *block = reinterpret_cast<const uint8_t *>(&state);
    EXPECT_FALSE(Contains({block, block + sizeof state}, u"Xylophon", 16));
}

TEST_F(PassCode, AMismatchAndACrossChangeNothing) {
    const auto before = Snapshot(root.Path());
    SendCommand(CommandPasswordOn);
    TapDigits("1234");
    TapDigits("1243");
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    EXPECT_GT(machine.Beeps, 0);
    SendCommand(CommandPasswordOn);
    TapDigits("1234");
    SendCommand(CommandCross);
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    SendCommand(CommandPasswordOn);
    SendKey(Key::Escape);
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    SendCommand(CommandPasswordOn);
    TapPassSpot(11);
    SendCommand(CommandTick); // an empty code is none
    EXPECT_EQ(PassTitle(), "Enter new pass code");
    SendCommand(CommandCross);
    EXPECT_TRUE(Snapshot(root.Path()) == before);
}

TEST_F(PassCode, TheStylusTheKeysAndTheBoxEnterTheSameCode) {
    SetPassCode("0070");
    Restart();
    for (const Key key : {Key::Digit0, Key::Digit0, Key::Digit7, Key::Digit0})
        SendKey(key);
    EXPECT_EQ(state.ActiveDialog, NoDialog);

    Restart(); // the dial loses leading zeros
    TapPassSpot(11);
    SetText(TextField, "70");
    SendKey(Key::Tick);
    EXPECT_EQ(state.ActiveDialog, NoDialog);

    SetPassCode("1234"); // a new code, under a salt of its own
    Restart();
    // The stylus that stays on a digit gives it once; slid on to the next, that one too.
    const Point one = PassSpot(1), two = PassSpot(2), three = PassSpot(3);
    Press(one.X, one.Y);
    Move(one.X + 2, one.Y);
    Move(two.X, two.Y);
    Move(two.X - 2, two.Y);
    Release(two.X, two.Y);
    EXPECT_EQ(state.DigitCount, 2);
    Tap(three.X, three.Y);
    TapPassSpot(10); // the circle resets the input
    EXPECT_EQ(state.DigitCount, 0);
    SendKey(Key::Help); // the screen is relaid above the message window
    EXPECT_EQ(TextsOn(HostWindow).back().Words, "To exit Help mode, tap the eyes below");
    TapDigits("1234");
    EXPECT_EQ(state.ActiveDialog, NoDialog);
}

TEST_F(PassCode, TheCrossLeavesTheGateAndNothingWasTouched) {
    SetPassCode("1234");
    QuitProgram();
    const auto before = Snapshot(root.Path());
    SetClock(2026, 3, 20);
    ASSERT_TRUE(StartProgram());
    for (const MenuRow &row : Menu)
        if (!row.Popup && row.Id != CommandExit)
            SendEvent({.Kind = EventKind::Command, .Code = row.Id});
    SendKey(Key::Escape);
    for (int screen = 1; screen <= 8; ++screen)
        ShowScreen(screen);
    TapRow(1);
    EXPECT_EQ(state.ActiveDialog, PassCodeDialog);
    SendCommand(CommandCross);
    EXPECT_FALSE(ProgramRuns());
    EXPECT_TRUE(Snapshot(root.Path()) == before);
    ASSERT_TRUE(StartProgram());
    SendEvent({.Kind = EventKind::Close});
    EXPECT_FALSE(ProgramRuns());
    EXPECT_TRUE(Snapshot(root.Path()) == before);
}

TEST_F(PassCode, ACheckRecordThatIsShortMissingOrPlainFailsTheTryAndLosesNothing) {
    const std::string check = root.DataFile("E1_09SST");
    const std::vector<uint8_t> plain = ReadBytes(check);
    SetPassCode("1234");
    QuitProgram();
    const std::vector<uint8_t> good = ReadBytes(check);
    std::vector<uint8_t> shortened = good, changed = good;
    shortened.resize(887);
    changed[140] ^= 1;
    for (const std::vector<uint8_t> &bytes : {plain, shortened, changed, std::vector<uint8_t>()}) {
        SCOPED_TRACE(bytes.size());
        fs::remove(check);
        if (!bytes.empty())
            WriteBytes(check, bytes);
        const auto before = Snapshot(root.Path());
        ASSERT_TRUE(StartProgram());
        TapDigits("1234");
        EXPECT_EQ(state.FailedTries, 1);
        EXPECT_EQ(state.ActiveDialog, PassCodeDialog);
        if (bytes.empty()) {
            EXPECT_NE(machine.Terminal.back().find("CcreateFail"), std::string::npos);
        }
        QuitProgram();
        EXPECT_TRUE(Snapshot(root.Path()) == before);
    }
    WriteBytes(check, good);
    ASSERT_TRUE(StartProgram());
    TapDigits("1234");
    EXPECT_EQ(state.ActiveDialog, NoDialog);
}

TEST_F(PassCode, AConfigurationThatIsLostOrOfAnotherTimeIsNotReplaced) {
    SetPassCode("1234");
    QuitProgram();
    const std::string path = root.DataFile("E1_03CON");
    const std::vector<uint8_t> good = ReadBytes(path);
    constexpr const char *lost = "Warning! | The data are enciphered | and their configuration record is lost: | "
                                 "copy E1_03CON back from a backup";
    struct {
        size_t Length;
        int Suite; // -1: as it is
        const char *Told;
    } const rows[] = {{0, -1, lost},
                      {100, -1, lost},
                      {888, 2,
                       "Warning! | Wrong (future) version data | Can't use xx_Data directory | "
                       "To exit Help mode, tap the eyes below"}};
    for (const auto &row : rows) {
        std::vector<uint8_t> bytes(good.begin(), good.begin() + static_cast<long>(row.Length));
        if (row.Suite >= 0)
            bytes[28] = static_cast<uint8_t>(row.Suite);
        WriteBytes(path, bytes);
        const auto before = Snapshot(root.Path());
        ASSERT_TRUE(StartProgram());
        EXPECT_EQ(TextAt(ListWindow, {0, 120, 240, 262}), row.Told);
        SendCommand(CommandPasswordOn);
        EXPECT_EQ(state.ActiveDialog, NoDialog);
        QuitProgram();
        EXPECT_TRUE(Snapshot(root.Path()) == before);
    }
    // One that goes missing in a run is written again as it was.
    WriteBytes(path, good);
    ASSERT_TRUE(StartProgram());
    TapDigits("1234");
    fs::remove(path);
    QuitProgram();
    ASSERT_TRUE(StartProgram());
    TapDigits("1234");
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
}

namespace {

// The directory as it was written under blocks, before there were seals.
void PutUnderBlocks(const TestRoot &root, const char16_t *code) {
    const uint8_t noSalt[SaltBytes] = {};
    const int32_t key = DeriveKey(code, BlockSuite, noSalt);
    ASSERT_NE(key, NoKey);
    for (const CoveredFile &file : CoveredFiles) {
        std::vector<uint8_t> bytes = ReadBytes(root.DataFile(file.Name));
        for (size_t at = 0; at < bytes.size(); at += static_cast<size_t>(RecordSize(file.Kind)))
            EncipherUnder(key, file.Kind, &bytes[at]);
        WriteBytes(root.DataFile(file.Name), bytes);
    }
    std::vector<uint8_t> configuration = ReadBytes(root.DataFile("E1_03CON"));
    configuration[48] = 1;
    WriteBytes(root.DataFile("E1_03CON"), configuration);
    ForgetKey(key);
}

} // namespace

TEST_F(PassCode, DataUnderBlocksOpenWithTheirCodeAndGetSealsWhenItIsSetAgain) {
    const auto plain = AllPayloads(root);
    QuitProgram();
    PutUnderBlocks(root, u"1234");
    ASSERT_TRUE(StartProgram());
    TapDigits("1235");
    EXPECT_EQ(state.FailedTries, 1);
    TapDigits("1234");
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
    EXPECT_EQ(ReadBytes(root.DataFile("E1_03CON"))[28], BlockSuite);
    SetPassCode("1234");
    EXPECT_EQ(ReadBytes(root.DataFile("E1_03CON"))[28], SealedSuite) << Lines();
    Restart();
    TapDigits("1234");
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
    SendCommand(CommandPasswordOff);
    EXPECT_TRUE(AllPayloads(root) == plain);
}

TEST_F(PassCode, AMachineWithoutTheOldCipherSaysSoAndTouchesNothing) {
    QuitProgram();
    PutUnderBlocks(root, u"1234");
    const auto before = Snapshot(root.Path());
    setenv("OPENSSL_MODULES", "/nowhere", 1);
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(TextAt(ListWindow, {0, 120, 240, 262}),
              "Warning! | The data are enciphered | by a cipher this machine doesn't offer: | "
              "OpenSSL's legacy provider is missing");
    QuitProgram();
    EXPECT_TRUE(Snapshot(root.Path()) == before);
    EXPECT_TRUE(SuiteOffered(SealedSuite));
    EXPECT_EQ(DeriveKey(u"1234", BlockSuite, std::array<uint8_t, SaltBytes>{}.data()), NoKey);
    unsetenv("OPENSSL_MODULES");
}

TEST_F(PassCode, AChangedRecordIsNotBelievedAndStopsAChangeOfKey) {
    SetPassCode("1234");
    QuitProgram();
    const std::string path = root.DataFile("E1_02A2");
    std::vector<uint8_t> bytes = ReadBytes(path);
    bytes[608 + 30] ^= 4;
    WriteBytes(path, bytes);
    ASSERT_TRUE(StartProgram());
    TapDigits("1234");
    const auto before = AllPayloads(root);
    SendCommand(CommandPasswordOff);
    EXPECT_EQ(Lines(), "/A record can't be deciphered:/nothing has been changed///");
    EXPECT_TRUE(AllPayloads(root) == before);
    EXPECT_EQ(state.PasswordOn, 1U);
    OpenRow(2);
    EXPECT_EQ(TextAt(ListWindow, Row(2)).find("Car deposit"), std::string::npos);
}

// More than an action holds in memory.
TEST_F(PassCode, ALargeAccountIsEncipheredOnceAndComesBack) {
    constexpr size_t Rows = 20000;
    const std::string path = root.DataFile("E1_02A9");
    std::vector<uint8_t> bytes(Rows * sizeof(TRecFile));
    for (size_t n = 0; n < Rows; ++n) {
        bytes[n * sizeof(TRecFile)] = RecordVersion;
        memcpy(&bytes[n * sizeof(TRecFile) + 20], &n, sizeof n);
    }
    WriteBytes(path, bytes);
    const auto before = Payloads(path, FileKind::Transactions);
    SetPassCode("1234");
    ASSERT_EQ(state.PasswordOn, 1U);
    EXPECT_TRUE(Payloads(path, FileKind::Transactions) != before);
    Restart();
    TapDigits("1234");
    SendCommand(CommandPasswordOff);
    ASSERT_EQ(state.PasswordOn, 0U);
    EXPECT_TRUE(Payloads(path, FileKind::Transactions) == before);
}
