// The real controls of the open form.
#pragma once

// The counter of forms opened: a control's event is dropped when its form is no more.
int OpenFormNumber();
void RescaleForm();
