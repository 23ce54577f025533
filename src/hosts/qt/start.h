// The host around the program's start.
#pragma once

// Fonts, look, keys and scale; 0 is the first scale of this screen. Once, after the application object is made and
// before WinMain.
void PrepareHost(double scale);
// After WinMain: shows the device with everything on it that the program wanted painted.
void ShowDevice();
