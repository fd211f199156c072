// A folder of a test's own.
#pragma once

#include "base/noncopyable.h"

#include <string>

namespace orv {
namespace test {

// A new empty folder below the user's temporary folder, deleted with its content at the end of the
// scope. `name` becomes the last part of its path, to test blanks and Chinese characters in paths.
class TemporaryFolder : private rud_Noncopyable {
public:
    explicit TemporaryFolder(const std::wstring& name = L"folder");
    ~TemporaryFolder();

    // Without a separator at the end.
    const std::wstring& path() const { return path_; }

    // path() + a backslash + `name`.
    std::wstring file(const std::wstring& name) const { return path_ + L"\\" + name; }

private:
    std::wstring root_;
    std::wstring path_;
};

} // namespace test
} // namespace orv
