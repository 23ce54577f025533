#include "exchange/qif_import.h"
#include "exchange/qif_form.h"
#include "exchange/scan.h"
#include "platform/text.h"
#include <cstring>
#include <iterator>

namespace {

constexpr int LinesOfDatePass = 1000;
constexpr int NameUnits = 24, MemoUnits = 30;
constexpr int ComparedUnits = 4; // of a security's name

// The content that a header tells. Only as many letters are compared as the row has; AllXfr leaves it to the next
// header.
struct HeaderRow {
    const char *Word;
    ContentKind Content;
};
// clang-format off
constexpr HeaderRow Headers[] = {
    {"Bank",  ContentKind::Money},  {"BANK",  ContentKind::Money},  {"Cash",   ContentKind::Money},
    {"CASH",  ContentKind::Money},  {"CCard", ContentKind::Money},  {"CCARD",  ContentKind::Money},
    {"Invst", ContentKind::Shares}, {"INVST", ContentKind::Shares}, {"AllXfr", ContentKind::Unknown},
    {"ALLXF", ContentKind::Unknown}, // deliberately one letter short
};
// clang-format on

// What a header line tells: Unknown when it is of no use.
ContentKind ContentOf(const char *line) {
    const char *colon = std::strchr(line, ':');
    if (!colon || colon == line)
        return ContentKind::Unknown;
    const char *word = colon + 1;
    while (*word == ' ' || *word == '\t')
        ++word;
    if (!*word)
        return ContentKind::Unknown;
    for (const HeaderRow &row : Headers)
        if (std::strncmp(word, row.Word, std::strlen(row.Word)) == 0)
            return row.Content;
    return ContentKind::Unsupported;
}

// Actions of share entries.
struct ActionRow {
    const char *Word;
    int8_t NoCash, Cash, Outgoing; // 1, 0, or -1 to leave it
};
// clang-format off
constexpr ActionRow Actions[] = {
    {"ShrsIn",   1, -1, -1},
    {"Buy",      0, -1, -1},
    {"Sell",    -1, -1,  1},
    {"MiscExp", -1,  1,  1},
    {"MiscInc", -1,  1,  0},
    {"Div",     -1,  1,  0},
    {"ShrsOut",  1, -1,  1},
};
// clang-format on

struct EntryRead {
    TRec Row;
    bool Bad, Skipped, HasDate, HasUnits, HasPrice, Outgoing;
};

struct Reader {
    const ImportTask *Task;
    ImportBatch *Batch;
    QifForm Form;
    EntryRead Entry;
    bool Foreign; // within a section of other content than the first
};

void StartEntry(EntryRead *entry) {
    *entry = {};
    entry->Row = NewRow();
}

FixedAmount Magnitude(FixedAmount value) {
    return value < 0 ? NegateAmount(value) : value;
}

// The order of day and month by the first date that can be only the one or the other, else by the device's.
DateOrder FindOrder(TextFile *text, int dayFirst) {
    QifForm form;
    StartQif(&form, text, DateOrder::Unknown);
    for (int lines = 0; lines < LinesOfDatePass; ++lines) {
        const char *line = NextQifLine(&form);
        if (!line)
            break;
        if (QifLetter(line) != 'D')
            continue;
        Scan scan = {line + 1};
        if (const DateOrder told = OrderToldBy(&scan); told != DateOrder::Unknown)
            return told;
    }
    return dayFirst ? DateOrder::DayFirst : DateOrder::MonthFirst;
}

int32_t CountEntries(TextFile *text, DateOrder order) {
    QifForm form;
    StartQif(&form, text, order);
    int32_t count = 0;
    while (const char *line = NextQifLine(&form))
        count += *line == '^';
    return count;
}

// Only the first useful header counts. A later one of other content begins another account's section.
void TakeHeader(Reader *reader, const char *line) {
    ImportBatch *batch = reader->Batch;
    const ContentKind content = ContentOf(line + 1);
    if (content == ContentKind::Unknown)
        return;
    if (batch->Content != ContentKind::Unknown) {
        reader->Foreign = content != batch->Content;
        return;
    }
    batch->Content = content;
    const bool share = IsShare(reader->Task->AccountKind);
    const bool fits = share ? content == ContentKind::Shares : content == ContentKind::Money;
    batch->Accepted = content != ContentKind::Unsupported && (fits || reader->Task->AccountEmpty);
    if (!batch->Accepted)
        return;
    batch->KindSettled = 1;
    if (!fits)
        batch->AccountKind = share ? BankAccount : ShareNumber;
}

// A year of two digits is of the last century behind a stroke, of this one behind anything else.
void TakeDate(Reader *reader, const char *text) {
    EntryRead &entry = reader->Entry;
    Scan scan = {text};
    ScannedDate read;
    if (ScanDate(&scan, &read) < 5) {
        entry.Bad = true;
        return;
    }
    if (read.Third < 100)
        read.Third += read.SecondMark == '/' ? 1900 : 2000;
    const bool dayFirst = reader->Form.Order == DateOrder::DayFirst;
    if (!DateOf(read.Third, dayFirst ? read.Second : read.First, dayFirst ? read.First : read.Second,
                &entry.Row.Date)) {
        entry.Bad = true;
        return;
    }
    entry.HasDate = true;
    entry.Skipped |= entry.Row.Date.DayNumber < reader->Task->FirstDay;
}

void TakeSecurity(Reader *reader, const char *text) {
    const char16_t *wanted = reader->Task->Security;
    if (!wanted || !*wanted)
        return;
    char16_t security[SecurityRoom];
    WidenText(security, SecurityRoom, text);
    if (TextLength(security) != TextLength(wanted) || !SameText(security, wanted, ComparedUnits))
        reader->Entry.Skipped = true;
}

void TakeAction(EntryRead *entry, const char *text) {
    if (!*text)
        return;
    for (const ActionRow &action : Actions) {
        if (std::strcmp(text, action.Word) != 0)
            continue;
        if (action.NoCash >= 0)
            entry->Row.NoCash = static_cast<uint32_t>(action.NoCash);
        if (action.Cash >= 0)
            entry->Row.Cash = static_cast<uint32_t>(action.Cash);
        if (action.Outgoing >= 0)
            entry->Outgoing = action.Outgoing != 0;
        return;
    }
    entry->Bad = true;
}

void TakeMoneyLine(Reader *reader, char letter, const char *text) {
    EntryRead &entry = reader->Entry;
    switch (letter) {
    case 'T':
        entry.Bad |= reader->Form.BadAmount != 0;
        entry.Row.Value = Str_int64(text);
        entry.Row.Units = 1;
        break;
    case 'Q':
        entry.HasUnits |= *text != 0;
        break;
    case 'I':
        entry.HasPrice |= *text != 0;
        break;
    case 'P':
        TakeText(entry.Row.Name, text, NameUnits);
        break;
    case 'M':
        TakeText(entry.Row.Memo, text, MemoUnits);
        break;
    }
}

void TakeShareLine(Reader *reader, char letter, const char *text) {
    EntryRead &entry = reader->Entry;
    switch (letter) {
    case 'Q':
        if (!*text)
            break;
        entry.Bad |= reader->Form.BadAmount != 0;
        entry.HasUnits = true;
        entry.Row.Units = Str_int(text);
        if (entry.Row.Units < 0)
            entry.Row.Units = entry.Row.Units == INT32_MIN ? INT32_MAX : -entry.Row.Units;
        break;
    case 'I':
        if (!*text)
            break;
        entry.Bad |= reader->Form.BadAmount != 0;
        entry.HasPrice = true;
        entry.Row.Value = Magnitude(Str_int64(text));
        break;
    case 'T':
        if (entry.HasPrice)
            break;
        entry.Bad |= reader->Form.BadAmount != 0;
        entry.Row.Value = Magnitude(Str_int64(text));
        break;
    case 'Y':
        TakeSecurity(reader, text);
        break;
    case 'P':
        TakeText(entry.Row.Memo, text, MemoUnits);
        break;
    case 'M':
        TakeText(entry.Row.Name, text, NameUnits);
        break;
    case 'N':
        TakeAction(&entry, text);
        break;
    }
}

void FinishEntry(Reader *reader) {
    ImportBatch *batch = reader->Batch;
    EntryRead &entry = reader->Entry;
    TRec &row = entry.Row;
    Outcome outcome = Outcome::Unreadable;
    if (!batch->Accepted || reader->Foreign) {
        // as it stands
    } else if (entry.Skipped) {
        outcome = Outcome::AsRequested;
    } else if (!entry.Bad && entry.HasDate) {
        outcome = Outcome::WellFormed;
        if (row.Cash) {
            row.CashAmount = entry.Outgoing ? NegateAmount(row.Value) : row.Value;
            row.NoCash = 0;
        } else if (!IsShare(batch->AccountKind)) {
            outcome = entry.HasUnits || entry.HasPrice ? Outcome::BadlyFormed : Outcome::WellFormed;
        } else {
            row.Units = (entry.HasUnits ? row.Units : 1) * (entry.Outgoing ? -1 : 1);
        }
    }
    AddEntry(batch, row, outcome);
    ++batch->Finished;
    StartEntry(&entry);
}

void TakeLine(Reader *reader, const char *line) {
    const char letter = QifLetter(line);
    const char *text = line + 1;
    if (letter == '!')
        TakeHeader(reader, line);
    else if (letter == '^')
        FinishEntry(reader);
    else if (letter == 'D')
        TakeDate(reader, text);
    else if (letter == 'C')
        reader->Entry.Row.Cleared |= *text == 'X' || *text == 'x';
    else if (reader->Batch->Content == ContentKind::Money)
        TakeMoneyLine(reader, letter, text);
    else if (reader->Batch->Content == ContentKind::Shares)
        TakeShareLine(reader, letter, text);
}

void AddSecurity(SecurityList *list, const char *name) {
    char16_t security[SecurityRoom];
    WidenText(security, SecurityRoom, name);
    for (int i = 0; i < list->Count; ++i)
        if (SameText(list->Names[i], security))
            return;
    if (list->Count < MostSecurities)
        CopyText(list->Names[list->Count++], SecurityRoom, security);
}

} // namespace

void ReadQif(TextFile *text, const ImportTask &task, ImportBatch *batch) {
    StartBatch(batch, task);
    const DateOrder order = FindOrder(text, task.DayFirst);
    batch->Total = CountEntries(text, order);
    Reader reader = {};
    reader.Task = &task;
    reader.Batch = batch;
    StartQif(&reader.Form, text, order);
    StartEntry(&reader.Entry);
    while (batch->Finished < ImportLimit) {
        const char *line = NextQifLine(&reader.Form);
        if (!line)
            break;
        TakeLine(&reader, line);
        TellReading(batch, task, PercentRead(text));
    }
}

int ReadSecurities(TextFile *text, SecurityList *list) {
    list->Count = 0;
    QifForm form;
    StartQif(&form, text, DateOrder::DayFirst);
    int shares = 0;
    while (const char *line = NextQifLine(&form)) {
        if (*line == '!') {
            const ContentKind content = ContentOf(line + 1);
            if (content == ContentKind::Unknown)
                continue;
            if (content != ContentKind::Shares)
                return shares;
            shares = 1;
        } else if ((*line == 'Y' || *line == 'y') && line[1]) {
            AddSecurity(list, line + 1);
        }
    }
    return shares;
}
