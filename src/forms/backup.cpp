// Backup and restore: a walk through the directories to the place, then the copy with its bar.
#include "care/backup.h"
#include "care/directories.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "drawing/spots.h"
#include "forms/forms.h"
#include "frame/form.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "platform/surface.h"
#include "platform/text.h"
#include "resources/art.h"
#include "state/messages.h"

namespace {

constexpr Rect TitleBox = {0, 0, ScreenWidth, 13}, PathBox = {2, 13, ScreenWidth - 2, 26}, UpBox = {5, 27, 25, 45};

constexpr FormPart Parts[] = {
    {LabelItem, TitleBox, {}, u"Select 'Zentk_Backup' directory location:", Align::Centre},
    {UpItem, UpBox, {0, 26, 20, 45}, u"The directory above"},
};

constexpr FieldHelp FieldHelps[] = {{DirectoryField, Help::DirectoryField}, {UpItem, Help::DirectoryUp}};

// ORDER COPYRESULT: what is said when a tick did not copy
constexpr Help Refusals[] = {Help::None,        Help::None,         Help::CopyInterrupted, Help::BackupWithinData,
                             Help::CopyRefused, Help::NoBackupThere};

bool Restores() {
    return state.ActiveDialog == RestoreDialog;
}

int Chosen(char *to) {
    return ChosenDirectory(to, SelectedControlItem(DirectoryField));
}

// The path as an owner of the host writes it; "" for none. Room of PathRoom.
void WritePath(char16_t *to) {
    char path[PathRoom];
    to[0] = 0;
    if (!Chosen(path))
        return;
    WidenText(to, PathRoom, path);
    for (char16_t *unit = to; to[0] == u'/' && *unit; ++unit)
        if (*unit == u'\\')
            *unit = u'/';
}

void PaintPath() {
    char16_t text[PathRoom];
    WritePath(text);
    PaintText(DialogWindow, text, PathBox, Align::Left, Font::Normal, Black, 1);
}

void SpeakPath(SpotList *list) {
    char16_t text[PathRoom];
    WritePath(text);
    if (text[0])
        AddSpot(list, SpotKind::Message, DialogWindow, PathBox, text);
}

void Decor(int mask) {
    if (!(mask & DecorLabels))
        return;
    if (!(mask & DecorGround))
        CopyImage(DialogWindow, {PathBox.Left, PathBox.Top}, FormGround, PathBox);
    PaintPath();
}

void ShowProgress(int percent) {
    state.CopyProgress = percent;
    SetControlProgress(ProgressField, percent);
}

// While a restore is being chosen the bar is full where there is a backup.
void ShowValidity() {
    char directory[PathRoom];
    ShowProgress(Restores() && Chosen(directory) && ValidBackup(directory) ? 100 : 0);
}

void ShowChoice() {
    ShowValidity();
    DrawDialogDecor(DecorLabels);
}

void FillDirectories(int field) {
    char16_t name[PathRoom];
    for (int index = 0; index < state.DirectoryCount; ++index) {
        WidenText(name, PathRoom, DirectoryNameAt(index));
        AddControlItem(field, name);
    }
}
constexpr FieldList Lists[] = {{DirectoryField, FillDirectories}};

void ShowDirectories() {
    ClearControlList(DirectoryField);
    FillDirectories(DirectoryField);
    SelectControlItem(DirectoryField, -1);
    ShowChoice();
}

void Fill(int) {
    ShowValidity();
}

void Tapped(int item) {
    if (item != UpItem)
        return;
    if (LeaveDirectory())
        ShowDirectories();
    else
        Beep();
}

void Changed(const Event &event) {
    if (event.Control != DirectoryField)
        return;
    if (event.Change == ControlChange::DoublePressed) {
        if (EnterDirectory(SelectedControlItem(DirectoryField)))
            ShowDirectories();
        else
            Beep();
    } else if (event.Change == ControlChange::Pressed || event.Change == ControlChange::Choice) {
        ShowChoice();
    }
}

void TellCopied(int percent) {
    ShowProgress(percent);
    ShowNow();
}

int DiaGetFile() {
    char directory[PathRoom];
    if (!Chosen(directory))
        return TickUnwritten;
    const bool restores = Restores();
    CopyResult result = CopyResult::Invalid;
    if (!restores || (ValidBackup(directory) && state.CopyProgress == 100)) {
        ForceHelp(restores ? Help::Restoring : Help::BackingUp);
        TellCopied(0);
        result = restores ? RestoreBackup(directory, TellCopied) : MakeBackup(directory, TellCopied);
    }
    if (result == CopyResult::Done || result == CopyResult::Nothing) {
        if (restores) {
            state.DataUsable = 0; // nothing is read any more before the start anew: the files may be under another key
            state.Next = NextStep::StartAgain;
        }
        return TickDone;
    }
    ShowValidity();
    RefuseTick(Refusals[static_cast<int>(result)]);
    return TickRefused;
}

constexpr Form FormOf(int dialog) {
    return {.Dialog = dialog,
            .WithPanel = 0,
            .Controls = &DirectoryTemplate,
            .Parts = Parts,
            .FieldHelps = FieldHelps,
            .Lists = Lists,
            .Fill = Fill,
            .Tick = DiaGetFile,
            .Cross = nullptr,
            .Changed = Changed,
            .Tapped = Tapped,
            .Decor = Decor,
            .Title = [] { return Restores() ? u"Restore" : u"Backup"; },
            .Spoken = SpeakPath};
}
constexpr Form BackupForm = FormOf(BackupDialog), RestoreForm = FormOf(RestoreDialog);

int OpenCopyForm(const Form *form, Help opening) {
    ShowDeviceRoot();
    if (!Dialog_Init(form))
        return 0;
    ShowHelp(opening);
    return 1;
}

} // namespace

int OpenBackupForm() {
    return OpenCopyForm(&BackupForm, Help::Backup);
}
int OpenRestoreForm() {
    return OpenCopyForm(&RestoreForm, Help::Restore);
}
