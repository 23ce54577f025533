#include "store/runs.h"
#include "state/state.h"
#include "store/catalogue.h"

namespace {

int32_t Least(int32_t a, int32_t b) {
    return a < b ? a : b;
}
int32_t Most(int32_t a, int32_t b) {
    return a > b ? a : b;
}

int MoveUp(int handle, FileKind kind, int32_t from, int32_t count, int32_t to);

// A write may end half done, its first part standing in the file. On the way toward the head any number of records
// may then go in one write: up to the point where it broke each record stands one place lower, from there on each is
// still where it was, and the one between stands whole at one of the two.
int MoveDown(int handle, FileKind kind, int32_t from, int32_t count, int32_t to) {
    for (int32_t done = 0; done < count;) {
        const int32_t run = ReadRun(handle, kind, from + done, count - done);
        if (run == 0)
            return 0;
        if (!WriteRun(handle, kind, 0, run, to + done)) {
            if (WriteRun(handle, kind, 0, run, from + done))
                static_cast<void>(MoveUp(handle, kind, to, done, from));
            return 0;
        }
        done += run;
    }
    return 1;
}

// Toward the end a write that breaks off has covered a record that stands nowhere else yet. Files break only between
// pages, so records whose payload lies in one page may go together; a record across two pages goes alone, over one that
// already stands whole further up, and so may as many as the distance. Position `end` (from 1) is the place behind
// them.
int32_t SafePiece(FileKind kind, int32_t end, int32_t distance) {
    constexpr int64_t PageBytes = 4096; // the smallest of any machine
    const int64_t size = RecordSize(kind);
    const int64_t lastByte = (end - 1) * size - (size - PayloadSize(kind)) - 1;
    const int64_t page = lastByte / PageBytes * PageBytes;
    return Most(distance, static_cast<int32_t>(end - 1 - (page + size - 1) / size));
}

// The file grows first, by what lands behind its end; then the rest follows from the tail on. The last run, which is
// all of it for nearly every entry an owner makes, goes in safe pieces. What stands further from the end goes in whole
// runs, at a tenth of the time: between two writes one record is doubled and none is lost, but a process killed inside
// such a write could lose one.
int MoveUp(int handle, FileKind kind, int32_t from, int32_t count, int32_t to) {
    const int64_t length = FileLength(handle);
    const int32_t distance = to - from;
    const int32_t firstNew = Least(Most(to, CountRecords(handle, kind) + 1), to + count);
    for (int32_t at = firstNew; at < to + count;) {
        const int32_t run = ReadRun(handle, kind, at - distance, to + count - at);
        if (run == 0 || !WriteRun(handle, kind, 0, run, at)) {
            static_cast<void>(CutFile(handle, length));
            return 0;
        }
        at += run;
    }
    for (int32_t left = firstNew - to; left > 0;) {
        const int32_t run = Least(left, RunLength(kind));
        const bool isLastRun = run == left;
        left -= run;
        if (ReadRun(handle, kind, from + left, run) != run)
            return 0;
        for (int32_t index = run; index > 0;) {
            const int32_t end = to + left + index;
            const int32_t piece = isLastRun ? Least(index, SafePiece(kind, end, distance)) : run;
            index -= piece;
            if (!WriteRun(handle, kind, index, piece, end - piece)) {
                const int32_t back = end - distance; // what stood from here on stands whole at `end`
                if (WriteRun(handle, kind, index, piece, back - piece) &&
                    MoveDown(handle, kind, end, from + count - back, back))
                    static_cast<void>(CutFile(handle, length));
                return 0;
            }
        }
    }
    return 1;
}

} // namespace

int32_t RunLength(FileKind kind) {
    return RunBytes / RecordSize(kind);
}

int32_t ReadRun(int handle, FileKind kind, int32_t first, int32_t most) {
    const int size = RecordSize(kind);
    const int64_t bytes = int64_t{Least(most, RunLength(kind))} * size;
    return static_cast<int32_t>(ReadFileAt(handle, (first - int64_t{1}) * size, state.RunBuffer, bytes) / size);
}

void *RunRecord(FileKind kind, int32_t index) {
    return state.RunBuffer + int64_t{index} * RecordSize(kind);
}

int WriteRun(int handle, FileKind kind, int32_t index, int32_t count, int32_t first) {
    const int64_t size = RecordSize(kind);
    const int written = WriteFileAt(handle, (first - 1) * size, RunRecord(kind, index), count * size);
    state.LastWriteResult = written == 1;
    return written;
}

int MoveRun(int handle, FileKind kind, int32_t from, int32_t count, int32_t to) {
    if (from == to || count < 1)
        return 1;
    return (to > from ? MoveUp : MoveDown)(handle, kind, from, count, to);
}

int32_t CopyRun(int source, FileKind kind, int32_t from, int32_t count, int target, int32_t to) {
    int32_t copied = 0;
    while (copied < count) {
        const int32_t run = ReadRun(source, kind, from + copied, count - copied);
        if (run == 0 || !WriteRun(target, kind, 0, run, to + copied))
            break;
        copied += run;
    }
    return copied;
}
