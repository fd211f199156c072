// The stand-in host as a program: its command line and the lines it prints.
#include "tests/system/host/run_program.h"
#include "tests/system/host/scene_folder.h"

#include <gtest/gtest.h>
#include <json/json.h>

#include <sstream>

namespace {

constexpr wchar_t kProgram[] = L"standin-host.exe";

std::vector<std::string> EventNames(const std::vector<std::string>& lines) {
    std::vector<std::string> names;
    for (const std::string& line : lines) {
        Json::Value event;
        std::istringstream(line) >> event; // throws for a line that is not JSON
        names.push_back(event["event"].asString());
    }
    return names;
}

TEST(HostProgram, StartsAndEndsWithTheEventsOfBoth) {
    const SceneFolder folder;
    const std::wstring scene = folder.write(L"\u623F 1.max", "x");
    const ProgramRun run = RunProgram(kProgram,
                                      L"--exit-after-start --scene \"" + scene + L"\" --log \"" +
                                          folder.file(L"log.txt") + L"\"",
                                      folder.path());
    EXPECT_TRUE(run.ended);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(EventNames(run.lines),
              (std::vector<std::string>{"scene_opened", "started", "menu_bar", "stopped"}));
    std::string log;
    for (const std::string& line : run.lines)
        log += line + "\n";
    EXPECT_EQ(orv::test::ReadFileBytes(folder.file(L"log.txt")), log);
}

TEST(HostProgram, HelpsAndEnds) {
    const SceneFolder folder;
    const ProgramRun run = RunProgram(kProgram, L"--help", folder.path());
    EXPECT_EQ(run.exitCode, 0);
    ASSERT_FALSE(run.lines.empty());
    EXPECT_EQ(run.lines[0], "usage: standin-host.exe [OPTION]...");
}

TEST(HostProgram, RefusesWhatItDoesNotKnow) {
    const SceneFolder folder;
    const ProgramRun run = RunProgram(kProgram, L"--scenes a.max", folder.path());
    EXPECT_EQ(run.exitCode, 2);
    ASSERT_EQ(run.lines.size(), 1U);
    EXPECT_NE(run.lines[0].find("--scenes"), std::string::npos);
}

} // namespace
