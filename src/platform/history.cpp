#include "platform/history.h"
#include "platform/action.h"
#include "platform/files.h"
#include "platform/keeping.h"
#include <cstring>
#include <initializer_list>

namespace {

constexpr int MostActions = 100;
constexpr int64_t RoomBytes = 16 << 20;

// Both stacks share the room: what can be undone grows from its begin, what can be done again from its end.
enum StackName : int { Done, Undone, StackCount };
struct Entry {
    int64_t From, Bytes; // in the room, and how many
    int Label;
};
struct Stack {
    Entry Entries[MostActions];
    int Count;
};
alignas(8) uint8_t Room[RoomBytes];
Stack stacks[StackCount];

// What the action that runs is: a new one, an undo, or a redo.
struct Turn {
    int From = -1; // the stack that its changes come from
    uint32_t Action;
};
Turn turn;

// What the commit shows, at the place where it will stay.
struct Filling {
    Keeping How;
    int To; // the stack
    int64_t At, Used, Limit;
    int TooLarge;
    int Conflicts; // a silent action changed what a kept one has changed
};
Filling filling;

int64_t EndOf(const Stack &stack) {
    if (stack.Count == 0)
        return 0;
    const Entry &last = stack.Entries[stack.Count - 1];
    return last.From + last.Bytes;
}

int64_t StartOf(const Stack &stack) {
    return stack.Count == 0 ? RoomBytes : stack.Entries[stack.Count - 1].From;
}

// The oldest actions that can be undone are given up. Their room comes back with Compact.
void DropOldest(int count) {
    Stack &done = stacks[Done];
    done.Count -= count;
    for (int i = 0; i < done.Count; ++i)
        done.Entries[i] = done.Entries[i + count];
}

int64_t StartOfDone() {
    return stacks[Done].Count > 0 ? stacks[Done].Entries[0].From : 0;
}

// What can be undone goes to the begin of the room.
void Compact() {
    const int64_t before = StartOfDone();
    if (before == 0)
        return;
    std::memmove(Room, Room + before, static_cast<size_t>(EndOf(stacks[Done]) - before));
    for (int i = 0; i < stacks[Done].Count; ++i)
        stacks[Done].Entries[i].From -= before;
}

// Half of what the room holds of them.
void DropHalf() {
    const int64_t middle = StartOfDone() + (EndOf(stacks[Done]) - StartOfDone()) / 2;
    int count = 0;
    while (count < stacks[Done].Count && stacks[Done].Entries[count].From < middle)
        ++count;
    DropOldest(count);
}

// What was kept at `at` goes where it is to stay.
void Settle(int64_t at, int64_t to, int64_t bytes) {
    if (at != to)
        std::memmove(Room + to, Room + at, static_cast<size_t>(bytes));
}

bool Overlaps(const ChangeView &a, const ChangeView &b) {
    if (std::strcmp(a.Path, b.Path) != 0)
        return false;
    if (a.What != Change::Write || b.What != Change::Write)
        return true; // the whole file, or its length
    return a.Offset < b.Offset + b.Bytes && b.Offset < a.Offset + a.Bytes;
}

bool OverlapsKept(const ChangeView &change) {
    for (const Stack &stack : stacks)
        for (int i = 0; i < stack.Count; ++i) {
            const Entry &entry = stack.Entries[i];
            ChangeView kept;
            for (int64_t at = 0; NextChange(Room + entry.From, entry.Bytes, &at, &kept) == 1;)
                if (Overlaps(change, kept))
                    return true;
        }
    return false;
}

int WriteBack(const ChangeView &change) {
    switch (change.What) {
    case Change::Delete:
        return DeleteFileAt(change.Path);
    case Change::MakeDirectory:
        return MakeDirectory(change.Path);
    case Change::RemoveDirectory:
        return RemoveEmptyDirectory(change.Path);
    case Change::Take:
        return 0;
    default:
        break;
    }
    const int file = OpenFile(change.Path, OpenOrCreate);
    int done = 0;
    if (change.What == Change::Write)
        done = WriteFileAt(file, change.Offset, change.Data, change.Bytes);
    else
        done = CutFile(file, change.What == Change::Empty ? 0 : change.Offset);
    ReleaseFile(file);
    return done;
}

// Within an action: the last of a stack as its changes. The commit moves it to the other stack.
int TurnBack(int from) {
    Stack &stack = stacks[from];
    if (stack.Count == 0 || ActionChanged())
        return 0;
    const Entry &entry = stack.Entries[stack.Count - 1];
    turn = {from, ActionNumber()};
    NameAction(entry.Label);
    // Directories come to be before what stands in them, and go after it.
    for (const Change first : {Change::MakeDirectory, Change::Write, Change::RemoveDirectory}) {
        ChangeView change;
        for (int64_t at = 0; NextChange(Room + entry.From, entry.Bytes, &at, &change) == 1;) {
            const bool isDirectory = change.What == Change::MakeDirectory || change.What == Change::RemoveDirectory;
            if (first != (isDirectory ? change.What : Change::Write))
                continue;
            if (!WriteBack(change)) {
                RefuseAction();
                return 0;
            }
        }
    }
    return 1;
}

int Turned(int from) {
    if (ActionRuns())
        return TurnBack(from);
    BeginAction();
    const int turned = TurnBack(from);
    if (!turned) {
        AbortAction();
        return 0;
    }
    return CommitAction();
}

// 1 when the action that is committed takes back, or does again, what a stack holds.
int IsTurn() {
    return turn.From >= 0 && turn.Action == ActionNumber();
}

int LabelOf(const Stack &stack) {
    return stack.Count ? stack.Entries[stack.Count - 1].Label : 0;
}

// Above the last of Done, or below the last of Undone: the room between the two.
void FindRoom() {
    filling.At = EndOf(stacks[Done]);
    filling.Limit = StartOf(stacks[Undone]) - filling.At;
    filling.Used = 0;
}

} // namespace

int HistoryCount() {
    return stacks[Done].Count;
}
int RedoCount() {
    return stacks[Undone].Count;
}
int UndoLabel() {
    return LabelOf(stacks[Done]);
}
int RedoLabel() {
    return LabelOf(stacks[Undone]);
}

int UndoAction() {
    return Turned(Done);
}
int RedoAction() {
    return Turned(Undone);
}

void ForgetHistory() {
    for (Stack &stack : stacks)
        stack.Count = 0;
    turn = {};
}

void BeginKeeping(Keeping how) {
    filling = {};
    filling.How = how;
    filling.To = IsTurn() ? 1 - turn.From : Done;
    if (IsTurn())
        filling.How = Keeping::Kept;
    FindRoom();
}

void KeepReplaced(const ChangeView &change) {
    if (filling.How == Keeping::Silent) {
        filling.Conflicts = filling.Conflicts || OverlapsKept(change);
        return;
    }
    while (!filling.TooLarge && !PutChange(Room + filling.At, filling.Limit, &filling.Used, change)) {
        const int64_t used = filling.Used, at = filling.At, needed = used + ChangeRoom(change.Path, change.Bytes);
        if (StartOfDone() == 0) {
            // A new action ends what could be done again, and pushes the oldest out; if that helps nothing it is too
            // large.
            if (IsTurn() || needed > RoomBytes / 2 || stacks[Done].Count + stacks[Undone].Count == 0) {
                filling.TooLarge = 1;
                return;
            }
            stacks[Undone].Count = 0;
            if (filling.Limit == RoomBytes - at || filling.Limit < needed)
                DropHalf();
        }
        Compact();
        FindRoom();
        Settle(at, filling.At, used);
        filling.Used = used;
    }
}

void KeepNothing() {
    filling.TooLarge = 1;
}

void EndKeeping(int done, int label) {
    if (!done) {
        turn = {};
        return;
    }
    if (filling.How == Keeping::Silent) {
        if (filling.Conflicts || filling.TooLarge)
            ForgetHistory();
        return;
    }
    const int turned = IsTurn();
    if (turned)
        --stacks[turn.From].Count;
    turn = {};
    if (!turned)
        stacks[Undone].Count = 0;
    if (filling.TooLarge) {
        if (!turned || filling.To == Done)
            ForgetHistory();
        else
            stacks[Undone].Count = 0;
        return;
    }
    Stack &stack = stacks[filling.To];
    if (filling.To == Done) {
        if (stack.Count == MostActions)
            DropOldest(1);
        Settle(filling.At, EndOf(stack), filling.Used);
        stack.Entries[stack.Count] = {EndOf(stack), filling.Used, label};
    } else {
        const int64_t from = (StartOf(stack) - filling.Used) / 8 * 8;
        Settle(filling.At, from, filling.Used);
        stack.Entries[stack.Count] = {from, filling.Used, label};
    }
    ++stack.Count;
}
