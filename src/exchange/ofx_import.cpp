#include "exchange/ofx_import.h"
#include "exchange/amount_form.h"
#include "exchange/ofx_form.h"
#include "exchange/scan.h"
#include "platform/text.h"
#include <cstring>

namespace {

constexpr int NameUnits = 24, LongUnits = 31;
constexpr int IdentityWidth = 30, IdentityHead = 16, IdentityTail = 15;
constexpr char EntryTag[] = "STMTTRN", EntryEndTag[] = "/STMTTRN";

struct Reader {
    const ImportTask *Task;
    ImportBatch *Batch;
    TRec Row;
    bool InBody, InEntry, Skipped, HasDate;
};

void StartEntry(Reader *reader) {
    reader->Row = NewRow();
    reader->Skipped = reader->HasDate = false;
}

void BeginBody(Reader *reader, const char *) {
    reader->InBody = true;
    reader->InEntry = false;
}
void EndBody(Reader *reader, const char *) {
    reader->InBody = reader->InEntry = false;
}

// YYYYMMDD; a time and a zone behind it are dropped.
void TakeDate(Reader *reader, const char *value) {
    char digits[9] = "";
    std::strncat(digits, value, 8);
    Scan scan = {digits};
    int32_t number = 0;
    if (!ScanNumber(&scan, &number) || number < 0 ||
        !DateOf(number / 10000, number / 100 % 100, number % 100, &reader->Row.Date)) {
        reader->InEntry = false;
        return;
    }
    reader->HasDate = true;
    if (reader->Row.Date.DayNumber < reader->Task->FirstDay) {
        reader->Skipped = true;
        reader->InEntry = false;
    }
}

// A comma is a decimal point here.
void TakeAmount(Reader *reader, const char *value) {
    char amount[AmountRoom];
    if (!FormAmount(value, DecimalMark::Comma, amount)) {
        reader->InEntry = false;
        return;
    }
    reader->Row.Value = Str_int64(amount);
    reader->Row.Units = 1;
}

void TakeName(Reader *reader, const char *value) {
    if (!*reader->Row.Name)
        TakeText(reader->Row.Name, value, NameUnits);
}
void TakePayee(Reader *reader, const char *value) {
    if (!*reader->Row.Name)
        TakeText(reader->Row.Name, value, LongUnits);
}
void TakeMemo(Reader *reader, const char *value) {
    TakeText(reader->Row.Memo, value, LongUnits);
}
void TakeIdentity(Reader *reader, const char *value) {
    if (*value)
        KeepIdentity(reader->Row.FITID, value);
}

// The last one counts.
void TakeBalance(Reader *reader, const char *value) {
    char amount[AmountRoom];
    if (!FormAmount(value, DecimalMark::Comma, amount))
        return;
    reader->Batch->StatementBalance = Str_int64(amount);
    reader->Batch->HasStatementBalance = 1;
}

// Tags are compared over the length of their row.
struct TagRow {
    const char *Tag;
    bool InEntryAlone;
    void (*Take)(Reader *reader, const char *value);
};
// clang-format off
constexpr TagRow Tags[] = {
    {"OFC",      false, BeginBody},  {"OFX",    false, BeginBody},   {"/OFC",  false, EndBody},
    {"/OFX",     false, EndBody},    {"BALAMT", false, TakeBalance}, {"NAME",  true,  TakeName},
    {"DTPOSTED", true,  TakeDate},   {"TRNAMT", true,  TakeAmount},  {"PAYEE", true,  TakePayee},
    {"MEMO",     true,  TakeMemo},   {"FITID",  true,  TakeIdentity},
};
// clang-format on

void FinishEntry(Reader *reader) {
    Outcome outcome = Outcome::Unreadable;
    if (reader->InBody && reader->Skipped)
        outcome = Outcome::AsRequested;
    else if (reader->InBody && reader->InEntry && reader->HasDate)
        outcome = Outcome::WellFormed;
    if (!*reader->Row.Name)
        CopyText(reader->Row.Name, NameUnits + 1, reader->Row.Memo);
    AddEntry(reader->Batch, reader->Row, outcome);
    ++reader->Batch->Finished;
    StartEntry(reader);
    reader->InEntry = false;
}

void TakeLine(Reader *reader, const char *tag, const char *value) {
    if (std::strcmp(tag, EntryTag) == 0) {
        StartEntry(reader);
        reader->InEntry = reader->InBody;
    } else if (std::strcmp(tag, EntryEndTag) == 0) {
        FinishEntry(reader);
    }
    for (const TagRow &row : Tags)
        if (std::strncmp(tag, row.Tag, std::strlen(row.Tag)) == 0 && (reader->InEntry || !row.InEntryAlone))
            row.Take(reader, value);
}

int32_t CountEntries(TextFile *text) {
    OfxForm form;
    StartOfx(&form, text);
    int32_t count = 0;
    while (NextOfxLine(&form))
        count += std::strcmp(form.Tag, EntryTag) == 0;
    return count;
}

} // namespace

void ReadOfx(TextFile *text, const ImportTask &task, ImportBatch *batch) {
    StartBatch(batch, task);
    batch->Content = ContentKind::Money;
    batch->Accepted = !IsShare(task.AccountKind) || task.AccountEmpty;
    batch->Total = CountEntries(text);
    Reader reader = {};
    reader.Task = &task;
    reader.Batch = batch;
    StartEntry(&reader);
    OfxForm form;
    StartOfx(&form, text);
    while (batch->Finished < ImportLimit && NextOfxLine(&form)) {
        TakeLine(&reader, form.Tag, form.Value);
        TellReading(batch, task, PercentRead(text));
    }
    if (reader.InBody && batch->Count > 0 && batch->Finished < ImportLimit) {
        batch->KindSettled = 1;
        batch->AccountKind = BankAccount;
    }
}

void KeepIdentity(char16_t (&to)[TextRoom], const char *value) {
    char16_t wide[ValueRoom];
    const int length = WidenText(wide, ValueRoom, value);
    char16_t kept[TextRoom] = {};
    if (length >= TextRoom) {
        CopyText(kept, IdentityHead + 1, wide);
        AppendText(kept, TextRoom, wide + length - IdentityTail);
    } else {
        for (int i = length; i < IdentityWidth; ++i)
            AppendText(kept, TextRoom, u" ");
        AppendText(kept, TextRoom, wide);
    }
    CopyText(to, TextRoom, kept);
}
