// The command bar and its eyes.
#pragma once

#include "platform/event.h"

// Builds the bar and its menus. Reports CcreateFail when the configuration record can't be opened, so that an owner
// whose settings would be lost hears of it at once; the bar stands all the same.
void SetMenuBar();
// With x at least 0 the eyes look at that point of a window; with x negative the left eye shows image -x and the right
// |y|. Eyes are shut whatever is asked while help mode is off. 1, or 0 when the front page is still up or the point
// lies in a form (with a beep).
int UpdateEyes(Window window, int x, int y);

enum EyeImage : int { FirstLook = 1, LastLook = 8, ShutEye = 9, OpenEye = 10 };
// Both eyes show one image.
inline int ShowEyes(EyeImage image) {
    return UpdateEyes(ListWindow, -image, image);
}
