// The table of scenes: what the parser reports, what the product reads of it, what the cleaners
// remove and what they leave.
#include "analysis/report_reader.h"
#include "standin/host/text.h"
#include "tests/support/files.h"
#include "tests/system/scripts/scenes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>

namespace {

using orv::test::Differences;
using orv::test::SceneUnderTest;
using Texts = std::vector<std::string>;

const Json::Value& Table() {
    static const Json::Value table =
        orv::test::ParsedJson(orv::test::ReadFileBytes(L"script-scenes.json"));
    return table;
}

struct Row {
    std::string name;
    Json::Value scene;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}

std::vector<Row> Rows() {
    std::vector<Row> rows;
    for (const std::string& name : Table().getMemberNames())
        rows.push_back({name, Table()[name]});
    return rows;
}

std::string NameOf(const ::testing::TestParamInfo<Row>& info) {
    std::string name = info.param.name;
    std::replace_if(
        name.begin(), name.end(), [](char each) { return std::isalnum(each) == 0; }, '_');
    return name;
}

// The reports for the schema check: begun anew by the first test of this program.
std::ofstream& Reports() {
    static std::ofstream file("script-reports.jsonl", std::ios::binary);
    return file;
}

class Scenes : public ::testing::TestWithParam<Row> {
protected:
    const Json::Value& row() const { return GetParam().scene; }
    Json::Value expected(const char* member) const { return row()[member]; }

    SceneUnderTest scene_{GetParam().scene["description"],
                          standin::ToWide(GetParam().scene["file"].asString())};
};

TEST_P(Scenes, AreReportedAsTheyAre) {
    const std::string text = scene_.analyse();
    const Json::Value report = orv::test::ParsedJson(text);
    EXPECT_EQ(Differences(expected("report"), report), "");
    EXPECT_FALSE(orv::test::PathExists(scene_.reportFile() + L".tmp"));
    const std::string log = orv::test::ReadFileBytes(scene_.reportFile() + L".log");
    EXPECT_EQ(log.find("failed"), std::string::npos) << log;

    orv::SceneAnalysis analysis;
    analysis.reportText = standin::ToWide(text);
    const int result = orv::ReadAnalysisReport(analysis);
    EXPECT_EQ(result, expected("result").asInt());
    Json::Value cameras(Json::objectValue);
    for (const auto& each : analysis.cameras) {
        Json::Value camera(Json::objectValue);
        camera["name"] = standin::ToUtf8(each.second.name);
        camera["width"] = each.second.width;
        camera["height"] = each.second.height;
        camera["spherical"] = each.second.isSpherical;
        cameras[standin::ToUtf8(each.first)] = camera;
    }
    EXPECT_EQ(Differences(expected("cameras"), cameras), "");
    EXPECT_EQ(cameras.size(), expected("cameras").size());

    Json::Value line(Json::objectValue);
    line["report"] = report;
    line["refused"] = result == orv::kReportRefused;
    Reports() << Json::FastWriter().write(line);
}

TEST_P(Scenes, AreCleanedOfWhatIsKnownAndNothingElse) {
    Texts wanted;
    for (const Json::Value& each : expected("cleaned"))
        wanted.push_back(each.asString());
    scene_.clean();
    Texts done = scene_.cleaned();
    const auto isResult = [](const std::string& line) {
        return line.find(" result ") != std::string::npos;
    };
    done.erase(std::remove_if(done.begin(), done.end(), isResult), done.end());
    EXPECT_EQ(done, wanted);
    EXPECT_EQ(scene_.scene.modified(), !wanted.empty());
    // A scene without marks stays as it is.
    const Json::Value kept = expected(row().isMember("kept") ? "kept" : "description");
    EXPECT_EQ(Differences(kept, scene_.description()), "");

    scene_.clean();
    for (const std::string& line : scene_.cleaned())
        EXPECT_EQ(line.find("clean result "), 0U) << "in a second run: " << line;
}

INSTANTIATE_TEST_SUITE_P(Table, Scenes, ::testing::ValuesIn(Rows()), NameOf);

} // namespace
