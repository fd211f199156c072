#include "log/log.h"
#include "resources/text.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

#include <commctrl.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    orv_set_resource_module(
        ::GetModuleHandleW(nullptr)); // the program carries the plug-in's resources
    ::InitCommonControls();
    // The log stays in the folder that the settings name when its first line is written: here there
    // are none.
    const orv::test::TestProductFolder folder;
    orv::WriteLog(orv::LogModule::Ui, orv::kInfo, "opened");
    return RUN_ALL_TESTS();
}
