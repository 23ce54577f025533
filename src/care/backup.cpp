#include "care/backup.h"
#include "care/pause.h"
#include "platform/action.h"
#include "platform/files.h"
#include "platform/history.h"
#include "state/error_log.h"
#include "store/catalogue.h"
#include <cstdio>
#include <cstring>
#include <initializer_list>

namespace {

constexpr char BackupName[] = "Zentk_Backup", WorkName[] = "Zentk$B$zpy", AsideName[] = "Zentk$O$zpy";
constexpr char DataPrefix[] = "E1_", ProgramPlace[] = "\\Program Files\\Zentrik\\";
constexpr int FewestFiles = 6;
constexpr int JoinedRoom = PathRoom * 2; // a path too long is refused by the files

void Join(char *to, const char *directory, const char *name) {
    const size_t length = std::strlen(directory);
    const char *between = length > 0 && directory[length - 1] == '\\' ? "" : "\\";
    std::snprintf(to, JoinedRoom, "%.*s%s%s", PathRoom - 1, directory, between, name);
}

// Each file of a directory, its directories passed over. Stops at the first visit that gives 0; 1 when all gave 1.
// Deleting the file visited is allowed.
template <typename Visit> int ForEachFile(const char *directory, Visit visit) {
    FileWalk walk;
    char name[PathRoom], path[JoinedRoom];
    int all = 1;
    FindNames(&walk, directory, "");
    while (all && FindNextName(&walk, name, sizeof name)) {
        Join(path, directory, name);
        const int isFile = FileThere(path); // below 0: the machine does not say
        all = isFile == 1 ? visit(name, path) : isFile == 0;
    }
    EndFind(&walk);
    return all;
}

// -1 when they can't be counted.
int CountFiles(const char *directory) {
    int count = 0;
    const int all = ForEachFile(directory, [&count](const char *, const char *) {
        ++count;
        return 1;
    });
    return all ? count : -1;
}

int CopyFiles(const char *from, const char *to, CopyTeller tell) {
    const int files = CountFiles(from);
    int copied = 0;
    const int all = ForEachFile(from, [&](const char *name, const char *path) {
        char target[JoinedRoom];
        Join(target, to, name);
        if (!CopyFileTo(path, target))
            return 0;
        tell(++copied * 100 / (files > 0 ? files : 1));
        return 1;
    });
    return all && copied == files; // one that the walk passed over would be missing
}

int DeleteFiles(const char *directory) {
    return ForEachFile(directory, [](const char *, const char *path) {
        if (DeleteFileAt(path))
            return 1;
        ReportError(In::DiaGetFile, Trouble::FileDelete);
        return 0;
    });
}

int DeleteDirectory(const char *directory) {
    const int there = DirectoryThere(directory);
    return there == 0 || (there == 1 && DeleteFiles(directory) && RemoveEmptyDirectory(directory));
}

// A whole number of records, as far as the kind is known; a configuration has to be there.
bool WholeRecords(const char *name, const char *path) {
    const char *digits = name + sizeof DataPrefix - 1;
    if (digits[0] != '0' || digits[1] < '0' || digits[1] > '9')
        return true;
    const auto kind = static_cast<FileKind>(digits[1] - '0');
    const int file = OpenFile(path, OpenExisting);
    const int64_t length = file < 0 ? -1 : FileLength(file);
    if (file >= 0)
        ReleaseFile(file);
    return length >= 0 && length % RecordSize(kind) == 0 && (length > 0 || kind != FileKind::Configuration);
}

// A kill between the two renames below has left the earlier backup aside.
void BringBackAside(const char *directory) {
    char backup[JoinedRoom], aside[JoinedRoom];
    Join(backup, directory, BackupName);
    Join(aside, directory, AsideName);
    if (DirectoryThere(aside) == 1 && DirectoryThere(backup) == 0)
        static_cast<void>(MoveFileTo(aside, backup));
}

int HoldsBackup(const char *directory) {
    char backup[JoinedRoom];
    BringBackAside(directory);
    Join(backup, directory, BackupName);
    int files = 0;
    const int whole = DirectoryThere(backup) == 1 && ForEachFile(backup, [&files](const char *name, const char *path) {
                          if (std::strncmp(name, DataPrefix, sizeof DataPrefix - 1) != 0)
                              return 1;
                          ++files;
                          return WholeRecords(name, path) ? 1 : 0;
                      });
    return whole && files >= FewestFiles;
}

// The new copy takes the place of the one before, which is never deleted before the new one bears its name.
int Exchange(const char *directory) {
    char backup[JoinedRoom], work[JoinedRoom], aside[JoinedRoom];
    Join(backup, directory, BackupName);
    Join(work, directory, WorkName);
    Join(aside, directory, AsideName);
    if (!DeleteDirectory(aside))
        return 0;
    const int stands = DirectoryThere(backup);
    if (stands < 0 || (stands == 1 && !MoveFileTo(backup, aside)))
        return 0;
    if (!MoveFileTo(work, backup)) {
        BringBackAside(directory);
        return 0;
    }
    static_cast<void>(DeleteDirectory(aside)); // told by the log; the backup is made
    return 1;
}

// 1 for a place among the program's own directories: a backup there would be a part of what is replaced.
bool LiesWithinData(const char *directory) {
    return std::strncmp(directory, ProgramPlace, sizeof ProgramPlace - 1) == 0;
}

int ReplaceData(const char *backup, CopyTeller tell) {
    return DeleteFiles(DataDirectory) && CopyFiles(backup, DataDirectory, tell);
}

// One action: until it is committed, the data stand as they were; from then on they are the restored ones.
CopyResult RestoreAll(const char *backup, CopyTeller tell) {
    BeginAction();
    if (!ReplaceData(backup, tell)) {
        AbortAction();
        return CopyResult::Unwritten;
    }
    if (!CommitAction())
        return CopyResult::Unwritten;
    ForgetHistory();
    return CopyResult::Done;
}

CopyResult BackUpAll(const char *directory, CopyTeller tell) {
    char work[JoinedRoom];
    Join(work, directory, WorkName);
    BringBackAside(directory);
    if (DirectoryThere(work) == 1)
        return CopyResult::InTheWay;
    if (!MakeDirectory(work))
        return CopyResult::Unwritten;
    const int files = CountFiles(DataDirectory);
    if (files > 0 && CopyFiles(DataDirectory, work, tell) && Exchange(directory))
        return CopyResult::Done;
    static_cast<void>(DeleteDirectory(work));
    return files == 0 ? CopyResult::Nothing : CopyResult::Unwritten;
}

// Outside the action of the event that asks for it.
template <typename Work> CopyResult OutsideActions(const Work &work) {
    const int paused = PauseAction();
    const CopyResult result = paused < 0 ? CopyResult::Unwritten : work();
    ResumeAction(paused);
    return result;
}

} // namespace

int ValidBackup(const char *directory) {
    const int paused = PauseAction(); // what a card refuses concerns no data
    const int valid = HoldsBackup(directory);
    ResumeAction(paused);
    return valid;
}

CopyResult MakeBackup(const char *directory, CopyTeller tell) {
    if (LiesWithinData(directory))
        return CopyResult::Unsuitable;
    return OutsideActions([&] { return BackUpAll(directory, tell); });
}

CopyResult RestoreBackup(const char *directory, CopyTeller tell) {
    char backup[JoinedRoom];
    Join(backup, directory, BackupName);
    if (!ValidBackup(directory))
        return CopyResult::Invalid;
    if (DirectoryThere(TransferDirectory) == 1)
        return CopyResult::InTheWay;
    return OutsideActions([&] { return RestoreAll(backup, tell); });
}

int FinishRestore() {
    if (DirectoryThere(TransferDirectory) != 1 || CountFiles(TransferDirectory) < FewestFiles)
        return 0;
    BeginAction();
    const int moved = MakeDirectory(DataDirectory) && CopyFiles(TransferDirectory, DataDirectory, [](int) {}) &&
                      DeleteDirectory(TransferDirectory);
    if (!moved)
        AbortAction();
    return moved && CommitAction();
}
