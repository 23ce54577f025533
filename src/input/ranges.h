// A range of rows deleted in two menu steps.
#pragma once

// Each stores the selected row as one end, with its help lines; the second deletes the range. True when it was deleted.
bool SelectRangeStart();
bool SelectRangeFinish();
