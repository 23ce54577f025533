// From screen to screen, and from account to account.
#pragma once

// Switches to the transactions of the selected account.
void EnterTransactions();
// Switches to a screen as a tap on its tab does (help lines are the caller's).
void EnterScreen(int screen);
void DoRightArrow();
void DoLeftArrow();
// The next (forward 1) or previous account that is no Total marker, wrapping.
void StepAccount(int forward);
