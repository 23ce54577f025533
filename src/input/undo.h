// The owner takes the last change back, or does it again.
#pragma once

// The last action that wrote (platform/history.h), taken back or with `again` done again, becomes what this event does;
// what is shown follows, and the message window says what it was. A beep when there is none.
void TakeActionBack(bool again);
