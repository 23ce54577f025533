// The keyboard of the desktop.
#pragma once

#include "platform/event.h"
#include <QString>

// Once, before the first key.
void WatchKeys();
// How a keyboard calls the key that sends this one: "Ctrl+N"; "" for none. Of two, that of a form when `inForm`.
QString NameOfKey(Key key, bool inForm);
// "New (Ctrl+N)"; the words alone without a key.
QString WithKey(const QString &words, const QString &key);
// The key that opens the menus.
QString NameOfMenuKey();
// Shows all keys and what they do, over the device, until Escape or a tap beside the list.
void ShowKeyList();

// A property of a control of one line to which the arrows mean something.
inline constexpr char OpensByArrow[] = "opensByArrow";
