// Reports that no parser script would write: huge, deep, damaged, or made to do harm. Each is read
// on a thread with a stack of one megabyte, the default of a program.
#include "analysis/report_json.h"
#include "analysis/report_reader.h"
#include "analysis/text/text_convert.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/unit/analysis/message_text.h"
#include "tests/unit/analysis/sample_report.h"
#include "tests/unit/analysis/small_stack.h"

#include <gtest/gtest.h>

#include <chrono>
#include <iostream>
#include <limits>
#include <random>

namespace orv {
namespace test {
namespace {

struct Reading {
    SceneAnalysis analysis;
    int result = -1;
    long long milliseconds = 0;
};

Reading Read(const std::wstring& text) {
    Reading reading;
    reading.analysis.reportText = text;
    const auto begin = std::chrono::steady_clock::now();
    RunOnSmallStack([&reading] {
        reading.result = ReadAnalysisReport(reading.analysis);
        InitSceneName(reading.analysis); // parses the report once more, as the dialog does
        reading.analysis.messages.pop_back();
    });
    reading.milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(
                               std::chrono::steady_clock::now() - begin)
                               .count();
    return reading;
}

// A report of a plain scene with these members in front, as text.
std::string With(const std::string& members) {
    return "{" + members +
           R"(, "name": "room", "version": "2019", "is_region": "false", "image_width": "1920",
           "image_height": "1080", "start_frame": "5", "cameras": [{"name": "Cam"}]})";
}

std::string Repeated(const std::string& part, std::size_t count) {
    std::string text;
    text.reserve(part.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        text += part;
    return text;
}

// ENTRY,ENTRY,… with `#` in each entry replaced by its number.
std::string Numbered(const std::string& entry, int count) {
    std::string text;
    const std::size_t mark = entry.find('#');
    for (int i = 0; i < count; ++i)
        text += (i == 0 ? "" : ",") + entry.substr(0, mark) + std::to_string(i) +
                entry.substr(mark + 1);
    return text;
}

std::string List(const std::string& key, const std::string& entry, int count) {
    return "\"" + key + "\": [" + Numbered(entry, count) + "]";
}

std::string Nested(const std::string& opening, const std::string& closing, std::size_t levels) {
    return Repeated(opening, levels) + "1" + Repeated(closing, levels);
}

std::string RichReport() {
    return R"({"name": "D:/room.max", "version": "2019", "is_region": "true", "image_width": "1",
"image_height": "2", "start_frame": "3", "image_format": "tif", "gamma_out": "2.2", // gamma
"renderer_full_name": "Missing_Renderer", "errors": {"error_code": [{"code": "107"}]},
"corona_setting": {"pass_limit": "0", "time_limit": "0", "noise_level_limit": "0"},
"vray_setting": {"imagesampler_type": "3", "camera_override_fov": true, "is_spherical": "true"},
"reference_file": [{"path": "%"}, {"path": "b"}, {"path": "?", "x": [1, {"y": null}]}],
"missing_file": [{"path": "m"}], "same_file": [{"path": "s"}, 5],
"cameras": [{"name": "a:b", "camWidth": "7"}], "dupl_cameras": [{"name": " A "}]})";
}

struct HostileCase {
    const char* what;
    std::string json;
    int result;
    std::size_t messages;
    std::size_t tips;
    std::size_t problemFiles;
    std::size_t cameras;
};

// One INFO "No errors!" and one that closes the reading.
constexpr std::size_t kUsual = 2;
constexpr int kMany = 200000;
constexpr std::size_t kManyLines = kMany;

void ExpectReading(const HostileCase& hostile) {
    const Reading reading = Read(Utf8ToWide(hostile.json));
    const SceneAnalysis& analysis = reading.analysis;
    std::cout << "hostile: " << hostile.what << ": result " << reading.result << ", "
              << analysis.messages.size() << " messages, " << analysis.tips.size() << " tips, "
              << analysis.problemFiles.size() << " problem lines, " << analysis.cameras.size()
              << " cameras, " << reading.milliseconds << " ms\n";
    EXPECT_EQ(reading.result, hostile.result) << hostile.what;
    EXPECT_EQ(analysis.messages.size(), hostile.messages) << hostile.what;
    EXPECT_EQ(analysis.tips.size(), hostile.tips) << hostile.what;
    EXPECT_EQ(analysis.problemFiles.size(), hostile.problemFiles) << hostile.what;
    EXPECT_EQ(analysis.cameras.size(), hostile.cameras) << hostile.what;
    EXPECT_LT(reading.milliseconds, 60000) << hostile.what;
}

TEST(HostileReport, MayHaveHundredsOfThousandsOfEntries) {
    const std::size_t usual = kUsual;
    const HostileCase cases[] = {
        {"200,000 references", With(List("reference_file", R"({"path": "D:/#.png"})", kMany)),
         kReportRead, usual, 0, 0, 1},
        {"200,000 references with illegal names",
         With(List("reference_file", R"({"path": "D:/%#.png"})", kMany)), kReportRead, usual + 1, 0,
         kManyLines + 1, 1},
        {"200,000 missing files", With(List("missing_file", R"({"path": "D:/#.png"})", kMany)),
         kReportRead, usual, 0, kManyLines + 1, 1},
        {"200,000 files of one name", With(List("same_file", R"({"path": "D:/#.png"})", kMany)),
         kReportRead, usual, 0, kManyLines + 1, 1},
        {"200,000 cameras",
         "{" + List("cameras", R"({"name": "Cam #"})", kMany) +
             R"(, "is_region": "", "image_width": "1", "image_height": "1", "start_frame": "0"})",
         kReportRead, usual, 0, 0, kManyLines},
        {"200,000 cameras whose names warn",
         "{" + List("cameras", R"({"name": "a:#"})", kMany) +
             R"(, "is_region": "", "image_width": "1", "image_height": "1", "start_frame": "0"})",
         kReportRead, usual + kManyLines, 0, 0, kManyLines},
        {"200,000 error codes",
         With("\"errors\": {" + List("error_code", R"({"code": "107", "n": #})", kMany) + "}"),
         kReportRead, usual - 1, kManyLines + 1, 0, 1},
        {"200,000 duplicate cameras", With(List("dupl_cameras", R"({"name": "#"})", kMany)),
         kReportDuplicateCameras, usual - 1, 0, 0, 1},
        {"200,000 unknown members", With("\"others\": {" + Numbered("\"k#\": []", kMany) + "}"),
         kReportRead, usual, 0, 0, 1},
    };
    for (const HostileCase& hostile : cases)
        ExpectReading(hostile);
}

TEST(HostileReport, MayHaveTextsOfAnyLength) {
    const std::string longPath = "D:/" + std::string(29997, 'a');
    const HostileCase cases[] = {
        {"a legal path of 30,000 characters",
         With("\"reference_file\": [{\"path\": \"" + longPath + "\"}]"), kReportRead, kUsual, 0, 0,
         1},
        {"an illegal path of 30,000 characters",
         With("\"reference_file\": [{\"path\": \"" + longPath + "%\"}]"), kReportRead, kUsual + 1,
         0, 2, 1},
        {"a missing file of 30,000 Chinese characters",
         With("\"missing_file\": [{\"path\": \"" + Repeated("\xE6\x9C\xA8", 30000) + "\"}]"),
         kReportRead, kUsual, 0, 2, 1},
        {"a path of 10,000,000 characters",
         With("\"reference_file\": [{\"path\": \"" + std::string(10000000, 'a') + "\"}]"),
         kReportRead, kUsual, 0, 0, 1},
        {"a duplicate camera's name of 30,000 characters",
         With("\"dupl_cameras\": [{\"name\": \"" + std::string(30000, 'c') + "\"}]"),
         kReportDuplicateCameras, kUsual - 1, 0, 0, 1},
        {"a key of 1,000,000 characters", With("\"" + std::string(1000000, 'k') + "\": 1"),
         kReportRead, kUsual, 0, 0, 1},
        {"10,000,000 blanks", std::string(10000000, ' '), kReportRead, 1, 0, 0, 0},
    };
    for (const HostileCase& hostile : cases)
        ExpectReading(hostile);
}

// What is nested deeper than JsonCpp follows reads as a text that is not JSON.
TEST(HostileReport, MayBeNestedAsDeepAsItLikes) {
    const HostileCase cases[] = {
        {"900 levels beside what is read", With("\"deep\": " + Nested("[", "]", 900)), kReportRead,
         kUsual, 0, 0, 1},
        {"900 levels of objects", With("\"deep\": " + Nested("{\"a\":", "}", 900)), kReportRead,
         kUsual, 0, 0, 1},
        {"10,000 levels beside what is read", With("\"deep\": " + Nested("[", "]", 10000)),
         kReportRead, 1, 0, 0, 0},
        {"10,000 levels of objects", With("\"deep\": " + Nested("{\"a\":", "}", 10000)),
         kReportRead, 1, 0, 0, 0},
        {"10,000 levels of both", Nested("[{\"a\":", "}]", 5000), kReportRead, 1, 0, 0, 0},
        {"10,000 levels that do not end", Repeated("[", 10000), kReportRead, 1, 0, 0, 0},
        {"1,000,000 levels", Nested("[", "]", 1000000), kReportRead, 1, 0, 0, 0},
        {"10,000 closing brackets", Repeated("]", 10000), kReportRead, 1, 0, 0, 0},
    };
    for (const HostileCase& hostile : cases)
        ExpectReading(hostile);
}

TEST(HostileReport, MayHoldBytesThatAreNoText) {
    const std::string zero(1, '\0');
    const std::string path = "\"reference_file\": [{\"path\": \"";
    const HostileCase cases[] = {
        {"bytes that are no UTF-8 in a path", With(path + "D:/\xFF\xC0\xAF\xE4\xB8.png\"}]"),
         kReportRead, kUsual + 1, 0, 2, 1},
        {"bytes that are no UTF-8 between values", With("\xFF\xFE"), kReportRead, 1, 0, 0, 0},
        {"nothing but such bytes", std::string(100000, '\xFF'), kReportRead, 1, 0, 0, 0},
        {"a UTF-16 file", std::string("{\0\"\0a\0\"\0", 8), kReportRead, 1, 0, 0, 0},
        {"half of a surrogate pair, escaped, in front", With(path + "\\ud800\"}]"), kReportRead, 1,
         0, 0, 0},
        {"half of a surrogate pair, escaped, behind", With(path + "\\udc00\"}]"), kReportRead,
         kUsual + 1, 0, 2, 1},
        {"two front halves", With(path + "\\ud800\\ud800\"}]"), kReportRead, kUsual + 1, 0, 2, 1},
        {"a pair, escaped", With(path + "\\ud83c\\udfa5\"}]"), kReportRead, kUsual + 1, 0, 2, 1},
        {"an escape that is cut", With(path + "\\u12\"}]"), kReportRead, 1, 0, 0, 0},
        {"an unknown escape", With(path + "\\x\"}]"), kReportRead, 1, 0, 0, 0},
        {"a zero, escaped, in a path: it ends there", With(path + "D:/a.png\\u0000%\"}]"),
         kReportRead, kUsual, 0, 0, 1},
        {"a zero, escaped, at the start of a path: it is empty", With(path + "\\u0000a\"}]"),
         kReportRead, kUsual + 1, 0, 2, 1},
        {"a zero in a path", With(path + "D:/a.png" + zero + "%\"}]"), kReportRead, kUsual, 0, 0,
         1},
        {"a zero between values", With("\"a\":" + zero + "1"), kReportRead, 1, 0, 0, 0},
        {"a zero behind the report", With("\"a\": 1") + zero + "}}}", kReportRead, kUsual, 0, 0, 1},
        {"100,000 zeros", std::string(100000, '\0'), kReportRead, 1, 0, 0, 0},
    };
    for (const HostileCase& hostile : cases)
        ExpectReading(hostile);
}

TEST(HostileReport, MayBeMadeToKeepJsonCppBusy) {
    const HostileCase cases[] = {
        {"a megabyte of comments in a row", With("\"a\": 1 " + Repeated("/**/", 262144)),
         kReportRead, kUsual, 0, 0, 1},
        {"a megabyte of comments beside their values",
         With("\"a\": [" + Repeated("1 /* one */,\n", 80000) + "1]"), kReportRead, kUsual, 0, 0, 1},
        {"a comment that does not end", With("\"a\": 1") + "/*" + std::string(1000000, '*'),
         kReportRead, kUsual, 0, 0, 1},
        {"a text that does not end", "{\"a\": \"" + std::string(10000000, 'a'), kReportRead, 1, 0,
         0, 0},
        {"a megabyte of escapes", With("\"a\": \"" + Repeated("\\\\", 524288) + "\""), kReportRead,
         kUsual, 0, 0, 1},
        {"an error at the end of each of 800 levels", Repeated("[1,{\"a\":", 400), kReportRead, 1,
         0, 0, 0},
        {"100,000 wrong tokens", With("\"a\": [" + Repeated("x,", 100000) + "]"), kReportRead, 1, 0,
         0, 0},
        {"a number beyond every range", With("\"a\": 1e999999999"), kReportRead, 1, 0, 0, 0},
        {"a number of 100,000 digits", With("\"a\": 1" + std::string(100000, '0')), kReportRead, 1,
         0, 0, 0},
        {"a whole number beyond 64 bits", With("\"a\": 18446744073709551616"), kReportRead, kUsual,
         0, 0, 1},
        {"\"reference_file\" twice",
         With(
             R"("reference_file": [{"path": "%"}], "reference_file": [{"path": "?"}, {"path": "b"}])"),
         kReportRead, kUsual + 1, 0, 2, 1},
    };
    for (const HostileCase& hostile : cases)
        ExpectReading(hostile);
}

TEST(HostileReport, KeepsNumbersBeyondTheirRangeAtTheNearestEnd) {
    const std::string digits(30000, '9');
    const Reading high = Read(Utf8ToWide(R"({"is_region": "", "image_width": ")" + digits +
                                         R"(", "image_height": "2147483648",
        "start_frame": ")" + digits + R"(", "gamma_out": "1e400", "cameras": [{"name": "a"}],
        "corona_setting": {"pass_limit": "3000000000", "time_limit": "99999999999999",
        "noise_level_limit": ")" + digits +
                                         R"("}, "vray_setting": {"imagesampler_type": "1e9",
        "gi_irradmap_preset": "4294967297", "camera_fov": "1e999"}})"));
    const std::int32_t highest = std::numeric_limits<std::int32_t>::max();
    ASSERT_EQ(high.result, kReportRead);
    EXPECT_EQ(high.analysis.cameras.at(L"a").width, highest);
    EXPECT_EQ(high.analysis.cameras.at(L"a").height, highest);
    EXPECT_EQ(high.analysis.cameras.at(L"a").startFrame, highest);
    EXPECT_EQ(high.analysis.gammaOut, std::numeric_limits<float>::max());
    EXPECT_EQ(high.analysis.coronaPassLimit, highest);
    EXPECT_EQ(high.analysis.coronaTimeLimitSeconds, highest / 1000);
    EXPECT_EQ(high.analysis.coronaNoiseLimit, std::numeric_limits<double>::max());
    EXPECT_EQ(high.analysis.imageSamplerType, 1);
    EXPECT_EQ(high.analysis.irradmapPreset, highest);

    const Reading low = Read(Utf8ToWide(R"({"is_region": "", "image_width": "-)" + digits +
                                        R"(", "image_height": "-2147483649",
        "start_frame": "-3000000000", "gamma_out": "-1e39", "cameras": [{"name": "a"}],
        "corona_setting": {"pass_limit": "-3000000000", "time_limit": "-99999999999999",
        "noise_level_limit": "-1e400"}})"));
    const std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
    ASSERT_EQ(low.result, kReportRead);
    EXPECT_EQ(low.analysis.cameras.at(L"a").width, lowest);
    EXPECT_EQ(low.analysis.cameras.at(L"a").startFrame, lowest);
    EXPECT_EQ(low.analysis.gammaOut, -std::numeric_limits<float>::max());
    EXPECT_EQ(low.analysis.coronaTimeLimitSeconds, lowest / 1000);
    EXPECT_EQ(low.analysis.coronaNoiseLimit, -std::numeric_limits<double>::max());
}

TEST(HostileReport, MayHoldLoneSurrogatesInItsOwnText) {
    for (const wchar_t surrogate : {L'\xD800', L'\xDBFF', L'\xDC00', L'\xDFFF'}) {
        std::wstring text = Utf8ToWide(With(R"("reference_file": [{"path": "x"}, {"path": "b"}])"));
        text[text.find(L'x')] = surrogate;
        const Reading reading = Read(text);
        EXPECT_EQ(reading.result, kReportRead);
        ASSERT_EQ(reading.analysis.problemFiles.size(), 2U);
        EXPECT_EQ(reading.analysis.problemFiles[1], L"\xFFFD");
        Json::Value kept;
        ASSERT_TRUE(ParseReport(reading.analysis.reportText, kept));
        EXPECT_EQ(kept["reference_file"], ParseJson(R"([{"path": "b"}])"))
            << "the places behind the surrogate are still found";
    }
}

TEST(HostileReport, KeepsWhatWasKnownBeforeWhenItIsRefused) {
    SceneAnalysis analysis;
    analysis.reportText = Utf8ToWide(RichReport());
    ASSERT_EQ(ReadAnalysisReport(analysis), kReportDuplicateCameras);
    const SceneAnalysis before = analysis;
    analysis.reportText =
        L"{\"is_region\": \"true\", \"cameras\": [{\"name\": \"b\"}], \"gamma_out\": \"9\","
        L" \"image_width\": \"9\", \"image_height\": \"9\"}";
    ASSERT_EQ(ReadAnalysisReport(analysis), kReportRefused);
    ASSERT_EQ(analysis.messages.size(), before.messages.size() + 1);
    EXPECT_EQ(analysis.messages.back().text,
              "The analysis report cannot be used: \"start_frame\" is missing or is not a text.");

    SceneAnalysis expected = before; // but for the lists that each read begins anew
    expected.reportText = analysis.reportText;
    expected.messages = analysis.messages;
    expected.tips.clear();
    expected.problemFiles.clear();
    expected.duplicateCameraNames.clear();
    expected.hasIllegalReference = false;
    EXPECT_EQ(Described(analysis), Described(expected));
}

// Whatever is read, the answer is one of the codes, and a refusal leaves nothing but its message.
void ExpectAnAnswer(const std::wstring& text) {
    SceneAnalysis analysis;
    analysis.reportText = text;
    const int result = ReadAnalysisReport(analysis);
    ASSERT_TRUE(result == kReportRead || result == kReportNoCameras || result == kReportRefused ||
                result == kReportDuplicateCameras)
        << result;
    if (result == kReportRefused) {
        SceneAnalysis nothing;
        nothing.reportText = text;
        nothing.messages = analysis.messages;
        ASSERT_EQ(analysis.messages.size(), 1U);
        ASSERT_EQ(Described(analysis), Described(nothing));
    }
    InitSceneName(analysis);
}

TEST(HostileReport, MayEndAnywhere) {
    const std::string whole = RichReport();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        SceneAnalysis analysis;
        analysis.reportText = Utf8ToWide(whole.substr(0, length));
        EXPECT_EQ(ReadAnalysisReport(analysis), kReportRead) << "as every text that is no JSON";
        EXPECT_EQ(analysis.messages.size(), 1U);
        EXPECT_TRUE(analysis.cameras.empty());
    }
}

TEST(HostileReport, MayBeDamagedAnywhere) {
    constexpr unsigned kSeed = 20190507;
    std::cout << "hostile: 5000 damaged reports, seed " << kSeed << "\n";
    const std::string parts = "{}[]:,\"\\/*0159-+.eE truefalsn%";
    std::mt19937 random(kSeed);
    for (int round = 0; round < 5000; ++round) {
        SCOPED_TRACE(round);
        std::string text = RichReport();
        for (int damages = 1 + static_cast<int>(random() % 4); damages > 0; --damages) {
            const std::size_t at = random() % text.size();
            switch (random() % 4) {
            case 0:
                text[at] = static_cast<char>(random() % 256);
                break;
            case 1:
                text[at] = parts[random() % parts.size()];
                break;
            case 2:
                text.erase(at, 1 + random() % 20);
                break;
            default:
                text.insert(at, text.substr(random() % text.size(), 1 + random() % 40));
            }
        }
        ExpectAnAnswer(Utf8ToWide(text));
        if (HasFatalFailure())
            return;
    }
}

} // namespace
} // namespace test
} // namespace orv
