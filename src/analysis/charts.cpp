#include "analysis/charts.h"
#include "analysis/chart_file.h"
#include "analysis/chart_sort.h"
#include "analysis/graph_value.h"
#include "drawing/colour_model.h"
#include "drawing/colours.h"
#include "drawing/palette.h"
#include "ledger/filter.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/windows.h"
#include <algorithm>
#include <cstring>

namespace {

static_assert(static_cast<int>(FilterBy::Name) == ByName && static_cast<int>(FilterBy::Category) == ByCategory &&
              static_cast<int>(FilterBy::Ref) == ByRef && static_cast<int>(FilterBy::Month) == ByMonth &&
              static_cast<int>(FilterBy::Year) == ByYear && static_cast<int>(FilterBy::Flag) == ByFlag &&
              static_cast<int>(FilterBy::Sign) == BySign);

// --- The segment of an entry

int32_t Stored(Colour colour) {
    return ChartColour(static_cast<int>(colour >> 16 & 255), static_cast<int>(colour >> 8 & 255),
                       static_cast<int>(colour & 255));
}

int32_t PieColourOf(int entry) {
    return Stored(state.Palette[entry]);
}

// An entry without a text falls on the palette by its day.
int32_t ColourOfText(const char16_t *text, uint32_t dayNumber, uint32_t emptySpread) {
    return PieColourOf(text[0] ? PaletteHash(text) : static_cast<int>(dayNumber % emptySpread) + 1);
}

// One colour in bars and pies.
void ColourBoth(GRec *segment, int32_t colour) {
    segment->BarColour = segment->PieColour = colour;
}

bool IsMonth(int month) {
    return month >= 1 && month <= 12;
}

// Twelve hues around the wheel, in the middle shade of the default palette.
Colour MonthColour(int month) {
    constexpr int Luminosity = 130, Saturation = 178;
    return HlsToRgb((month - 1) * 64 / 3, Luminosity, Saturation);
}

// What tells one segment from another: enough to find it again, nothing that must be looked up.
void FillKey(const TRec &row, FixedAmount value, int32_t group, GRec *segment) {
    *segment = {};
    segment->Value = value;
    segment->Entries = 1;
    switch (group) {
    case ByName:
        CopyText(segment->Title, TextRoom, row.Name);
        return;
    case ByCategory:
        segment->CatID = row.CatID;
        return;
    case ByRef:
        CopyText(segment->Title, TextRoom, row.Memo);
        return;
    case ByMonth:
        segment->Month = row.Date.Month;
        return;
    case ByYear:
        segment->Year = static_cast<int32_t>(row.Date.Year);
        return;
    case ByFlag:
        segment->Flag = row.Flag;
        return;
    default:
        segment->IsDebit = value < 0;
        segment->IsCredit = !segment->IsDebit;
    }
}

bool SameSegment(const GRec &a, const GRec &b) {
    return a.CatID == b.CatID && a.Year == b.Year && a.Month == b.Month && a.Flag == b.Flag && a.IsDebit == b.IsDebit;
}
bool SameSegmentOf(int32_t group, const GRec &a, const GRec &b) {
    // Only where a title is the key does it stand in a segment that is searched for.
    const bool byTitle = group == ByName || group == ByRef;
    return byTitle ? SameText(a.Title, b.Title, TextRoom) : SameSegment(a, b);
}

void DescribeCategory(GRec *segment) {
    CatRec category;
    if (segment->CatID == 0) {
        CopyText(segment->Title, TextRoom, u"<none>");
        ColourBoth(segment, Stored(White));
    } else if (FetchCat(CatIDToPosition(segment->CatID), &category)) {
        CopyText(segment->Title, TextRoom, category.Name);
        ColourBoth(segment, ChartColour(category.Red & 255, category.Green & 255, category.Blue & 255));
    } else {
        CopyText(segment->Title, TextRoom, u"category deleted");
    }
}

void DescribeMonth(GRec *segment) {
    AppendNumber(segment->Title, TextRoom, segment->Month, 2);
    AppendAscii(segment->Title, TextRoom, ":  ");
    if (!IsMonth(segment->Month))
        return; // of a damaged record
    AppendText(segment->Title, TextRoom, state.MonthNames[segment->Month]);
    ColourBoth(segment, Stored(MonthColour(segment->Month)));
}

// Title and colours of a segment that is new.
void Describe(const TRec &row, int32_t group, GRec *segment) {
    constexpr uint32_t NamesSpread = 120, RefsSpread = 60;
    constexpr int FirstEntry = 1;
    segment->BarColour = NoChartColour;
    segment->PieColour = PieColourOf(FirstEntry);
    switch (group) {
    case ByName:
        segment->PieColour = ColourOfText(segment->Title, row.Date.DayNumber, NamesSpread);
        return;
    case ByCategory:
        DescribeCategory(segment);
        return;
    case ByRef:
        segment->PieColour = ColourOfText(segment->Title, row.Date.DayNumber, RefsSpread);
        return;
    case ByMonth:
        DescribeMonth(segment);
        return;
    case ByYear:
        AppendNumber(segment->Title, TextRoom, segment->Year);
        segment->PieColour = PieColourOf(PaletteHash(segment->Title));
        return;
    case ByFlag:
        if (segment->Flag >= 0 && segment->Flag <= 3)
            ColourBoth(segment, Stored(segment->Flag ? FlagColour(segment->Flag) : White));
        return;
    default:
        return;
    }
}

// --- Finding the segment: chains through the file, their heads in memory

constexpr int32_t HeadCount = 1 << 16;
static_assert(HeadCount * sizeof(int32_t) <= RunBytes);

int32_t *Heads() {
    return reinterpret_cast<int32_t *>(state.RunBuffer);
}

uint32_t HashOf(const GRec &segment, int32_t group) {
    uint32_t hash = 2166136261u;
    const auto mix = [&](uint32_t word) { hash = (hash ^ word) * 16777619u; };
    if (group == ByName || group == ByRef)
        for (const char16_t *unit = segment.Title; *unit; ++unit)
            mix(*unit);
    mix(static_cast<uint32_t>(segment.CatID));
    mix(static_cast<uint32_t>(segment.CatID >> 32));
    mix(static_cast<uint32_t>(segment.Year * 16 + segment.Month));
    mix(static_cast<uint32_t>(segment.Flag * 2 + segment.IsDebit));
    return (hash ^ hash >> 16) % HeadCount;
}

struct Build {
    int File;
    int32_t Group, Count;
    bool Failed; // one report is enough
};

int Store(Build *build, int32_t row, const GRec &segment) {
    if (WriteChart(build->File, row, 1, &segment))
        return 1;
    if (!build->Failed)
        ReportError(In::ConvertRecToGRec, Trouble::BwriteFail);
    build->Failed = true;
    return 0;
}

void Append(Build *build, GRec segment) {
    int32_t *const head = &Heads()[HashOf(segment, build->Group)];
    segment.Link = *head;
    if (Store(build, build->Count + 1, segment))
        *head = ++build->Count;
}

// The row of the segment like this one, 0 for none; it is read into `found`.
int32_t Find(const Build &build, const GRec &key, GRec *found) {
    int32_t row = Heads()[HashOf(key, build.Group)];
    while (row > 0 && ReadChart(build.File, row, 1, found) == 1 && !SameSegmentOf(build.Group, key, *found))
        row = found->Link;
    return row;
}

void AddEntry(Build *build, const TRec &row) {
    const FixedAmount value = ColumnValue(row, CountedIn::Segment);
    GRec key, found;
    FillKey(row, value, build->Group, &key);
    const int32_t at = Find(*build, key, &found);
    if (at == 0) {
        Describe(row, build->Group, &key);
        Append(build, key);
        return;
    }
    found.Value = state.AccountKind == SharePrice ? value : AddAmounts(found.Value, value);
    ++found.Entries;
    static_cast<void>(Store(build, at, found));
}

// Both signs stand there even when no entry has them.
void BeginSigns(Build *build) {
    GRec debit = {}, credit = {};
    CopyText(debit.Title, TextRoom, u"-");
    debit.IsDebit = 1;
    ColourBoth(&debit, Stored(AlertRed));
    CopyText(credit.Title, TextRoom, u"+");
    credit.IsCredit = 1;
    ColourBoth(&credit, Stored(Black));
    Append(build, debit);
    Append(build, credit);
}

// --- The transactions shown

template <typename Visit> void WalkEntries(int file, Visit visit) {
    constexpr int32_t AtOnce = 32;
    static_assert(sizeof(TRecFile) * AtOnce < 20000);
    TRecFile records[AtOnce];
    int32_t read = AtOnce;
    for (int32_t first = 1; read == AtOnce; first += read) {
        read = ReadRecords(file, FileKind::Transactions, first, AtOnce, records, Broken::Shows);
        if (first == 1 && read > 0 && !IsBroken(records) &&
            !AcceptVersion(records[0].Rec.Version, In::ConvertRecToGRec))
            return;
        for (int32_t i = 0; i < read; ++i)
            if (records[i].Rec.RowKind == EntryRow && !IsBroken(&records[i]))
                visit(records[i].Rec);
    }
}

void Fill(const Place &place) {
    if (!RemoveChart()) {
        ReportError(In::ConvertRecToGRec, Trouble::TcreateFail);
        return;
    }
    Build build = {OpenChart(), state.AnalysisGroup, 0, false};
    const int entries = OpenPlace(place, OpenExisting);
    if (build.File < 0)
        ReportError(In::ConvertRecToGRec, Trouble::TcreateFail);
    if (build.File >= 0) {
        std::memset(Heads(), 0, HeadCount * sizeof(int32_t));
        if (build.Group == BySign)
            BeginSigns(&build);
        if (entries >= 0)
            WalkEntries(entries, [&](const TRec &row) { AddEntry(&build, row); });
    }
    if (entries >= 0)
        CloseFile(entries);
    if (build.File >= 0)
        CloseFile(build.File);
}

// What an entry adds, in place of the total that it leads to.
int32_t KindPerEntry(int32_t kind) {
    if (kind < static_cast<int32_t>(BankAccount) || kind > static_cast<int32_t>(ShareCash)) {
        ReportError(In::ConvertRecToGRec, Trouble::CaseError);
        return BankAccount;
    }
    return kind == ShareTotal ? static_cast<int32_t>(ShareNumber) : kind == ShareCash ? CashPart : kind;
}

// A magnitude that would leave 64 bits stops there.
uint64_t AddMagnitudes(uint64_t a, uint64_t b) {
    return a + b < a ? UINT64_MAX : a + b;
}

float Percentage(uint64_t part, uint64_t whole) {
    return whole == 0 ? 0.0f : static_cast<float>(static_cast<double>(part) * 100 / static_cast<double>(whole));
}

} // namespace

int32_t FirstOrderOf(int32_t group) {
    return group == BySign ? HighestFirst : group == ByMonth ? FromAToZ : LargestFirst;
}

int32_t ConvertRecToGRec(const Place &place) {
    if (!state.DataUsable)
        return 0;
    const int32_t accountKind = state.AccountKind;
    state.AccountKind = KindPerEntry(accountKind);
    Fill(place);
    CalcRatios();
    SortGRecs();
    state.AccountKind = accountKind;
    const int file = OpenChart();
    const int32_t count = file < 0 ? 0 : CountChart(file);
    CloseFile(file);
    return count;
}

void CalcRatios() {
    uint64_t credits = 0, debits = 0, largestCredit = 0, largestDebit = 0;
    WalkGRecs([&](int32_t, const GRec &segment) {
        const uint64_t magnitude = MagnitudeOf(segment.Value);
        uint64_t &sum = segment.Value < 0 ? debits : credits,
                 &largest = segment.Value < 0 ? largestDebit : largestCredit;
        sum = AddMagnitudes(sum, magnitude);
        largest = std::max(largest, magnitude);
        return 1;
    });
    constexpr uint64_t Most = INT64_MAX;
    state.LargestCredit = static_cast<FixedAmount>(std::min(largestCredit, Most));
    state.LargestDebit = static_cast<FixedAmount>(std::min(largestDebit, Most));
    const uint64_t all = AddMagnitudes(credits, debits);

    constexpr int32_t AtOnce = 64;
    GRec run[AtOnce];
    const int file = OpenChart();
    for (int32_t first = 1; const int32_t read = ReadChart(file, first, AtOnce, run); first += read) {
        for (int32_t i = 0; i < read; ++i) {
            GRec &segment = run[i];
            const uint64_t magnitude = MagnitudeOf(segment.Value);
            segment.Link = 0;
            segment.Percent = Percentage(magnitude, all);
            segment.CreditPercent = segment.Value < 0 ? 0.0f : Percentage(magnitude, credits);
            segment.DebitPercent = segment.Value < 0 ? Percentage(magnitude, debits) : 0.0f;
        }
        if (!WriteChart(file, first, read, run)) {
            ReportError(In::CalcRatios, Trouble::BwriteFail);
            break;
        }
    }
    CloseFile(file);
}

void CriteriaFromSegment(const GRec &segment, FilterCriteria *criteria) {
    *criteria = {};
    CopyText(criteria->Name, TextRoom, segment.Title);
    CopyText(criteria->Memo, TextRoom, segment.Title);
    criteria->CatID = segment.CatID;
    criteria->Month = segment.Month;
    criteria->Year = static_cast<uint32_t>(segment.Year);
    criteria->Flag = static_cast<uint32_t>(segment.Flag);
    criteria->Value = segment.IsDebit ? -1 : 0;
}

void EndCharts() {
    static_cast<void>(RemoveChart());
}

int32_t LoadGRecs(int32_t first, int32_t most, GRec *segments) {
    const int file = OpenChart();
    if (file < 0)
        return 0;
    const int32_t read = first < 1 ? 0 : ReadChart(file, first, most, segments);
    CloseFile(file);
    return read;
}

int LoadGRec(int32_t row, GRec *segment) {
    if (LoadGRecs(row, 1, segment) == 1)
        return 1;
    *segment = {};
    segment->Entries = 1;
    ColourBoth(segment, Stored(White));
    return 0;
}

float PercentOf(const GRec &segment) {
    return state.AnalysisOrder == DebitsOnly    ? segment.DebitPercent
           : state.AnalysisOrder == CreditsOnly ? segment.CreditPercent
                                                : segment.Percent;
}

FixedAmount ValueOf(const GRec &segment) {
    const bool other = (state.AnalysisOrder == DebitsOnly && segment.Value > 0) ||
                       (state.AnalysisOrder == CreditsOnly && segment.Value < 0);
    return other ? 0 : segment.Value;
}
