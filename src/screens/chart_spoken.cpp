#include "screens/chart_spoken.h"
#include "platform/text.h"
#include "screens/chart_picture.h"
#include <algorithm>
#include <cstdio>
#include <iterator>

namespace {

// ORDER ANALYSISGROUP and ORDER ANALYSISORDER
constexpr const char16_t *GroupWords[] = {u"name", u"category", u"reference", u"month", u"year", u"flag", u"sign"};
constexpr const char16_t *OrderWords[] = {u"largest first", u"smallest first", u"lowest first", u"highest first",
                                          u"debits alone",  u"credits alone",  u"A to Z",       u"Z to A"};
static_assert(std::size(GroupWords) == GroupCount && std::size(OrderWords) == OrderCount);

const char16_t *WordsOf(int list, int entry) {
    return list == GroupList ? GroupWords[entry] : OrderWords[entry];
}

int ChosenEntry(int list) {
    return list == GroupList ? std::clamp(state.AnalysisGroup, 1, GroupCount) - 1
                             : std::clamp(state.AnalysisOrder, 0, OrderCount - 1);
}

void SayPercent(Spot *spot, const GRec &segment) {
    char text[24];
    std::snprintf(text, sizeof text, "%1.1f%%", static_cast<double>(PercentOf(segment)));
    SayMore(spot, u"");
    AppendAscii(spot->Name, SpotNameRoom, text);
}

// Of the selected segment; the two numbers choose what the bars are labelled with.
void ListHeading(SpotList *list) {
    GRec segment;
    if (!LoadGRec(state.SelectedPos[GraphList], &segment)) {
        AddSpot(list, SpotKind::Text, ListWindow, UpperHeading, u"No segments");
        return;
    }
    Spot &title = AddSpot(list, SpotKind::Text, ListWindow, UpperHeading, segment.Title);
    SayMore(&title, u"");
    SayCount(&title, segment.Entries);
    SayWords(&title, segment.Entries == 1 ? u" entry" : u" entries");
    const Rect left = {LowerHeading.Left, LowerHeading.Top, HeadingSplit, LowerHeading.Bottom},
               right = {HeadingSplit, LowerHeading.Top, LowerHeading.Right, LowerHeading.Bottom};
    SayPercent(&AddChoice(list, ListWindow, left, u"Percentage", state.ShowPercent != 0), segment);
    SayValue(&AddChoice(list, ListWindow, right, u"Value", state.ShowPercent == 0), ValueOf(segment));
}

void ListDropField(SpotList *list, int which) {
    const bool groups = which == GroupList, dropped = state.DroppedList == which;
    SayMore(&AddSpot(list, SpotKind::Choice, ListWindow, groups ? GroupField : OrderField,
                     groups ? u"Segments by" : u"Order"),
            WordsOf(which, ChosenEntry(which)));
    for (int entry = 0; dropped && entry < DropCount(which); ++entry) {
        const bool chosen = entry == ChosenEntry(which);
        AddChoice(list, ListWindow, DropEntryBox(which, entry), WordsOf(which, entry), chosen).Focused = chosen;
    }
}

void ListSegment(SpotList *list, const Rect &box, const GRec &segment, int32_t position) {
    Spot &row = AddSpot(list, SpotKind::Row, ListWindow, box, segment.Title[0] ? segment.Title : u"no title");
    SayValue(&row, ValueOf(segment));
    SayPercent(&row, segment);
    row.Selectable = true;
    row.Selected = position == state.SelectedPos[GraphList];
    row.Focused = row.Selected && !state.DroppedList;
}

} // namespace

void ListChartSpots(SpotList *list) {
    ListHeading(list);
    ListDropField(list, GroupList);
    ListDropField(list, OrderList);
    const bool pair = IsPair();
    const Rect picture =
        state.GraphMode == PieChart ? PieBox() : Rect{0, LowerHeading.Bottom, ColumnLimit, TableBottom()};
    Spot &chart = AddSpot(list, SpotKind::Graphic, ListWindow, picture,
                          pair                          ? u"Debits against credits"
                          : state.GraphMode == PieChart ? u"Pie"
                                                        : u"Bars");
    if (!pair) {
        SayMore(&chart, u"");
        SayCount(&chart, state.EntryCount[GraphList]);
        SayWords(&chart, u" segments");
    }
    GRec rows[MostRows];
    const int32_t top = pair ? 1 : state.TopPos[GraphList];
    const int shown = LoadGRecs(top, pair ? 2 : TableRows(), rows);
    for (int i = 0; i < shown; ++i) {
        const Rect row = {TableLeft, TableTop(i + 1), TableRight, TableTop(i + 2)},
                   column = {PairLeft[i & 1], LowerHeading.Bottom, PairLeft[i & 1] + PairWidth, PairBase()};
        ListSegment(list, pair ? column : row, rows[i], top + i);
    }
}
