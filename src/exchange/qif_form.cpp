#include "exchange/qif_form.h"
#include "exchange/amount_form.h"
#include <cstdio>
#include <cstring>

namespace {

char Lower(char unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit;
}

// 1 when the text begins with the word, in any case.
int BeginsWith(const char *text, const char *word) {
    for (; *word; ++word, ++text)
        if (Lower(*text) != Lower(*word))
            return 0;
    return 1;
}

// The words of "!Type:" in the form that the reader knows; those of a list are passed over with all that follows.
struct TypeRow {
    const char *Word;
    bool IsList;
};
// clang-format off
constexpr TypeRow Types[] = {
    {"Bank",      false}, {"Cash",     false}, {"CCard",    false}, {"Invst",   false}, {"AllXfr", false},
    {"Cat",       true},  {"Class",    true},  {"Security", true},  {"Prices",  true},  {"Memorized", true},
    {"Memorised", true},  {"Tag",      true},  {"Budget",   true},  {"InvItem", true},  {"Template", true},
};
// clang-format on

// 1 when the header line is to be given.
int TakeHeader(QifForm *form) {
    char *word = Trimmed(form->Line + 1);
    if (BeginsWith(word, "option") || BeginsWith(word, "clear"))
        return 0;
    form->Passing = BeginsWith(word, "account") ? PassAccount : PassNothing;
    if (form->Passing)
        return 0;
    const char *colon = std::strchr(word, ':');
    if (!BeginsWith(word, "type") || !colon)
        return 1;
    char value[QifLineRoom];
    std::strcpy(value, colon + 1);
    const char *type = Trimmed(value);
    for (const TypeRow &row : Types)
        if (BeginsWith(type, row.Word)) {
            form->Passing = row.IsList ? PassList : PassNothing;
            type = row.Word;
            break;
        }
    std::snprintf(form->Line, sizeof form->Line, "!Type:%.*s", QifLineRoom - 8, type);
    return !form->Passing;
}

// 1 when the line goes with what is passed over.
int PassOver(QifForm *form, const char *line) {
    const char letter = QifLetter(line);
    if (form->Passing == PassBehindAccount && letter == 'D' && line[1] >= '0' && line[1] <= '9')
        form->Passing = PassNothing; // entries without a header of their own
    else if (form->Passing == PassBehindAccount && letter != '^')
        form->Passing = PassAccount;
    else if (form->Passing == PassAccount && letter == '^')
        form->Passing = PassBehindAccount;
    return form->Passing != PassNothing;
}

void TakeAmount(QifForm *form) {
    char amount[AmountRoom];
    if (!*Trimmed(form->Line + 1))
        form->Line[1] = 0;
    else if (FormAmount(form->Line + 1, DecimalMark::Point, amount))
        std::strcpy(form->Line + 1, amount);
    else
        form->BadAmount = 1;
}

} // namespace

void StartQif(QifForm *form, TextFile *text, DateOrder order) {
    RewindText(text);
    *form = {};
    form->Text = text;
    form->Order = order;
}

char *NextQifLine(QifForm *form) {
    char *line = form->Line;
    form->BadAmount = 0;
    for (;;) {
        if (form->Held) {
            form->Held = 0;
        } else {
            char raw[QifLineRoom];
            if (!NextLine(form->Text, raw, QifLineRoom)) {
                if (!form->Open)
                    return nullptr;
                form->Open = 0;
                return std::strcpy(line, "^");
            }
            std::strcpy(line, Trimmed(raw));
        }
        if (!*line || *line == '#')
            continue;
        if (*line == '!') {
            if (form->Open) { // the end of the entry before it is missing
                form->Held = 1;
                form->Open = form->Split = 0;
                return std::strcpy(form->End, "^");
            }
            if (TakeHeader(form))
                return line;
            continue;
        }
        if (PassOver(form, line))
            continue;
        const char letter = QifLetter(line);
        if (letter == '^') {
            if (!form->Open)
                continue;
            form->Open = form->Split = 0;
            line[1] = 0;
            return line;
        }
        if (letter == 'D' && form->Split)
            continue; // the date of a part
        form->Open = 1;
        form->Split |= letter == 'S';
        if (letter == 'D' && !FormDate(form->Order, line + 1, QifLineRoom - 1))
            continue;
        if (letter == 'T' || letter == 'I' || letter == 'Q')
            TakeAmount(form);
        return line;
    }
}

char QifLetter(const char *line) {
    return *line >= 'b' && *line <= 'x' ? static_cast<char>(*line - 'a' + 'A') : *line;
}
