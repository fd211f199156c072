// The language in which a module asks for its message boxes: a box itself does not show it.
#pragma once

#include "base/noncopyable.h"
#include "tests/support/import_patch.h"

#include <vector>

namespace orv {
namespace test {

// While it lives, the language of each MessageBoxExW that `module` calls is noted; the boxes are
// shown as ever. One at a time.
class BoxLanguages : private rud_Noncopyable {
public:
    explicit BoxLanguages(HMODULE module = ::GetModuleHandleW(nullptr));
    ~BoxLanguages();

    // The languages so far, in order.
    static std::vector<WORD> asked();

private:
    const ImportPatch patch_;
};

} // namespace test
} // namespace orv
