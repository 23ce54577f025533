#include "care/pause.h"
#include "platform/action.h"

int PauseAction() {
    if (!ActionRuns())
        return 0;
    return CommitAction() ? 1 : -1;
}

void ResumeAction(int paused) {
    if (paused != 0)
        BeginAction();
}
