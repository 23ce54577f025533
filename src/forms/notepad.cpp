// The notepad: one text, kept as it is left by the tick.
#include "forms/forms.h"
#include "frame/form.h"
#include "state/messages.h"
#include "store/side_files.h"

namespace {

constexpr int NoteRoom = NoteLimit + 1;
constexpr FieldHelp FieldHelps[] = {{TextField, Help::Notepad}};

void Fill(int) {
    char16_t text[NoteRoom] = {};
    (void)LoadNote(text); // a note that can't be read shows empty
    SetControlText(TextField, text);
}

int DiaProcNote() {
    char16_t text[NoteRoom] = {};
    const int length = GetControlText(TextField, text, NoteRoom);
    // A character of two units whose second did not fit goes whole.
    if (length > 0 && length <= NoteLimit && (text[length - 1] & 0xFC00) == 0xD800)
        text[length - 1] = 0;
    return SaveNote(text);
}

constexpr Form NotepadForm = {.Dialog = NotepadDialog,
                              .WithPanel = 1,
                              .Controls = &NotepadTemplate,
                              .Parts = {},
                              .FieldHelps = FieldHelps,
                              .Lists = {},
                              .Fill = Fill,
                              .Tick = DiaProcNote,
                              .Cross = nullptr,
                              .Changed = nullptr,
                              .Tapped = nullptr,
                              .Decor = nullptr,
                              .Title = [] { return u"Notepad"; }};

} // namespace

int OpenNotepadForm() {
    if (!Dialog_Init(&NotepadForm))
        return 0;
    ShowHelp(Help::Notepad);
    return 1;
}
