#include "client/client_link.h"
#include "tests/support/loopback.h"

#include <gtest/gtest.h>

#include <string>

namespace orv {
namespace test {
namespace {

// Both ends of a connection in this process.
class AConnection : public ::testing::Test {
protected:
    void SetUp() override {
        const LoopbackListener listener;
        near_ = ConnectTo(listener.port());
        far_ = listener.accept();
        ASSERT_TRUE(near_ && far_);
    }

    const WinsockSession winsock_;
    SocketHandle near_;
    SocketHandle far_;
    ExchangeFailure failure_;
    std::string reply_;
};

TEST_F(AConnection, CarriesAllBytes) {
    const std::string bytes("a\0b\r\n", 5);
    EXPECT_TRUE(SendAll(near_.get(), bytes, failure_));
    near_.reset();
    EXPECT_EQ(ReceiveAll(far_.get()), bytes);
}

TEST_F(AConnection, ThatIsShutTellsThatNothingWasSent) {
    ::shutdown(near_.get(), SD_SEND);
    EXPECT_FALSE(SendAll(near_.get(), "request", failure_));
    EXPECT_EQ(failure_.logText, "send error send_size:0 total_size:7, Error Code is: 10058");
    EXPECT_EQ(failure_.code, 10058U);
}

// A socket that does not wait takes what fits into its buffers and then refuses the rest.
TEST_F(AConnection, ThatStallsTellsHowMuchWasSent) {
    u_long doNotWait = 1;
    ::ioctlsocket(near_.get(), static_cast<long>(FIONBIO), &doNotWait);
    const std::string request(64 * 1024 * 1024, 'x');
    EXPECT_FALSE(SendAll(near_.get(), request, failure_));
    EXPECT_EQ(failure_.code, 10035U);

    near_.reset();
    const std::size_t arrived = ReceiveAll(far_.get()).size();
    EXPECT_GT(arrived, 0U);
    EXPECT_EQ(failure_.logText, "send error send_size:" + std::to_string(arrived) +
                                    " total_size:67108864, Error Code is: 10035");
}

TEST_F(AConnection, GivesTheReplyThatHasComeByThen) {
    ::send(far_.get(), "reply", 5, 0);
    EXPECT_TRUE(ReceiveOnce(near_.get(), reply_, failure_));
    EXPECT_EQ(reply_, "reply");
}

TEST_F(AConnection, GivesTheFirst2048BytesOfALongerReply) {
    const std::string sent = std::string(2048, 'a') + "b";
    ::send(far_.get(), sent.data(), static_cast<int>(sent.size()), 0);
    EXPECT_TRUE(ReceiveOnce(near_.get(), reply_, failure_));
    EXPECT_EQ(reply_, std::string(2048, 'a'));
}

TEST_F(AConnection, ThatEndsWithoutAReplyFailsWithoutACode) {
    ::SetLastError(ERROR_FILE_NOT_FOUND); // of some call long before
    far_.reset();
    EXPECT_FALSE(ReceiveOnce(near_.get(), reply_, failure_));
    EXPECT_EQ(failure_.logText, "connect error, Error Code is: 0");
}

TEST_F(AConnection, ThatCannotBeReadFailsWithTheSystemsCode) {
    u_long doNotWait = 1; // so that reading fails instead of waiting
    ::ioctlsocket(near_.get(), static_cast<long>(FIONBIO), &doNotWait);
    EXPECT_FALSE(ReceiveOnce(near_.get(), reply_, failure_));
    EXPECT_EQ(failure_.logText, "connect error, Error Code is: 10035");
    EXPECT_EQ(failure_.code, 10035U);
}

} // namespace
} // namespace test
} // namespace orv
