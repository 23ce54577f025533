#include "store/runs.h"
#include "store/catalogue.h"

namespace {

int32_t Least(int32_t a, int32_t b) {
    return a < b ? a : b;
}

// Toward the head from the front on, toward the end from the tail on: no record is covered before it was moved.
int MoveDown(int handle, FileKind kind, int32_t from, int32_t count, int32_t to) {
    for (int32_t done = 0; done < count;) {
        const int32_t run = ReadRun(handle, kind, from + done, count - done);
        if (run == 0 || !WriteRun(handle, kind, 0, run, to + done))
            return 0;
        done += run;
    }
    return 1;
}

int MoveUp(int handle, FileKind kind, int32_t from, int32_t count, int32_t to) {
    for (int32_t left = count; left > 0;) {
        const int32_t run = Least(left, RunLength(kind));
        left -= run;
        if (ReadRun(handle, kind, from + left, run) != run || !WriteRun(handle, kind, 0, run, to + left))
            return 0;
    }
    return 1;
}

} // namespace

int32_t RunLength(FileKind kind) {
    return RunBytes / RecordSize(kind);
}

int32_t ReadRun(int handle, FileKind kind, int32_t first, int32_t most, int32_t index) {
    const int64_t size = RecordSize(kind);
    const int64_t bytes = Least(most, RunLength(kind) - index) * size;
    const int64_t arrived = ReadFileAt(handle, (first - 1) * size, state.RunBuffer + index * size, bytes);
    return arrived < 0 ? 0 : static_cast<int32_t>(arrived / size);
}

int WriteRun(int handle, FileKind kind, int32_t index, int32_t count, int32_t first) {
    const int64_t size = RecordSize(kind);
    return WriteFileAt(handle, (first - 1) * size, state.RunBuffer + index * size, count * size);
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
