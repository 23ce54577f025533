// The small worked example of a first run.
#pragma once

#include "records/records.h"

// Writes the sample of a kind: accounts (with their categories and transactions), configuration, recurring, templates,
// categories, conversions, check record. Any other kind does nothing.
void CreateSampleData(FileKind kind);
