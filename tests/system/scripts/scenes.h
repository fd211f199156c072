// A scene on disk with the product's scripts beside it, and what is run over it.
#pragma once

#include "standin/host/maxscript_runner.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"

#include <json/json.h>

#include <string>
#include <vector>

namespace orv {
namespace test {

class SceneUnderTest {
public:
    // `file` is the scene's file name, empty for a scene without a file. Throws for a description
    // that the host refuses.
    SceneUnderTest(const Json::Value& description, const std::wstring& file);

    // Runs the two lines that the plug-in runs; the report as text, empty without a report.
    std::string analyse();

    // Loads the three cleaning scripts in the plug-in's order.
    void clean();

    // What the cleaners' log says was done since it was last asked, as "action kind name", files
    // without their folder; results as "cleaned result ALC".
    std::vector<std::string> cleaned();

    standin::ScriptOutcome run(const std::wstring& text) { return runner_.run(text); }

    // Makes every read of a variable of the host fail.
    void breakGlobal(const std::wstring& name);

    Json::Value description() const; // as it would be saved
    std::wstring reportFile() const { return folder.file(L"report.ret"); }
    std::wstring userStartup(const std::wstring& name) const;
    std::wstring systemStartup(const std::wstring& name) const;
    std::wstring hostFolder() const { return folder.file(L"host"); }

    const TestProductFolder product;
    const TemporaryFolder folder{L"\u573A\u666F \u0441\u0446\u0435\u043D\u0430"};
    standin::Scene scene;
    std::wstring listener; // what scripts printed

private:
    standin::MaxscriptRunner runner_;
    std::size_t readLogLines_ = 0;
};

Json::Value ParsedJson(const std::string& text);

// What of `expected` is not so in `actual`, each with its path; objects may have more members,
// lists have to be the same length.
std::string Differences(const Json::Value& expected, const Json::Value& actual,
                        const std::string& path = "");

} // namespace test
} // namespace orv
