// The files that the owner put into the device's root directory for an import, and the name of one for an export.
#pragma once

#include "platform/files.h"
#include <cstdint>

inline constexpr int MostListed = 256, FileNameRoom = 200;

// Files of one extension, by name.
struct FileList {
    int Count;
    char Names[MostListed][FileNameRoom]; // UTF-8, with the extension as it stands
};

// Reads the root anew: files whose names end in a point and the extension, in any case. At most MostListed of them.
void ListFiles(FileList *list, const char *extension);
// The name without its extension, as a list shows it. Room of FileNameRoom.
void ShownName(const FileList &list, int index, char16_t *to);
// The device path of a file of the root. Room of PathRoom.
void RootPath(char *to, const char *name);

inline constexpr int ExportNameRoom = 32; // units
// Every character but letters, digits and "_" becomes "_", in place.
void CleanName(char16_t *name);
// "Acc_" or, for an archive, "Arc_" and the beginning of the account's name, clean.
void SuggestName(char16_t (&to)[ExportNameRoom], const char16_t *account, int archive);
