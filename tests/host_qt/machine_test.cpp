// What a POSIX machine gives: one running copy a root, files, the clock.
#include "host_qt/little_program.h"
#include "hosts/qt/signals.h"
#include "platform/cause.h"
#include "platform/clock.h"
#include "platform/disk.h"
#include "platform/files.h"
#include <QDir>
#include <QTemporaryDir>
#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace little;

// What TakeInstanceLock says in another process, which then waits for a signal when `stay` is set.
static int LockFromAnotherProcess(bool stay, pid_t *child) {
    int told[2];
    EXPECT_EQ(pipe(told), 0);
    *child = fork();
    if (*child == 0) {
        const char taken = static_cast<char>(TakeInstanceLock());
        if (write(told[1], &taken, 1) == 1 && stay)
            pause();
        _exit(0);
    }
    char taken = -1;
    EXPECT_EQ(read(told[0], &taken, 1), 1);
    close(told[0]);
    close(told[1]);
    if (!stay)
        waitpid(*child, nullptr, 0);
    return taken;
}

TEST(Instance, ASecondCopyWakesTheFirstAndTheLockDiesWithItsProcess) {
    Begin();
    QTemporaryDir first, second;
    pid_t child;
    SetDeviceRoot(first.path().toUtf8().constData());
    ASSERT_EQ(LockFromAnotherProcess(true, &child), 1);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_EQ(TakeInstanceLock(), 1); // nothing is left of the one that was killed

    host.Frame->showMinimized();
    Settle();
    EXPECT_EQ(LockFromAnotherProcess(false, &child), 0);
    Settle();
    EXPECT_FALSE(host.Frame->isMinimized());
    SetDeviceRoot(second.path().toUtf8().constData());
    EXPECT_EQ(LockFromAnotherProcess(false, &child), 1); // another root is another device
    SetDeviceRoot("/no such directory");
    EXPECT_EQ(TakeInstanceLock(), 1);
}

TEST(Signals, AreTheCloseButton) {
    Begin();
    WatchSignals();
    int heard = 0;
    OnEvent = [&heard](const Event &) { ++heard; };
    for (const int number : {SIGTERM, SIGHUP, SIGINT}) {
        Told();
        heard = 0;
        ASSERT_EQ(raise(number), 0);
        EXPECT_EQ(heard, 0) << "nothing is done inside the handler";
        EXPECT_EQ(Told(), "close") << number;
    }
}

TEST(Disk, ReadsAndWritesWhatItIsToldAndRefusesTheRest) {
    QTemporaryDir root;
    const std::string path = root.filePath(QStringLiteral("file")).toStdString(), other = path + "2";
    char bytes[16] = {};
    EXPECT_EQ(DiskOpen(path.c_str(), 0), DiskMissing);
    EXPECT_EQ(DiskOpen(root.path().toUtf8().constData(), 1), DiskRefused); // a directory
    EXPECT_EQ(mkfifo(other.c_str(), 0600), 0);
    EXPECT_EQ(DiskOpen(other.c_str(), 0), DiskRefused); // no file, and not waited for
    EXPECT_TRUE(DiskDelete(other.c_str()));
    const int file = DiskOpen(path.c_str(), 1);
    ASSERT_GE(file, 0);
    EXPECT_TRUE(DiskWrite(file, 4, "abcd", 4));
    EXPECT_EQ(DiskLength(file), 8);
    EXPECT_EQ(DiskRead(file, 2, bytes, 16), 6);
    EXPECT_EQ(memcmp(bytes, "\0\0abcd", 6), 0);
    EXPECT_TRUE(DiskCut(file, 5));
    EXPECT_FALSE(DiskCut(file, -1));
    EXPECT_EQ(DiskRead(file, 5, bytes, 16), 0);
    EXPECT_TRUE(DiskSync(file));
    EXPECT_TRUE(DiskClose(file));
    for (const int bad : {-1, file})
        EXPECT_TRUE(!DiskWrite(bad, 0, "x", 1) && DiskRead(bad, 0, bytes, 1) < 0 && DiskLength(bad) < 0 &&
                    !DiskCut(bad, 0) && !DiskSync(bad) && !DiskClose(bad));
    const int full = DiskOpen("/dev/full", 0);
    EXPECT_EQ(full, DiskRefused); // a device
    EXPECT_TRUE(DiskRename(path.c_str(), other.c_str()));
    EXPECT_EQ(DiskKind(path.c_str()), 0);
    EXPECT_EQ(DiskKind(other.c_str()), 1);
    EXPECT_EQ(DiskKind(root.path().toUtf8().constData()), 2);
    EXPECT_FALSE(DiskMakeDirectory(root.path().toUtf8().constData()));
    EXPECT_FALSE(DiskRemoveDirectory(root.path().toUtf8().constData()));

    void *const walk = DiskOpenWalk(root.path().toUtf8().constData());
    char name[4];
    EXPECT_TRUE(DiskNextName(walk, name, sizeof name));
    EXPECT_STREQ(name, "fil"); // cut to the room
    EXPECT_FALSE(DiskNextName(walk, name, sizeof name));
    DiskCloseWalk(walk);
    EXPECT_FALSE(DiskOpenWalk(path.c_str()));
    EXPECT_FALSE(DiskNextName(nullptr, name, sizeof name));
    struct stat about;
    EXPECT_EQ(stat(other.c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 0777, 0600u); // nobody else's business
}

TEST(Trouble, IsToldOnceWithTheDirectoryAndTheCause) {
    QTemporaryDir root;
    SetDeviceRoot(root.path().toUtf8().constData());
    constexpr char Directory[] = "\\Data";
    char cause[600];
    const std::string path = root.path().toStdString() + "/Data";
    EXPECT_TRUE(FindCause(Directory, cause, sizeof cause));
    EXPECT_EQ(cause, path + ": No such file or directory");
    EXPECT_TRUE(DiskMakeDirectory(path.c_str()));
    EXPECT_FALSE(FindCause(Directory, cause, sizeof cause));

    testing::internal::CaptureStderr();
    for (int n = 0; n < 40; ++n) {
        TellTrouble(1, Directory, "LoadAccFile AcreateFail");
        TellTrouble(9, nullptr, "DoButtonDown caseError");
    }
    EXPECT_TRUE(DiskRemoveDirectory(path.c_str()));
    const int file = DiskOpen(path.c_str(), 1); // a file where the directory should be
    EXPECT_TRUE(DiskClose(file));
    for (int n = 0; n < 80; ++n)
        TellTrouble(n % 8, "\\Data\\E1", "LoadAccFile");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "zentrik: LoadAccFile AcreateFail\n"
                                                      "zentrik: DoButtonDown caseError\n"
                                                      "zentrik: the data can't be kept: " +
                                                          path + "/E1: Not a directory (LoadAccFile)\n");
}

TEST(Clock, TellsLocalTimeInTheOwnersWords) {
    ClockTime now;
    ReadClock(&now);
    const int64_t ticks = ClockTicks();
    // 2026-01-01 00:00 is day 155,228 after 1601-01-01.
    const QDate date(now.Year, now.Month, now.Day);
    const int64_t days = 155228 + QDate(2026, 1, 1).daysTo(date);
    const int64_t expected = ((days * 24 + now.Hour) * 60 + now.Minute) * 60 + now.Second;
    EXPECT_NEAR(static_cast<double>(ticks) / 100, static_cast<double>(expected), 2);
    EXPECT_EQ(now.Weekday, date.dayOfWeek() % 7);

    char text[32], small[4];
    const ClockTime time = {2026, 3, 9, 1, 7, 5, 59};
    WriteShortTime(text, sizeof text, &time);
    EXPECT_STREQ(text, "07:05");
    WriteShortDate(text, sizeof text, &time);
    EXPECT_STREQ(text, "03/09/26");
    WriteShortDate(small, sizeof small, &time); // no room: nothing
    EXPECT_STREQ(small, "");
    EXPECT_EQ(std::u16string(WeekdayName(0)) + WeekdayName(6), u"SundaySaturday");
    EXPECT_EQ(std::u16string(MonthName(1)) + MonthName(12), u"JanDec");
    EXPECT_EQ(std::u16string(WeekdayName(7)) + MonthName(0) + MonthName(13), u"");
    EXPECT_EQ(DayComesFirst(), 0);
}
