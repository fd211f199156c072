// A folder of a test's own, with Chinese characters and a blank in its name, removed with what is in it.
#pragma once

#include "base/noncopyable.h"

#include <string>

namespace test {

class TempFolder : private orv::rud_Noncopyable {
public:
    TempFolder();
    ~TempFolder();

    const std::wstring& path() const { return path_; }
    std::wstring file(const std::wstring& name) const { return path_ + L"\\" + name; }

    // Writes a file into the folder and returns its full path.
    std::wstring write(const std::wstring& name, const std::string& bytes) const;

private:
    std::wstring path_;
};

std::string BytesOf(const std::wstring& path);

} // namespace test
