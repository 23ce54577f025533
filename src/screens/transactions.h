// What other screens and the gestures ask of the transactions.
#pragma once

// Switches filters off because a gesture would change what they show. True when one was shown in this list: the gesture
// then ends.
bool FilterGivesWay();
