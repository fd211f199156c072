#include "resources/text.h"

#include "base/windows.h"

#include <gtest/gtest.h>

#include <commctrl.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    orv_set_resource_module(
        ::GetModuleHandleW(nullptr)); // the program carries the plug-in's resources
    ::InitCommonControls();
    return RUN_ALL_TESTS();
}
