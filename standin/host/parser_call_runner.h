// The script runner that knows the calls which the product makes, and nothing else of MAXScript.
#pragma once

#include "standin/host/scene.h"
#include "standin/host/script_runner.h"
#include "standin/host/script_text.h"

namespace standin {

// Understands `fileIn "file"` of any script file that exists, and `gMax.analysis "report" ""` once
// the scene parser was loaded: the report is then written from the scene's description, with a log
// beside it. What the description commands for a script (failing, writing nothing or other bytes,
// waiting) is done in place of that.
class ParserCallRunner : public ScriptRunner {
public:
    explicit ParserCallRunner(const Scene& scene) : scene_(scene) {}

    ScriptOutcome run(const std::wstring& text) override;

private:
    ScriptOutcome call(const ScriptCall& call);
    ScriptOutcome fileIn(const std::wstring& path);
    ScriptOutcome analysis(const std::wstring& reportPath);

    const Scene& scene_;
    std::wstring parserFile_; // the loaded scene parser's file; empty before
};

} // namespace standin
