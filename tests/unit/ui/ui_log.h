// The dialogs' log, for tests of what fills controls.
#pragma once

#include "base/noncopyable.h"
#include "tests/support/log_lines.h"
#include "tests/support/product_folder.h"

#include <string>
#include <vector>

namespace orv {
namespace test {

// "rud_ui", empty at the start of the test.
class UiLog : private rud_Noncopyable {
public:
    // Without its time stamp; empty when nothing was written.
    std::string lastLine() const {
        const std::vector<std::string> lines = LogLines(folder_.log(L"rud_ui"));
        return lines.empty() ? std::string() : lines.back();
    }

private:
    TestProductFolder folder_;
};

} // namespace test
} // namespace orv
