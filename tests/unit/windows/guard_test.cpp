#include "windows/guard.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace orv {
namespace test {
namespace {

class Guard : public ::testing::Test {
protected:
    template<class Body>
    bool run(Body body) {
        return RunGuarded(
            "Saving failed", [this](const std::string& line) { lines_.push_back(line); }, body);
    }
    std::vector<std::string> lines_;
};

TEST_F(Guard, RunsTheBodyAndReportsNothing) {
    bool isRun = false;
    EXPECT_TRUE(run([&isRun] { isRun = true; }));
    EXPECT_TRUE(isRun);
    EXPECT_TRUE(lines_.empty());
}

TEST_F(Guard, ReportsWhatAnExceptionSays) {
    EXPECT_FALSE(run([] { throw std::runtime_error("the disk is full"); }));
    EXPECT_EQ(lines_, std::vector<std::string>{"Saving failed: the disk is full"});
}

TEST_F(Guard, ReportsWhatIsNoException) {
    EXPECT_FALSE(run([] { throw 5; }));
    EXPECT_EQ(lines_, std::vector<std::string>{"Saving failed."});
}

TEST(GuardOfAReport, DropsItsException) {
    const auto report = [](const std::string&) { throw std::bad_alloc(); };
    EXPECT_FALSE(RunGuarded("Saving failed", report, [] { throw std::runtime_error("x"); }));
    EXPECT_FALSE(RunGuarded("Saving failed", report, [] { throw 5; }));
}

} // namespace
} // namespace test
} // namespace orv
