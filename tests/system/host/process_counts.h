// What this process holds, counted: to see whether something grows.
#pragma once

#include <ostream>

struct ProcessCounts {
    int handles = 0;    // kernel objects
    int gdiObjects = 0; // fonts, brushes, bitmaps, device contexts
    int windows = 0;    // top-level windows of this process, hidden ones included
    int threads = 0;
    int mappedViews = 0;    // views of files and of shared memory
    int privateKib = 0;     // committed private memory, in KiB
    int temporaryFiles = 0; // in the folder for temporary files, folders too
};

// Throws std::runtime_error when the system does not answer.
ProcessCounts CountProcess();

std::ostream& operator<<(std::ostream& out, const ProcessCounts& counts);
