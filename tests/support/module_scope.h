// The states that a lookup of texts depends on, set for the length of a test. For programs that
// link orv_resources.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"
#include "resources/text.h"

namespace orv {
namespace test {

// Stores a module handle as the library's entry does; the former one comes back at the end.
class ModuleScope : private rud_Noncopyable {
public:
    explicit ModuleScope(HINSTANCE module = ::GetModuleHandleW(nullptr))
        : former_(orv_resource_module()) {
        orv_set_resource_module(module);
    }
    ~ModuleScope() { orv_set_resource_module(former_); }

private:
    const HINSTANCE former_;
};

// Makes a language this thread's, in both places where a system looks for it.
class LanguageScope : private rud_Noncopyable {
public:
    explicit LanguageScope(LANGID language)
        : formerLocale_(::GetThreadLocale()), formerLanguage_(::GetThreadUILanguage()) {
        ::SetThreadLocale(MAKELCID(language, SORT_DEFAULT));
        ::SetThreadUILanguage(language);
    }
    ~LanguageScope() {
        ::SetThreadLocale(formerLocale_);
        ::SetThreadUILanguage(formerLanguage_);
    }

private:
    const LCID formerLocale_;
    const LANGID formerLanguage_;
};

constexpr LANGID kEnglishLanguage = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
constexpr LANGID kChineseLanguage = MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED);

} // namespace test
} // namespace orv
