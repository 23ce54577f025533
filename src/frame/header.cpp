#include "frame/header.h"
#include "drawing/cells.h"
#include "drawing/geometry.h"
#include "drawing/saying.h"
#include "platform/text.h"
#include "resources/art.h"
#include "state/error_log.h"
#include "state/state.h"
#include <algorithm>

namespace {

constexpr int CellBottom = TitlesBottom - 2;
constexpr int GripWidth = 2, GripStep = 4, MostGripRoom = 20, FirstGrip = 5;
constexpr int TitleTextRoom = 30; // grips leave at least this much to the title
constexpr Rect TimesBox = {0, 0, 12, 12};
constexpr int TimesTop = 20, TimesBack = 8; // the cross stands this much left of the column's third

void DrawCount(int count, const Rect &box, Align align) {
    char16_t text[16] = u"";
    AppendNumber(text, 16, count);
    FillRect(TopWindow, box, BrushColour(HeaderBrush));
    PaintText(TopWindow, text, box, align, Font::Bold, HeaderInk(), 1);
}

void DrawImageIn(const Rect &box, int image) {
    CopyImage(TopWindow, {box.Left, box.Top}, image, {0, 0, box.Right - box.Left, box.Bottom - box.Top});
}

void DrawTitleText(int left, int right, const char16_t *text) {
    PaintText(TopWindow, text, {left, HeaderBottom + 1, right, CellBottom + 1}, Align::Centre, Font::Bold, Black, 1);
}

// Grips at each end of a column's title.
int GripCount(int left, int right) {
    const int room = std::min((right - left - TitleTextRoom) / 2, MostGripRoom);
    return state.CurrentScreen == AccountList && room >= GripStep ? room / GripStep : 0;
}

void DrawGrips(int left, int right) {
    for (int i = 0; i < GripCount(left, right); ++i) {
        const Rect whole = {0, 0, GripWidth, GripHeight};
        const int from = FirstGrip + i * GripStep;
        CopyImage(TopWindow, {left + from, GripTop}, GripBar, whole);
        CopyImage(TopWindow, {right - from - GripWidth, GripTop}, GripBar, whole);
    }
}

} // namespace

int GripReach(int left, int right) {
    const int count = GripCount(left, right);
    return count > 0 ? FirstGrip + (count - 1) * GripStep + GripWidth : 0;
}

Colour HeaderInk() {
    const bool archives = state.ArchiveView && state.CurrentScreen >= AccountList && state.CurrentScreen <= GraphList;
    return archives ? InkOn(BrushColour(HeaderBrush), AlertRed) : White;
}

void UpdateCounts() {
    const int screen = state.CurrentScreen;
    if (screen < AccountList || screen > ConversionList) {
        ReportError(In::UpdateCounts, Trouble::CaseError);
        return;
    }
    DrawCount(state.SelectedPos[screen], LeftCountBox, Align::TopLeft);
    DrawCount(state.EntryCount[screen], RightCountBox, Align::TopRight);
}

void DrawHeaderTitle(const char16_t *title) {
    NoteHeader(title ? title : u"");
    FillRect(TopWindow, TitleBox, BrushColour(HeaderBrush));
    if (title)
        PaintText(TopWindow, title, TitleBox, Align::Centre, Font::Bold, HeaderInk(), 1);
}

void DrawHeaderArrows() {
    DrawImageIn(UpArrowBox, GoldUp);
    DrawImageIn(DownArrowBox, GoldDown);
}

void DrawColumnTitle(int left, int right, const char16_t *text, int brush) {
    constexpr Bevel TitleBevel = {White, DarkGold};
    const int frame = state.DrawDepth == 3 ? 0 : 1;
    NoteTitle(left, right, text);
    FillRect(TopWindow, {left, HeaderBottom, right, TitlesBottom}, White);
    FillRect(TopWindow, {left + frame, HeaderBottom + frame, right - frame, TitlesBottom - frame},
             BrushColour(TitleBrush));
    DrawCell(TopWindow, HeaderBottom, CellBottom, left, right - 1, TitleBevel, brush, RaisedCell);

    const int textLeft = left + 1, textRight = right - 2;
    const int third = (textRight - textLeft) / 3;
    if (SameText(text, u"X B") && state.RefColumn) {
        DrawTitleText(textLeft, textRight, u"Ref");
    } else if (SameText(text, u"X B")) {
        CopyImage(TopWindow, {textLeft + third - TimesBack, TimesTop}, TimesSign, TimesBox);
        DrawTitleText(textLeft + third, textRight, u"B");
    } else if (SameText(text, u"A =")) {
        DrawTitleText(textLeft, textRight - third, u"A");
        DrawTitleText(textLeft + third, textRight, u"=");
    } else {
        DrawTitleText(textLeft, textRight, text);
    }
    DrawGrips(left, right);
}
