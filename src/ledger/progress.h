// How long work tells how far it has come.
#pragma once

// Called with 0 to 100 as the work goes on; null stands for silence. It must touch no record.
using ProgressTeller = void (*)(int percent);
