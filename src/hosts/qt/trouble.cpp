// Trouble on the terminal: one unwritable directory shows in many places, and is told once.
#include "platform/cause.h"
#include "platform/shell.h"
#include <QByteArray>
#include <QList>
#include <cstdint>
#include <cstdio>

static constexpr int CauseRoom = 1024;

void TellTrouble(int kind, const char *directory, const char *line) {
    static QList<QByteArray> causesTold;
    static uint32_t kindsTold;
    char cause[CauseRoom];
    if (directory && FindCause(directory, cause, CauseRoom)) {
        if (causesTold.contains(cause))
            return;
        causesTold.append(cause);
        char told[CauseRoom + 256];
        snprintf(told, sizeof told, "the data can't be kept: %s (%s)", cause, line);
        TellTerminal(told);
        return;
    }
    const uint32_t bit = 1U << (static_cast<uint32_t>(kind) & 31U);
    if (kindsTold & bit)
        return;
    kindsTold |= bit;
    TellTerminal(line);
}
