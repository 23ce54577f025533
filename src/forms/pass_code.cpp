#include "forms/pass_code.h"
#include "care/change_key.h"
#include "care/pass_code.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "forms/pass_code_places.h"
#include "frame/form.h"
#include "frame/message_window.h"
#include "platform/cipher.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "resources/art.h"
#include "resources/forms.h"
#include "resources/help_lines.h"
#include "resources/menus.h"
#include "state/greys.h"
#include "state/messages.h"
#include <cmath>
#include <iterator>
#include <numbers>

namespace {

constexpr FormControl LongCodeControls[] = {
    {TextField, ControlKind::Secret, 40, 24, 160, 20, PassRoom - 1, u"Pass code"}};
constexpr FormTemplate LongCodeTemplate = TemplateOf(146, LongCodeControls);

constexpr Colour FailureColour = AlertRed, EntryColour = Rgb(0, 39, 159), RightColour = Green,
                 PaleGold = Rgb(255, 232, 160), DialColour = Rgb(223, 232, 251);

int SpotAt(int x, int y) {
    for (const PassSpot &spot : PassSpots)
        if (Inside(spot.What == LifterSpot ? spot.Box : Placed(spot.Box), x, y))
            return spot.What;
    return NoPassSpot;
}

// --- Painting

// A piece of the circle from one share of it to another, in hundredths, clockwise from the top.
void PaintPiece(const Rect &circle, int from, int to, Colour fill) {
    constexpr int Most = 64;
    const double x = (circle.Left + circle.Right - 1) / 2.0, y = (circle.Top + circle.Bottom - 1) / 2.0,
                 radius = (circle.Right - circle.Left - 3) / 2.0;
    const int steps = (to - from) * (Most - 1) / 100 + 1;
    Point points[Most + 2];
    int count = 0;
    points[count++] = {static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y))};
    for (int step = 0; step <= steps; ++step) {
        const double angle = (from + static_cast<double>(to - from) * step / steps) / 50 * std::numbers::pi;
        points[count++] = {static_cast<int>(std::lround(x + radius * std::sin(angle))),
                           static_cast<int>(std::lround(y - radius * std::cos(angle)))};
    }
    FillPolygon(PassWindow(), points, count, fill, fill);
}

// Sectors of failed tries, one more than there were, with the colours changed at each round of eight; or how far the
// files are.
void PaintCircle() {
    const Rect circle = Placed(BoxOf(CircleSpot));
    const bool swapped = state.FailedTries / MostTries % 2 != 0;
    const Colour ground = swapped ? FailureColour : PaleGold, sector = swapped ? PaleGold : FailureColour;
    if (state.CipherProgress >= 0) {
        FillEllipse(PassWindow(), circle, White, Black);
        if (state.CipherProgress == 100)
            FillEllipse(PassWindow(), circle, EntryColour, Black);
        else if (state.CipherProgress > 0)
            PaintPiece(circle, 0, state.CipherProgress, EntryColour);
        DrawEllipse(PassWindow(), circle, Black, 1);
        return;
    }
    FillEllipse(PassWindow(), circle, ground, Black);
    for (int n = 0; n <= state.FailedTries % MostTries; ++n)
        PaintPiece(circle, n * 100 / MostTries, (n + 1) * 100 / MostTries, sector);
    DrawEllipse(PassWindow(), circle, Black, 1);
}

void PaintDigitCircles() {
    const bool marked = state.DigitMarks != PassMarks::Typed;
    const Colour fill = state.DigitMarks == PassMarks::Wrong   ? FailureColour
                        : state.DigitMarks == PassMarks::Right ? RightColour
                                                               : EntryColour;
    for (int n = 0; n < PassDigits; ++n)
        FillEllipse(PassWindow(), DigitCircles[n], marked || n < state.DigitCount ? fill : White, Black);
}

void PaintDial() {
    for (const PassSpot &spot : PassSpots) {
        if (spot.What >= DigitKeys)
            continue;
        const Rect box = Placed(spot.Box);
        const char16_t digit[] = {static_cast<char16_t>(u'0' + spot.What), 0};
        FillEllipse(PassWindow(), box, spot.What == state.HeldDigit ? PaleBlue : DialColour, EntryColour);
        PaintText(PassWindow(), digit, box, Align::Centre, Font::LargeBold, Black);
    }
}

// Why a code was wrong; with the message window open it is said there.
void PaintWhy() {
    if (state.DigitMarks != PassMarks::Wrong || state.MessageWindowOn)
        return;
    PaintText(PassWindow(), MessageText(LinesOf(Help::WrongCode)[1]), WrongLine, Align::Centre, Font::Bold, AlertRed,
              1);
    if (state.FailedTries >= MostTries)
        PaintText(PassWindow(), MessageText(LinesOf(Help::TooManyCodes)[3]), WhyLine, Align::Centre, Font::Bold,
                  AlertRed, 1);
}

void PassCodeScreen(int mode) {
    const bool working = state.CipherProgress >= 0;
    FillRect(PassWindow(), {0, 0, ScreenWidth, state.MessageWindowOn ? MessageTopInForm : BarTop}, White);
    PaintText(PassWindow(), PassTitles[mode], TitleLine, Align::Centre, Font::Bold, Black);
    if (!working) {
        const int cell = state.StrongMode ? 24 : 0;
        CopyImage(PassWindow(), {BoxOf(LifterSpot).Left, BoxOf(LifterSpot).Top}, WeightLifter,
                  {cell, 0, cell + 24, 24});
    }
    if (ShowsDial()) {
        PaintDigitCircles();
        PaintDial();
    }
    PaintCircle();
    PaintWhy();
}

// With the message window open it is painted too.
void PaintPassCode() {
    PassCodeScreen(state.PassMode);
    if (state.MessageWindowOn && state.Paint[0])
        state.Paint[0](NoWindow, EveryBand);
}

void ShowNowPainted() {
    PaintPassCode();
    ShowNow();
}

void SayWhatThisIs() {
    if (!state.StrongMode)
        ForceHelp(Help::WeakCode);
    else if (state.PassMode == EnterCode)
        ForceHelp(Help::StrongCode);
    else
        ForceHelp(Help::NewStrongCode);
}

// --- What was entered

void ForgetEntry() {
    state.DigitCount = 0;
    Wipe(&state.PassNumber, sizeof state.PassNumber);
}

void ResetInput() {
    ForgetEntry();
    state.DigitMarks = PassMarks::Typed;
    if (state.StrongMode)
        SetControlText(TextField, u"");
}

void ShowWindows() {
    if (state.StrongMode)
        OpenForm(&LongCodeTemplate);
    else
        CloseForm();
    ShowWindow(HostWindow, !state.StrongMode);
}

// The screen goes; whatever was entered with it.
void ClosePassCode() {
    const bool gate = state.PassMode == EnterCode;
    ResetInput();
    state.HeldDigit = NoPassSpot;
    Wipe(state.FirstEntry, sizeof state.FirstEntry);
    state.CipherProgress = -1;
    ShowWindow(HostWindow, 0);
    if (!gate) {
        Dialog_End();
        return;
    }
    CloseForm();
    state.ActiveDialog = NoDialog;
}

void TellProgressOfCircle(int percent) {
    percent = percent > 100 ? 100 : percent;
    state.CipherProgress = state.PassMode == Decrypting ? 100 - percent : percent;
    ShowNowPainted();
}

// Changes the key with the circle as progress indicator, and returns to the list.
void RunChange(int mode, const char16_t *text) {
    constexpr int FullCirclePause = 500; // ms
    state.PassMode = mode;
    state.StrongMode = 0;
    ShowWindows();
    TellProgressOfCircle(0);
    const KeyChange change = ChangeKey(text, TellProgressOfCircle);
    if (change == KeyChange::Done)
        Sleep(FullCirclePause);
    ClosePassCode();
    if (change == KeyChange::Unwritten)
        TellUnwritten();
    else if (change == KeyChange::Damaged)
        RefuseTick(Help::RecordUndeciphered);
    else if (change == KeyChange::NoCipher)
        RefuseTick(Help::NoKeyMade);
}

void FailTry() {
    ForgetEntry();
    state.DigitMarks = PassMarks::Wrong;
    if (state.StrongMode)
        SetControlText(TextField, u"");
    Beep();
    ForceHelp(state.FailedTries >= MostTries ? Help::TooManyCodes : Help::WrongCode);
    PaintPassCode();
}

void Succeed() {
    state.DigitMarks = PassMarks::Right;
    ShowNowPainted();
    ClosePassCode();
    state.Next = NextStep::LoadData;
}

void KeepFirstEntry(const char16_t *text) {
    CopyText(state.FirstEntry, PassRoom, text);
    ResetInput();
    state.PassMode = ConfirmNewCode;
    PaintPassCode();
}

void Confirm(const char16_t *text) {
    constexpr int ShowFailure = 500; // ms
    if (SameText(text, state.FirstEntry)) {
        RunChange(Encrypting, text);
        return;
    }
    state.DigitMarks = PassMarks::Wrong;
    Beep();
    PaintPassCode();
    Sleep(ShowFailure);
    ClosePassCode();
}

// A finished entry: four digits as the number they make, without leading zeroes, or a text.
void PassCodeSubmit(int mode, int32_t number, const char16_t *longText) {
    char16_t text[PassRoom] = {};
    if (longText)
        CopyText(text, PassRoom, longText);
    else
        AppendNumber(text, PassRoom, number);
    if (mode == EnterNewCode)
        KeepFirstEntry(text);
    else if (mode == ConfirmNewCode)
        Confirm(text);
    else if (TryPassCode(text))
        Succeed();
    else
        FailTry();
    Wipe(text, sizeof text);
}

void TakeDigit(int digit) {
    if (state.DigitMarks != PassMarks::Typed)
        ResetInput();
    state.PassNumber = state.PassNumber * 10 + digit;
    ++state.DigitCount;
    ShowNowPainted();
    if (state.DigitCount == PassDigits)
        PassCodeSubmit(state.PassMode, state.PassNumber, nullptr);
}

void SubmitLongCode() {
    char16_t text[PassRoom] = {};
    if (!state.StrongMode)
        return; // the fourth digit submits by itself
    if (GetControlText(TextField, text, PassRoom) == 0)
        Beep(); // no code at all
    else
        PassCodeSubmit(state.PassMode, 0, text);
    Wipe(text, sizeof text);
}

// --- Taps and keys

void ToggleStrength() {
    ResetInput();
    state.StrongMode = !state.StrongMode;
    ShowWindows();
    SayWhatThisIs();
    PaintPassCode();
}

void ResetByCircle() {
    ResetInput();
    ForceHelp(Help::CodeReset);
    PaintPassCode();
}

// A digit is taken when the stylus comes to it, and not again before the stylus has left it.
void TouchDigit(int spot) {
    if (!ShowsDial())
        return;
    const int digit = spot >= 0 && spot < DigitKeys ? spot : NoPassSpot;
    if (digit == state.HeldDigit)
        return;
    state.HeldDigit = digit;
    if (digit != NoPassSpot)
        TakeDigit(digit);
    else
        PaintPassCode();
}

void PressSpot(int spot) {
    if (spot == LifterSpot)
        ToggleStrength();
    else if (spot == CircleSpot)
        ResetByCircle();
    else
        TouchDigit(spot);
}

void Cancel() {
    const bool gate = state.PassMode == EnterCode;
    ClosePassCode();
    if (gate)
        state.Next = NextStep::Leave;
}

void Look() {
    ToggleEyes();
    PaintPassCode();
}

int HandleKey(Key key) {
    if (key >= Key::Digit0 && key <= Key::Digit9) {
        if (!state.StrongMode)
            TakeDigit(static_cast<int>(key) - static_cast<int>(Key::Digit0));
    } else if (key == Key::Backspace || key == Key::Clear) {
        ResetByCircle();
    } else if (key == Key::Tick || key == Key::Enter) {
        SubmitLongCode();
    } else if (key == Key::Title1 || key == Key::FlagPart) { // both F2
        ToggleStrength();
    } else if (key == Key::Help) {
        Look();
    } else if (key == Key::Escape) {
        if (state.PassMode == EnterCode)
            ResetByCircle(); // the key never quits
        else
            Cancel();
    }
    return 1;
}

int HandleCommand(int command) {
    if (command == CommandTick)
        SubmitLongCode();
    else if (command == CommandCross)
        Cancel();
    else if (command == CommandLeftEye || command == CommandRightEye)
        Look();
    else
        return 0;
    return 1;
}

int StartScreen(int mode) {
    if (state.ActiveDialog != NoDialog || state.OpenedForm)
        return 0;
    state.ActiveDialog = PassCodeDialog;
    state.PassMode = mode;
    state.StrongMode = 0;
    state.CipherProgress = -1;
    state.HeldDigit = NoPassSpot;
    ResetInput();
    ShowWindows();
    SetGreys(NoList);
    return 1;
}

} // namespace

int OpenPassCode(int mode) {
    if (!StartScreen(mode))
        return 0;
    SayWhatThisIs();
    PaintPassCode();
    return 1;
}

int TurnPassCodeOff() {
    if (state.PasswordOn != 1 || !StartScreen(Decrypting))
        return 0;
    RunChange(Decrypting, u"");
    return 1;
}

int HandlePassCodeEvent(const Event &event) {
    switch (event.Kind) {
    case EventKind::PointerDown:
    case EventKind::DoubleTap:
        if (event.Where == PassWindow())
            PressSpot(SpotAt(event.X, event.Y));
        return 1;
    case EventKind::PointerMove:
        if (event.Where == PassWindow())
            TouchDigit(SpotAt(event.X, event.Y));
        return 1;
    case EventKind::PointerUp:
        state.HeldDigit = NoPassSpot;
        PaintPassCode();
        return 1;
    case EventKind::Key:
        return HandleKey(static_cast<Key>(event.Code));
    case EventKind::Command:
        return HandleCommand(event.Code);
    case EventKind::Paint:
        PaintPassCode();
        return 1;
    case EventKind::Control:
    case EventKind::Scroll:
        return 1;
    default:
        return 0;
    }
}
