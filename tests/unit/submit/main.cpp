#include "client/client_link.h"
#include "resources/text.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    orv_set_resource_module(
        ::GetModuleHandleW(nullptr)); // the test program carries the language resources
    const orv::WinsockSession network;
    return RUN_ALL_TESTS();
}
