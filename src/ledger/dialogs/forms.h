// The ledger's forms, opened by the screens. Each is closed by its tick or cross through HandleFormEvent.
#pragma once

#include "store/records/records.h"

// A transaction at SelectedPos[TransactionList]; past the last row a new one of that RowKind (EntryRow or
// ReconcileEntry). Marker rows open nothing. 1 when the form opened.
int OpenTransactionForm(int rowKind);
// The account at SelectedPos[AccountList]; `create` 1 a new one.
int OpenAccountForm(int create);
int OpenTemplateForm();
int OpenRecurringForm();
int OpenConversionForm();
int OpenCategoryForm();
int OpenNotepadForm();
int OpenConfigurationForm();
