#include "analysis/submission_checks.h"

#include "tests/hosts/fake_door.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

class VirusScripts : public ::testing::Test {
protected:
    std::vector<std::wstring> expectedScripts() const {
        std::vector<std::wstring> scripts;
        for (const wchar_t* name : {L"Adsl", L"Alc", L"Crp"})
            scripts.push_back(L"fileIn \"" + product_.path(L"/script/OrvAntivirus") + name +
                              L"_UTF8.ms\"");
        return scripts;
    }

    void expectLogLinesInOrder() const {
        const std::string log = product_.log(L"rud_data");
        std::size_t from = 0;
        for (const char* name : {"ADSL", "ALC", "CRP"}) {
            from = log.find(std::string("[WARN] Check ") + name + " virus for scene", from);
            ASSERT_NE(from, std::string::npos) << name;
        }
    }

    TestProductFolder product_;
    FakeDoor host_;
};

TEST_F(VirusScripts, RunInTheirOrder) {
    RunVirusScripts();
    EXPECT_EQ(host_.scripts(), expectedScripts());
    expectLogLinesInOrder();
    EXPECT_EQ(host_.valuesAlive(), 0);
}

TEST_F(VirusScripts, AllRunAlthoughEachFails) {
    host_.onScript = [](const std::wstring&) { return 0; };
    RunVirusScripts();
    EXPECT_EQ(host_.scripts(), expectedScripts());
    expectLogLinesInOrder();
}

} // namespace
} // namespace test
} // namespace orv
