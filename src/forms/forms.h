// The ledger's forms, opened by the screens. Each is closed by its tick or cross through HandleFormEvent. All return 1
// when the form opened, and show its opening help lines; 0 when there is nothing to open, another form is open or the
// data are not usable.
#pragma once

#include "records/records.h"

// A transaction at SelectedPos[TransactionList]; past the last row a new one of that RowKind (EntryRow or
// ReconcileEntry, the latter in a Bank account alone). Marker rows open nothing.
int OpenTransactionForm(int rowKind);
// The account at SelectedPos[AccountList]; `create` 1 a new one.
int OpenAccountForm(int create);
// The row at the list's SelectedPos, or a new one when that is past the last row.
int OpenTemplateForm();
int OpenRecurringForm();
int OpenConversionForm();
// A new category is added to the list before the form opens, and stays when the form is crossed out.
int OpenCategoryForm();
int OpenNotepadForm();
int OpenConfigurationForm();
// For the current account, from the transactions or the graph. Not of an account that is filtered: only an export is.
int OpenImportForm();
int OpenExportForm();
