// The real 7-Zip in tests: put where the product looks for it, and run to look into archives.
#pragma once

#include <string>

namespace orv {
namespace test {

// Copies 7z.exe into the product folder; returns its path there.
std::wstring InstallArchiver();

// Runs 7z.exe beside the test program with these arguments; returns its exit code.
unsigned long RunSevenZip(const std::wstring& arguments);

// Whether `archive` unpacks with `password` into `folder`.
bool Unpack(const std::wstring& archive, const std::string& password, const std::wstring& folder);

} // namespace test
} // namespace orv
