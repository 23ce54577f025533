// What other screens and the gestures ask of the transactions.
#pragma once

// Switches filters off because a gesture would change what they show. 1 when one was shown in this list: the gesture
// then ends.
int FilterGivesWay();
// Makes the current account's balances right, in the archive view those of the live file first.
void RecomputeBalances();
