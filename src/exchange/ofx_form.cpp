#include "exchange/ofx_form.h"
#include "platform/text.h"
#include <cstring>

namespace {

// Tags that the reader compares over their own length alone.
constexpr const char *KnownTags[] = {"OFC",  "OFX",   "/OFC", "/OFX",  "DTPOSTED", "TRNAMT",
                                     "NAME", "PAYEE", "MEMO", "FITID", "BALAMT"};
constexpr char DateTag[] = "DTPOSTED";

bool IsBlank(int unit) {
    return unit == ' ' || (unit >= '\t' && unit <= '\r');
}
bool IsDigit(int unit) {
    return unit >= '0' && unit <= '9';
}
bool IsLetter(int unit) {
    return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z');
}

void Advance(OfxForm *form) {
    form->Unit = form->Ahead;
    form->Ahead = NextUnit(form->Text);
}

// A '<' that begins no tag is a part of the text.
bool AtTag(const OfxForm *form) {
    const int ahead = form->Ahead;
    return form->Unit == '<' && (IsLetter(ahead) || ahead == '/' || ahead == '!' || ahead == '?');
}

struct Taken { // text of a value; entities may shrink it, so it is taken longer first
    char Units[ValueRoom * 4];
    int Length;
};

// Blanks in a row and line ends are one blank.
void Take(Taken *taken, int unit) {
    const bool blank = IsBlank(unit);
    if (blank && (taken->Length == 0 || taken->Units[taken->Length - 1] == ' '))
        return;
    if (taken->Length < static_cast<int>(sizeof taken->Units) - 1)
        taken->Units[taken->Length++] = static_cast<char>(blank ? ' ' : unit);
}

// Reads on to behind the word, or to the end of the file. With `taken` what stands before it is kept.
void PassTo(OfxForm *form, const char *word, Taken *taken) {
    const int length = static_cast<int>(std::strlen(word));
    for (int matched = 0; matched < length && form->Unit >= 0; Advance(form)) {
        if (form->Unit == word[matched]) {
            ++matched;
            continue;
        }
        const bool onceMore = matched == 2 && form->Unit == word[1]; // "--->" and "]]]>" end as well
        for (int i = 0; taken && i < (onceMore ? 1 : matched); ++i)
            Take(taken, word[i]);
        if (onceMore)
            continue;
        matched = form->Unit == word[0];
        if (taken && matched == 0)
            Take(taken, form->Unit);
    }
}

int TakeWord(OfxForm *form, const char *word) {
    for (; *word && form->Unit == *word; ++word)
        Advance(form);
    return !*word;
}

// A comment, a declaration, an instruction, or text that is marked as such: its '<' is the present unit.
void PassMarkup(OfxForm *form, Taken *taken) {
    const bool declaration = form->Ahead == '!';
    Advance(form);
    Advance(form);
    if (declaration && form->Unit == '[')
        PassTo(form, "]]>", TakeWord(form, "[CDATA[") ? taken : nullptr);
    else
        PassTo(form, declaration && form->Unit == '-' ? "-->" : ">", nullptr);
}

// The name of a tag, capital, without what stands before a colon or behind a blank. Reads to behind its '>', or to the
// line's end or the next '<' when there is none.
void TakeTag(OfxForm *form) {
    int length = 0, start = 0;
    bool named = true;
    Advance(form);
    if (form->Unit == '/') {
        form->Tag[length++] = '/';
        start = 1;
        Advance(form);
    }
    for (; form->Unit >= 0 && form->Unit != '>' && form->Unit != '<' && form->Unit != '\n'; Advance(form)) {
        const int unit = form->Unit;
        named &= !IsBlank(unit) && unit != '/';
        if (unit == ':' && named)
            length = start;
        else if (named && length < TagRoom - 1)
            form->Tag[length++] = static_cast<char>(unit >= 'a' && unit <= 'z' ? unit - 'a' + 'A' : unit);
    }
    form->Tag[length] = 0;
    if (form->Unit == '>')
        Advance(form);
}

struct Entity {
    const char *Name, *Character;
};
constexpr Entity Entities[] = {{"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}, {"nbsp", " "}};

// The character of an entity's name, "" when there is none by that name.
void CharacterOf(const char *name, char (&character)[8]) {
    character[0] = 0;
    for (const Entity &entity : Entities)
        if (std::strcmp(name, entity.Name) == 0)
            std::strcpy(character, entity.Character);
    if (*name != '#')
        return;
    const bool hexadecimal = name[1] == 'x' || name[1] == 'X';
    uint32_t code = 0;
    for (const char *at = name + 1 + hexadecimal; *at; ++at) {
        const int digit = IsDigit(*at) ? *at - '0' : hexadecimal && IsLetter(*at) ? (*at | 0x20) - 'a' + 10 : 99;
        if (digit >= (hexadecimal ? 16 : 10) || code > 0x10FFFF)
            return;
        code = code * (hexadecimal ? 16 : 10) + static_cast<uint32_t>(digit);
    }
    if (code == 0 || code > 0x10FFFF)
        return;
    if (code < 0x20)
        code = ' ';
    const char16_t wide[3] = {static_cast<char16_t>(code < 0x10000 ? code : 0xD800 + ((code - 0x10000) >> 10)),
                              static_cast<char16_t>(code < 0x10000 ? 0 : 0xDC00 + ((code - 0x10000) & 0x3FF)), 0};
    NarrowText(character, sizeof character, wide);
}

// Entities of a value become their characters, in place: none is longer than its name. What is no entity stays.
void TurnEntities(char *text) {
    char *to = text;
    for (const char *at = text; *at;) {
        char name[12], character[8] = "";
        int length = 0;
        if (*at == '&')
            while (length < 11 && (IsLetter(at[1 + length]) || IsDigit(at[1 + length]) || at[1 + length] == '#'))
                name[length] = at[1 + length], ++length;
        name[length] = 0;
        if (length > 0 && at[1 + length] == ';')
            CharacterOf(name, character);
        if (*character) {
            const size_t bytes = std::strlen(character);
            std::memcpy(to, character, bytes);
            to += bytes;
            at += length + 2;
        } else {
            *to++ = *at++;
        }
    }
    *to = 0;
}

// 2012-03-31 becomes 20120331; whatever follows stays.
void TurnDate(char *value) {
    const auto isMark = [](char unit) { return unit == '-' || unit == '/' || unit == '.'; };
    static constexpr char shape[] = "dddd-dd-dd";
    for (int i = 0; shape[i]; ++i)
        if (!(shape[i] == 'd' ? IsDigit(value[i]) : isMark(value[i])))
            return;
    std::memmove(value + 4, value + 5, 2);
    std::memmove(value + 6, value + 8, std::strlen(value + 8) + 1);
}

// Text up to the next tag.
void TakeValue(OfxForm *form) {
    Taken taken;
    taken.Length = 0;
    while (form->Unit >= 0) {
        if (!AtTag(form)) {
            Take(&taken, form->Unit);
            Advance(form);
        } else if (form->Ahead == '!' || form->Ahead == '?') {
            PassMarkup(form, &taken);
        } else {
            break;
        }
    }
    taken.Units[taken.Length] = 0;
    TurnEntities(taken.Units);
    char *value = Trimmed(taken.Units);
    CutNarrow(value, ValueRoom - 1);
    std::strcpy(form->Value, value);
}

bool OnlyBeginsAsKnown(const char *tag) {
    for (const char *known : KnownTags)
        if (std::strncmp(tag, known, std::strlen(known)) == 0 && std::strcmp(tag, known) != 0)
            return true;
    return false;
}

// The closing tag of an entry or of the body never goes.
bool ClosesValue(const OfxForm *form) {
    const char *tag = form->Tag;
    return *tag == '/' && std::strcmp(tag + 1, form->LastValued) == 0 && std::strcmp(tag, "/STMTTRN") != 0 &&
           std::strcmp(tag, "/OFX") != 0 && std::strcmp(tag, "/OFC") != 0;
}

} // namespace

void StartOfx(OfxForm *form, TextFile *text) {
    RewindText(text);
    *form = {};
    form->Text = text;
    Advance(form);
    Advance(form);
}

int NextOfxLine(OfxForm *form) {
    for (;;) {
        TakeValue(form); // text that belongs to no tag
        if (form->Unit < 0)
            return 0;
        TakeTag(form);
        const bool goes = OnlyBeginsAsKnown(form->Tag) || ClosesValue(form);
        TakeValue(form);
        std::strcpy(form->LastValued, *form->Value && !goes ? form->Tag : "");
        if (goes)
            continue;
        if (std::strcmp(form->Tag, DateTag) == 0)
            TurnDate(form->Value);
        return 1;
    }
}
