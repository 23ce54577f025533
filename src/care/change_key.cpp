#include "care/change_key.h"
#include "care/pause.h"
#include "cipher/hooks.h"
#include "cipher/keys.h"
#include "platform/action.h"
#include "platform/cipher.h"
#include "platform/history.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "store/catalogue.h"
#include "store/configuration.h"
#include "store/runs.h"
#include "store/side_files.h"
#include <cstdio>
#include <cstring>
#include <iterator>

namespace {

// Behind the transaction files, in this order. The configuration, CHART and COL never hold a cipher.
constexpr FileKind FixedFiles[] = {FileKind::Notepad, FileKind::Accounts,   FileKind::Recurring,   FileKind::Templates,
                                   FileKind::Bin,     FileKind::Categories, FileKind::Conversions, FileKind::Check};
constexpr char TransactionPrefix[] = "E1_02";

struct Change {
    int32_t From, To; // keys
    int Steps, Done;  // files
    ChangeTeller Tell;
    KeyChange Result;
};

// The only kind without a version byte is the notepad.
bool Believed(FileKind kind, const uint8_t *record) {
    return kind == FileKind::Notepad || record[0] == RecordVersion;
}

uint8_t *RecordBytes(FileKind kind, int32_t index) {
    return state.RunBuffer + int64_t{index} * RecordSize(kind);
}

// The records of the run in the buffer. A file whose first record no loader would believe is not to be re-enciphered:
// it is under a third key, or damaged, and what it holds would be lost for good.
int RekeyRun(const Change &change, FileKind kind, int32_t count, int isFirst) {
    for (int32_t index = 0; index < count; ++index) {
        uint8_t *record = RecordBytes(kind, index);
        if (!DecipherUnder(change.From, kind, record) || (isFirst && index == 0 && !Believed(kind, record)))
            return 0;
        if (change.To == NoKey)
            continue;
        if (!EncipherUnder(change.To, kind, record))
            return 0;
    }
    return 1;
}

// The check record of the new key, whatever stood there: without its text no code would ever be right again.
int WriteCheckRecord(const Change &change) {
    ConfRecFile whole = {};
    whole.Rec.Version = RecordVersion;
    CopyText(whole.Rec.PassCheck, static_cast<int>(std::size(whole.Rec.PassCheck)), PassCheckText);
    const int file = OpenDataFile(FileKind::Check, OpenOrCreate);
    const int written = EncipherUnder(change.To, FileKind::Check, &whole) && WriteFileAt(file, 0, &whole, sizeof whole);
    CloseFile(file);
    return written;
}

KeyChange RekeyOpened(const Change &change, FileKind kind, int file) {
    const int32_t count = CountRecords(file, kind);
    for (int32_t first = 1; first <= count;) {
        const int32_t run = ReadRun(file, kind, first, count - first + 1);
        if (run == 0)
            return KeyChange::Unwritten;
        if (!RekeyRun(change, kind, run, first == 1))
            return KeyChange::Damaged;
        if (!WriteRun(file, kind, 0, run, first))
            return KeyChange::Unwritten;
        first += run;
    }
    // What is no whole record means nothing; under the new key it would stand in the old one.
    const int64_t whole = int64_t{count} * RecordSize(kind);
    return FileLength(file) == whole || CutFile(file, whole) ? KeyChange::Done : KeyChange::Unwritten;
}

void RekeyFile(Change *change, FileKind kind, const char *path) {
    if (change->Result != KeyChange::Done)
        return;
    if (FileThere(path) == 1) {
        const int file = OpenFile(path, OpenExisting);
        change->Result = file < 0 ? KeyChange::Unwritten : RekeyOpened(*change, kind, file);
        if (file >= 0)
            ReleaseFile(file);
    }
    if (change->Result == KeyChange::Damaged)
        TraceNarrow(path);
    change->Tell(++change->Done * 100 / change->Steps);
}

int CountTransactionFiles() {
    FileWalk walk;
    char name[PathRoom];
    int count = 0;
    FindNames(&walk, DataDirectory, TransactionPrefix);
    while (FindNextName(&walk, name, sizeof name))
        ++count;
    EndFind(&walk);
    return count;
}

void RekeyAll(Change *change) {
    FileWalk walk;
    char name[PathRoom], path[PathRoom * 2];
    change->Steps = CountTransactionFiles() + static_cast<int>(std::size(FixedFiles));
    FindNames(&walk, DataDirectory, TransactionPrefix);
    while (FindNextName(&walk, name, sizeof name)) {
        std::snprintf(path, sizeof path, "%s\\%s", DataDirectory, name);
        RekeyFile(change, FileKind::Transactions, path);
    }
    EndFind(&walk);
    // A file met twice would be under the new key twice.
    if (change->Done != change->Steps - static_cast<int>(std::size(FixedFiles)) && change->Result == KeyChange::Done)
        change->Result = KeyChange::Unwritten;
    for (const FileKind kind : FixedFiles) {
        DataPath(path, kind);
        if (kind != FileKind::Check)
            RekeyFile(change, kind, path);
        else if (change->Result == KeyChange::Done && !WriteCheckRecord(*change))
            change->Result = KeyChange::Unwritten;
    }
}

int WriteSettings(int on, const uint8_t *salt) {
    ConfRec record;
    if (!ReadConfiguration(&record, In::StoreConfFile))
        return 0;
    record.PasswordOn = static_cast<uint32_t>(on);
    record.CipherSuite = on ? SealedSuite : BlockSuite;
    std::memcpy(record.KeySalt, salt, sizeof record.KeySalt);
    return WriteConfiguration(&record, In::StoreConfFile);
}

// 1 when the code is the one in force, under the present suite.
int IsCodeInForce(const char16_t *text) {
    if (state.CurrentKey == NoKey || state.CipherSuite != SealedSuite)
        return state.CurrentKey == NoKey && TextLength(text) == 0;
    ConfRecFile check;
    const int file = OpenDataFile(FileKind::Check, OpenExisting);
    const int there = ReadFileAt(file, 0, &check, sizeof check) == sizeof check;
    if (file >= 0)
        CloseFile(file);
    const int32_t key = there ? DeriveKey(text, SealedSuite, state.KeySalt) : NoKey;
    const int same = key != NoKey && DecipherUnder(key, FileKind::Check, &check);
    ForgetKey(key);
    return same;
}

// Outside any action; is one.
KeyChange ChangeAll(Change *change, int on, const uint8_t *salt) {
    BeginAction();
    RekeyAll(change);
    if (change->Result == KeyChange::Done && !WriteSettings(on, salt))
        change->Result = KeyChange::Unwritten;
    if (change->Result != KeyChange::Done)
        AbortAction();
    else if (!CommitAction())
        change->Result = KeyChange::Unwritten;
    return change->Result;
}

void TakeNewKey(int32_t key, int on, const uint8_t *salt) {
    ForgetCurrentKey();
    state.CurrentKey = key;
    state.PasswordOn = static_cast<uint32_t>(on);
    state.CipherSuite = on ? SealedSuite : BlockSuite;
    std::memcpy(state.KeySalt, salt, sizeof state.KeySalt);
    ForgetHistory();                // what was kept is under the old key
    static_cast<void>(SyncFiles()); // and so was what the journal still held; when it can't be cut now, it is later
}

} // namespace

KeyChange ChangeKey(const char16_t *newText, ChangeTeller tell) {
    if (IsCodeInForce(newText))
        return KeyChange::Done;
    const int on = TextLength(newText) > 0;
    uint8_t salt[SaltBytes] = {};
    Change change = {state.CurrentKey, NoKey, 0, 0, tell, KeyChange::Done};
    if (on) {
        change.To = FillUnforeseeable(salt, SaltBytes) ? DeriveKey(newText, SealedSuite, salt) : NoKey;
        if (change.To == NoKey)
            return KeyChange::NoCipher;
    }
    const int paused = PauseAction();
    const KeyChange result = paused < 0 ? KeyChange::Unwritten : ChangeAll(&change, on, salt);
    if (result == KeyChange::Done)
        TakeNewKey(change.To, on, salt);
    else
        ForgetKey(change.To);
    ResumeAction(paused);
    if (result == KeyChange::Done)
        tell(100);
    return result;
}
