// The recurring items that fall due post themselves, before the owner's eyes.
#pragma once

// The batch pass over the recurring items, with filters lifted when an item fires. Leaves screen, account, row and
// view. A pass of many entries shows how far it has come.
void CheckDDs();
