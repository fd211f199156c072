// What tests of the report reader share: the texts of messages, and a report that each test
// changes.
#pragma once

#include "analysis/report_reader.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/unit/analysis/message_text.h"
#include "tests/unit/analysis/sample_report.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orv {
namespace test {

using Texts = std::vector<std::string>;
using Tips = std::vector<std::wstring>;

constexpr char kNoErrors[] = "INFO No errors!";
constexpr char kClosing[] =
    "INFO Get analysis information successfully. Current 3ds Max version is :2019";
constexpr char kUnlimited[] =
    "ERROR The progressive pass, time and noise level are not limited in Corona! Please "
    "revise and submit again!";
constexpr char kTimeOnly[] =
    "WARN Block rendering is not recommended in Corona. Please limit progressive pass "
    "and noise level if you still want to use block rendering.";
constexpr char kRegion[] =
    "WARN Region rendering is used in your scene file. Please ignore this message if you "
    "confirm to use block rendering.";
constexpr char kRussian[] = "WARN The name of reference file have Russian characters.";
constexpr char kIllegal[] = "WARN The name of reference file have illegal characters.";
constexpr char kCameraName[] = "WARN The original camera name contain invalid characters!";

// The list of advice with these texts: empty, or the heading and the texts.
inline Tips TipList(const std::vector<unsigned>& textIds) {
    Tips tips;
    if (!textIds.empty())
        tips.push_back(ResourceText(IDS_TIPS_HEADING));
    for (const unsigned id : textIds)
        tips.push_back(ResourceText(id));
    return tips;
}

class ReportReader : public ::testing::Test {
protected:
    void read() { analysis_ = ReadReport(report_, result_); }

    const CameraInfo& onlyCamera() const { return analysis_.cameras.begin()->second; }

    Json::Value report_ = SampleReport();
    SceneAnalysis analysis_;
    int result_ = -1;
};

} // namespace test
} // namespace orv
