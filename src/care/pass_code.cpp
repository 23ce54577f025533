#include "care/pass_code.h"
#include "cipher/hooks.h"
#include "cipher/keys.h"
#include "state/error_log.h"
#include "store/catalogue.h"
#include "store/side_files.h"
#include <cstring>
#include <iterator>

namespace {

constexpr size_t CheckBytes = (std::size(PassCheckText) - 1) * sizeof(char16_t);

bool HoldsCheckText(const ConfRecFile &record) {
    return std::memcmp(record.Rec.PassCheck, PassCheckText, CheckBytes) == 0;
}

// Read raw: there is no key yet.
int ReadRaw(FileKind kind, ConfRecFile *record) {
    char path[PathRoom];
    DataPath(path, kind);
    const int file = OpenFile(path, OpenExisting);
    if (file < 0)
        return 0;
    const int64_t read = ReadFileAt(file, 0, record, sizeof *record);
    ReleaseFile(file);
    return read == sizeof *record;
}

} // namespace

int CheckRecordStands() {
    const int file = OpenDataFile(FileKind::Check, OpenExisting);
    if (file < 0) {
        ReportError(In::LoadConfFile, Trouble::CcreateFail);
        return 0;
    }
    ConfRecFile record;
    // By hand: with a wrong code the record is not broken.
    const int there = ReadFileAt(file, 0, &record, sizeof record) == sizeof record &&
                      DecipherUnder(state.CurrentKey, FileKind::Check, &record);
    CloseFile(file);
    return there && HoldsCheckText(record);
}

int TryPassCode(const char16_t *text) {
    if (state.FailedTries < MostTries) {
        ForgetCurrentKey();
        state.CurrentKey = DeriveKey(text, static_cast<int>(state.CipherSuite), state.KeySalt);
        if (state.CurrentKey != NoKey && CheckRecordStands()) {
            state.FailedTries = 0;
            return 1;
        }
        ForgetCurrentKey();
    }
    ++state.FailedTries;
    return 0;
}

int ConfigurationLost() {
    ConfRecFile configuration, check;
    return !ReadRaw(FileKind::Configuration, &configuration) && ReadRaw(FileKind::Check, &check) &&
           !HoldsCheckText(check);
}
