// The form that shows how far a long job has come.
#pragma once

// The progress form of ArchiveDialog, UnarchiveDialog or PostingDialog; 0 while another form is open. It takes no
// input; TellProgress (a ProgressTeller of ledger/progress.h) moves its bar to 0 to 100 and shows it at once, and says
// when rows are being moved.
int OpenProgressForm(int dialog);
void TellProgress(int percent);
void CloseProgressForm();
