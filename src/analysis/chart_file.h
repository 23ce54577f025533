// The work file CHART: read and written as it stands, without a cipher hook. Used by the analysis floor alone.
#pragma once

#include "records/chart_record.h"

// Opens CHART, made when it is missing. A handle, or -1, reported as FcreateFail.
[[nodiscard]] int OpenChart();
// Removes CHART when there is one. 1 when there is none afterwards.
int RemoveChart();
int32_t CountChart(int file);
// Up to `most` segments from a row from 1 on. Returns how many arrived whole.
int32_t ReadChart(int file, int32_t first, int32_t most, GRec *segments);
[[nodiscard]] int WriteChart(int file, int32_t first, int32_t count, const GRec *segments);
// Cuts the file to so many segments.
[[nodiscard]] int CutChart(int file, int32_t count);
