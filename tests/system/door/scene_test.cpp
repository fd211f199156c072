// Scene and scripts through the door.
#include "tests/system/door/open_door.h"

#include "host/host.h"
#include "standin/maxutil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

namespace orv {
namespace test {
namespace {

using ::testing::ElementsAre;

class SceneBehindTheDoor : public ::testing::Test {
protected:
    OpenDoor door;
};

TEST_F(SceneBehindTheDoor, ReadsNameAndPathOfAnyLength) {
    for (const std::size_t length : {0U, 1U, 255U, 511U, 512U, 513U, 5000U}) {
        SCOPED_TRACE(length);
        door.host.sceneFileName = std::wstring(length, L'\u706F');
        door.host.sceneFilePath = std::wstring(length, L'x');
        EXPECT_EQ(host::SceneFileName(), door.host.sceneFileName);
        EXPECT_EQ(host::SceneFilePath(), door.host.sceneFilePath);
    }
}

TEST_F(SceneBehindTheDoor, FillsABufferAndTellsTheWholeLength) {
    wchar_t buffer[5] = {L'#', L'#', L'#', L'#', L'#'};
    EXPECT_EQ(orv_host_scene_file_name(buffer, 5), 8);
    EXPECT_STREQ(buffer, L"loft");
    EXPECT_EQ(orv_host_scene_file_name(nullptr, 0), 8);
    EXPECT_EQ(orv_host_scene_file_name(buffer, 0), 8);
    EXPECT_STREQ(buffer, L"loft");
}

TEST_F(SceneBehindTheDoor, SavesAndMakesTheNewFileTheOpenScene) {
    EXPECT_TRUE(host::SaveScene());
    EXPECT_TRUE(host::SaveSceneTo(L"C:\\a b\\\u706F.max"));
    door.host.saved = 0;
    EXPECT_FALSE(host::SaveScene());
    EXPECT_FALSE(host::SaveSceneTo(L"D:\\full.max"));
    EXPECT_THAT(door.host.calls, ElementsAre(L"save()", L"save to(C:\\a b\\\u706F.max, 1, 1)",
                                             L"save()", L"save to(D:\\full.max, 1, 1)"));
}

// Errors of scripts are shown (not quiet) and logged.
TEST_F(SceneBehindTheDoor, RunsAScriptAndTellsHowItEnded) {
    host::ScriptValue value;
    EXPECT_EQ(host::RunScript(L"fileIn \"C:\\\\x.ms\"", value.get()), 1);
    door.host.scriptAnswer = 0;
    EXPECT_EQ(host::RunScript(L"throw 1", value.get()), 0);
    EXPECT_THAT(door.host.calls,
                ElementsAre(L"script(fileIn \"C:\\\\x.ms\", 0, 1)", L"script(throw 1, 0, 1)"));
}

TEST_F(SceneBehindTheDoor, HandsTheScriptsResultOver) {
    door.host.scriptResult = {STANDIN_VALUE_INTEGER, 42, 0.0, nullptr};
    host::ScriptValue value;
    ASSERT_EQ(host::RunScript(L"40 + 2", value.get()), 1);
    struct {
        int kind;
        int padding;
        int integer;
        int rest;
    } content;
    std::memcpy(&content, static_cast<void*>(&value.get()), sizeof(content));
    EXPECT_EQ(content.kind, 1) << "an integer";
    EXPECT_EQ(content.integer, 42);
}

TEST_F(SceneBehindTheDoor, FreesTheValuesOfScripts) {
    const long long before = standin_heap_block_count();
    for (int i = 0; i < 10; ++i) {
        host::ScriptValue value;
        host::RunScript(L"1", value.get());
    }
    EXPECT_EQ(standin_heap_block_count(), before);
}

} // namespace
} // namespace test
} // namespace orv
