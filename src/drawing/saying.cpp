#include "drawing/saying.h"
#include "platform/text.h"
#include "state/state.h"

void StartListening(char16_t *to, int room) {
    to[0] = 0;
    state.Heard = to;
    state.HeardRoom = room;
}

void StopListening() {
    state.Heard = nullptr;
}

void Say(const char16_t *text) {
    if (!state.Heard || !text[0])
        return;
    if (state.Heard[0])
        AppendAscii(state.Heard, state.HeardRoom, ", ");
    AppendText(state.Heard, state.HeardRoom, text);
}

void SayAmount(FixedAmount value, int decimals, bool minus) {
    char16_t magnitude[32], text[40] = u"";
    WriteAmount(magnitude, 32, value, decimals);
    AppendAscii(text, 40, minus ? "-" : "");
    AppendText(text, 40, magnitude);
    Say(text);
}

void SayNumber(int64_t value, bool minus) {
    char16_t text[24] = u"";
    AppendAscii(text, 24, minus ? "-" : "");
    AppendNumber(text, 24, value < 0 ? -value : value);
    Say(text);
}

void SayFlag(int64_t flag) {
    static constexpr const char16_t *Names[] = {u"red flag", u"blue flag", u"yellow flag"};
    if (flag >= 1 && flag <= 3)
        Say(Names[flag - 1]);
}

void NoteHeader(const char16_t *title) {
    CopyText(state.HeaderShown, 40, title);
}

void NoteTitle(int left, int right, const char16_t *text) {
    TitleWords *place = nullptr;
    for (TitleWords &title : state.TitlesShown) {
        if (title.Left < right && title.Right > left)
            title = {};
        if (!place && title.Left == title.Right)
            place = &title;
    }
    if (!place)
        return;
    place->Left = left;
    place->Right = right;
    CopyText(place->Text, 24, text);
}

void NoteMoreOfTitle(int left, const char16_t *text) {
    for (TitleWords &title : state.TitlesShown) {
        if (title.Left != left || title.Right == left)
            continue;
        if (title.Text[0])
            AppendAscii(title.Text, 24, " ");
        AppendText(title.Text, 24, text);
    }
}
