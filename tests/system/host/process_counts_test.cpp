// The counters have to see what they are there to see: a counter that sees nothing never fails a
// test.
#include "tests/system/host/process_counts.h"

#include "base/handles.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

TEST(ProcessCounters, SeeHandles) {
    CountProcess(); // the first call starts the window system, which takes handles
    const int before = CountProcess().handles;
    std::vector<orv::EventHandle> events;
    for (int i = 0; i < 5; ++i)
        events.emplace_back(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    EXPECT_EQ(CountProcess().handles, before + 5);
    events.clear();
    EXPECT_EQ(CountProcess().handles, before);
}

TEST(ProcessCounters, SeeGdiObjects) {
    const int before = CountProcess().gdiObjects;
    std::vector<orv::BrushHandle> brushes;
    for (int i = 0; i < 5; ++i)
        brushes.emplace_back(CreateSolidBrush(RGB(i, 1, 2)));
    EXPECT_EQ(CountProcess().gdiObjects, before + 5);
    brushes.clear();
    EXPECT_EQ(CountProcess().gdiObjects, before);
}

TEST(ProcessCounters, SeeThreads) {
    const int before = CountProcess().threads;
    const orv::EventHandle end(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    std::thread waiting([&end] { WaitForSingleObject(end.get(), INFINITE); });
    EXPECT_EQ(CountProcess().threads, before + 1);
    SetEvent(end.get());
    waiting.join();
}

TEST(ProcessCounters, SeeWindows) {
    const int before = CountProcess().windows;
    HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                  nullptr, nullptr);
    EXPECT_GT(CountProcess().windows, before);
    DestroyWindow(window);
}

} // namespace
