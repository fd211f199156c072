// How long reading a large analysis report takes and how much memory, against what JsonCpp alone
// needs for the same text.
#include "analysis/report_reader.h"
#include "analysis/text/text_convert.h"
#include "bench/figures.h"
#include "bench/heap.h"
#include "bench/program.h"
#include "bench/report_text.h"
#include "resources/text.h"
#include "tests/support/product_folder.h"

#include <json/reader.h>

#include <stdexcept>
#include <string>

namespace orv {
namespace bench {
namespace {

void Parse(const std::string& json, Json::Value& report) {
    if (!Json::Reader().parse(json, report))
        throw std::runtime_error("the report is not JSON");
}

void Read(SceneAnalysis& analysis) {
    if (ReadAnalysisReport(analysis) != kReportRead)
        throw std::runtime_error("the report cannot be read");
}

// Letting the parsed document go is part of both times.
double ParseAlone(const std::string& json) {
    return ProcessorTime(kTimesALarge, [&json] {
        Json::Value report;
        Parse(json, report);
    });
}

double ReadTimes(int times, const std::wstring& text) {
    const auto prepare = [&text] {
        SceneAnalysis analysis;
        analysis.reportText = text;
        return analysis;
    };
    return ProcessorTime(times, prepare, [](SceneAnalysis& analysis) {
        Read(analysis);
        analysis.report.reset();
    });
}

// The bytes of the parsed document.
double DocumentMemory(const std::string& json) {
    Json::Value report;
    const HeapCount count;
    Parse(json, report);
    return static_cast<double>(count.inUse());
}

// The most bytes while the report is read, above what was in use before.
double PeakOfReading(const std::wstring& text) {
    SceneAnalysis analysis;
    analysis.reportText = text;
    const HeapCount count;
    Read(analysis);
    return static_cast<double>(count.peak());
}

void MeasureMemory(const std::string& name, const std::string& json, Figures& figures) {
    const std::wstring text = Utf8ToWide(json);
    figures.measure(
        name, kSameEachTime, [&text] { return PeakOfReading(text); },
        [&json] { return DocumentMemory(json); }, 1.6);
}

void Run(Figures& figures) {
    const test::TestProductFolder product;
    const std::string large = MakeReport(kLargeReport);
    const std::wstring largeText = Utf8ToWide(large);
    const std::wstring tenthText = Utf8ToWide(MakeReport({10000, 2000, 100, 0}));
    const auto read = [&largeText] { return ReadTimes(kTimesALarge, largeText); };
    figures.measure(
        "read_report/json_parse_alone", kShortWork, read, [&large] { return ParseAlone(large); },
        1.35);
    figures.measure(
        "read_report/read_report_tenth", kShortWork, read,
        [&tenthText] { return ReadTimes(10 * kTimesALarge, tenthText) / 10; }, 11.0);
    MeasureMemory("read_report_peak/parsed_document_memory", large, figures);
    MeasureMemory("read_report_10000_illegal_names_peak/parsed_document_memory",
                  MakeReport({100000, 20000, 1000, 10}), figures);
}

} // namespace
} // namespace bench
} // namespace orv

int main(int argc, char** argv) {
    orv_set_resource_module(
        ::GetModuleHandleW(nullptr)); // the program carries the language resources
    return orv::bench::RunProgram(argc, argv, orv::bench::Run);
}
