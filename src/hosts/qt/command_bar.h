// The command bar's widgets.
#pragma once

void RescaleBar();
