#include "exchange/text_lines.h"
#include "platform/files.h"
#include "platform/text.h"
#include <cstring>

namespace {

constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";
constexpr int MarkBytes = 3;

bool FollowsUp(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// Whether bytes that come one by one are UTF-8.
struct Utf8Check {
    int Missing = 0;                       // bytes of the present character still to come
    unsigned char Low = 0x80, High = 0xBF; // what the next of them may be
    bool Valid = true;
};

void Check(Utf8Check *check, unsigned char byte) {
    if (check->Missing > 0) {
        check->Valid &= byte >= check->Low && byte <= check->High;
        check->Low = 0x80, check->High = 0xBF;
        --check->Missing;
    } else if (byte >= 0x80) {
        check->Valid &= byte >= 0xC2 && byte <= 0xF4;
        check->Missing = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : 1;
        // No over-long form, no surrogate, nothing past the last character.
        check->Low = byte == 0xE0 ? 0xA0 : byte == 0xF0 ? 0x90 : 0x80;
        check->High = byte == 0xED ? 0x9F : byte == 0xF4 ? 0x8F : 0xBF;
    }
}

// A read that fails ends the text as well, but leaves it broken.
int ReadChunk(TextFile *text) {
    const int64_t arrived = ReadFileAt(text->Handle, text->At, text->Raw, sizeof text->Raw);
    text->RawNext = 0;
    text->RawCount = arrived > 0 ? static_cast<int>(arrived) : 0;
    text->At += text->RawCount;
    if (arrived < 0 || (arrived == 0 && text->At < text->Length))
        text->Broken = 1;
    return text->RawCount;
}

// -1 at the end.
int NextRaw(TextFile *text) {
    if (text->RawNext == text->RawCount && !ReadChunk(text))
        return -1;
    return text->Raw[text->RawNext++];
}

TextCode CodeOf(TextFile *text) {
    Utf8Check check;
    TextCode code = TextCode::Utf8;
    for (bool first = true; ReadChunk(text) > 0; first = false) {
        const unsigned char *raw = text->Raw;
        if (first && text->RawCount >= 2) {
            const bool two = text->RawCount >= 4;
            if ((raw[0] == 0xFF && raw[1] == 0xFE) || (two && raw[0] && !raw[1] && raw[2] && !raw[3]))
                return TextCode::Utf16Low;
            if ((raw[0] == 0xFE && raw[1] == 0xFF) || (two && !raw[0] && raw[1] && !raw[2] && raw[3]))
                return TextCode::Utf16High;
        }
        for (int i = 0; i < text->RawCount && check.Valid; ++i)
            Check(&check, raw[i]);
        if (!check.Valid)
            code = TextCode::Windows1252;
    }
    return check.Missing > 0 ? TextCode::Windows1252 : code;
}

// One character beyond the first 128 into Ready.
void MakeReady(TextFile *text, const char16_t *character) {
    text->Count = NarrowText(text->Ready, sizeof text->Ready, character);
    text->Next = 0;
}

void ReadyWindows(TextFile *text, int byte) {
    const char narrow[2] = {static_cast<char>(byte), 0}; // alone it is no valid UTF-8
    char16_t wide[4];
    WidenText(wide, 4, narrow);
    MakeReady(text, wide);
}

// The next unit of 16-bit text into Ready. 0 at the end.
int ReadyWide(TextFile *text) {
    const int first = NextRaw(text), second = first < 0 ? -1 : NextRaw(text);
    if (second < 0)
        return 0;
    const int unit = text->Code == TextCode::Utf16Low ? second << 8 | first : first << 8 | second;
    char16_t wide[3] = {static_cast<char16_t>(unit), 0, 0};
    text->Count = text->Next = 0;
    if (unit == 0 || unit == 0xFEFF)
        return 1;
    if ((unit & 0xFC00) == 0xD800) {
        text->High = wide[0];
        return 1;
    }
    if (text->High && (unit & 0xFC00) == 0xDC00)
        wide[0] = text->High, wide[1] = static_cast<char16_t>(unit);
    text->High = 0;
    MakeReady(text, wide);
    return 1;
}

int NextByte(TextFile *text) {
    for (;;) {
        if (text->Next < text->Count)
            return static_cast<unsigned char>(text->Ready[text->Next++]);
        if (text->Code == TextCode::Utf16Low || text->Code == TextCode::Utf16High) {
            if (!ReadyWide(text))
                return -1;
            continue;
        }
        const int byte = NextRaw(text);
        if (byte == 0)
            continue;
        if (byte < 0x80 || text->Code == TextCode::Utf8)
            return byte;
        ReadyWindows(text, byte);
    }
}

} // namespace

int OpenText(TextFile *text, const char *path) {
    text->Handle = OpenFile(path, OpenExisting);
    if (text->Handle < 0)
        return 0;
    text->Length = FileLength(text->Handle);
    text->At = 0;
    text->Broken = 0;
    text->Code = CodeOf(text);
    if (text->Length < 0 || text->Broken) {
        CloseText(text);
        return 0;
    }
    RewindText(text);
    return 1;
}

void RewindText(TextFile *text) {
    text->At = 0;
    text->WasReturn = 0;
    text->Count = text->Next = text->RawCount = text->RawNext = 0;
    text->High = 0;
    if (ReadChunk(text) >= MarkBytes && std::memcmp(text->Raw, ByteOrderMark, MarkBytes) == 0)
        text->RawNext = MarkBytes;
}

void CloseText(TextFile *text) {
    static_cast<void>(ReleaseFile(text->Handle)); // it was only read
    text->Handle = -1;
}

int NextUnit(TextFile *text) {
    int byte = NextByte(text);
    if (byte == '\n' && text->WasReturn)
        byte = NextByte(text);
    text->WasReturn = byte == '\r';
    return text->WasReturn ? '\n' : byte;
}

int NextLine(TextFile *text, char *line, int room) {
    int byte = NextUnit(text), length = 0;
    if (byte < 0)
        return 0;
    for (; byte >= 0 && byte != '\n'; byte = NextUnit(text)) {
        if (length < room)
            line[length] = static_cast<char>(byte);
        ++length; // counts on, so that a cut is seen
        length = length > room ? room : length;
    }
    if (length == room) { // the last unit shows where the cut falls
        --length;
        while (length > 0 && FollowsUp(static_cast<unsigned char>(line[length])))
            --length;
    }
    line[length] = 0;
    return 1;
}

int PercentRead(const TextFile *text) {
    return text->Length > 0 ? static_cast<int>(text->At * 100 / text->Length) : 100;
}

void CutNarrow(char *text, int bytes) {
    int length = static_cast<int>(std::strlen(text));
    if (length <= bytes)
        return;
    for (length = bytes; length > 0 && FollowsUp(static_cast<unsigned char>(text[length]));)
        --length;
    text[length] = 0;
}

char *Trimmed(char *text) {
    const auto isBlank = [](char unit) { return unit == ' ' || (unit >= '\t' && unit <= '\r'); };
    size_t length = std::strlen(text);
    while (length > 0 && isBlank(text[length - 1]))
        text[--length] = 0;
    while (isBlank(*text))
        ++text;
    return text;
}
