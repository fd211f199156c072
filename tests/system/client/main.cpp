#include "client/client_link.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const orv::WinsockSession winsock; // as the main dialog keeps one
    return RUN_ALL_TESTS();
}
