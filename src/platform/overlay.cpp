#include "platform/overlay.h"
#include "platform/action.h"
#include "platform/disk.h"
#include "platform/journal.h"
#include "platform/paths.h"
#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr int MostFiles = 4096;
constexpr int MostDisk = 96; // files open on the disk; the others are opened again when they are wanted
constexpr int MostReplaced = 8;
constexpr int PagesHeld = 2048;
constexpr int Chains = 4096;
constexpr int32_t None = -1;
constexpr int Closed = -4; // of a disk handle: there is a file, and it is not open

struct Page {
    int32_t File;
    int32_t NextInChain, NextOfFile;
    int64_t Number;
    uint16_t From, To; // what was written to
};

OverlayFile Files[MostFiles];
int32_t FilesUsed, DiskOpenCount, ShadowCount;
uint64_t ShadowSeries; // the journal's number when the first shadow was made
int32_t NameChain[Chains], PageChain[Chains];
Page Pages[PagesHeld];
alignas(64) uint8_t Bytes[PagesHeld][PageBytes];
int Replaced[MostReplaced], ReplacedCount;
int32_t SparePage = None; // chain of the pages that were used before, over NextInChain
int32_t PagesUsed;
bool ChainsReady;
uint32_t Series;

int64_t Least(int64_t a, int64_t b) {
    return a < b ? a : b;
}
int64_t Most(int64_t a, int64_t b) {
    return a > b ? a : b;
}

void PrepareChains() {
    if (ChainsReady)
        return;
    std::fill_n(NameChain, Chains, None);
    std::fill_n(PageChain, Chains, None);
    ChainsReady = true;
}

int32_t RowOf(const OverlayFile *file) {
    return static_cast<int32_t>(file - Files);
}

int32_t *NameChainOf(const char *path) {
    uint32_t sum = 2166136261U;
    for (; *path; ++path)
        sum = (sum ^ static_cast<uint8_t>(*path)) * 16777619U;
    return &NameChain[sum % Chains];
}

int32_t FindRow(const char *plain) {
    PrepareChains();
    int32_t row = *NameChainOf(plain);
    while (row != None && std::strcmp(Files[row].Path, plain) != 0)
        row = Files[row].NextOfName;
    return row;
}

int32_t *PageChainOf(int32_t file, int64_t number) {
    return &PageChain[(static_cast<uint64_t>(number) + static_cast<uint64_t>(file) * 0x9E37U) % Chains];
}

// --- Pages

int32_t FindPage(int32_t file, int64_t number) {
    int32_t page = *PageChainOf(file, number);
    while (page != None && (Pages[page].Number != number || Pages[page].File != file))
        page = Pages[page].NextInChain;
    return page;
}

void LinkPage(int32_t page, int32_t file, int64_t number) {
    OverlayFile &owner = Files[file];
    int32_t *chain = PageChainOf(file, number);
    Pages[page].File = file;
    Pages[page].Number = number;
    Pages[page].NextInChain = *chain;
    *chain = page;
    Pages[page].NextOfFile = owner.FirstPage;
    owner.FirstPage = page;
    owner.LowPage = owner.PageCount ? Least(owner.LowPage, number) : number;
    owner.HighPage = owner.PageCount ? Most(owner.HighPage, number) : number;
    ++owner.PageCount;
}

void UnchainPage(int32_t page) {
    int32_t *at = PageChainOf(Pages[page].File, Pages[page].Number);
    while (*at != page)
        at = &Pages[*at].NextInChain;
    *at = Pages[page].NextInChain;
}

void GivePageBack(int32_t page) {
    UnchainPage(page);
    Pages[page].NextInChain = SparePage;
    SparePage = page;
}

// The pages from number `first` on go.
void DropPages(OverlayFile *file, int64_t first) {
    for (int32_t *at = &file->FirstPage; *at != None;) {
        const int32_t page = *at;
        if (Pages[page].Number < first) {
            at = &Pages[page].NextOfFile;
            continue;
        }
        *at = Pages[page].NextOfFile;
        GivePageBack(page);
        --file->PageCount;
    }
    file->HighPage = Least(file->HighPage, first - 1);
}

// An unused page, None when all are in use.
int32_t TakePage() {
    if (SparePage != None) {
        const int32_t page = SparePage;
        SparePage = Pages[page].NextInChain;
        return page;
    }
    return PagesUsed < PagesHeld ? PagesUsed++ : None;
}

// --- Files on the disk

void CloseDisk(OverlayFile *file) {
    for (int *disk : {&file->Disk, &file->ShadowDisk})
        if (*disk >= 0) {
            DiskClose(*disk);
            *disk = Closed;
            --DiskOpenCount;
        }
}

// The last handle of what a shadow has replaced: when it goes the machine gives the room of the whole file back, which
// takes longer than everything else that an action waits for. So it goes when the owner rests.
void CloseLater(OverlayFile *file) {
    if (file->Disk < 0 || ReplacedCount == MostReplaced)
        return;
    Replaced[ReplacedCount++] = file->Disk;
    file->Disk = Closed;
    --DiskOpenCount;
}

void DropRow(int32_t row) {
    OverlayFile &file = Files[row];
    CloseDisk(&file);
    int32_t *at = NameChainOf(file.Path);
    while (*at != row)
        at = &Files[*at].NextOfName;
    *at = file.NextOfName;
    file.Path[0] = 0;
}

// Lets go of what nobody uses at the moment. Rows go when the table itself is short.
void MakeRoom(int rowsToo) {
    for (int32_t row = 0; row < FilesUsed; ++row) {
        OverlayFile &file = Files[row];
        if (!file.Path[0] || file.Users > 0)
            continue;
        if (rowsToo && !file.Changed)
            DropRow(row);
        else
            CloseDisk(&file);
    }
}

int OpenCounted(const char *plain, int create) {
    if (DiskOpenCount >= MostDisk)
        MakeRoom(0);
    char host[HostPathRoom];
    HostPath(host, plain);
    const int disk = DiskOpen(host, create);
    DiskOpenCount += disk >= 0;
    return disk;
}

int32_t UnusedRow() {
    if (FilesUsed == MostFiles) {
        for (int32_t row = 0; row < FilesUsed; ++row)
            if (!Files[row].Path[0])
                return row;
        MakeRoom(1);
        for (int32_t row = 0; row < FilesUsed; ++row)
            if (!Files[row].Path[0])
                return row;
        return None;
    }
    return FilesUsed++;
}

// What the disk holds under the row's path. 0 when the machine refuses.
int AskDisk(OverlayFile *file) {
    file->Disk = OpenCounted(file->Path, 0);
    if (file->Disk == DiskRefused) {
        char host[HostPathRoom];
        HostPath(host, file->Path);
        file->OnDisk = file->Now = Stands::Directory;
        return DiskKind(host) == 2;
    }
    if (file->Disk < 0)
        return 1;
    file->OnDisk = file->Now = Stands::File;
    file->DiskLength = file->BaseLength = file->Length = DiskLength(file->Disk);
    return file->DiskLength >= 0;
}

// Bytes of the file as the disk holds them as far as they count, zeros behind.
int ReadBase(OverlayFile *file, int64_t offset, uint8_t *to, int64_t bytes) {
    const int64_t there = Most(0, Least(bytes, file->BaseLength - offset));
    if (there > 0 && (OverlayDisk(file) < 0 || DiskRead(file->Disk, offset, to, there) != there)) {
        RefuseActionFor(ReadRefused);
        return 0;
    }
    std::memset(to + there, 0, static_cast<size_t>(bytes - there));
    return 1;
}

// --- Shadows

int ShadowOf(OverlayFile *file) {
    if (file->ShadowDisk < 0) {
        char path[PathRoom];
        ShadowPath(path, *file);
        file->ShadowDisk = OpenCounted(path, 0);
        if (file->ShadowDisk == DiskMissing)
            file->ShadowDisk = OpenCounted(file->Path, 0); // it has taken its place already
    }
    return file->ShadowDisk;
}

void DropShadow(OverlayFile *file) {
    if (file->Shadow == 0)
        return;
    if (file->ShadowDisk >= 0) {
        DiskClose(file->ShadowDisk);
        --DiskOpenCount;
    }
    char path[PathRoom], host[HostPathRoom];
    ShadowPath(path, *file);
    HostPath(host, path);
    static_cast<void>(DiskDelete(host)); // a start removes what stays
    file->Shadow = 0;
    file->ShadowDisk = Closed;
}

// The shadow takes over, as they are, the disk's bytes between two offsets as far as they count.
int FillShadow(OverlayFile *file, int64_t from, int64_t to) {
    const int64_t bytes = Least(to, file->BaseLength) - from;
    return bytes <= 0 || (OverlayDisk(file) >= 0 && DiskCopy(file->Disk, ShadowOf(file), from, bytes));
}

// What a shadow holds is one stretch: what lies between it and what is written now comes in with it.
int WriteShadow(OverlayFile *file, int64_t offset, const uint8_t *from, int64_t bytes) {
    if (file->FilledFrom == file->FilledTo)
        file->FilledFrom = file->FilledTo = offset;
    if (ShadowOf(file) >= 0 && FillShadow(file, file->FilledTo, offset) &&
        FillShadow(file, offset + bytes, file->FilledFrom) && DiskWrite(file->ShadowDisk, offset, from, bytes)) {
        file->FilledFrom = Least(file->FilledFrom, offset);
        file->FilledTo = Most(file->FilledTo, offset + bytes);
        return 1;
    }
    RefuseActionFor(WriteRefused);
    return 0;
}

int64_t ReadShadow(OverlayFile *file, int64_t offset, uint8_t *to, int64_t bytes) {
    const int64_t from = Most(offset, file->FilledFrom), end = Least(offset + bytes, file->FilledTo);
    if (from >= end)
        return ReadBase(file, offset, to, bytes) ? bytes : -1;
    const int64_t read = ShadowOf(file) < 0 ? -1 : DiskRead(file->ShadowDisk, from, to + (from - offset), end - from);
    if (read < 0) {
        RefuseActionFor(ReadRefused);
        return -1;
    }
    std::memset(to + (from - offset) + read, 0, static_cast<size_t>(end - from - read)); // grown by a length alone
    return ReadBase(file, offset, to, from - offset) && ReadBase(file, end, to + (end - offset), offset + bytes - end)
               ? bytes
               : -1;
}

// The file's pages by number. How many.
int32_t PagesInOrder(const OverlayFile &file, int32_t *order) {
    int32_t count = 0;
    for (int32_t page = file.FirstPage; page != None; page = Pages[page].NextOfFile)
        order[count++] = page;
    std::sort(order, order + count, [](int32_t a, int32_t b) { return Pages[a].Number < Pages[b].Number; });
    return count;
}

int WritePages(OverlayFile *file) {
    static int32_t order[PagesHeld];
    const int32_t count = PagesInOrder(*file, order);
    for (int32_t first = 0, behind; first < count; first = behind) {
        behind = first + 1;
        while (behind < count && order[behind] == order[behind - 1] + 1 &&
               Pages[order[behind]].Number == Pages[order[behind - 1]].Number + 1)
            ++behind;
        const int64_t at = Pages[order[first]].Number * PageBytes;
        const int64_t bytes = Least(int64_t{behind - first} * PageBytes, file->Length - at);
        if (bytes > 0 && !WriteShadow(file, at, Bytes[order[first]], bytes))
            return 0;
    }
    return 1;
}

// From here on the file is written to a shadow.
int MakeShadow(OverlayFile *file) {
    char path[PathRoom];
    if (ShadowCount == 0)
        ShadowSeries = JournalNumber();
    file->Shadow = ++ShadowCount;
    file->FilledFrom = file->FilledTo = 0;
    ShadowPath(path, *file);
    file->ShadowDisk = std::strlen(path) < PathRoom - 1 ? OpenCounted(path, 1) : DiskRefused;
    if (file->ShadowDisk < 0 || !DiskCut(file->ShadowDisk, 0) || !WritePages(file)) {
        DropShadow(file);
        RefuseActionFor(WriteRefused);
        return 0;
    }
    DropPages(file, 0);
    file->Emptied = true;
    return 1;
}

// Makes room for pages: the file that holds the most gets a shadow.
int SpillLargest() {
    OverlayFile *largest = nullptr;
    for (int32_t row = 0; row < FilesUsed; ++row)
        if (Files[row].Path[0] && (!largest || Files[row].PageCount > largest->PageCount))
            largest = &Files[row];
    return largest && MakeShadow(largest);
}

// --- Writing by pages

// The page with its bytes, of which `from` to `to` are about to be written; None with the action refused, or when the
// file has a shadow now.
int32_t PageToWrite(OverlayFile *file, int64_t number, int64_t from, int64_t to) {
    const int32_t row = RowOf(file);
    int32_t page = FindPage(row, number);
    if (page != None) {
        Pages[page].From = static_cast<uint16_t>(Least(Pages[page].From, from));
        Pages[page].To = static_cast<uint16_t>(Most(Pages[page].To, to));
        return page;
    }
    while ((page = TakePage()) == None)
        if (!SpillLargest() || file->Shadow)
            return None;
    LinkPage(page, row, number);
    Pages[page].From = static_cast<uint16_t>(from);
    Pages[page].To = static_cast<uint16_t>(to);
    if (to - from == PageBytes || ReadBase(file, number * PageBytes, Bytes[page], PageBytes))
        return page;
    std::memset(Bytes[page], 0, PageBytes); // the action is refused; nobody may see another's bytes
    return None;
}

} // namespace

int32_t OverlayOf(const char *plain) {
    if (const int32_t known = FindRow(plain); known != None)
        return known;
    int32_t *chain = NameChainOf(plain);
    const int32_t row = UnusedRow();
    if (row == None) {
        RefuseActionFor(WriteRefused);
        return None;
    }
    OverlayFile &file = Files[row];
    file = {};
    std::strcpy(file.Path, plain);
    file.FirstPage = None;
    file.Disk = file.ShadowDisk = Closed;
    file.NextOfName = *chain;
    *chain = row;
    if (AskDisk(&file))
        return row;
    DropRow(row);
    RefuseActionFor(ReadRefused);
    return None;
}

OverlayFile *OverlayRow(int32_t row) {
    return &Files[row];
}

int32_t NextOverlay(int32_t row) {
    while (++row < FilesUsed)
        if (Files[row].Path[0])
            return row;
    return None;
}

int OverlayCreate(OverlayFile *file) {
    if (file->Now == Stands::Nothing) {
        file->Now = Stands::File;
        file->Changed = file->Emptied = true;
        file->Length = file->BaseLength = 0;
    }
    return file->Now == Stands::File;
}

int64_t OverlayRead(OverlayFile *file, int64_t offset, void *buffer, int64_t bytes) {
    auto *to = static_cast<uint8_t *>(buffer);
    bytes = Least(bytes, file->Length - offset);
    if (bytes <= 0)
        return 0;
    if (file->Shadow)
        return ReadShadow(file, offset, to, bytes);
    const int64_t first = offset / PageBytes, last = (offset + bytes - 1) / PageBytes;
    if (file->PageCount == 0 || last < file->LowPage || first > file->HighPage)
        return ReadBase(file, offset, to, bytes) ? bytes : -1;
    const int32_t row = RowOf(file);
    for (int64_t at = offset; at < offset + bytes;) {
        int64_t end = Least(offset + bytes, (at / PageBytes + 1) * PageBytes);
        if (const int32_t page = FindPage(row, at / PageBytes); page != None) {
            std::memcpy(to, Bytes[page] + at % PageBytes, static_cast<size_t>(end - at));
        } else {
            while (end < offset + bytes && FindPage(row, end / PageBytes) == None)
                end = Least(offset + bytes, end + PageBytes);
            if (!ReadBase(file, at, to, end - at))
                return -1;
        }
        to += end - at;
        at = end;
    }
    return bytes;
}

int OverlayWrite(OverlayFile *file, int64_t offset, const void *buffer, int64_t bytes) {
    if (file->Now != Stands::File) {
        RefuseActionFor(WriteRefused);
        return 0;
    }
    const auto *from = static_cast<const uint8_t *>(buffer);
    file->Changed = true;
    for (int64_t at = offset; at < offset + bytes;) {
        if (file->Shadow) {
            if (!WriteShadow(file, at, from, offset + bytes - at))
                return 0;
            break;
        }
        const int64_t number = at / PageBytes, start = at - number * PageBytes;
        const int64_t count = Least(PageBytes - start, offset + bytes - at);
        const int32_t page = PageToWrite(file, number, start, start + count);
        if (page == None) {
            if (!file->Shadow)
                return 0;
            continue;
        }
        std::memcpy(Bytes[page] + start, from, static_cast<size_t>(count));
        from += count;
        at += count;
        file->Length = Most(file->Length, at);
    }
    file->Length = Most(file->Length, offset + bytes);
    return 1;
}

int OverlayCut(OverlayFile *file, int64_t length) {
    if (file->Now != Stands::File) {
        RefuseActionFor(WriteRefused);
        return 0;
    }
    file->Changed = true;
    if (length >= file->Length) {
        file->Length = length;
        return 1;
    }
    file->Length = length;
    file->BaseLength = Least(file->BaseLength, length);
    if (file->Shadow) {
        file->FilledFrom = Least(file->FilledFrom, length);
        file->FilledTo = Least(file->FilledTo, length);
        if (ShadowOf(file) >= 0 && DiskCut(file->ShadowDisk, length))
            return 1;
        RefuseActionFor(WriteRefused);
        return 0;
    }
    const int64_t kept = (length + PageBytes - 1) / PageBytes;
    if (file->PageCount > 0 && file->HighPage >= kept)
        DropPages(file, kept);
    const int32_t page = length % PageBytes ? FindPage(RowOf(file), length / PageBytes) : None;
    if (page != None)
        std::memset(Bytes[page] + length % PageBytes, 0, static_cast<size_t>(PageBytes - length % PageBytes));
    return 1;
}

void OverlayDelete(OverlayFile *file) {
    DropPages(file, 0);
    DropShadow(file);
    file->Now = Stands::Nothing;
    file->Changed = file->Emptied = true;
    file->Length = file->BaseLength = 0;
}

int OverlayMove(OverlayFile *from, OverlayFile *to) {
    if (from->Now != Stands::File || from->BaseLength > 0 || to->Now == Stands::Directory)
        return 0;
    if (from->Shadow) { // shadows stand beside their targets
        char a[PathRoom], b[PathRoom];
        DirectoryOf(a, from->Path);
        DirectoryOf(b, to->Path);
        if (std::strcmp(a, b) != 0)
            return 0;
    }
    OverlayDelete(to);
    to->Now = Stands::File;
    to->Length = from->Length;
    to->Shadow = from->Shadow;
    to->ShadowDisk = from->ShadowDisk;
    to->FilledFrom = from->FilledFrom;
    to->FilledTo = from->FilledTo;
    from->Shadow = 0;
    from->ShadowDisk = Closed;
    for (int32_t page = from->FirstPage; page != None;) {
        const int32_t next = Pages[page].NextOfFile;
        UnchainPage(page);
        LinkPage(page, RowOf(to), Pages[page].Number);
        page = next;
    }
    from->FirstPage = None;
    from->PageCount = 0;
    OverlayDelete(from);
    return 1;
}

int VisitPages(OverlayFile *file, int (*visit)(OverlayFile *, const PageChange &)) {
    constexpr int32_t Near = PageBytes / 2; // equal bytes between two pages that are shown with them, so that they join
    constexpr int32_t AtOnce = 64;          // pages behind each other that are read by one call
    static int32_t order[PagesHeld];
    static uint8_t before[AtOnce * PageBytes];
    const int32_t count = PagesInOrder(*file, order);
    PageChange waiting = {};
    for (int32_t index = 0, first = 0, behind = 0; index < count; ++index) {
        const Page &page = Pages[order[index]];
        const uint8_t *bytes = Bytes[order[index]];
        const int64_t start = page.Number * PageBytes;
        if (index == behind) {
            if (waiting.Count && !visit(file, waiting))
                return 0;
            waiting = {};
            first = index;
            do
                ++behind;
            while (behind < count && behind - first < AtOnce &&
                   Pages[order[behind]].Number == page.Number + behind - first);
            if (!ReadBase(file, start, before, int64_t{behind - first} * PageBytes))
                return 0;
        }
        const uint8_t *old = before + int64_t{index - first} * PageBytes;
        int32_t from = page.From, to = static_cast<int32_t>(Least(page.To, file->Length - start));
        while (from < to && bytes[from] == old[from])
            ++from;
        while (to > from && bytes[to - 1] == old[to - 1])
            --to;
        if (from >= to)
            continue;
        if (const int64_t end = waiting.Offset + waiting.Count; waiting.Count && from <= Near && start - end <= Near) {
            waiting.Count += static_cast<int32_t>(start - end);
            from = 0;
        }
        if (waiting.Count && !visit(file, waiting))
            return 0;
        waiting = {start + from, bytes + from, old + from, to - from};
    }
    return !waiting.Count || visit(file, waiting);
}

int SealShadow(OverlayFile *file) {
    if (file->Shadow == 0)
        return 1;
    char directory[PathRoom], host[HostPathRoom];
    DirectoryOf(directory, file->Path);
    HostPath(host, directory);
    if (ShadowOf(file) < 0)
        return 0;
    DiskHasten(file->ShadowDisk, file->FilledFrom, file->FilledTo - file->FilledFrom);
    if (!FillShadow(file, 0, file->FilledFrom) || !FillShadow(file, file->FilledTo, file->Length) ||
        !DiskCut(file->ShadowDisk, file->Length))
        return 0;
    file->FilledFrom = 0;
    file->FilledTo = file->Length;
    return DiskSync(file->ShadowDisk) && DiskSyncDirectory(host);
}

void ShadowPath(char *to, const OverlayFile &file) {
    char directory[PathRoom];
    DirectoryOf(directory, file.Path);
    std::snprintf(to, PathRoom, "%.200s\\%s%llx-%x", directory, ShadowPrefix,
                  static_cast<unsigned long long>(ShadowSeries), static_cast<unsigned>(file.Shadow));
}

int OverlayHasShadow() {
    return std::any_of(Files, Files + FilesUsed, [](const OverlayFile &file) { return file.Path[0] && file.Shadow; });
}

int OverlayDropsDirectory() {
    return std::any_of(Files, Files + FilesUsed, [](const OverlayFile &file) {
        return file.Path[0] && file.OnDisk == Stands::Directory && file.Now != Stands::Directory;
    });
}

int OverlayDisk(OverlayFile *file) {
    if (file->Disk < 0)
        file->Disk = OpenCounted(file->Path, 0);
    return file->Disk;
}

int DiskHeld(const char *plain) {
    const int32_t row = FindRow(plain);
    return row != None && Files[row].OnDisk == Stands::File && Files[row].Disk >= 0 ? Files[row].Disk : DiskMissing;
}

int OverlayGone(const char *plain) {
    const int32_t row = FindRow(plain);
    return row != None && Files[row].Now == Stands::Nothing;
}

uint32_t OverlaySeries() {
    return Series;
}

void ClearOverlay(int shadows) {
    PrepareChains();
    ++Series;
    for (int32_t row = 0; row < FilesUsed; ++row) {
        if (!Files[row].Path[0])
            continue;
        if (shadows)
            DropShadow(&Files[row]);
        else if (Files[row].Shadow)
            CloseLater(&Files[row]);
        CloseDisk(&Files[row]);
        *NameChainOf(Files[row].Path) = None;
        for (int32_t page = Files[row].FirstPage; page != None; page = Pages[page].NextOfFile)
            *PageChainOf(row, Pages[page].Number) = None;
        Files[row].Path[0] = 0;
    }
    FilesUsed = PagesUsed = 0;
    SparePage = None;
    ShadowCount = 0;
}

void CloseReplaced() {
    while (ReplacedCount > 0)
        DiskClose(Replaced[--ReplacedCount]);
}

int OverlayEmpty() {
    return FilesUsed == 0;
}
