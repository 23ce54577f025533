// The order of the segments.
#pragma once

// Puts CHART into state.AnalysisOrder. Loses what stood in state.RunBuffer.
void SortGRecs();
