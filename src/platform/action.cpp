#include "platform/action.h"
#include "platform/disk.h"
#include "platform/journal.h"
#include "platform/keeping.h"
#include "platform/overlay.h"
#include "platform/paths.h"
#include "platform/recovery.h"
#include <cstring>

namespace {

struct Running {
    int Begun;
    ActionRefusal Refusal;
    int Label;
};
Running action;
uint32_t Number;

// --- What the journal and the files will need

int64_t JournalNeeds(const OverlayFile &file) {
    const int64_t length = file.Length > file.DiskLength && file.PageCount > 0 ? PageBytes : 0;
    return 3 * ChangeRoom(file.Path, 0) + file.PageCount * (ChangeRoom(file.Path, 0) + PageBytes) + length;
}

// Bytes that the files will grow by on the disk. A file that is not there yet can't take its room; the journal takes it
// for the file and lets it go when the file is about to be written.
int ReserveRoom() {
    int64_t journal = 0, ofNewFiles = 0;
    for (int32_t row = -1; (row = NextOverlay(row)) >= 0;) {
        OverlayFile *file = OverlayRow(row);
        if (!file->Changed)
            continue;
        journal += JournalNeeds(*file);
        if (file->Now != Stands::File || file->Shadow)
            continue;
        const int64_t growth = file->Length - file->DiskLength;
        if (file->OnDisk != Stands::File)
            ofNewFiles += file->Length;
        else if (OverlayDisk(file) < 0 || !DiskReserve(file->Disk, growth > 0 ? file->DiskLength : 0,
                                                       growth > 0 ? growth : 1)) // asks whether it can be written, too
            return 0;
    }
    return ReserveJournal(journal, ofNewFiles);
}

// --- What takes the action back

constexpr int64_t PieceBytes = 16384;

// 0: they can't be read, and an action that can't be taken back any more is none that should be done.
int KeepBytes(OverlayFile *file, int64_t from, int64_t end) {
    static uint8_t piece[PieceBytes];
    while (from < end) {
        const int64_t bytes = end - from < PieceBytes ? end - from : PieceBytes;
        if (OverlayDisk(file) < 0 || DiskRead(file->Disk, from, piece, bytes) != bytes) {
            RefuseActionFor(ReadRefused);
            return 0;
        }
        KeepReplaced({Change::Write, file->Path, from, piece, bytes});
        from += bytes;
    }
    return 1;
}

int KeepPage(OverlayFile *file, const PageChange &change) {
    const int64_t counted = file->BaseLength - change.Offset; // what lies behind is kept as a whole
    const int64_t bytes = counted < change.Count ? counted : change.Count;
    if (bytes > 0)
        KeepReplaced({Change::Write, file->Path, change.Offset, change.Before, bytes});
    return 1;
}

int KeepFile(OverlayFile *file) {
    if (file->Shadow) {
        KeepNothing();
        return 1;
    }
    if (file->OnDisk == Stands::Nothing) {
        if (file->Now == Stands::File)
            KeepReplaced({Change::Delete, file->Path, 0, nullptr, 0});
        return 1;
    }
    if (file->Emptied) {
        KeepReplaced({Change::Empty, file->Path, 0, nullptr, 0});
        return KeepBytes(file, 0, file->DiskLength);
    }
    if (file->Length != file->DiskLength || file->BaseLength != file->DiskLength) {
        KeepReplaced({Change::Length, file->Path, file->DiskLength, nullptr, 0});
        return KeepBytes(file, file->BaseLength, file->DiskLength);
    }
    return 1;
}

// --- Into the journal

int AppendPage(OverlayFile *file, const PageChange &change) {
    static_cast<void>(KeepPage(file, change));
    return AppendChange({Change::Write, file->Path, change.Offset, change.Bytes, change.Count});
}

int AppendFile(OverlayFile *file) {
    if (!KeepFile(file))
        return 0;
    const auto append = [file](Change what, int64_t offset) {
        return AppendChange({what, file->Path, offset, nullptr, 0});
    };
    if (file->Shadow) {
        char shadow[PathRoom];
        ShadowPath(shadow, *file);
        return AppendChange({Change::Take, file->Path, 0, reinterpret_cast<const uint8_t *>(shadow),
                             static_cast<int64_t>(std::strlen(shadow)) + 1});
    }
    if (file->Now == Stands::Nothing)
        return file->OnDisk == Stands::Nothing || append(Change::Delete, 0);
    if (file->Emptied && !append(Change::Empty, 0))
        return 0;
    if (!file->Emptied && file->BaseLength < file->DiskLength && !append(Change::Length, file->BaseLength))
        return 0;
    if (!VisitPages(file, AppendPage))
        return 0;
    return file->Length == (file->Emptied ? 0 : file->BaseLength) || append(Change::Length, file->Length);
}

// Directories come to be before what stands in them, and go after it.
int AppendDirectories(Stands now) {
    const Change what = now == Stands::Directory ? Change::MakeDirectory : Change::RemoveDirectory;
    const Change back = now == Stands::Directory ? Change::RemoveDirectory : Change::MakeDirectory;
    for (int32_t row = -1; (row = NextOverlay(row)) >= 0;) {
        const OverlayFile *file = OverlayRow(row);
        const bool was = file->OnDisk == Stands::Directory, is = file->Now == Stands::Directory;
        if (was == is || is != (now == Stands::Directory))
            continue;
        KeepReplaced({back, file->Path, 0, nullptr, 0});
        if (!AppendChange({what, file->Path, 0, nullptr, 0}))
            return 0;
    }
    return 1;
}

// 1 when bytes were really changed.
int AppendAction(int *anything) {
    BeginRecords();
    if (!AppendDirectories(Stands::Directory))
        return 0;
    for (int32_t row = -1; (row = NextOverlay(row)) >= 0;) {
        OverlayFile *file = OverlayRow(row);
        if (file->Changed && (file->OnDisk == Stands::File || file->Now == Stands::File) && !AppendFile(file))
            return 0;
    }
    if (!AppendDirectories(Stands::Nothing))
        return 0;
    *anything = !RecordsEmpty();
    return 1;
}

int SealShadows() {
    for (int32_t row = -1; (row = NextOverlay(row)) >= 0;)
        if (!SealShadow(OverlayRow(row)))
            return 0;
    return 1;
}

void EndAction(int shadows) {
    if (!OverlayStandsIn())
        ClearOverlay(shadows);
    action.Begun = 0;
}

// Makes the action durable. 0 when it is to be dropped.
int WriteAction(int *anything) {
    const int alone = OverlayStandsAlone();
    // When a shadow has taken a name, or a directory is gone, earlier changes to what bore the name may not be made
    // once more. So these come to the disk for good before, and the action itself right after.
    if (alone && JournalBytes() > 0 && !SyncApplied())
        return 0;
    if (!SealShadows() || !ReserveRoom())
        return 0;
    const int sealed = AppendAction(anything) && (!*anything || SealRecords());
    if (!sealed)
        DropRecords();
    ReleaseRoom();
    return sealed;
}

} // namespace

void BeginAction() {
    if (action.Begun) {
        RefuseAction();
        return;
    }
    action = {};
    action.Begun = 1;
    ++Number;
    static_cast<void>(ReadyForActions()); // a change will ask
}

int CommitAction() {
    if (!action.Begun)
        return 0;
    if (action.Refusal != NotRefused) {
        AbortAction();
        return 0;
    }
    if (!ActionChanged()) {
        EndAction(0);
        return 1;
    }
    int anything = 0;
    const int alone = OverlayStandsAlone();
    BeginKeeping(action.Label ? Keeping::Kept : Keeping::Silent);
    if (!WriteAction(&anything)) {
        EndKeeping(0, 0);
        RefuseActionFor(WriteRefused);
        AbortAction();
        return 0;
    }
    EndKeeping(anything, action.Label);
    // From here on the action is done, whatever the machine says: when the files can't be written now, the overlay
    // stands for them until they can.
    const int applied = !anything || ApplyLastAction();
    EndAction(!anything);
    if (!applied)
        return 1;
    if (alone || JournalBytes() > JournalLimit)
        static_cast<void>(SyncApplied()); // when it fails, the next action tries again
    return 1;
}

void AbortAction() {
    if (action.Begun)
        EndAction(1);
}

int ActionRefused() {
    return action.Refusal;
}

void RefuseAction() {
    RefuseActionFor(WriteRefused);
}

void RefuseActionFor(ActionRefusal reason) {
    if (action.Begun && action.Refusal == NotRefused)
        action.Refusal = reason;
}

int ActionRuns() {
    return action.Begun;
}

uint32_t ActionNumber() {
    return Number;
}

int ActionChanged() {
    if (action.Begun && !OverlayStandsIn())
        for (int32_t row = -1; (row = NextOverlay(row)) >= 0;)
            if (OverlayRow(row)->Changed)
                return 1;
    return 0;
}

void NameAction(int label) {
    action.Label = label;
}
