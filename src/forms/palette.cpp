#include "forms/palette.h"
#include "drawing/colour_model.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "drawing/mixing.h"
#include "drawing/palette.h"
#include "forms/palette_places.h"
#include "frame/message_window.h"
#include "frame/refusal.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "resources/art.h"
#include "resources/menus.h"
#include "state/messages.h"
#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <utility>

namespace {

constexpr int RaisePanelMode = 0, LowerPanelMode = 2; // of SipControl

CatRec &Category() {
    return state.FormRow.Category;
}

enum HeldPart : int32_t { NothingHeld, ConeHeld, SliderHeld };

int SquareAt(int x, int y) {
    for (int entry = 1; entry <= OwnerEntries; ++entry)
        if (Inside(SquareBox(entry), x, y))
            return entry;
    return 0;
}

const ParameterPart *ParameterAt(int x, int y) {
    for (const ParameterPart &part : Parameters)
        if (Inside(part.Box, x, y))
            return &part;
    return nullptr;
}

// --- Painting

void PaintGround(const Rect &box) {
    CopyImage(HostWindow, {box.Left, box.Top}, FormGround, box);
}

void PaintFramed(const Rect &box, Colour fill, Colour frame = Black) {
    FillRect(HostWindow, box, frame);
    FillRect(HostWindow, {box.Left + 1, box.Top + 1, box.Right - 1, box.Bottom - 1}, fill);
}

void PaintSquare(int entry) {
    const Rect box = SquareBox(entry);
    PaintFramed(box, state.Palette[entry]);
    if (entry != state.PaletteSquare)
        return;
    const Rect inner = {box.Left + 1, box.Top + 1, box.Right - 1, box.Bottom - 1};
    PaintFramed(inner, White, White);
    PaintFramed({inner.Left + 1, inner.Top + 1, inner.Right - 1, inner.Bottom - 1}, state.Palette[entry]);
}

void PaintSquares() {
    for (int entry = 1; entry <= OwnerEntries; ++entry)
        PaintSquare(entry);
}

constexpr int ConeUnit(int pixel) { // pixels of the cone's box to its units
    return pixel * ConeSpan / ConeSize;
}

Point MarkOf(const ColourState &colour) {
    return {ConeBox.Left + colour.MarkX * ConeSize / ConeSpan, ConeBox.Top + colour.MarkY * ConeSize / ConeSpan};
}

constexpr int MarkReach = 3;

void PaintMark() {
    const auto [x, y] = MarkOf(state.Mixed);
    for (const auto &[reach, pen] : {std::pair{MarkReach, Black}, std::pair{2, White}}) {
        const Point ring[] = {{x - reach, y - reach},
                              {x + reach, y - reach},
                              {x + reach, y + reach},
                              {x - reach, y + reach},
                              {x - reach, y - reach}};
        DrawPolyline(HostWindow, ring, static_cast<int>(std::size(ring)), pen);
    }
}

constexpr int MiddleLuminosity = 127; // at which hues and saturations are told apart best

// Sectors of the purest colours: they make the rim smooth, the colours in it are painted over them.
void PaintRim() {
    constexpr int Sectors = 72, Radius = ConeSize / 2;
    const Point middle = {ConeBox.Left + Radius, ConeBox.Top + Radius};
    const auto onRim = [&](int sector) {
        const double angle = sector * 2 * std::numbers::pi / Sectors;
        return Point{static_cast<int>(std::lround(middle.X - std::cos(angle) * (Radius - 1.25) - 0.5)),
                     static_cast<int>(std::lround(middle.Y - std::sin(angle) * (Radius - 1.25) - 0.5))};
    };
    for (int sector = 0; sector < Sectors; ++sector) {
        const Point corners[] = {middle, onRim(sector), onRim(sector + 1)};
        const Point within = {(corners[1].X + corners[2].X) / 2, (corners[1].Y + corners[2].Y) / 2};
        int hue, saturation;
        ConeColour(ConeUnit(within.X - ConeBox.Left) + 1, ConeUnit(within.Y - ConeBox.Top) + 1, &hue, &saturation);
        const Colour colour = HlsToRgb(hue, MiddleLuminosity, 255);
        FillPolygon(HostWindow, corners, 3, colour, colour);
    }
}

constexpr int RimUnits = 6; // of the radius, left to the rim's sectors

// Hues around, saturation from the middle out, all of one luminosity: what lies in a part of the cone's box.
void PaintHues(const Rect &part) {
    for (int y = part.Top; y < part.Bottom; ++y)
        for (int x = part.Left; x < part.Right; ++x) {
            const int across = ConeUnit(x - ConeBox.Left) + 1, down = ConeUnit(y - ConeBox.Top) + 1;
            if (ConeAngle(across, down).Radius >= ConeRim - RimUnits)
                continue;
            int hue, saturation;
            ConeColour(across, down, &hue, &saturation);
            FillRect(HostWindow, {x, y, x + 1, y + 1}, HlsToRgb(hue, MiddleLuminosity, saturation));
        }
}

void PaintCone() {
    const Rect around = {ConeBox.Left - 4, ConeBox.Top - 4, ConeBox.Right + 4, ConeBox.Bottom + 4};
    PaintGround(around);
    FillEllipse(HostWindow, {ConeBox.Left - 1, ConeBox.Top - 1, ConeBox.Right + 1, ConeBox.Bottom + 1}, Black, Black);
    PaintRim();
    PaintHues(ConeBox);
    DrawEllipse(HostWindow, {ConeBox.Left - 1, ConeBox.Top - 1, ConeBox.Right + 1, ConeBox.Bottom + 1}, Black, 2);
    PaintMark();
}

// The mark where it is now; of the cone only what lay under the old one, unless that reached the rim.
void MoveMark(const ColourState &before) {
    constexpr int Clear = ConeRim - RimUnits - 2 * MarkReach * ConeSpan / ConeSize;
    const ColourState &now = state.Mixed;
    if (before.MarkX == now.MarkX && before.MarkY == now.MarkY)
        return;
    if (ConeAngle(before.MarkX, before.MarkY).Radius > Clear) {
        PaintCone();
        return;
    }
    const auto [x, y] = MarkOf(before);
    PaintHues({x - MarkReach, y - MarkReach, x + MarkReach + 1, y + MarkReach + 1});
    PaintMark();
}

int ValueAtRow(int row) {
    return 255 - row * 255 / (SliderRows - 1);
}

// What each place of the slider would make of the colour; hue and saturation are shown at a luminosity that lets them
// be seen.
void PaintSlider() {
    constexpr int Knob = 6;
    const int32_t link = state.Mixed.ColLink;
    PaintGround({SliderBox.Left - 1, SliderBox.Top - 4, SliderBox.Right + Knob + 4, SliderBox.Bottom + 4});
    PaintFramed({SliderBox.Left - 1, SliderBox.Top - 1, SliderBox.Right + 1, SliderBox.Bottom + 1}, Black);
    for (int row = 0; row < SliderRows; ++row) {
        ColourState shown = state.Mixed;
        if (link == LinkHue || link == LinkSaturation)
            shown.ColL = MiddleLuminosity;
        SetParameterOf(&shown, link, ValueAtRow(row));
        FillRect(HostWindow, {SliderBox.Left, SliderBox.Top + row, SliderBox.Right, SliderBox.Top + row + 1},
                 ColourOf(shown));
    }
    const int y = SliderBox.Top + (255 - ColourParameter(state.Mixed, link)) * (SliderRows - 1) / 255;
    const Point knob[] = {
        {SliderBox.Right + 2, y}, {SliderBox.Right + 2 + Knob, y - 4}, {SliderBox.Right + 2 + Knob, y + 4}};
    FillPolygon(HostWindow, knob, 3, BrushColour(PressedGold), Black);
}

void PaintParameters() {
    for (const ParameterPart &part : Parameters) {
        const bool linked = part.Link == state.Mixed.ColLink;
        char16_t value[8] = u"";
        AppendNumber(value, 8, ColourParameter(state.Mixed, part.Link));
        PaintFramed(part.Box, linked ? BrushColour(PressedGold) : White);
        const Rect text = {part.Box.Left + 4, part.Box.Top, part.Box.Right - 4, part.Box.Bottom};
        PaintText(HostWindow, part.Letter, text, Align::Left, Font::Bold, Black);
        PaintText(HostWindow, value, text, Align::Right, Font::Normal, Black);
    }
}

// The colour kept in the palette beside the one that would take its place; and the category in its new colour.
void PaintPreview() {
    const Colour mixed = ColourOf(state.Mixed);
    PaintFramed(SwatchBox, mixed);
    if (state.PaletteSquare)
        FillRect(HostWindow,
                 {SwatchBox.Left + 1, SwatchBox.Top + 1, (SwatchBox.Left + SwatchBox.Right) / 2, SwatchBox.Bottom - 1},
                 state.Palette[state.PaletteSquare]);
    PaintFramed(CategoryBox, mixed);
    const Colour ink = Brightness(mixed) >= 128 ? Black : White;
    if (state.CategoryArmed) {
        const Rect inner = {CategoryBox.Left + 2, CategoryBox.Top + 2, CategoryBox.Right - 2, CategoryBox.Bottom - 2};
        PaintFramed(inner, mixed, ink);
    }
    PaintText(HostWindow, Category().Name,
              {CategoryBox.Left + 5, CategoryBox.Top, CategoryBox.Right - 5, CategoryBox.Bottom}, Align::Centre,
              Font::Bold, ink, 1);
}

void PaintColour(const ColourState &before) {
    MoveMark(before);
    PaintSlider();
    PaintParameters();
    PaintPreview();
}

void PaintPalette() {
    PaintGround({0, 0, ScreenWidth, state.MessageWindowOn ? MessageTopInForm : VisibleBottom});
    PaintSquares();
    PaintCone();
    PaintColour(state.Mixed);
    if (state.MessageWindowOn && state.Paint[0])
        state.Paint[0](HostWindow, EveryBand);
}

// --- What an owner does

// Anything but the second tap cancels what the first one prepared.
void Disarm() {
    state.DigitsTyped = 0;
    state.CategoryArmed = 0;
}

void SetCurrent(Colour colour) {
    SetCurrentColour(static_cast<int>(colour >> 16 & 255), static_cast<int>(colour >> 8 & 255),
                     static_cast<int>(colour & 255));
}

void ChooseSquare(int entry) {
    const ColourState before = state.Mixed;
    state.PaletteSquare = entry;
    SetCurrent(state.Palette[entry]);
    PaintSquares();
    PaintColour(before);
    ShowHelp(Help::PaletteSquare);
}

void StoreInSquare() {
    const int entry = state.PaletteSquare;
    const ColourState &mixed = state.Mixed;
    const Colour before = state.Palette[entry];
    SetPaletteEntry(entry, mixed.ColR, mixed.ColG, mixed.ColB);
    const int saved = SavePalette() && FinishAction();
    if (!saved)
        SetPaletteEntry(entry, static_cast<int>(before >> 16 & 255), static_cast<int>(before >> 8 & 255),
                        static_cast<int>(before & 255));
    PaintSquares();
    PaintPreview();
    if (saved)
        ShowHelp(Help::ColourKept);
}

void TapSquare(int entry) {
    Disarm();
    if (entry == state.PaletteSquare)
        StoreInSquare();
    else
        ChooseSquare(entry);
}

void TapCategory() {
    const bool again = state.CategoryArmed == 1;
    Disarm();
    if (again) {
        Category().Red = static_cast<uint32_t>(state.Mixed.ColR);
        Category().Green = static_cast<uint32_t>(state.Mixed.ColG);
        Category().Blue = static_cast<uint32_t>(state.Mixed.ColB);
        ShowHelp(Help::ColourKept);
    } else {
        state.CategoryArmed = 1;
        ShowHelp(Help::ColourForCategory);
    }
    PaintPreview();
}

void Link(int32_t link) {
    Disarm();
    LinkColourParameter(link);
    PaintSlider();
    PaintParameters();
    PaintPreview();
    ShowHelp(Parameters[link - LinkRed].Lines);
}

void SetLinked(int value) {
    const ColourState before = state.Mixed;
    SetColourParameter(state.Mixed.ColLink, value);
    PaintColour(before);
}

void FollowStylus(int x, int y) {
    const ColourState before = state.Mixed;
    if (state.PaletteHeld == SliderHeld)
        SetLinked(ValueAtRow(std::clamp(y - SliderBox.Top, 0, SliderRows - 1)));
    else if (state.PaletteHeld == ConeHeld && SetColourFromCone(ConeUnit(x - ConeBox.Left), ConeUnit(y - ConeBox.Top)))
        PaintColour(before);
}

constexpr Rect Reach(const Rect &box, int pixels) {
    return {box.Left - pixels, box.Top - pixels, box.Right + pixels, box.Bottom + pixels};
}

void Press(int x, int y) {
    constexpr int SliderReach = 4, KnobReach = 8;
    const Rect slider = Reach(SliderBox, SliderReach);
    if (const int entry = SquareAt(x, y)) {
        TapSquare(entry);
    } else if (const ParameterPart *part = ParameterAt(x, y)) {
        Link(part->Link);
    } else if (Inside(CategoryBox, x, y)) {
        TapCategory();
    } else {
        Disarm();
        const bool onSlider = Inside({slider.Left, slider.Top, slider.Right + KnobReach, slider.Bottom}, x, y);
        state.PaletteHeld = onSlider ? SliderHeld : Inside(ConeBox, x, y) ? ConeHeld : NothingHeld;
        if (state.PaletteHeld) {
            FollowStylus(x, y);
            ShowHelp(Help::MixColour);
        } else {
            PaintPreview();
            ShowHelp(Help::Palette);
        }
    }
}

void Close() {
    Disarm();
    state.PaletteHeld = NothingHeld;
    const Form *const back = state.PaletteReturn;
    ShowWindow(HostWindow, 0);
    RebuildForm(back, 0);
    if (back->WithPanel)
        SipControl(RaisePanelMode);
    ShowHelp(Help::ChangeColoured);
}

// --- Keys

void StepValue(int step) {
    Disarm();
    const int32_t link = state.Mixed.ColLink;
    const int value = ColourParameter(state.Mixed, link) + step;
    SetLinked(link != LinkHue ? value : value > 255 ? 0 : value < 0 ? 255 : value);
}

void StepLink(int step) {
    const int32_t link = state.Mixed.ColLink + step;
    Link(link > LinkSaturation ? LinkRed : link < LinkRed ? LinkSaturation : link);
}

void StepSquare(int step) {
    Disarm();
    const int entry = state.PaletteSquare + step;
    ChooseSquare(entry > OwnerEntries ? 1 : entry < 1 ? OwnerEntries : entry);
}

// The first digit takes the place of the value; more are taken while it stays below 256.
void TypeDigit(int digit) {
    const int typed = state.DigitsTyped;
    const int value = typed == 0 ? digit : ColourParameter(state.Mixed, state.Mixed.ColLink) * 10 + digit;
    state.CategoryArmed = 0;
    if (value > 255) {
        Beep();
        return;
    }
    SetLinked(value);
    state.DigitsTyped = typed + 1;
}

void EraseDigit() {
    const int value = ColourParameter(state.Mixed, state.Mixed.ColLink) / 10;
    state.CategoryArmed = 0;
    SetLinked(value);
    state.DigitsTyped = value == 0 ? 0 : 1;
}

void TurnEyes() {
    ToggleEyes();
    SipControl(LowerPanelMode);
    PaintPalette();
}

struct KeyRow {
    Key Pressed;
    void (*Do)(int argument);
    int Argument;
};
// clang-format off
constexpr KeyRow Keys[] = {
    {Key::Up,        StepValue,  1},
    {Key::Down,      StepValue,  -1},
    {Key::Right,     StepLink,   1},
    {Key::Left,      StepLink,   -1},
    {Key::RowDown,   StepSquare, 1},
    {Key::RowUp,     StepSquare, -1},
    {Key::Stroke,    [](int) { if (state.PaletteSquare) TapSquare(state.PaletteSquare); }, 0},
    {Key::Title1,    [](int) { TapCategory(); }, 0},
    {Key::FlagPart,  [](int) { TapCategory(); }, 0},
    {Key::Backspace, [](int) { EraseDigit(); },  0},
    {Key::Clear,     [](int) { EraseDigit(); },  0},
    {Key::Help,      [](int) { TurnEyes(); },    0},
    {Key::Enter,     [](int) { Close(); },       0},
    {Key::Tick,      [](int) { Close(); },       0},
    {Key::Escape,    [](int) { Close(); },       0},
};
// clang-format on

void Type(Key key) {
    if (key >= Key::Digit0 && key <= Key::Digit9) {
        TypeDigit(static_cast<int>(key) - static_cast<int>(Key::Digit0));
        return;
    }
    for (const KeyRow &row : Keys)
        if (row.Pressed == key) {
            row.Do(row.Argument);
            return;
        }
}

int DoBarCommand(int command) {
    if (command == CommandTick || command == CommandCross)
        Close();
    else if (command == CommandLeftEye || command == CommandRightEye)
        TurnEyes();
    else
        return 0;
    return 1;
}

} // namespace

void OpenPalette() {
    state.PaletteReturn = state.OpenedForm;
    SipControl(LowerPanelMode);
    CloseForm();
    state.OpenedForm = nullptr;
    state.ActiveDialog = PaletteDialog;
    state.PaletteSquare = 0;
    state.PaletteHeld = NothingHeld;
    Disarm();
    SetCurrentColour(Category().Red & 255, Category().Green & 255, Category().Blue & 255);
    ShowWindow(HostWindow, 1);
    PaintPalette();
    ShowHelp(Help::Palette);
}

int HandlePaletteEvent(const Event &event) {
    if (state.ActiveDialog != PaletteDialog)
        return 0;
    switch (event.Kind) {
    case EventKind::PointerDown:
    case EventKind::DoubleTap:
        if (event.Where == HostWindow)
            Press(event.X, event.Y);
        return 1;
    case EventKind::PointerMove:
        FollowStylus(event.X, event.Y);
        return 1;
    case EventKind::PointerUp:
        state.PaletteHeld = NothingHeld;
        return 1;
    case EventKind::Key:
        Type(static_cast<Key>(event.Code));
        return 1;
    case EventKind::Command:
        return DoBarCommand(event.Code);
    case EventKind::Paint:
        PaintPalette();
        return 1;
    case EventKind::Character:
    case EventKind::Control:
    case EventKind::Scroll:
        return 1;
    case EventKind::Close:
        return 0;
    }
    return 0;
}
