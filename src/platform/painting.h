// What is painted stands in memory: while a Painting lives no file may be opened, those that tell of trouble apart.
// Debug builds hold to it, in OpenFile.
#pragma once

class Painting {
public:
    Painting() { ++Depth; }
    ~Painting() { --Depth; }

    static bool Runs() { return Depth > 0; }

private:
    static inline int Depth = 0;
};
