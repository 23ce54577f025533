// The pass-code screen: digits around a circle, or a box for a long code.
#pragma once

#include "platform/event.h"

// ORDER PASSCODEMODE: what the screen is for; the numbers are those of the titles' table
enum PassCodeMode : int {
    EnterCode = 0, // the gate before the data
    EnterNewCode = 1,
    ConfirmNewCode = 2,
    Decrypting = 4,
    Encrypting = 5,
};

// Opens the screen to enter a code: EnterCode at start-up, EnterNewCode for "On". 0 when a form or an overlay is open.
int OpenPassCode(int mode);
// "Off": takes the key off all files, where there is one. 0 when nothing was done.
int TurnPassCodeOff();

// Every event while ActiveDialog is PassCodeDialog. 1 when it was the screen's.
int HandlePassCodeEvent(const Event &event);
// A right code at the gate sets NextStep::LoadData; the cross there leaves the program.
