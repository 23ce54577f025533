// What the fields of the open form hold, and whether the owner changed it.
#pragma once

#include "records/records.h"

inline constexpr int NumberRoom = 24; // units of a number as text

// The name that stands beside a field, null when the open form does not have it.
const char16_t *FieldName(int field);
// True when the open form has the control.
bool FieldPresent(int field);
// Sets a field's text, and remembers what the field then holds. A text longer than the field's limit is cut there.
void SetFieldText(int field, const char16_t *text);
// The same for a field with a list.
void SelectFieldItem(int field, int index);
// True when the owner has changed the field since, if only back to the first text: what it shows then counts. A value
// that nobody touched is kept whole, whatever of it fitted into the field.
bool FieldTouched(int field);
// The owner has changed it.
void MarkEdited(int field);
void SetFieldDate(int field, const RecDate &date);
// Into `date`, held within the valid dates; left alone when nobody touched it.
void GetFieldDate(int field, RecDate *date);
