// The order of the segments: a sort of texts, "magnitude:place" or "title:place", the place filling eight digits. Runs
// that fit into the one buffer are sorted there; longer files are merged through their own second half, so that memory
// stays bounded whatever their length.
#include "analysis/chart_sort.h"
#include "analysis/chart_file.h"
#include "analysis/charts.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr FixedAmount SignShift = 1000000000000; // lifts values above 0, so that they sort as text

struct OrderRow {
    bool ByTitle, Backward; // backward: the list of keys is read from its end
    uint64_t (*Number)(FixedAmount value);
};
// clang-format off
constexpr OrderRow Orders[] = { // ORDER ANALYSISORDER
    {false, true,  [](FixedAmount value) { return MagnitudeOf(value); }},
    {false, false, [](FixedAmount value) { return MagnitudeOf(value); }},
    {false, false, [](FixedAmount value) { return MagnitudeOf(AddAmounts(value, SignShift)); }},
    {false, true,  [](FixedAmount value) { return MagnitudeOf(AddAmounts(value, SignShift)); }},
    {false, true,  [](FixedAmount value) { return value < 0 ? MagnitudeOf(value) : 0; }},
    {false, true,  [](FixedAmount value) { return value < 0 ? 0 : MagnitudeOf(value); }},
    {true,  false, nullptr},
    {true,  true,  nullptr},
};
// clang-format on
static_assert(sizeof(Orders) / sizeof(Orders[0]) == OrderCount);

const OrderRow &Order() {
    return Orders[std::clamp<int32_t>(state.AnalysisOrder, 0, OrderCount - 1)];
}

// Small letters for capitals, where a language has both in the usual alphabets.
char16_t Small(char16_t unit) {
    struct Range {
        char16_t First, Last, Distance; // distance 1: capitals and small letters take turns
    };
    // clang-format off
    static constexpr Range Ranges[] = {
        {u'A',    u'Z',    32}, {0x00C0, 0x00D6, 32}, {0x00D8, 0x00DE, 32}, {0x0391, 0x03AB, 32}, {0x0410, 0x042F, 32},
        {0x0400, 0x040F, 80}, {0x0100, 0x0137, 1},  {0x014A, 0x0177, 1},  {0x0460, 0x0481, 1},
    };
    // clang-format on
    for (const Range &range : Ranges)
        if (unit >= range.First && unit <= range.Last)
            return static_cast<char16_t>(range.Distance == 1 ? unit | 1 : unit + range.Distance);
    if (unit >= 0x0139 && unit <= 0x0148)
        return static_cast<char16_t>(unit + (unit & 1)); // here the capitals are the odd ones
    return unit;
}

// -1, 0 or 1. A title is filled up with blanks.
int CompareTitles(const char16_t *a, const char16_t *b) {
    for (int i = 0; i < 32; ++i) {
        const char16_t left = *a ? Small(*a++) : u' ', right = *b ? Small(*b++) : u' ';
        if (left != right)
            return left < right ? -1 : 1;
    }
    return 0;
}

// Numbers of up to 16 digits are filled up with zeros; longer ones compare as the texts they are.
int CompareNumbers(uint64_t a, uint64_t b) {
    constexpr uint64_t Filled = 10000000000000000;
    if (a < Filled && b < Filled)
        return a < b ? -1 : a > b;
    char left[24], right[24];
    std::snprintf(left, sizeof left, "%016llu:", static_cast<unsigned long long>(a));
    std::snprintf(right, sizeof right, "%016llu:", static_cast<unsigned long long>(b));
    const int order = std::strcmp(left, right);
    return order < 0 ? -1 : order > 0;
}

// Whether `a` comes first. Equal keys go by their place, so that read backward the later one is first.
bool Before(const GRec &a, const GRec &b) {
    const OrderRow &order = Order();
    int compared =
        order.ByTitle ? CompareTitles(a.Title, b.Title) : CompareNumbers(order.Number(a.Value), order.Number(b.Value));
    if (compared == 0)
        compared = a.Link < b.Link ? -1 : 1;
    return order.Backward ? compared > 0 : compared < 0;
}

// The one buffer as three: two that are read and one that is written.
constexpr int32_t PartLength = RunBytes / static_cast<int>(sizeof(GRec)) / 3, RunLength = 3 * PartLength;
static_assert(alignof(GRec) <= 8);

GRec *Part(int n) {
    return reinterpret_cast<GRec *>(state.RunBuffer) + n * PartLength;
}

struct Reading {
    int File;
    int32_t Next, End; // rows still to read, the end not included
    GRec *Buffer;
    int32_t Held = 0, At = 0;

    // The segment whose turn it is, null at the end.
    const GRec *Front() {
        if (At < Held)
            return &Buffer[At];
        Held = ReadChart(File, Next, std::min(PartLength, End - Next), Buffer);
        Next += Held;
        At = 0;
        return Held > 0 ? Buffer : nullptr;
    }
};

struct Writing {
    int File;
    int32_t Next;
    GRec *Buffer;
    int32_t Held = 0;
    int Fine = 1;

    void Flush() {
        Fine = Fine && (Held == 0 || WriteChart(File, Next, Held, Buffer));
        Next += Held;
        Held = 0;
    }
    void Put(const GRec &segment) {
        Buffer[Held++] = segment;
        if (Held == PartLength)
            Flush();
    }
};

int SortRuns(int file, int32_t count) {
    GRec *const run = Part(0);
    for (int32_t done = 0; done < count;) {
        const int32_t read = ReadChart(file, done + 1, std::min(RunLength, count - done), run);
        if (read <= 0)
            return 0;
        for (int32_t i = 0; i < read; ++i)
            run[i].Link = done + i;
        std::sort(run, run + read, Before);
        if (!WriteChart(file, done + 1, read, run))
            return 0;
        done += read;
    }
    return 1;
}

// Two runs of `length` after each other, from `from` on, into one at `to`.
int MergePair(int file, int32_t from, int32_t length, int32_t end, int32_t to) {
    const int32_t middle = std::min(from + length, end), last = std::min(middle + length, end);
    Reading left = {file, from, middle, Part(0)}, right = {file, middle, last, Part(1)};
    Writing merged = {file, to, Part(2)};
    for (;;) {
        const GRec *const a = left.Front(), *const b = right.Front();
        if (!a && !b)
            break;
        Reading &taken = !b || (a && Before(*a, *b)) ? left : right;
        merged.Put(taken.Buffer[taken.At++]);
    }
    merged.Flush();
    return merged.Fine;
}

// Merges runs until one is left, to and fro between the halves of the file; `*at` is then the half it stands in.
int MergeRuns(int file, int32_t count, int32_t *at) {
    for (int32_t length = RunLength; length < count; length *= 2) {
        const int32_t from = *at, to = count - from;
        for (int32_t done = 0; done < count; done += 2 * length)
            if (!MergePair(file, from + done + 1, length, from + count + 1, to + done + 1))
                return 0;
        *at = to;
    }
    return 1;
}

// The places go as they came; from the second half the segments come back to the first.
int Settle(int file, int32_t count, int32_t from) {
    GRec *const run = Part(0);
    for (int32_t done = 0; done < count;) {
        const int32_t read = ReadChart(file, from + done + 1, std::min(RunLength, count - done), run);
        for (int32_t i = 0; i < read; ++i)
            run[i].Link = 0;
        if (read <= 0 || !WriteChart(file, done + 1, read, run))
            return 0;
        done += read;
    }
    return CutChart(file, count);
}

} // namespace

void SortGRecs() {
    const int file = OpenChart();
    const int32_t count = file < 0 ? 0 : CountChart(file);
    int32_t half = 0;
    if (count > 0 && !(SortRuns(file, count) && MergeRuns(file, count, &half) && Settle(file, count, half))) {
        ReportError(In::CalcRatios, Trouble::BwriteFail);
        static_cast<void>(CutChart(file, count));
    }
    CloseFile(file);
}
