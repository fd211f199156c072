#include "tests/support/box_languages.h"

#include <cstring>
#include <mutex>

namespace orv {
namespace test {
namespace {

using ShowBox = int(WINAPI*)(HWND, LPCWSTR, LPCWSTR, UINT, WORD);

std::mutex mutex; // guards the next
std::vector<WORD> languages;

// Not by this module's own import, which may be the one that is replaced.
ShowBox SystemsOwn() {
    const FARPROC found = ::GetProcAddress(::GetModuleHandleW(L"user32.dll"), "MessageBoxExW");
    ShowBox show = nullptr;
    std::memcpy(&show, &found, sizeof(show));
    return show;
}

int WINAPI Noted(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type, WORD language) {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        languages.push_back(language);
    }
    return SystemsOwn()(owner, text, caption, type, language);
}

} // namespace

BoxLanguages::BoxLanguages(HMODULE module)
    : patch_(module, "MessageBoxExW", reinterpret_cast<ULONGLONG>(&Noted)) {}

BoxLanguages::~BoxLanguages() {
    const std::lock_guard<std::mutex> lock(mutex);
    languages.clear();
}

std::vector<WORD> BoxLanguages::asked() {
    const std::lock_guard<std::mutex> lock(mutex);
    return languages;
}

} // namespace test
} // namespace orv
