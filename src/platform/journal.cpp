#include "platform/journal.h"
#include "platform/checksum.h"
#include "platform/disk.h"
#include "platform/paths.h"
#include <cstring>

namespace {

constexpr uint32_t HeadMark = 0x4A31455A, RecordMark = 0x5231455A; // "ZE1J", "ZE1R"
constexpr int64_t HeadDistance = 4096, FirstRecord = 2 * HeadDistance;
constexpr int64_t RecordBytes = 1 << 20; // an action of no more is applied from the memory it was written from
// Written with zeros before it is used, so that a sync of small actions has no lengths or blocks of the file to write.
constexpr int64_t PreparedStep = 256 * 1024;
constexpr uint64_t Generation = uint64_t{1} << 32; // of numbers: one for each time the journal was read

struct Head {
    uint32_t Mark, Sum;   // Sum is that of what follows
    uint64_t Round, Base; // of two heads the higher Round counts; records from number Base on
};
struct RecordHead {
    uint32_t Mark, Sum; // Sum is that of what follows, with the changes
    uint64_t Number;
    uint32_t Bytes;
    uint8_t First, Last; // 1 in the first and in the last record of an action
    uint16_t Spare;
};
static_assert(sizeof(Head) == 24 && sizeof(RecordHead) == 24);

alignas(8) uint8_t Record[sizeof(RecordHead) + RecordBytes];
uint8_t *const Changes = Record + sizeof(RecordHead);

struct Journal {
    int Disk = DiskMissing;
    int Known;          // 1 once read
    int Unsound;        // 1 after a drop that failed
    int HeadStale;      // 1: the head on the disk has an older base than Base
    int64_t End;        // behind the last whole action
    int64_t FileLength; // of the journal's file
    int64_t Reserved;   // behind FileLength, for the files
    int64_t Entered;    // up to here the file may hold bytes of actions that do not count any more
    uint64_t Round, Base, Next;
    // The action that is appended, or was sealed last
    int64_t Start, At; // its first record, where the next one goes
    int64_t Used;      // bytes of changes in the record that is filled
    int64_t LastWrite; // the last change in the record, when it is a Write, else -1
    int64_t LastEnd;   // of its bytes in the file
    char LastPath[PathRoom];
    int Records;
    int Touched; // 1 once the file may hold a part of it
};
Journal journal;

int64_t Least(int64_t a, int64_t b) {
    return a < b ? a : b;
}

int64_t Most(int64_t a, int64_t b) {
    return a > b ? a : b;
}

template <typename Kind> uint32_t SumBehindMark(const Kind &head) {
    constexpr int64_t Skipped = 2 * sizeof(uint32_t);
    return Checksum(0, reinterpret_cast<const uint8_t *>(&head) + Skipped, int64_t{sizeof head} - Skipped);
}

// --- Heads

int WriteHead() {
    Head head = {HeadMark, 0, journal.Round + 1, journal.Base};
    head.Sum = SumBehindMark(head);
    if (!DiskWrite(journal.Disk, head.Round % 2 * HeadDistance, &head, sizeof head))
        return 0;
    ++journal.Round;
    journal.HeadStale = 0;
    return 1;
}

// The base of the heads on the disk into the journal; none valid: as of a journal without actions. 0 on an error.
int ReadHeads() {
    for (int64_t at = 0; at <= HeadDistance; at += HeadDistance) {
        Head head;
        const int64_t read = DiskRead(journal.Disk, at, &head, sizeof head);
        if (read < 0)
            return 0;
        if (read == sizeof head && head.Mark == HeadMark && head.Sum == SumBehindMark(head) &&
            head.Round > journal.Round) {
            journal.Round = head.Round;
            journal.Base = head.Base;
        }
    }
    return 1;
}

// --- Records

// The record at an offset into the buffer. 1; 0 when none stands there whole, -1 on an error.
int ReadRecordAt(int64_t at, RecordHead *head) {
    const int64_t read = DiskRead(journal.Disk, at, Record, sizeof *head);
    if (read < 0)
        return -1;
    std::memcpy(head, Record, sizeof *head);
    if (read < int64_t{sizeof *head} || head->Mark != RecordMark || head->Bytes > RecordBytes)
        return 0;
    const int64_t changes = DiskRead(journal.Disk, at + int64_t{sizeof *head}, Changes, head->Bytes);
    if (changes < 0)
        return -1;
    return changes == head->Bytes && Checksum(SumBehindMark(*head), Changes, head->Bytes) == head->Sum;
}

// The changes of the record in the buffer.
int VisitRecord(int64_t bytes, int (*visit)(const ChangeView &)) {
    ChangeView change;
    int found;
    for (int64_t at = 0; (found = NextChange(Changes, bytes, &at, &change)) == 1;)
        if (!visit(change))
            return 0;
    return found == 0;
}

int VisitFrom(int64_t at, int64_t end, int (*visit)(const ChangeView &)) {
    while (at < end) {
        RecordHead head;
        if (ReadRecordAt(at, &head) != 1 || !VisitRecord(head.Bytes, visit))
            return 0;
        at += int64_t{sizeof head} + head.Bytes;
    }
    return 1;
}

// Follows the records to the end of the last whole action.
int FindEnd() {
    uint64_t last = journal.Base ? journal.Base - 1 : 0;
    int64_t at = FirstRecord;
    int inAction = 0;
    journal.End = FirstRecord;
    for (;;) {
        RecordHead head = {};
        const int whole = ReadRecordAt(at, &head);
        if (whole < 0)
            return 0;
        if (at == FirstRecord && head.Mark != 0)
            journal.Entered = journal.FileLength; // whatever ran last was not given the time to clean it
        if (!whole || head.Number <= last || head.First == inAction)
            break;
        last = head.Number;
        at += int64_t{sizeof head} + head.Bytes;
        inAction = !head.Last;
        if (head.Last)
            journal.End = at;
    }
    const uint64_t highest = last > journal.Base ? last : journal.Base; // that an unfinished action may have used
    journal.Next = (highest / Generation + 1) * Generation;
    return 1;
}

// --- The file

int WriteZeros(int64_t from, int64_t end) {
    static const uint8_t zeros[1 << 16] = {};
    for (; from < end; from += int64_t{sizeof zeros})
        if (!DiskWrite(journal.Disk, from, zeros, Least(end - from, sizeof zeros)))
            return 0;
    return 1;
}

int MakeJournal() {
    char host[HostPathRoom], directory[HostPathRoom];
    HostPath(host, JournalPath);
    HostPath(directory, ProgramDirectory);
    journal.Disk = DiskOpen(host, 1);
    if (journal.Disk < 0)
        return 0;
    journal.FileLength = DiskLength(journal.Disk);
    journal.HeadStale = 1;
    return journal.FileLength >= 0 && DiskSyncDirectory(directory);
}

int FlushRecord(int last) {
    RecordHead head = {RecordMark,
                       0,
                       journal.Next++,
                       static_cast<uint32_t>(journal.Used),
                       journal.Records == 0,
                       static_cast<uint8_t>(last),
                       0};
    head.Sum = Checksum(SumBehindMark(head), Changes, journal.Used);
    std::memcpy(Record, &head, sizeof head);
    const int64_t bytes = int64_t{sizeof head} + journal.Used;
    journal.Touched = 1;
    if (!DiskWrite(journal.Disk, journal.At, Record, bytes))
        return 0;
    if (!last)
        DiskHasten(journal.Disk, journal.At, bytes);
    journal.At += bytes;
    ++journal.Records;
    journal.Used = 0;
    journal.LastWrite = -1;
    if (journal.At > journal.FileLength) {
        const int64_t end = (journal.At + PreparedStep - 1) / PreparedStep * PreparedStep;
        if (last && !WriteZeros(journal.At, end))
            return 0;
        journal.FileLength = last ? end : journal.At;
    }
    return 1;
}

} // namespace

void CloseJournal() {
    if (journal.Disk >= 0)
        DiskClose(journal.Disk);
    journal = {};
    journal.End = FirstRecord;
}

int ReadJournal() {
    if (journal.Known)
        return 1;
    CloseJournal();
    char host[HostPathRoom];
    HostPath(host, JournalPath);
    journal.Disk = DiskOpen(host, 0);
    if (journal.Disk == DiskRefused)
        return 0;
    if (journal.Disk >= 0) {
        journal.FileLength = DiskLength(journal.Disk);
        if (journal.FileLength < 0 || !ReadHeads() || !FindEnd()) {
            CloseJournal();
            return 0;
        }
    }
    if (journal.Next == 0)
        journal.Next = Generation;
    if (journal.End == FirstRecord) {
        journal.Base = journal.Next;
        journal.HeadStale = 1;
    }
    journal.Known = 1;
    return 1;
}

int64_t JournalBytes() {
    return journal.End - FirstRecord;
}

int VisitJournal(int (*visit)(const ChangeView &)) {
    return VisitFrom(FirstRecord, journal.End, visit);
}

void BeginRecords() {
    journal.Start = journal.At = journal.End;
    journal.Used = 0;
    journal.Records = journal.Touched = 0;
    journal.LastWrite = -1;
}

int AppendChange(const ChangeView &change) {
    const int64_t at = journal.Used;
    const bool goesOn = change.What == Change::Write && journal.LastWrite >= 0 && change.Offset == journal.LastEnd &&
                        std::strcmp(change.Path, journal.LastPath) == 0;
    if (goesOn && ExtendWrite(Changes, RecordBytes, &journal.Used, journal.LastWrite, change.Data, change.Bytes)) {
        journal.LastEnd += change.Bytes;
        return 1;
    }
    journal.LastWrite = -1;
    if (PutChange(Changes, RecordBytes, &journal.Used, change)) {
        if (change.What == Change::Write) {
            journal.LastWrite = at;
            journal.LastEnd = change.Offset + change.Bytes;
            std::strcpy(journal.LastPath, change.Path);
        }
        return 1;
    }
    ChangeView rest = change;
    while (rest.What == Change::Write && rest.Bytes > 0) {
        ChangeView part = rest;
        const int64_t room = (RecordBytes - journal.Used - ChangeRoom(rest.Path, 0)) / 8 * 8;
        if (room > 0) {
            part.Bytes = Least(rest.Bytes, room);
            if (!PutChange(Changes, RecordBytes, &journal.Used, part))
                return 0;
            rest.Offset += part.Bytes;
            rest.Data += part.Bytes;
            rest.Bytes -= part.Bytes;
        }
        if (rest.Bytes > 0 && !FlushRecord(0))
            return 0;
    }
    return rest.What == Change::Write || (FlushRecord(0) && PutChange(Changes, RecordBytes, &journal.Used, change));
}

int RecordsEmpty() {
    return journal.Used == 0 && journal.Records == 0;
}

int SealRecords() {
    if (!FlushRecord(1) || !DiskSync(journal.Disk))
        return 0;
    journal.End = journal.At;
    return 1;
}

void DropRecords() {
    journal.Entered = Most(journal.Entered, journal.At + int64_t{sizeof Record});
    journal.At = journal.Start;
    if (!journal.Touched)
        return;
    static const RecordHead nothing = {};
    if (!DiskWrite(journal.Disk, journal.Start, &nothing, sizeof nothing) || !DiskSync(journal.Disk))
        journal.Unsound = 1;
}

int JournalSound() {
    return !journal.Unsound;
}

int VisitLastAction(int (*visit)(const ChangeView &)) {
    if (journal.Records > 1)
        return VisitFrom(journal.Start, journal.End, visit);
    const int64_t bytes = journal.End - journal.Start - int64_t{sizeof(RecordHead)};
    return VisitRecord(bytes, visit); // it still stands in the buffer
}

int ReserveJournal(int64_t bytes, int64_t further) {
    if (journal.Disk < 0 && !MakeJournal())
        return 0;
    if (journal.FileLength == 0) {
        if (!DiskReserve(journal.Disk, 0, PreparedStep) || !WriteZeros(0, PreparedStep))
            return 0;
        journal.FileLength = PreparedStep;
    }
    if (journal.HeadStale && !WriteHead())
        return 0;
    const int64_t heads = (bytes / RecordBytes + 2) * int64_t{sizeof(RecordHead)};
    const int64_t end = journal.End + bytes + heads;
    const int64_t prepared = (end + PreparedStep - 1) / PreparedStep * PreparedStep;
    const int64_t growth = (prepared > journal.FileLength ? prepared - journal.FileLength : 0) + further;
    journal.Reserved = further;
    return growth == 0 || DiskReserve(journal.Disk, journal.FileLength, growth);
}

void ReleaseRoom() {
    // What was reserved behind the end goes when the length is set; it is no error when it stays.
    if (journal.Reserved > 0)
        static_cast<void>(DiskCut(journal.Disk, journal.FileLength));
    journal.Reserved = 0;
}

int CutJournal() {
    if (journal.Disk < 0)
        return 1;
    journal.Base = journal.Next;
    journal.Unsound = 1; // until it is known which head stands on the disk
    if (!WriteHead() || !DiskSync(journal.Disk))
        return 0;
    journal.Unsound = 0;
    journal.Entered = Most(journal.Entered, journal.End);
    journal.End = journal.Start = journal.At = FirstRecord;
    journal.Records = 0;
    return 1;
}

void CleanJournal() {
    if (journal.Disk < 0 || journal.End != FirstRecord || journal.Entered <= FirstRecord)
        return;
    // Room that was used once is kept: a file that has its blocks and its length is synced in half the time.
    if (journal.FileLength > JournalLimit && DiskCut(journal.Disk, JournalLimit))
        journal.FileLength = JournalLimit;
    constexpr int64_t Second = FirstRecord + HeadDistance; // the first bytes go last: a start sees by them what is left
    if (WriteZeros(Second, Least(journal.Entered, journal.FileLength)) && WriteZeros(FirstRecord, Second) &&
        DiskSync(journal.Disk))
        journal.Entered = FirstRecord;
}

uint64_t JournalNumber() {
    return journal.Next;
}
