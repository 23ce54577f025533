// The program's version. The build reads it from here too.
#pragma once

inline constexpr char ProgramVersion[] = "1.0";
