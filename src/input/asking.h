// A question before what leaves the bin for good, and what the owner must see.
#pragma once

#include "platform/event.h"
#include "resources/help_lines.h"

// 1 when the command, which takes what stands in the bin for good, came a second time; else the owner has been asked.
int Confirmed(int command);
// Says something that the owner must see: the message window is open until he does the next thing.
void Tell(Help help, AddedLine added);
// The question, or what was told, is off the screen.
void ForgetQuestion();
// Before any other handling: whatever does not answer yes takes the question back.
void HearAnswer(const Event &event);
