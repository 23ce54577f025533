#include "exchange/csv_form.h"
#include "exchange/amount_form.h"
#include <cstring>

namespace {

constexpr int MostFields = 16, FieldRoom = 256;
// ORDER CSVCOLUMN: date, title, reference, units, value, total, reconciled, type, balance
constexpr int TitleColumn = 1, RefColumn = 2, ValueColumn = 4, TotalColumn = 5, TypeColumn = 7, BalanceColumn = 8;

struct Field {
    char Text[FieldRoom];
    bool Quoted, NeedsQuotes; // in quotes; and holding what only quotes can hold together
};

// The first mark outside quotes that can stand between fields.
char SeparatorOf(const char *line) {
    bool quoted = false;
    for (; *line; ++line) {
        if (*line == '"')
            quoted = !quoted;
        else if (!quoted && (*line == ',' || *line == ';' || *line == '\t'))
            return *line;
    }
    return ',';
}

// One field from `at` on; behind it and its separator. Quotes that do not enclose the whole field are text.
const char *TakeField(const char *at, char separator, Field *field) {
    *field = {};
    int length = 0;
    const auto add = [&](char unit) {
        if (length < FieldRoom - 1)
            field->Text[length++] = unit;
    };
    const char *start = at;
    if (*at == '"') {
        for (++at; *at && !(*at == '"' && at[1] != '"'); ++at) {
            field->NeedsQuotes |= *at == separator || *at == '"';
            at += *at == '"';
            add(*at);
        }
        if (*at == '"' && (!at[1] || at[1] == separator)) {
            field->Quoted = true;
            ++at;
        } else {
            at = start;
            length = 0;
            field->NeedsQuotes = false;
        }
    }
    for (; !field->Quoted && *at && *at != separator; ++at)
        add(*at);
    field->Text[length] = 0;
    CutNarrow(field->Text, FieldRoom - 2); // a character that did not fit whole goes
    return *at ? at + 1 : at;
}

void Replace(char *text, char from, char to) {
    for (; *text; ++text)
        if (*text == from)
            *text = to;
}

// Writes the field as the reader expects it in that column.
void FormField(int column, char separator, bool allQuoted, Field *field) {
    char *text = field->Text;
    if (column == TitleColumn || column == RefColumn) {
        if (field->Quoted && !field->NeedsQuotes && !allQuoted) { // quotes of the text's own
            const size_t length = std::strlen(text);
            if (length + 3 <= FieldRoom) {
                std::memmove(text + 1, text, length);
                text[0] = text[length + 1] = '"';
                text[length + 2] = 0;
            }
        }
    } else if (column == ValueColumn || column == TotalColumn || column == BalanceColumn) {
        char amount[AmountRoom];
        const DecimalMark mark = separator == ',' ? DecimalMark::Point : DecimalMark::Comma;
        if (*text && FormAmount(text, mark, amount))
            std::strcpy(text, amount);
    }
    Replace(text, ',', ';');
}

void FormLine(char *line, char separator) {
    Field fields[MostFields];
    int count = 0;
    for (const char *at = line; *at && count < MostFields; ++count)
        at = TakeField(at, separator, &fields[count]);
    const bool allQuoted = count > TypeColumn && fields[TypeColumn].Quoted;
    int length = 0;
    for (int column = 0; column < count; ++column) {
        FormField(column, separator, allQuoted, &fields[column]);
        const int bytes = static_cast<int>(std::strlen(fields[column].Text));
        if (length + bytes + 2 > CsvLineRoom)
            break;
        if (column > 0)
            line[length++] = ',';
        std::memcpy(line + length, fields[column].Text, static_cast<size_t>(bytes));
        length += bytes;
    }
    line[length] = 0;
}

// A line of nothing but its own format's marks needs no forming.
bool IsFormed(const char *line, char separator) {
    return separator == ',' && !std::strchr(line, '"');
}

// The first column; 0 when its date has an order that is not known yet: the line is passed over.
int FormFirstColumn(DateOrder order, char *line) {
    char date[FieldRoom], rest[CsvLineRoom];
    const size_t bytes = std::strcspn(line, ",");
    if (bytes >= FieldRoom || bytes == 0)
        return 1;
    std::memcpy(date, line, bytes);
    date[bytes] = 0;
    if (!FormDate(order, date, FieldRoom))
        return 0;
    if (std::strlen(date) == bytes && std::memcmp(date, line, bytes) == 0)
        return 1;
    const size_t length = std::strlen(date);
    std::strcpy(rest, line + bytes);
    CutNarrow(rest, CsvLineRoom - 1 - static_cast<int>(length));
    std::memcpy(line, date, length);
    std::strcpy(line + length, rest);
    return 1;
}

} // namespace

void StartCsv(CsvForm *form, TextFile *text, DateOrder order) {
    RewindText(text);
    form->Text = text;
    form->Order = order;
}

char *NextCsvLine(CsvForm *form) {
    while (NextLine(form->Text, form->Line, CsvLineRoom)) {
        char *line = form->Line;
        if (line[std::strspn(line, " \t,;")] == 0)
            continue; // a spreadsheet's empty row
        const char separator = SeparatorOf(line);
        if (!IsFormed(line, separator))
            FormLine(line, separator);
        if (FormFirstColumn(form->Order, line))
            return line;
    }
    return nullptr;
}
