#include "exchange/line_writer.h"
#include "platform/text.h"
#include <cstdio>
#include <cstring>

namespace {

void Flush(LineWriter *writer) {
    if (writer->Count > 0 && !writer->Failed && !WriteFileAt(writer->Handle, writer->At, writer->Ready, writer->Count))
        writer->Failed = 1;
    writer->At += writer->Count;
    writer->Count = 0;
}

// Where the next bytes go; there is room for that many.
char *RoomFor(LineWriter *writer, int bytes) {
    if (writer->Count + bytes > static_cast<int>(sizeof writer->Ready))
        Flush(writer);
    return writer->Ready + writer->Count;
}

constexpr int NumberRoom = 32;

// Writes the digits backward, ending before `end`. Where they begin.
char *WriteDigits(char *end, uint64_t value, int digits) {
    char *at = end;
    do {
        *--at = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value > 0);
    while (end - at < digits)
        *--at = '0';
    return at;
}

void WriteBytes(LineWriter *writer, const char *from, int bytes) {
    std::memcpy(RoomFor(writer, bytes), from, static_cast<size_t>(bytes));
    writer->Count += bytes;
}

} // namespace

int BeginFile(LineWriter *writer, const char *path) {
    writer->Failed = writer->Count = 0;
    writer->At = 0;
    writer->Handle = -1;
    if (std::snprintf(writer->Path, PathRoom, "%s", path) >= PathRoom ||
        std::snprintf(writer->Beside, PathRoom, "%s~", path) >= PathRoom)
        return 0;
    writer->Handle = OpenFile(writer->Beside, OpenOrCreate);
    if (writer->Handle >= 0 && CutFile(writer->Handle, 0))
        return 1;
    DropFile(writer);
    return 0;
}

int EndFile(LineWriter *writer) {
    Flush(writer);
    const int closed = ReleaseFile(writer->Handle);
    writer->Handle = -1;
    if (!writer->Failed && closed && MoveFileTo(writer->Beside, writer->Path))
        return 1;
    static_cast<void>(DeleteFileAt(writer->Beside)); // nothing more can be done about it
    return 0;
}

void DropFile(LineWriter *writer) {
    if (writer->Handle < 0)
        return;
    static_cast<void>(ReleaseFile(writer->Handle)); // nobody will read it
    writer->Handle = -1;
    static_cast<void>(DeleteFileAt(writer->Beside));
}

void WriteAscii(LineWriter *writer, const char *text) {
    WriteBytes(writer, text, static_cast<int>(std::strlen(text)));
}

void WriteWhole(LineWriter *writer, int64_t value, int digits) {
    char text[NumberRoom], *end = text + NumberRoom;
    char *at = WriteDigits(end, value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value), digits);
    if (value < 0)
        *--at = '-';
    WriteBytes(writer, at, static_cast<int>(end - at));
}

void WriteDecimal(LineWriter *writer, FixedAmount value, int decimals) {
    char text[NumberRoom], *end = text + NumberRoom;
    const auto fraction = static_cast<uint64_t>(decimals == 3 ? FractionPart(value) : FractionPart(value) / 10);
    char *at = WriteDigits(end, fraction, decimals);
    *--at = '.';
    at = WriteDigits(at, WholeMagnitude(value), 1);
    if (value < 0)
        *--at = '-';
    WriteBytes(writer, at, static_cast<int>(end - at));
}

void WriteText(LineWriter *writer, const char16_t *text, char forComma, int width) {
    char *to = RoomFor(writer, ExportTextBytes + 1 + width);
    int length = 0;
    while (length < ExportTextBytes && text[length] && text[length] < 0x80) {
        to[length] = static_cast<char>(text[length]);
        ++length;
    }
    if (text[length] && length < ExportTextBytes)
        length = NarrowText(to, ExportTextBytes + 1, text);
    for (int i = 0; i < length; ++i)
        to[i] = to[i] == ',' ? forComma : static_cast<unsigned char>(to[i]) < ' ' ? ' ' : to[i];
    while (length < width)
        to[length++] = ' ';
    writer->Count += length;
}
