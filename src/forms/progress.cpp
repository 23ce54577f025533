// The bar that shows how far a long job has come.
#include "forms/progress.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "frame/form.h"
#include "platform/surface.h"
#include <algorithm>
#include <iterator>

namespace {

constexpr struct Job {
    int Dialog;
    const char16_t *Title;
} Jobs[] = {{ArchiveDialog, u"ARCHIVING"}, {UnarchiveDialog, u"UNARCHIVING"}, {PostingDialog, u"RECURRING ITEMS"}};

// -1 for a dialog that shows no progress.
int JobOf(int dialog) {
    const auto *found =
        std::find_if(std::begin(Jobs), std::end(Jobs), [=](const Job &j) { return j.Dialog == dialog; });
    return found == std::end(Jobs) ? -1 : static_cast<int>(found - Jobs);
}

void Decor(int mask) {
    if (!(mask & DecorLabels))
        return;
    PaintText(DialogWindow, Jobs[JobOf(state.ActiveDialog)].Title, {0, 20, ScreenWidth, 33}, Align::Centre, Font::Bold,
              Black);
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
constexpr Form Forms[] = {FormOf(Jobs[0].Dialog), FormOf(Jobs[1].Dialog), FormOf(Jobs[2].Dialog)};
static_assert(std::size(Forms) == std::size(Jobs));

} // namespace

// Not by Dialog_Init: the list below keeps its height, and nothing is to be greyed or raised for so short a while.
int OpenProgressForm(int dialog) {
    if (state.OpenedForm || state.ActiveDialog != NoDialog)
        return 0;
    state.ActiveDialog = dialog;
    state.OpenedForm = &Forms[JobOf(dialog)];
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
    if (JobOf(state.ActiveDialog) < 0)
        return;
    CloseForm();
    state.OpenedForm = nullptr;
    state.ActiveDialog = NoDialog;
}
