#include "analysis/scene_analysis_run.h"

#include "analysis/report_reader.h"
#include "analysis/text/text_convert.h"
#include "config/plugin_data.h"
#include "host/host.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/hosts/fake_door.h"
#include "tests/support/files.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

#include <regex>

namespace orv {
namespace test {
namespace {

constexpr wchar_t kScript[] = L"C:\\Program Data/script/MaxRenderGlobalsParser.mse";
constexpr char kBom[] = "\xEF\xBB\xBF";

class SceneAnalysisRun : public ::testing::Test {
protected:
    std::wstring jsonFolder() const { return product_.path(L"/json"); }
    static std::wstring reportPath() { return PluginData::instance().analysis.reportPath; }

    // A parser that writes these bytes as its report, and a log beside it.
    void parserWrites(const std::string& bytes) {
        host_.onScript = [bytes](const std::wstring&) {
            WriteFileBytes(reportPath(), bytes);
            WriteFileBytes(reportPath() + L".log", "parsed");
            return 1;
        };
    }

    bool run() {
        host::ScriptValue value;
        return RunSceneAnalysis(nullptr, value.get(), kScript, reportText_);
    }

    TestProductFolder product_;
    FakeDoor host_;
    std::wstring reportText_ = L"what was there before";
};

TEST_F(SceneAnalysisRun, LoadsTheParserAndCallsItsEntryWithTheReportPath) {
    parserWrites("{}");
    ASSERT_TRUE(run());
    ASSERT_EQ(host_.scripts().size(), 1U);
    EXPECT_EQ(host_.scripts()[0], L"fileIn \"C:\\Program Data/script/MaxRenderGlobalsParser.mse\"\n"
                                  L"gMax.analysis \"" +
                                      reportPath() + L"\" \"\"");
}

TEST_F(SceneAnalysisRun, NamesTheReportByAGuidInTheWorkFolder) {
    parserWrites("{}");
    ASSERT_TRUE(run());
    const std::wstring folder = jsonFolder() + L"/";
    ASSERT_EQ(reportPath().substr(0, folder.size()), folder);
    const std::wregex name(L"[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\\.ret");
    EXPECT_TRUE(std::regex_match(reportPath().substr(folder.size()), name));
}

TEST_F(SceneAnalysisRun, FreesTheHostsValue) {
    parserWrites("{}");
    ASSERT_TRUE(run());
    EXPECT_EQ(host_.valuesAlive(), 0);
}

struct ReportBytes {
    const char* what;
    std::string bytes;
    std::wstring text;
};

TEST_F(SceneAnalysisRun, ReadsTheReportAsUtf8) {
    const ReportBytes cases[] = {
        {"plain", "{\"a\":1}", L"{\"a\":1}"},
        {"byte-order mark", std::string(kBom) + "{\"a\":1}", L"{\"a\":1}"},
        {"only a byte-order mark", kBom, L""},
        {"a second mark stays", std::string(kBom) + kBom + "{}", L"\xFEFF{}"},
        {"Chinese", "\"\xE7\x9B\xB8\xE6\x9C\xBA\"", L"\"\x76F8\x673A\""},
        {"beyond U+FFFF", "\"\xF0\x9F\x8E\xA5\"", L"\"\xD83C\xDFA5\""},
        {"line ends are kept", "{\r\n}\n", L"{\r\n}\n"},
        {"empty", "", L""},
    };
    for (const ReportBytes& report : cases) {
        parserWrites(report.bytes);
        EXPECT_TRUE(run()) << report.what;
        EXPECT_TRUE(reportText_ == report.text) << report.what;
    }
}

TEST_F(SceneAnalysisRun, UsesANewNameForEachRunAndLeavesNoFileBehind) {
    parserWrites("{}");
    ASSERT_TRUE(run());
    const std::wstring first = reportPath();
    ASSERT_TRUE(run());
    EXPECT_NE(reportPath(), first);
    EXPECT_TRUE(ListFolder(jsonFolder()).empty());
}

TEST_F(SceneAnalysisRun, SucceedsWithAnEmptyTextWhenTheScriptWroteNoReport) {
    ASSERT_TRUE(run());
    EXPECT_TRUE(reportText_.empty());
    EXPECT_TRUE(PathExists(jsonFolder()));
    EXPECT_NE(product_.log(L"rud_data").find("[ERROR] CreateFileW "), std::string::npos);
}

TEST_F(SceneAnalysisRun, ReadsAReportThatIsNotJsonAsItStands) {
    parserWrites("no JSON at all");
    ASSERT_TRUE(run());
    EXPECT_EQ(reportText_, L"no JSON at all");
    SceneAnalysis analysis;
    analysis.reportText = reportText_;
    EXPECT_EQ(ReadAnalysisReport(analysis), kReportRead);
    EXPECT_TRUE(analysis.cameras.empty());
}

TEST_F(SceneAnalysisRun, ShowsAMessageAndReadsNothingWhenTheScriptFails) {
    for (const int answer : {0, -1, 2}) {
        host_.onScript = [answer](const std::wstring&) {
            WriteFileBytes(reportPath(), "half a report");
            return answer;
        };
        MessageBoxWatcher watcher(ResourceText(IDS_CAPTION));
        EXPECT_FALSE(run()) << answer;
        const std::vector<SeenMessageBox> boxes = watcher.stop();
        ASSERT_EQ(boxes.size(), 1U) << answer;
        EXPECT_EQ(boxes[0].text, ResourceText(IDS_ANALYSIS_FAILED));
        EXPECT_EQ(boxes[0].buttons, std::vector<int>{IDOK});
        EXPECT_EQ(reportText_, L"what was there before");
        EXPECT_TRUE(PathExists(reportPath())) << "the report is left as it is";
    }
}

TEST_F(SceneAnalysisRun, SucceedsWithAnEmptyTextWhenTheReportIsHeldByAnother) {
    FileHandle held;
    host_.onScript = [&held](const std::wstring&) {
        WriteFileBytes(reportPath(), "{}");
        held = HoldExclusively(reportPath());
        return 1;
    };
    EXPECT_TRUE(run());
    EXPECT_TRUE(reportText_.empty());
    EXPECT_NE(product_.log(L"rud_data").find("error no:32"), std::string::npos);
    EXPECT_TRUE(PathExists(reportPath())) << "what cannot be deleted stays";
}

TEST_F(SceneAnalysisRun, RunsTheScriptAlthoughTheWorkFolderCannotBeMade) {
    product_.write(L"/json", "a file where the folder should be");
    MessageBoxWatcher watcher;
    host_.onScript = [](const std::wstring&) {
        return PathExists(reportPath()) ? 1 : 0; // the parser cannot write either
    };
    EXPECT_FALSE(run());
    EXPECT_EQ(watcher.stop().size(), 1U);
    EXPECT_NE(product_.log(L"rud_data").find("[ERROR] CreateDirectoryW "), std::string::npos);
}

} // namespace
} // namespace test
} // namespace orv
