// The product folder of a test: the real one of the Windows installation that runs the test.
#pragma once

#include "base/noncopyable.h"

#include <string>

namespace orv {
namespace test {

// Empties the product folder at the start and at the end of its scope, so that tests do not depend
// on each other. At the start the folder exists and holds an empty "script" folder. A log file that
// this process still holds open (PluginData keeps its own) is emptied and stays.
class TestProductFolder : private rud_Noncopyable {
public:
    TestProductFolder();
    ~TestProductFolder();

    // The product folder + `suffix`, which begins with a slash: path(L"/script/custom.bin").
    std::wstring path(const std::wstring& suffix = std::wstring()) const;

    // Writes a file below the product folder, with the folders it needs.
    void write(const std::wstring& suffix, const std::string& bytes) const;
    std::string read(const std::wstring& suffix) const;

    // The product's scripts as an installation has them. The parser stands there as plain text
    // under the name of the encrypted file; the stand-in host takes both.
    void installScripts() const;

    // Replaces the settings file by section "general" with these lines ("port=8080\r\n…").
    void writeSettings(const std::string& lines) const;

    // The content of log `name` in the log folder for `lowerVersion`, empty when it does not exist.
    std::string log(const std::wstring& name,
                    const std::wstring& lowerVersion = std::wstring()) const;
};

} // namespace test
} // namespace orv
