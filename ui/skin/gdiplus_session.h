// GDI+ for as long as a dialog needs it.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

namespace orv {

// Starts GDI+ and shuts it down again with the object. An object of a function or a dialog, never
// a static one: GDI+ waits for a thread of its own, which no longer runs when statics are
// destroyed.
class GdiplusSession : private rud_Noncopyable {
public:
    GdiplusSession();
    ~GdiplusSession();

    // Whether GDI+ can be used.
    bool started() const { return started_; }

private:
    ULONG_PTR token_ = 0;
    bool started_ = false;
};

} // namespace orv
