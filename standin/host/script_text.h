// The form of script text that the product sends: one call with text arguments on each line.
#pragma once

#include <string>
#include <vector>

namespace standin {

struct ScriptCall {
    std::wstring name;                   // "fileIn", "gMax.analysis"; MAXScript ignores the case
    std::vector<std::wstring> arguments; // text literals, their escapes resolved
};

// Takes a script text apart into its calls. Text literals follow MAXScript's rules: a backslash
// makes an escape with one of  \ " n r t * ? %  or with x and hexadecimal digits, and stays before
// any other character; @"..." has no escapes. False, with a reason, for a text of another form.
bool ParseScriptText(const std::wstring& text, std::vector<ScriptCall>& calls, std::wstring& error);

} // namespace standin
