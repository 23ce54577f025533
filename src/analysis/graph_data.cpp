#include "analysis/graph_data.h"
#include "analysis/graph_value.h"
#include "analysis/single.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/lists.h"
#include "store/windows.h"
#include <algorithm>
#include <cstring>

namespace {

constexpr FileKind Kind = FileKind::Transactions;

// --- Reading

int OpenRows(const Place &place, uint32_t *filtered) {
    if (!state.DataUsable || place.Account == 0)
        return -1;
    const int file = OpenPlace(place, OpenOrCreate, filtered);
    if (file < 0)
        ReportError(In::LoadTranFile, Trouble::TcreateFail);
    return file;
}

// All of a stretch of records, or 0: a read may give fewer than were asked for.
int ReadRows(int file, int32_t first, int32_t count, TRecFile *rows) {
    for (int32_t done = 0; done < count;) {
        const int32_t read = ReadRecords(file, Kind, first + done, count - done, rows + done, Broken::Shows);
        if (read < 1)
            return 0;
        done += read;
    }
    return 1;
}

// --- The walk from the newest entry backward

// Fills the table from its end downward. Returns the first slot that is filled, MostSamples + 1 for none.
int WalkBack(int file) {
    constexpr int32_t Stretch = MostSamples + 4; // a Day marker or two stand among the samples
    static_assert(Stretch * sizeof(TRecFile) <= RunBytes);
    auto *const rows = reinterpret_cast<TRecFile *>(state.RunBuffer);
    TRec blank;
    InitTRec(&blank);
    int slot = MostSamples + 1;
    for (int32_t last = state.SampleTotal; last > 0 && slot > 1;) {
        const int32_t first = std::max(1, last - Stretch + 1);
        if (!ReadRows(file, first, last - first + 1, rows))
            break;
        for (; last >= first && slot > 1; --last) {
            const TRec &row = rows[last - first].Rec;
            if (row.RowKind == DayMarker || IsBroken(&row))
                continue;
            state.SamplePos[--slot] = last;
            state.SampleRow[slot] = blank;
            CopyFields(FieldsOfList(TransactionList), &row, &state.SampleRow[slot]);
        }
    }
    return slot;
}

// The samples move down to 1.
void CloseUp(int slot) {
    state.SampleCount = MostSamples + 1 - slot;
    std::move(state.SamplePos + slot, state.SamplePos + MostSamples + 1, state.SamplePos + 1);
    std::move(state.SampleRow + slot, state.SampleRow + MostSamples + 1, state.SampleRow + 1);
}

// The account's file is of a version that can be used, or empty.
int VersionServes(int file) {
    TRecFile record;
    return !ReadRecord(file, Kind, 1, &record, Broken::Shows) || IsBroken(&record) ||
           AcceptVersion(record.Rec.Version, In::LoadTranFile);
}

// --- Scaling

constexpr FixedAmount LargestPlotted = INT64_MAX / 4; // two of them still have a distance
constexpr int ExtrapolationBand = 13, UsualBand = 15, ExtrapolationBase = 25, UsualBase = 5;
constexpr float FullHeight = 1, AboveMessages = 0.5833333F; // 7 of 12 rows

// `band` * 10 * value / span in whole numbers. Amounts of which that could leave 64 bits lose their last digits first.
int64_t Share(FixedAmount value, FixedAmount span) {
    constexpr FixedAmount Large = INT64_MAX / 1024;
    const int64_t height = int64_t{state.PlotBand} * GridRows;
    if (value > Large || value < -Large || span > Large)
        return height * (value / 4096) / (span / 4096);
    return height * value / span;
}

} // namespace

void LoadGraphData(const Place &place) {
    int slot = MostSamples + 1;
    state.SampleTotal = 0;
    uint32_t filtered = 0;
    const int file = OpenRows(place, &filtered);
    if (file >= 0 && VersionServes(file)) {
        state.SampleTotal = CountRecords(file, Kind);
        slot = WalkBack(file);
    }
    if (file >= 0)
        CloseFile(file);
    CloseUp(slot);
    state.EntryCount[GraphList] = state.SampleTotal;
    PlotSamples();
    const uint32_t view = (place.Of == View::Archive ? 1U : 0U) | (filtered ? 2U : 0U);
    if (place.Account != state.LastPlottedAccount || view != state.LastPlottedView) {
        state.LastPlottedAccount = place.Account;
        state.LastPlottedView = view;
        state.SelectedEntry = state.SampleTotal;
        state.ExtrapReload = 1;
        state.PointerOn = 0;
    }
    SelectSample(SampleOfEntry(state.SelectedEntry));
}

void PlotSamples() {
    FixedAmount value[MostSamples + 1];
    const int count = state.SampleCount;
    state.MinIndex = state.MaxIndex = count;
    for (int i = count; i >= 1; --i) { // the newest of equals keeps the index
        value[i] = std::clamp(GetGraphValue(state.SampleRow[i]), -LargestPlotted, LargestPlotted);
        if (value[i] > value[state.MaxIndex])
            state.MaxIndex = i;
        if (value[i] < value[state.MinIndex])
            state.MinIndex = i;
    }
    state.SampleMin = count == 0 ? 0 : std::min<FixedAmount>(value[state.MinIndex], 0);
    state.SampleMax = count == 0 ? 0 : std::max<FixedAmount>(value[state.MaxIndex], 0);
    FixedAmount span;
    float xStep;
    state.PlotYScale = VerticalScale();
    ScaleGraph(state.SampleMin, state.SampleMax, &span, &xStep);
    for (int i = 1; i <= count; ++i)
        state.SamplePt[i] = {Cut(static_cast<float>(i - 1) * xStep + static_cast<float>(PlotLeft)),
                             PlotRow(RowOfValue(value[i], span))};
    state.SamplePt[0] = state.SamplePt[1];
}

void ScaleGraph(FixedAmount min, FixedAmount max, FixedAmount *span, float *xStep) {
    const bool extrapolation = state.GraphMode == Extrapolation;
    state.PlotBand = extrapolation ? ExtrapolationBand : UsualBand;
    state.PlotBase = extrapolation ? ExtrapolationBase : UsualBase;
    *span = max - min;
    const int64_t above = *span == 0 || ChartShown() ? int64_t{state.PlotBand} * GridRows : Share(max, *span);
    state.PlotZero = state.PlotBand + above;
    constexpr auto Width = static_cast<float>(PlotRight - PlotLeft);
    *xStep = state.SampleCount >= 2 ? Width / static_cast<float>(state.SampleCount - 1) : Width;
}

float VerticalScale() {
    return state.MessageWindowOn ? AboveMessages : FullHeight;
}

int PlotRow(int64_t row) {
    return Cut(static_cast<float>(row) * state.PlotYScale);
}

int64_t RowOfValue(FixedAmount value, FixedAmount span) {
    return state.PlotBase - (span == 0 ? 0 : Share(value, span)) + state.PlotZero;
}

int SampleOfEntry(int32_t position) {
    for (int i = 1; i <= state.SampleCount; ++i)
        if (state.SamplePos[i] >= position)
            return i;
    return state.SampleCount;
}

void SelectSample(int sample) {
    state.SelectedSample = sample;
    state.SelectedEntry = sample > 0 ? state.SamplePos[sample] : 0;
}

int SampleNear(int x, int y) {
    constexpr int Reach = 20;
    int best = 1000, found = 0;
    for (int i = 1; i <= state.SampleCount; ++i) {
        const int64_t dx = std::abs(int64_t{state.SamplePt[i].X} - x), dy = std::abs(int64_t{state.SamplePt[i].Y} - y);
        if (dx >= best || dy >= best)
            continue;
        best = static_cast<int>(std::max(dx, dy));
        found = i;
    }
    return best < Reach ? found : 0;
}

const char16_t *Ystr(FixedAmount value) {
    // ORDER: rows of rising limits, those in thousandths first. A quotient is rounded up.
    struct AxisForm {
        uint64_t Below;
        bool Whole; // the limit and the unit are whole units, not thousandths
        uint64_t Unit;
        bool Tenths; // the quotient counts tenths
        const char *Tail;
    };
    // clang-format off
    static constexpr AxisForm Forms[] = {
        {    10000, false,     100, true,  "0"},
        {   100000, false,     100, true,  ""},
        {     1000, true,        1, false, ""},
        {    10000, true,      100, true,  "k"},
        {   990000, true,     1000, false, "k"},
        {  9900000, true,   100000, true,  "M"},
        {100001000, true,  1000000, false, "M"},
    };
    // clang-format on
    constexpr int Room = sizeof state.AxisText / sizeof state.AxisText[0];
    const uint64_t thousandths = value < 0 ? uint64_t{0} - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
    char16_t *const text = state.AxisText;
    if (thousandths < 100) {
        CopyText(text, Room, u"0");
        return text;
    }
    for (const AxisForm &form : Forms) {
        const uint64_t amount = form.Whole ? thousandths / 1000 : thousandths;
        if (amount >= form.Below)
            continue;
        const auto quotient = static_cast<int64_t>((amount + form.Unit - 1) / form.Unit);
        text[0] = 0;
        AppendNumber(text, Room, form.Tenths ? quotient / 10 : quotient);
        if (form.Tenths) {
            AppendAscii(text, Room, ".");
            AppendNumber(text, Room, quotient % 10);
        }
        AppendAscii(text, Room, form.Tail);
        return text;
    }
    CopyText(text, Room, u"* ! *");
    return text;
}
