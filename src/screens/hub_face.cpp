#include "screens/hub_face.h"
#include "analysis/calculator.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "platform/painting.h"
#include "resources/art.h"
#include "state/state.h"
#include <span>

namespace {

constexpr Rect EqualsBox = {42, 67, 66, 95}; // before the result
constexpr Colour Glass = Rgb(246, 250, 255), ActiveGlass = Rgb(255, 240, 178), GlassEdge = Rgb(16, 25, 58),
                 LineInk = Rgb(110, 124, 160);
constexpr int LineMargin = 5, LetterWidth = 14;
constexpr int ArrowPitch = 30;
constexpr int LineRoom = 32;

bool IsLarge() {
    return state.HubState == LargeHub;
}

Window Where() {
    return IsLarge() ? HostWindow : HubWindow;
}

std::span<const HubKeyPlace> Places() {
    return IsLarge() ? std::span<const HubKeyPlace>(CalculatorKeys) : std::span<const HubKeyPlace>(HubPanel);
}

constexpr bool IsWide(const Rect &box) {
    return box.Right - box.Left > 30;
}

// The ground again where something transparent is about to be painted anew.
void RestoreGround(const Rect &box) {
    CopyImage(Where(), {box.Left, box.Top}, IsLarge() ? CalculatorGround : HubGround, box);
}

// --- Keys

const char16_t *LegendOf(const HubKeyPlace &place) {
    return place.Key == DecimalsKey && state.CalcDecimals == 2 ? u".000" : place.Legend; // what a tap gives
}

void DrawKeyFace(const HubKeyPlace &place, bool pressed) {
    const bool wide = IsWide(place.Box);
    const int width = place.Box.Right - place.Box.Left, height = place.Box.Bottom - place.Box.Top;
    const int left = static_cast<int>(place.Face) * (wide ? 40 : 30), top = pressed ? (wide ? 26 : 24) : 0;
    RestoreGround(place.Box); // at the round corners
    CopyImage(Where(), {place.Box.Left, place.Box.Top}, wide ? LargeKeyFaces : HubKeyFaces,
              {left, top, left + width, top + height});
    const Rect &box = place.Box;
    const int sunk = pressed ? 1 : 0;
    PaintText(Where(), LegendOf(place), {box.Left + 2, box.Top + sunk, box.Right - 2, box.Bottom + sunk}, Align::Centre,
              place.Face == HubFace::Function ? Font::Bold : Font::LargeBold, Black, 1);
}

void DrawCone(const HubKeyPlace &place) {
    RestoreGround(place.Box);
    CopyImage(Where(), {place.Box.Left, place.Box.Top}, BlueCone, {0, 0, 30, 30});
}

void DrawArrow(const HubKeyPlace &place, bool pressed) {
    const bool reads = place.Face == HubFace::Read;
    const bool works = reads ? state.HubReads : state.HubTakes;
    const int left = (reads ? 0 : 2 * ArrowPitch) + (works ? 0 : ArrowPitch);
    const Rect &box = place.Box;
    RestoreGround({box.Left, box.Top, box.Right + 1, box.Bottom + 1});
    const int sunk = pressed ? 1 : 0;
    CopyImage(Where(), {box.Left + sunk, box.Top + sunk}, HubArrows,
              {left, 0, left + box.Right - box.Left, box.Bottom - box.Top});
}

void DrawSign(const HubKeyPlace &place) {
    RestoreGround(place.Box);
    const bool negative = !state.CalcError && *ActiveLine() < 0;
    CopyImage(Where(), {place.Box.Left, place.Box.Top}, negative ? MinusSign : PlusSign, {0, 0, 12, 12});
}

// --- The display

void DrawGlass(const Rect &box) {
    FillRect(Where(), {box.Left - 1, box.Top - 1, box.Right + 1, box.Bottom + 1}, GlassEdge);
    FillRect(Where(), box, Glass);
}

void PaintValue(FixedAmount line, const Rect &box) {
    char16_t text[LineRoom];
    WriteLine(text, LineRoom, line);
    PaintText(Where(), text, {box.Left, box.Top, box.Right - LineMargin, box.Bottom}, Align::Right, Font::LargeBold,
              line < 0 ? AlertRed : Black, 1);
}

void PaintStars(const Rect &box) {
    PaintText(Where(), OverflowText, box, Align::Centre, Font::LargeBold, AlertRed, 1);
}

FixedAmount LineOf(int key) {
    return key == LineXKey ? state.CalcX : key == LineYKey ? state.CalcY : state.CalcZ;
}

void DrawLine(const HubKeyPlace &place) {
    const Rect &box = place.Box;
    FillRect(HostWindow, box, place.Key == state.CalcLine ? ActiveGlass : Glass);
    PaintText(HostWindow, place.Legend, {box.Left + 3, box.Top, box.Left + 3 + LetterWidth, box.Bottom}, Align::Left,
              Font::SmallBold, LineInk);
    PaintValue(LineOf(place.Key), {box.Left + LetterWidth, box.Top, box.Right, box.Bottom});
}

void DrawOperator(const HubKeyPlace &place) {
    for (const HubKeyPlace &key : CalculatorKeys)
        if (key.Key == state.CalcOp)
            PaintText(HostWindow, key.Legend, place.Box, Align::Centre, Font::LargeBold, BrushColour(HeaderBrush));
    PaintText(HostWindow, u"=", EqualsBox, Align::Centre, Font::LargeBold, BrushColour(HeaderBrush));
}

void DrawPlace(const HubKeyPlace &place, bool pressed) {
    switch (place.Face) {
    case HubFace::Digit:
    case HubFace::Function:
    case HubFace::Operator:
    case HubFace::Back:
        DrawKeyFace(place, pressed);
        return;
    case HubFace::Cone:
        DrawCone(place);
        return;
    case HubFace::Sign:
        DrawSign(place);
        return;
    case HubFace::Read:
    case HubFace::Write:
        DrawArrow(place, pressed);
        return;
    case HubFace::Line:
        if (!state.CalcError)
            DrawLine(place);
        return;
    case HubFace::LineOperator:
        if (!state.CalcError)
            DrawOperator(place);
        return;
    }
}

void DrawFaces(HubFace from, HubFace to) {
    for (const HubKeyPlace &place : Places())
        if (place.Face >= from && place.Face <= to)
            DrawPlace(place, false);
}

} // namespace

int HubHit(int x, int y) {
    if (y < 0)
        return AboveHub;
    for (const HubKeyPlace &place : Places())
        if (Inside(place.Hit, x, y))
            return place.Key;
    return NoHubKey;
}

void DrawHub() {
    if (state.HubState == HubClosed)
        return;
    const Painting painting;
    // Between the tabs and the panel, where longer lists have rows.
    if (!IsLarge())
        FillRect(ListWindow, {0, TabTop(RowsAboveMessages) + TabBand, ScreenWidth, HubPlace.Top - ListTop}, White);
    const Rect &whole = IsLarge() ? CalculatorPlace : HubPlace;
    RestoreGround({0, 0, whole.Right, whole.Bottom - whole.Top});
    DrawFaces(HubFace::Digit, HubFace::Cone);
    DrawHubArrows();
    DrawHubDisplay();
}

void DrawHubDisplay() {
    if (state.HubState == HubClosed)
        return;
    const Rect &display = IsLarge() ? CalculatorDisplay : PanelDisplay;
    DrawGlass(display);
    DrawFaces(HubFace::Sign, HubFace::Sign);
    if (state.CalcError)
        PaintStars(display);
    else if (IsLarge())
        DrawFaces(HubFace::Line, HubFace::LineOperator);
    else
        PaintValue(*ActiveLine(), {display.Left + 2, display.Top, display.Right, display.Bottom});
}

void DrawHubArrows() {
    if (state.HubState == SmallHub)
        DrawFaces(HubFace::Read, HubFace::Write);
}

void DrawHubKey(int key, bool pressed) {
    for (const HubKeyPlace &place : Places())
        if (place.Key == key)
            DrawPlace(place, pressed);
}
