// The road on the desktop: the real program behind the real widgets, worked with mouse and keyboard, and the rows that
// come of it.
#include "core/startup/door.h"
#include "core/state.h"
#include "host_qt/hands.h"
#include "hosts/qt/device.h"
#include "hosts/qt/start.h"
#include "platform/files.h"
#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace little;

// The middle of a row of the list, in device pixels.
static int RowY(int row) {
    return 62 + (row - 1) * 17 + 9;
}

// The row of transactions shown that bears this name; 0 when there is none.
static int RowNamed(const char16_t *name) {
    for (int row = 1; row <= state.RowCount; ++row)
        if (state.TopPos[TransactionList] + row - 1 <= state.EntryCount[TransactionList] &&
            std::u16string_view(state.TranRows[row].Rec.Name) == name)
            return row;
    return 0;
}

TEST(Road, AnEntryTypedIntoTheFormStandsInItsRowWithTheRightBalances) {
    ASSERT_EQ(state.CurrentScreen, AccountList);
    ASSERT_EQ(state.EntryCount[AccountList], 3);
    PressKey(Qt::Key_F1); // leaves help mode
    Settle();
    ASSERT_EQ(state.RowCount, 12);
    DoubleTapAt(50, RowY(1));
    Settle();
    ASSERT_EQ(state.CurrentScreen, TransactionList);
    const int entries = state.EntryCount[TransactionList];
    const FixedAmount last = state.TranRows[entries].Rec.RunTotal;

    DoubleTapAt(60, RowY(entries + 2));
    Settle();
    ASSERT_EQ(state.ActiveDialog, TransactionDialog);
    TapAt(100, 79);
    Type("Bakery");
    PressKey(Qt::Key_Tab);
    Type("12");
    PressKey(Qt::Key_Tab);
    Type("5");
    PressKey(Qt::Key_Return);
    Settle();
    ASSERT_EQ(state.ActiveDialog, NoDialog);
    EXPECT_EQ(state.EntryCount[TransactionList], entries + 1);
    const int row = RowNamed(u"Bakery");
    ASSERT_GT(row, 0);
    EXPECT_EQ(state.TranRows[row].Rec.Value, -12500);
    EXPECT_EQ(state.TranRows[entries + 1].Rec.RunTotal, last - 12500);

    DoubleTapAt(60, RowY(row));
    Settle();
    ASSERT_EQ(state.ActiveDialog, TransactionDialog);
    TapAt(100, 79);
    Type("Baker"); // what stood there is replaced
    PressKey(Qt::Key_Escape);
    Settle();
    EXPECT_EQ(RowNamed(u"Bakery"), row); // the cross keeps nothing
    EXPECT_EQ(state.ActiveDialog, NoDialog);

    PressAt(60, RowY(row)); // a stroke
    for (int x = 66; x <= 130; x += 8)
        MoveTo(x, RowY(row));
    ReleaseAt(130, RowY(row));
    Settle();
    EXPECT_EQ(state.TranRows[row].Rec.Cleared, 1u);
    PressKey(Qt::Key_1, Qt::ControlModifier);
    Settle();
    EXPECT_EQ(state.CurrentScreen, AccountList);
}

TEST(Road, TheCloseButtonLeavesInOrder) {
    host.Frame->close();
    Settle();
    EXPECT_TRUE(host.Leaving);
}

int main(int count, char **words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, words);
    testing::InitGoogleTest(&count, words);
    QTemporaryDir root;
    SetDeviceRoot(root.path().toUtf8().constData());
    PrepareHost(1);
    if (WinMain() != 1)
        return 1;
    ShowDevice();
    Settle();
    return RUN_ALL_TESTS();
}
