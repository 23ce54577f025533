// The bar that shows how far a long archiving has come.
#include "forms/progress.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "frame/form.h"
#include "platform/surface.h"

namespace {

void Decor(int mask) {
    if (!(mask & DecorLabels))
        return;
    PaintText(DialogWindow, state.ActiveDialog == ArchiveDialog ? u"ARCHIVING" : u"UNARCHIVING",
              {0, 20, ScreenWidth, 33}, Align::Centre, Font::Bold, Black);
    PaintText(DialogWindow, state.Restructuring ? u"Restructuring ..." : u"Please wait", {0, 40, ScreenWidth, 53},
              Align::Centre, Font::Bold, Black);
}

constexpr Form FormOf(int dialog) {
    return {.Dialog = dialog,
            .WithPanel = 0,
            .Controls = &ProgressTemplate,
            .Parts = {},
            .FieldHelps = {},
            .Lists = {},
            .Fill = nullptr,
            .Tick = nullptr,
            .Cross = nullptr,
            .Changed = nullptr,
            .Tapped = nullptr,
            .Decor = Decor};
}
constexpr Form ArchiveForm = FormOf(ArchiveDialog), UnarchiveForm = FormOf(UnarchiveDialog);

} // namespace

// Not by Dialog_Init: the list below keeps its height, and nothing is to be greyed or raised for so short a while.
int OpenProgressForm(int dialog) {
    if (state.OpenedForm || state.ActiveDialog != NoDialog)
        return 0;
    state.ActiveDialog = dialog;
    state.OpenedForm = dialog == ArchiveDialog ? &ArchiveForm : &UnarchiveForm;
    state.ArchiveProgress = 0;
    state.Restructuring = 0;
    OpenForm(state.OpenedForm->Controls);
    SetControlProgress(ProgressField, 0);
    DrawDialogDecor(DecorAll);
    ShowNow();
    return 1;
}

void TellProgress(int percent) {
    SetControlProgress(ProgressField, percent);
    DrawDialogDecor(DecorAll);
    ShowNow();
}

void CloseProgressForm() {
    if (state.ActiveDialog != ArchiveDialog && state.ActiveDialog != UnarchiveDialog)
        return;
    CloseForm();
    state.OpenedForm = nullptr;
    state.ActiveDialog = NoDialog;
}
