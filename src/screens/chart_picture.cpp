// How pies and bars look.
#include "screens/chart_picture.h"
#include "drawing/cells.h"
#include "drawing/colour_model.h"
#include "drawing/colours.h"
#include "platform/painting.h"
#include "platform/text.h"
#include "resources/art.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <numbers>

namespace {

constexpr int AmountRoom = 24;
constexpr Colour Paper = White, PanelGrey = Rgb(235, 238, 245), EmptyPie = Rgb(210, 214, 224),
                 SelectedBand = Rgb(255, 240, 190), Rim = Rgb(60, 66, 84);

struct Faces {
    Colour Front, Top, End;
};
constexpr Faces DebitFaces = {Rgb(224, 52, 44), Rgb(255, 158, 146), Rgb(148, 16, 10)},
                CreditFaces = {Rgb(66, 112, 206), Rgb(168, 194, 250), Rgb(30, 58, 132)};
constexpr Colour CutEnd = Rgb(255, 213, 0); // of a bar that is longer than there is room

Colour FromFile(int32_t colour) {
    return Rgb(colour & 255, colour >> 8 & 255, colour >> 16 & 255);
}

// Of the chart shown; silver where a segment has none.
Colour ColourOfSegment(const GRec &segment) {
    const int32_t colour = state.GraphMode == PieChart ? segment.PieColour : segment.BarColour;
    return colour == NoChartColour ? BrushColour(SilverBrush) : FromFile(colour);
}

Colour InkOn(Colour ground) {
    return Brightness(ground) >= 128 ? Black : White;
}

void WritePercent(char16_t *to, float percent) {
    char text[AmountRoom];
    std::snprintf(text, sizeof text, "%1.1f%%", static_cast<double>(percent));
    to[0] = 0;
    AppendAscii(to, AmountRoom, text);
}

void WriteWhole(char16_t *to, FixedAmount value) {
    to[0] = 0;
    AppendNumber(to, AmountRoom, static_cast<int64_t>(WholeMagnitude(value)));
}

void Frame(const Rect &box, Colour pen) {
    const Point corners[] = {{box.Left, box.Top},
                             {box.Right - 1, box.Top},
                             {box.Right - 1, box.Bottom - 1},
                             {box.Left, box.Bottom - 1},
                             {box.Left, box.Top}};
    DrawPolyline(ListWindow, corners, static_cast<int>(std::size(corners)), pen);
}

// A small triangle that points up or down, its middle at x.
void Arrow(int x, int top, int up) {
    for (int i = 0; i < 4; ++i) {
        const int y = up ? top + i : top + 3 - i;
        FillRect(ListWindow, {x - i, y, x + i + 1, y + 1}, Black);
    }
}

// --- Drop fields and lists

constexpr const char16_t *GroupTitles[] = {u"Name", u"Category", u"Ref", u"Month", u"Year", u"Flag", u"+ -"};
static_assert(std::size(GroupTitles) == GroupCount);

// Five bars up or down from an axis; the red ones count as debits.
struct OrderGlyph {
    int8_t Heights[5];
    uint8_t Red; // bit 0 is the first bar
};
// clang-format off
constexpr OrderGlyph OrderGlyphs[] = { // ORDER ANALYSISORDER
    {{ 9,  7,  5,  3,  1}, 0b01010},
    {{ 1,  3,  5,  7,  9}, 0b01010},
    {{-5, -3,  2,  4,  6}, 0b00011},
    {{ 6,  4,  2, -3, -5}, 0b11000},
    {{-9, -7, -5, -3, -1}, 0b11111},
    {{ 9,  7,  5,  3,  1}, 0b00000},
};
// clang-format on
constexpr const char16_t *TitleOrders[] = {u"A .. Z", u"Z .. A"};
static_assert(std::size(OrderGlyphs) + std::size(TitleOrders) == OrderCount);

void PaintOrder(int order, const Rect &box) {
    constexpr int Pitch = 4, BarWidth = 3, Tall = 10;
    const int glyphs = static_cast<int>(std::size(OrderGlyphs));
    if (order >= glyphs) {
        PaintText(ListWindow, TitleOrders[order - glyphs], box, Align::Centre, Font::Bold, Black, 1);
        return;
    }
    const OrderGlyph &glyph = OrderGlyphs[order];
    int lowest = 0, highest = 0;
    for (const int height : glyph.Heights) {
        lowest = std::min(lowest, height);
        highest = std::max(highest, height);
    }
    const int left = (box.Left + box.Right - 5 * Pitch) / 2;
    const int top = (box.Top + box.Bottom - Tall) / 2, axis = top + (lowest == 0 ? Tall : highest);
    for (int i = 0; i < 5; ++i) {
        const int height = glyph.Heights[i], x = left + i * Pitch;
        FillRect(ListWindow, {x, std::min(axis, axis - height), x + BarWidth, std::max(axis, axis - height)},
                 glyph.Red >> i & 1 ? DebitFaces.Front : CreditFaces.Front);
    }
    FillRect(ListWindow, {left - 1, axis, left + 5 * Pitch, axis + 1}, Black);
}

void PaintChoice(int list, int entry, const Rect &box) {
    if (list == GroupList)
        PaintText(ListWindow, GroupTitles[entry], {box.Left + 3, box.Top, box.Right - 1, box.Bottom}, Align::Left,
                  Font::Bold, Black, 1);
    else
        PaintOrder(entry, box);
}

int Chosen(int list) {
    return list == GroupList ? std::clamp(state.AnalysisGroup, 1, GroupCount) - 1
                             : std::clamp(state.AnalysisOrder, 0, OrderCount - 1);
}

void PaintField(int list) {
    constexpr int Handle = 14;
    const Rect &field = list == GroupList ? GroupField : OrderField;
    const Rect handle = {field.Right - Handle, field.Top + 1, field.Right - 1, field.Bottom - 1};
    FillRect(ListWindow, field, Paper);
    FillRect(ListWindow, handle, BrushColour(state.DroppedList == list ? PressedGold : TitleBrush));
    Frame(field, Rim);
    Arrow((handle.Left + handle.Right) / 2, (handle.Top + handle.Bottom) / 2 - 2, 0);
    PaintChoice(list, Chosen(list), {field.Left + 1, field.Top, handle.Left, field.Bottom});
}

void PaintDroppedList() {
    const int list = state.DroppedList;
    if (list == NoDropList)
        return;
    const Rect box = DropBox(list);
    FillRect(ListWindow, box, Paper);
    Frame(box, Rim);
    for (int entry = 0; entry < DropCount(list); ++entry) {
        const Rect row = DropEntryBox(list, entry);
        if (entry == Chosen(list))
            FillRect(ListWindow, row, BrushColour(PressedGold));
        PaintChoice(list, entry, row);
    }
}

// --- The table

void PaintRow(int row, const GRec &segment) {
    const int top = TableTop(row), last = row == TableRows();
    const bool selected = state.TopPos[GraphList] + row - 1 == state.SelectedPos[GraphList];
    const bool above = row == 1 && state.TopPos[GraphList] > 1;
    const bool below = last && state.TopPos[GraphList] + row - 1 < state.EntryCount[GraphList];
    const Colour ground = ColourOfSegment(segment);
    const Rect box = {TableLeft, top, TableRight, top + TableRowHeight};
    FillRect(ListWindow, {box.Left, box.Top, box.Right, box.Bottom - 1}, ground);
    FillRect(ListWindow, {box.Left, box.Bottom - 1, box.Right, box.Bottom}, Paper);
    if (selected)
        Frame(box, Black);
    const int right = box.Right - (above || below ? 13 : 2);
    // A title that is a little too wide is drawn narrower; the heading has room for the long ones.
    const int room = right - box.Left - 3, nearlyFits = TextWidth(segment.Title, Font::Normal) * 3 <= room * 4;
    PaintText(ListWindow, segment.Title, {box.Left + 3, box.Top, right, box.Bottom}, Align::Left, Font::Normal,
              InkOn(ground), nearlyFits);
    if (above || below) {
        FillRect(ListWindow, {right + 1, top + 1, box.Right - 1, top + TableRowHeight - 2}, Paper);
        Arrow((right + box.Right) / 2, top + 4, above);
    }
}

// --- Bars

void PaintBar(int row, const GRec &segment) {
    constexpr int Depth = 3, Pad = 4; // the third dimension, up to the left
    const FixedAmount value = ValueOf(segment);
    if (value == 0)
        return;
    const uint64_t magnitude = MagnitudeOf(value);
    const Faces &faces = value < 0 ? DebitFaces : CreditFaces;
    const int left = BarLeft(magnitude), top = TableTop(row) + 1 + Depth, bottom = TableTop(row) + TableRowHeight - 1;
    const Point roof[] = {
        {left, top}, {left - Depth, top - Depth}, {ColumnLimit - 1 - Depth, top - Depth}, {ColumnLimit - 1, top}};
    const Point end[] = {
        {left, top}, {left - Depth, top - Depth}, {left - Depth, bottom - 1 - Depth}, {left, bottom - 1}};
    const Colour endColour = BarIsCut(magnitude) ? CutEnd : faces.End;
    FillPolygon(ListWindow, roof, 4, faces.Top, faces.Top);
    FillPolygon(ListWindow, end, 4, endColour, endColour);
    FillRect(ListWindow, {left, top, ColumnLimit, bottom}, faces.Front);

    char16_t text[AmountRoom];
    if (state.ShowPercent)
        WritePercent(text, PercentOf(segment));
    else
        WriteWhole(text, value);
    const int width = TextWidth(text, Font::SmallBold);
    if (width + 2 * Pad <= ColumnLimit - left)
        PaintText(ListWindow, text, {left + Pad, top - 3, ColumnLimit - Pad, bottom + 1}, Align::Right, Font::SmallBold,
                  White);
    else
        PaintText(ListWindow, text, {1, top - 3, left - Depth - Pad, bottom + 1}, Align::Right, Font::SmallBold,
                  value < 0 ? AlertRed : Black, 1);
}

void PaintNothing(const Rect &box) {
    constexpr Rect Cross = {0, 0, 17, 15};
    CopyImage(ListWindow, {(box.Left + box.Right - Cross.Right) / 2, (box.Top + box.Bottom - Cross.Bottom) / 2},
              NothingCross, Cross);
}

// --- The pie

// One point a degree, from the left over the top; the last is the first again.
void MakePieOutline(const Rect &box, Point *points) {
    const double a = (box.Right - box.Left) / 2.0, b = (box.Bottom - box.Top) / 2.0;
    const double x = (box.Left + box.Right) / 2.0, y = (box.Top + box.Bottom) / 2.0;
    for (int degree = 0; degree <= PieDegrees; ++degree) {
        const double angle = degree % PieDegrees * std::numbers::pi / 180;
        points[degree] = {static_cast<int>(std::lround(x - std::cos(angle) * a)),
                          static_cast<int>(std::lround(y - std::sin(angle) * b))};
    }
}

struct Pie {
    Point Outline[PieDegrees + 1];
    Point Middle;
};

void PaintSector(const Pie &pie, int from, int to, Colour fill, Colour outline) {
    if (from >= to)
        return;
    Point corners[PieDegrees + 2];
    int count = 0;
    corners[count++] = pie.Middle;
    for (int degree = from; degree < to; degree += 2)
        corners[count++] = pie.Outline[degree];
    corners[count++] = pie.Outline[to];
    FillPolygon(ListWindow, corners, count, fill, outline);
}

void PaintConeBody(const Rect &box) {
    constexpr Rect Body = {0, 0, 114, 46};
    if (!state.MessageWindowOn) {
        CopyImage(ListWindow, {PieMiddle - Body.Right / 2, box.Bottom - 21}, ConeBody, Body);
        return;
    }
    constexpr int FlatWidth = 134, FlatHeight = 36; // from above the cone's side is wider, and less of it is seen
    const int top = box.Bottom - 19;
    StretchImage(ListWindow, {PieMiddle - FlatWidth / 2, top, PieMiddle + FlatWidth / 2, top + FlatHeight}, ConeBody,
                 Body);
}

void DrawPie() {
    const Rect box = PieBox();
    PaintConeBody(box);
    const Rect rim = {box.Left - 1, box.Top - 1, box.Right + 2, box.Bottom + 2};
    FillEllipse(ListWindow, rim, Rim, Rim);
    Pie pie;
    MakePieOutline(box, pie.Outline);
    pie.Middle = {(box.Left + box.Right) / 2, (box.Top + box.Bottom) / 2};
    if (state.PieSectorCount == 0) {
        FillEllipse(ListWindow, rim, EmptyPie, Rim);
        PaintNothing(box);
        return;
    }
    int at = 0, chosenFrom = 0, chosenTo = 0;
    for (int i = 0; i < state.PieSectorCount; ++i) {
        const PieSector &sector = state.PieSectors[i];
        const Colour colour = FromFile(sector.Colour);
        PaintSector(pie, at, sector.End, colour, colour);
        if (sector.Row == state.SelectedPos[GraphList]) {
            chosenFrom = at;
            chosenTo = sector.End;
        }
        at = sector.End;
    }
    DrawEllipse(ListWindow, rim, Rim, 2); // the corners of the sectors are whole pixels, the rim is smooth
    if (chosenFrom < chosenTo) {
        const Point sides[] = {pie.Outline[chosenFrom], pie.Middle, pie.Outline[chosenTo]};
        DrawPolyline(ListWindow, sides, 3, InkOn(EmptyPie), 2);
    }
}

// --- Debits against credits

void PaintPairColumn(int column, const GRec &segment, uint64_t largest) {
    constexpr int Tall = 100, HeadTall = 40, ShaftInset = 15, Slice = 10;
    const uint64_t magnitude = MagnitudeOf(segment.Value);
    const int tall = Scaled(Tall), base = PairBase();
    const int height =
        largest == 0 ? 0 : static_cast<int>(static_cast<double>(magnitude) / static_cast<double>(largest) * tall);
    const int left = PairLeft[column], right = left + PairWidth - 1, top = base - height;
    const int head = std::min(height, Scaled(HeadTall));
    const Faces &faces = segment.IsDebit ? DebitFaces : CreditFaces;
    // The shaft from its base up, in slices, lit from the left.
    for (int y = base; y > top + head; y -= Slice) {
        const int sliceTop = std::max(y - Slice, top + head);
        FillRect(ListWindow, {left + ShaftInset, sliceTop, left + ShaftInset + 8, y}, faces.Top);
        FillRect(ListWindow, {left + ShaftInset + 8, sliceTop, right - ShaftInset - 8, y}, faces.Front);
        FillRect(ListWindow, {right - ShaftInset - 8, sliceTop, right - ShaftInset + 1, y}, faces.End);
    }
    if (head > 1) {
        const Point tip[] = {{left, top + head - 1}, {left + PairWidth / 2, top}, {right, top + head - 1}};
        FillPolygon(ListWindow, tip, 3, faces.Front, faces.Front);
        const Point shade[] = {{left + PairWidth / 2, top}, {right, top + head - 1}, {right - 12, top + head - 1}};
        FillPolygon(ListWindow, shade, 3, faces.End, faces.End);
    }
    const int over = std::max(top - 14, LowerHeading.Bottom);
    PaintAmount(ListWindow, segment.Value, {left - 3, over, right + 3, over + 13}, 2, Align::Centre);
}

void DrawCreditDebit() {
    constexpr int PercentWidth = 46;
    const GRec *const pair = state.ChartRows;
    const int base = PairBase();
    FillRect(ListWindow, {PairLeft[0] - 6, base, PairLeft[1] + PairWidth + 6, base + 1}, Rim);
    if (state.ChartRowCount < 2) {
        PaintNothing({PairLeft[0], LowerHeading.Bottom, PairLeft[1] + PairWidth, base});
        return;
    }
    const uint64_t largest = std::max(MagnitudeOf(pair[0].Value), MagnitudeOf(pair[1].Value));
    const Rect line = {PairLeft[0], base + 1, PairLeft[1] + PairWidth, base + 14};
    for (int i = 0; i < 2; ++i) {
        PaintPairColumn(i, pair[i], largest);
        char16_t text[AmountRoom];
        WritePercent(text, PercentOf(pair[i]));
        const Rect box = i == 0 ? Rect{line.Left, line.Top, line.Left + PercentWidth, line.Bottom}
                                : Rect{line.Right - PercentWidth, line.Top, line.Right, line.Bottom};
        PaintText(ListWindow, text, box, i == 0 ? Align::Left : Align::Right, Font::SmallBold, Black, 1);
    }
    PaintAmount(ListWindow, AddAmounts(pair[0].Value, pair[1].Value),
                {line.Left + PercentWidth, line.Top, line.Right - PercentWidth, line.Bottom}, 2, Align::Centre);
}

// --- The heading, the table and the fields

void PaintHeading() {
    const GRec &segment = state.Segment;
    const bool there = state.SegmentSelected;
    const Colour ground = there ? ColourOfSegment(segment) : PanelGrey;
    FillRect(ListWindow, UpperHeading, ground);
    FillRect(ListWindow, LowerHeading, PanelGrey);
    const Rect frame = {UpperHeading.Left, UpperHeading.Top, LowerHeading.Right, LowerHeading.Bottom};
    Frame(frame, Rim);
    FillRect(ListWindow, {frame.Left, LowerHeading.Top, frame.Right, LowerHeading.Top + 1}, Rim);
    if (!there)
        return;
    char16_t count[AmountRoom] = u"", percent[AmountRoom];
    AppendNumber(count, AmountRoom, segment.Entries);
    const int countLeft = UpperHeading.Right - 4 - TextWidth(count, Font::Bold);
    PaintText(ListWindow, segment.Title, {UpperHeading.Left + 4, UpperHeading.Top, countLeft - 4, UpperHeading.Bottom},
              Align::Left, Font::Bold, InkOn(ground), 1);
    PaintText(ListWindow, count, {countLeft, UpperHeading.Top, UpperHeading.Right - 4, UpperHeading.Bottom},
              Align::Right, Font::Bold, InkOn(ground));
    WritePercent(percent, PercentOf(segment));
    PaintText(ListWindow, percent, {LowerHeading.Left + 4, LowerHeading.Top, HeadingSplit, LowerHeading.Bottom},
              Align::Left, state.ShowPercent ? Font::Bold : Font::Normal, Black, 1);
    char16_t value[AmountRoom];
    WriteAmount(value, AmountRoom, ValueOf(segment));
    PaintText(ListWindow, value, {HeadingSplit - 15, LowerHeading.Top, LowerHeading.Right - 4, LowerHeading.Bottom},
              Align::Right, state.ShowPercent ? Font::Normal : Font::Bold, ValueOf(segment) < 0 ? AlertRed : Black, 1);
}

void PaintTable() {
    const GRec *const rows = state.ChartRows;
    const int shown = std::min(state.ChartRowCount, TableRows());
    for (int i = 0; i < shown; ++i) {
        if (state.GraphMode == BarChart) {
            if (state.TopPos[GraphList] + i == state.SelectedPos[GraphList])
                FillRect(ListWindow, {1, TableTop(i + 1), ColumnLimit, TableTop(i + 2)}, SelectedBand);
            PaintBar(i + 1, rows[i]);
        }
        PaintRow(i + 1, rows[i]);
    }
}

void PaintDropFields() {
    PaintField(GroupList);
    PaintField(OrderList);
    PaintDroppedList();
}

} // namespace

uint64_t LargestMagnitude() {
    const uint64_t credit = MagnitudeOf(state.LargestCredit), debit = MagnitudeOf(state.LargestDebit);
    return state.AnalysisOrder == DebitsOnly    ? debit
           : state.AnalysisOrder == CreditsOnly ? credit
                                                : std::max(credit, debit);
}

int BarLeft(uint64_t magnitude) {
    constexpr int LeastLeft = 10;
    uint64_t largest = LargestMagnitude();
    if (largest == 0)
        return ColumnLimit;
    while (largest >> 40) { // so that the product stays within 64 bits
        largest >>= 1;
        magnitude >>= 1;
    }
    const uint64_t length = (ColumnLimit - LeastLeft) * static_cast<uint64_t>(state.BarZoom) * magnitude / largest;
    return length > ColumnLimit - LeastLeft ? LeastLeft : ColumnLimit - static_cast<int>(length);
}

int BarIsCut(uint64_t magnitude) {
    return state.BarZoom > 1 && magnitude > LargestMagnitude() / static_cast<uint64_t>(state.BarZoom);
}

void PaintWholeChart() {
    const Painting painting;
    FillRect(ListWindow, {0, 0, ScreenWidth, state.RowCount * RowHeight + 1}, Paper);
    PaintHeading();
    if (IsPair()) {
        DrawCreditDebit();
    } else {
        if (state.GraphMode == PieChart)
            DrawPie();
        else if (state.EntryCount[GraphList] == 0)
            PaintNothing({0, TableTop(1), ColumnLimit, TableBottom()});
        PaintTable();
    }
    PaintDropFields();
}
