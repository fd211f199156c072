// A plug-in's file, looked at before anything of it runs.
#pragma once

#include "base/windows.h"

// Where a refusal is written to, as one line for people; null text or capacity 0 drops it.
struct Reason {
    wchar_t* text;
    int capacity; // characters, the closing zero included
    void operator()(const wchar_t* format, ...) const;
};

class LibraryFile {
public:
    explicit LibraryFile(const wchar_t* path);
    LibraryFile(const LibraryFile&) = delete;
    LibraryFile& operator=(const LibraryFile&) = delete;
    ~LibraryFile();

    // False, with the reason, when the file is not a library for this processor.
    bool isReadable(const Reason& reason) const;

    // Where the library asks to be placed.
    char* preferredBase() const;

    // Windows refuses a library of which one import is missing; Wine loads it and ends the program
    // at the first call. False, with the name of the import in the reason, for such a library.
    bool hasItsImports(const Reason& reason) const;

private:
    const IMAGE_NT_HEADERS64* header() const;

    HANDLE file_;
    HANDLE section_ = nullptr;
    char* image_ = nullptr; // as it will stand in memory, nothing of it executed or moved
};

// Keeps the place that a library prefers taken while it lives, so that Windows has to move it.
class TakenPlace {
public:
    explicit TakenPlace(void* address)
        : taken_(VirtualAlloc(address, 1, MEM_RESERVE, PAGE_NOACCESS)) {}
    TakenPlace(const TakenPlace&) = delete;
    TakenPlace& operator=(const TakenPlace&) = delete;
    ~TakenPlace() {
        if (taken_)
            VirtualFree(taken_, 0, MEM_RELEASE);
    }

private:
    void* taken_; // null when something else stands there already
};
