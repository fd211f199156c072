// The seam behind which script texts are run.
#pragma once

#include <string>

namespace standin {

// What a script left behind. A script that failed has no value.
struct ScriptOutcome {
    enum class Type { Nothing, Boolean, Integer, Float, Text };
    bool ok = false;
    std::wstring error; // why it failed, in a form for the Listener
    Type type = Type::Nothing;
    bool boolean = false;
    int integer = 0;
    float real = 0.0F;
    std::wstring text;
};

// Runs MAXScript texts for the host. What a script defines lasts as long as the runner.
class ScriptRunner {
public:
    virtual ~ScriptRunner() = default;

    // Runs a text on the host's main thread. A failing script is reported in the outcome, never
    // thrown.
    virtual ScriptOutcome run(const std::wstring& text) = 0;
};

} // namespace standin
