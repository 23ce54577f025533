// What the files of the test host tell each other.
#pragma once

namespace testhost {

void ResetSurface();
void ResetControls();

} // namespace testhost
