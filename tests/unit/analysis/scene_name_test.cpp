#include "analysis/report_reader.h"
#include "tests/unit/analysis/message_text.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

struct NameCase {
    const wchar_t* report;
    const char* fileName;
    const char* filePath;
    std::vector<std::string> messages;
};

const char kEmpty[] = "WARN The scene name is empty!";
const char kNoJson[] = "WARN Parse failed in initing scene name!";

TEST(InitSceneName, TakesTheNameBehindTheLastSeparator) {
    const NameCase cases[] = {
        {L"{\"name\":\"D:/scenes/a.max\"}", "a.max", "D:/scenes/a.max", {}},
        {L"{\"name\":\"D:\\\\scenes\\\\a.max\"}", "a.max", "D:\\scenes\\a.max", {}},
        {L"{\"name\":\"D:/scenes\\\\a.max\"}", "scenes\\a.max", "D:/scenes\\a.max", {}},
        {L"{\"name\":\"D:/scenes/\"}", "", "D:/scenes/", {}},
        {L"{\"name\":\"a.max\"}", "", "", {kEmpty}},
        {L"{\"name\":\"\"}", "", "", {kEmpty}},
        {L"{\"name\":null}", "", "", {kEmpty}},
        {L"{\"name\":{\"a\":\"b/c\"}}", "", "", {kEmpty}},
        {L"{\"name\":12}", "", "", {kEmpty}},
        {L"{}", "", "", {kEmpty}},
        {L"[]", "", "", {kEmpty}},
        {L"", "", "", {kNoJson}},
        {L"{", "", "", {kNoJson}},
        {L"{\"name\":\"D:/\x5BA2\x5385/\x573A\x666F.max\"}",
         "\xE5\x9C\xBA\xE6\x99\xAF.max",
         "D:/\xE5\xAE\xA2\xE5\x8E\x85/\xE5\x9C\xBA\xE6\x99\xAF.max",
         {}},
    };
    for (const NameCase& name : cases) {
        SceneAnalysis analysis;
        analysis.reportText = name.report;
        EXPECT_EQ(InitSceneName(analysis), name.fileName);
        EXPECT_EQ(analysis.sceneFileName, name.fileName);
        EXPECT_EQ(analysis.sceneFilePath, name.filePath);
        EXPECT_EQ(MessageTexts(analysis), name.messages);
    }
}

} // namespace
} // namespace test
} // namespace orv
