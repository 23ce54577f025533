// The lines of a text file that someone else wrote, whatever its character set and line ends: read in chunks, given as
// UTF-8. A file that is no valid UTF-8 is Windows-1252; a file of 16-bit text is known by its byte order mark, or by
// the zero bytes beside its first two characters. Byte order marks and zero bytes go.
#pragma once

#include <cstdint>

enum class TextCode : uint8_t { Utf8, Windows1252, Utf16Low, Utf16High };

struct TextFile {
    int Handle = -1;
    TextCode Code;
    int64_t Length, At; // bytes of the file; where the next chunk begins
    int Broken;         // 1 when a read brought less than the file holds: what was read is not the whole
    int WasReturn;      // 1 behind a carriage return: a line feed is then no line end of its own
    int Count, Next;    // bytes in Ready, and the next of them
    int RawCount, RawNext;
    char16_t High; // first half of a character of two units
    char Ready[8]; // one character
    unsigned char Raw[1 << 15];
};

// Opens the file at a device path and finds out its character set. 0 when it can't be opened or read.
[[nodiscard]] int OpenText(TextFile *text, const char *path);
// Back to the first line.
void RewindText(TextFile *text);
void CloseText(TextFile *text);

// The next byte of UTF-8, with '\n' for any line end; -1 at the end of the file.
int NextUnit(TextFile *text);
// The next line without its end. What does not fit into `room` is left out up to the line's end, a character whole or
// not at all. 0 at the end of the file.
[[nodiscard]] int NextLine(TextFile *text, char *line, int room);
// 0 to 100: how much of the file has been read.
int PercentRead(const TextFile *text);

// Cuts a text of UTF-8 to at most `bytes`, a character whole or not at all.
void CutNarrow(char *text, int bytes);
// Removes blanks at the end; the first unit that is no blank.
char *Trimmed(char *text);
