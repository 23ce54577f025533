#include "store/side_files.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/configuration.h"

namespace {

constexpr int NoteRoom = sizeof NoteRec::Text / sizeof(char16_t);

int OpenSide(FileKind kind, In function) {
    if (!state.DataUsable)
        return -1;
    const int file = OpenDataFile(kind, OpenOrCreate);
    if (file < 0)
        ReportError(function, CreateFailOf(kind));
    return file;
}

} // namespace

int StoreRecord(SideRecord what, const ConfRec *record) {
    if (what == ConfigurationRecord)
        return WriteConfiguration(record, In::StoreConfFile);
    const int file = OpenSide(FileKind::Check, In::StoreConfFile);
    if (file < 0)
        return 0;
    ConfRecFile whole = {};
    whole.Rec = *record;
    // By the kind of the configuration record, so that it is written plain; a new key goes over it with the other
    // files.
    const int written = WriteRecord(file, FileKind::Configuration, 1, &whole);
    if (!written)
        ReportError(In::StoreConfFile, Trouble::CwriteFail);
    CloseFile(file);
    return written;
}

int FetchRecord(SideRecord what, ConfRec *record) {
    if (what == ConfigurationRecord)
        return ReadConfiguration(record, In::LoadConfFile);
    *record = {};
    const int file = OpenSide(FileKind::Check, In::LoadConfFile);
    if (file < 0)
        return 0;
    ConfRecFile whole;
    const int there = ReadRecord(file, FileKind::Check, 1, &whole);
    if (there)
        *record = whole.Rec;
    CloseFile(file);
    return there;
}

int LoadNote(char16_t *text) {
    CopyText(text, NoteRoom, u"");
    const int file = OpenSide(FileKind::Notepad, In::DiaProcNote);
    if (file < 0)
        return 0;
    NoteFile whole;
    const int there = ReadRecord(file, FileKind::Notepad, 1, &whole);
    if (there)
        CopyText(text, NoteRoom, whole.Rec.Text);
    CloseFile(file);
    return there;
}

int SaveNote(const char16_t *text) {
    const int file = OpenSide(FileKind::Notepad, In::DiaProcNote);
    if (file < 0)
        return 0;
    NoteFile whole = {};
    CopyText(whole.Rec.Text, NoteRoom, text);
    const int written = MayGo(file, FileKind::Notepad, 1, 1) && WriteRecord(file, FileKind::Notepad, 1, &whole);
    if (!written)
        ReportError(In::DiaProcNote, Trouble::NwriteFail);
    CloseFile(file);
    return written;
}
