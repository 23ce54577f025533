#include "state/messages.h"
#include "platform/text.h"
#include "state/state.h"
#include <cstring>
#include <iterator>

namespace {

constexpr bool InOrder() {
    for (size_t i = 1; i < std::size(Messages); ++i)
        if (Messages[i].Id <= Messages[i - 1].Id)
            return false;
    return Messages[0].Id > 0 && std::end(Messages)[-1].Id == LastMessage;
}
static_assert(InOrder());

// What is said in place of everything else while the data can't be used.
constexpr Help Refusals[] = {
    // ORDER DATAREFUSAL
    Help::WrongVersion,   Help::DataInUse,    Help::NotWritable,   Help::DataUnrecovered,
    Help::DataUnreadable, Help::AccountsLost, Help::CipherMissing, Help::ConfigurationLost,
};

char16_t Slots[LastMessage + 1][MessageRoom];

void WriteSlot(char16_t *slot, const char16_t *text) {
    int length = 0;
    for (; *text && length < MessageRoom - 1; ++text) {
        slot[length++] = *text;
        if (text[0] == '%' && text[1] == '%')
            ++text;
    }
    slot[length] = 0;
}

} // namespace

void LoadHelp() {
    for (const Message &message : Messages)
        WriteSlot(Slots[message.Id], message.Text);
}

const char16_t *MessageText(int id) {
    return id > 0 && id <= LastMessage ? Slots[id] : u"";
}

void NameMessage(int id, const char16_t *text) {
    CopyText(Slots[id], MessageRoom, text);
}

void ShowHelpMessage(int align, int force, int line1, int line2, int line3, int line4, int line5, int line6) {
    int16_t lines[MessageLines] = {static_cast<int16_t>(line1), static_cast<int16_t>(line2),
                                   static_cast<int16_t>(line3), static_cast<int16_t>(line4),
                                   static_cast<int16_t>(line5), static_cast<int16_t>(line6)};
    if (!state.DataUsable) {
        std::memcpy(lines, LinesOf(Refusals[static_cast<int>(state.Refusal)]), sizeof lines);
        align = 1;
    }
    const bool same = std::memcmp(lines, state.MessageLine, sizeof lines) == 0 && align == state.MessageAlign;
    std::memcpy(state.MessageLine, lines, sizeof lines);
    state.MessageAlign = static_cast<int16_t>(align);
    // The ledger can speak before any screen exists.
    if (state.HelpMode && state.Paint[0] && (force || !same))
        state.Paint[0](NoWindow, 0);
}

void ShowHelp(Help help, AddedLine added) {
    int id[MessageLines];
    for (int i = 0; i < MessageLines; ++i)
        id[i] = LinesOf(help)[i] == AddedHere ? static_cast<int>(added) : LinesOf(help)[i];
    ShowHelpMessage(1, 0, id[0], id[1], id[2], id[3], id[4], id[5]);
}

void ForceHelp(Help help) {
    const auto &id = LinesOf(help);
    ShowHelpMessage(1, 1, id[0], id[1], id[2], id[3], id[4], id[5]);
}

void RepeatHelp() {
    const int16_t *id = state.MessageLine;
    ShowHelpMessage(state.MessageAlign, 1, id[0], id[1], id[2], id[3], id[4], id[5]);
}
