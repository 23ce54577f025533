#include "exchange/file_list.h"
#include "platform/text.h"
#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr int AccountUnits = 24;

char Lower(char unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit;
}

// By letters without regard to case; those that differ in nothing else, by case.
int Compare(const char *a, const char *b) {
    const char *first = a, *second = b;
    while (*a && Lower(*a) == Lower(*b))
        ++a, ++b;
    const int order = static_cast<unsigned char>(Lower(*a)) - static_cast<unsigned char>(Lower(*b));
    return order != 0 ? order : std::strcmp(first, second);
}

int EndsIn(const char *name, const char *extension) {
    const char *point = std::strrchr(name, '.');
    if (!point || point == name)
        return 0;
    for (++point; *point && Lower(*point) == Lower(*extension); ++point)
        ++extension;
    return !*point && !*extension;
}

// Into its place by name; the last goes when there are too many.
void Insert(FileList *list, const char *name) {
    int at = list->Count;
    while (at > 0 && Compare(name, list->Names[at - 1]) < 0)
        --at;
    if (at == MostListed)
        return;
    const int moved = std::min(list->Count, MostListed - 1) - at;
    std::memmove(list->Names[at + 1], list->Names[at], static_cast<size_t>(moved) * FileNameRoom);
    std::snprintf(list->Names[at], FileNameRoom, "%s", name);
    list->Count = std::min(list->Count + 1, MostListed);
}

} // namespace

void ListFiles(FileList *list, const char *extension) {
    list->Count = 0;
    FileWalk walk;
    FindNames(&walk, "\\", "");
    char name[FileNameRoom + 1], path[PathRoom];
    while (FindNextName(&walk, name, sizeof name)) {
        if (std::strlen(name) >= FileNameRoom || !EndsIn(name, extension))
            continue;
        RootPath(path, name);
        if (FileThere(path))
            Insert(list, name);
    }
    EndFind(&walk);
}

void ShownName(const FileList &list, int index, char16_t *to) {
    const char *name = list.Names[index];
    WidenText(to, FileNameRoom, name, static_cast<int>(std::strrchr(name, '.') - name));
}

void RootPath(char *to, const char *name) {
    std::snprintf(to, PathRoom, "\\%s", name);
}

void CleanName(char16_t *name) {
    for (; *name; ++name) {
        const bool kept = (*name >= 'a' && *name <= 'z') || (*name >= 'A' && *name <= 'Z') ||
                          (*name >= '0' && *name <= '9') || *name == '_';
        if (!kept)
            *name = '_';
    }
}

void SuggestName(char16_t (&to)[ExportNameRoom], const char16_t *account, int archive) {
    CopyText(to, ExportNameRoom, archive ? u"Arc_" : u"Acc_");
    CopyText(to + TextLength(to), AccountUnits + 1, account);
    CleanName(to);
}
