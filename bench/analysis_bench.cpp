// How long reading a large analysis report takes and how much memory, against what JsonCpp alone
// needs for the same text.
#include "analysis/report_reader.h"
#include "analysis/text/text_convert.h"
#include "bench/fastest_reporter.h"
#include "bench/figures.h"
#include "bench/heap.h"
#include "bench/program.h"
#include "bench/report_text.h"
#include "resources/text.h"
#include "tests/support/product_folder.h"

#include <cstdio>
#include <json/reader.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace orv {
namespace bench {
namespace {

constexpr char kParse[] = "json_parse_alone";
constexpr char kRead[] = "read_report";
constexpr char kReadIllegal[] = "read_report_10000_illegal_names";
constexpr char kParseTenth[] = "json_parse_alone_tenth";
constexpr char kReadTenth[] = "read_report_tenth";

constexpr int kRepetitions = 12;

constexpr ReportSize kLarge = {100000, 20000, 1000, 0};
constexpr ReportSize kLargeIllegal = {100000, 20000, 1000, 10};
constexpr ReportSize kTenth = {10000, 2000, 100, 0};

void Parse(const std::string& json, Json::Value& report) {
    if (!Json::Reader().parse(json, report))
        throw std::runtime_error("the report is not JSON");
}

void Read(SceneAnalysis& analysis) {
    if (ReadAnalysisReport(analysis) != kReportRead)
        throw std::runtime_error("the report cannot be read");
}

// Letting the parsed document go is part of both times, as it is of reading a report.
void ParseAlone(benchmark::State& state, const std::string& json) {
    for (auto iteration : state) {
        static_cast<void>(iteration);
        Json::Value report;
        Parse(json, report);
        benchmark::DoNotOptimize(report);
    }
}

void ReadReport(benchmark::State& state, const std::wstring& text) {
    // Prepared before, so that the clock need not be stopped: it ticks in hundredths of a second.
    std::vector<SceneAnalysis> analyses(static_cast<std::size_t>(state.max_iterations));
    for (SceneAnalysis& analysis : analyses)
        analysis.reportText = text;
    auto analysis = analyses.begin();
    for (auto iteration : state) {
        static_cast<void>(iteration);
        Read(*analysis++);
    }
}

template<typename Function, typename Text>
void Register(const char* name, Function function, const Text& text, int iterations) {
    benchmark::RegisterBenchmark(
        name, [function, &text](benchmark::State& state) { function(state, text); })
        ->Unit(benchmark::kMillisecond)
        ->Iterations(iterations)
        ->Repetitions(kRepetitions);
}

void AddTimes(const FastestReporter& times, Figures& figures) {
    const struct {
        const char* figure;
        const char* dividend;
        const char* divisor;
        double limit;
    } ratios[] = {
        {"read_report/json_parse_alone", kRead, kParse, 1.5},
        {"read_report/read_report_tenth", kRead, kReadTenth, 11.0},
    };
    for (const auto& ratio : ratios) {
        if (times.has(ratio.dividend) && times.has(ratio.divisor))
            figures.add(ratio.figure, times.fastest(ratio.dividend) / times.fastest(ratio.divisor),
                        ratio.limit);
    }
}

struct Memory {
    std::int64_t document; // the parsed document alone
    std::int64_t peak;     // while the report is read, above what was in use before
};

Memory MemoryOf(const std::string& json) {
    Memory memory{};
    SceneAnalysis analysis;
    analysis.reportText = Utf8ToWide(json);
    {
        Json::Value report;
        const HeapCount count;
        Parse(json, report);
        memory.document = count.inUse();
    }
    const HeapCount count;
    Read(analysis);
    memory.peak = count.peak();
    return memory;
}

double Megabytes(std::int64_t bytes) {
    return static_cast<double>(bytes) / 1e6;
}

void AddMemory(const char* name, const std::string& json, Figures& figures) {
    const Memory memory = MemoryOf(json);
    std::printf(
        "memory: %s: text %.1f MB, parsed document alone %.1f MB, peak of reading %.1f MB\n", name,
        Megabytes(static_cast<std::int64_t>(json.size())), Megabytes(memory.document),
        Megabytes(memory.peak));
    figures.add(std::string(name) + "_peak/parsed_document_memory",
                static_cast<double>(memory.peak) / static_cast<double>(memory.document), 1.6);
}

int Run() {
    const test::TestProductFolder product;
    const std::string large = MakeReport(kLarge);
    const std::string largeIllegal = MakeReport(kLargeIllegal);
    const std::string tenth = MakeReport(kTenth);
    const std::wstring largeText = Utf8ToWide(large);
    const std::wstring largeIllegalText = Utf8ToWide(largeIllegal);
    const std::wstring tenthText = Utf8ToWide(tenth);

    Register(kParse, ParseAlone, large, 2);
    Register(kRead, ReadReport, largeText, 2);
    Register(kReadIllegal, ReadReport, largeIllegalText, 2);
    Register(kParseTenth, ParseAlone, tenth, 20);
    Register(kReadTenth, ReadReport, tenthText, 20);
    FastestReporter times;
    benchmark::RunSpecifiedBenchmarks(&times);

    Figures figures;
    AddTimes(times, figures);
    AddMemory(kRead, large, figures);
    AddMemory(kReadIllegal, largeIllegal, figures);
    return figures.exitCode();
}

} // namespace
} // namespace bench
} // namespace orv

int main(int argc, char** argv) {
    orv_set_resource_module(
        ::GetModuleHandleW(nullptr)); // the program carries the language resources
    return orv::bench::RunProgram(argc, argv, orv::bench::Run);
}
