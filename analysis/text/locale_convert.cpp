#include "analysis/text/locale_convert.h"

#include "base/noncopyable.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <mutex>
#include <utility>
#include <vector>

namespace orv {
namespace {

constexpr std::size_t kRefused = static_cast<std::size_t>(-1);

// The dialog's thread and the submit worker both convert. Each sets the locale of the whole
// process, so without taking turns one would convert with the code page that the other has just
// restored.
std::mutex& LocaleMutex() {
    static std::mutex mutex;
    return mutex;
}

std::string CurrentLocale() {
    const char* name = std::setlocale(LC_ALL, nullptr);
    return name == nullptr ? "C" : name;
}

// Sets `locale` for its scope and `after` at the end. When the system lacks `locale`, the one that
// is current stays.
class LocaleScope : private rud_Noncopyable {
public:
    LocaleScope(const char* locale, std::string after)
        : after_(std::move(after)), found_(std::setlocale(LC_ALL, locale) != nullptr) {}
    ~LocaleScope() { std::setlocale(LC_ALL, after_.c_str()); }

    bool found() const { return found_; }

private:
    const std::string after_;
    const bool found_;
};

template<class Text>
bool IsAscii(const Text& text) {
    return std::all_of(text.begin(), text.end(),
                       [](typename Text::value_type c) { return c >= 0 && c < 128; });
}

// The run-time's functions end at a zero character. The text is therefore taken piece by piece, and
// the zeros between the pieces are put back. `convert` appends one piece and tells whether it
// could.
template<class To, class From, class Convert>
To ConvertPieces(const From& text, bool& exact, Convert convert) {
    To result;
    std::size_t start = 0;
    for (;;) {
        const std::size_t zero = text.find(typename From::value_type(0), start);
        const bool last = zero == From::npos;
        if (!convert(text.substr(start, last ? From::npos : zero - start), result)) {
            exact = false;
            return To();
        }
        if (last)
            return result;
        result += typename To::value_type(0);
        start = zero + 1;
    }
}

bool AppendWide(const std::string& piece, std::wstring& result) {
    std::vector<wchar_t> buffer(piece.size() + 1);
    const std::size_t count = std::mbstowcs(buffer.data(), piece.c_str(), buffer.size());
    if (count == kRefused)
        return false;
    result.append(buffer.data(), count);
    return true;
}

bool AppendMultibyte(const std::wstring& piece, std::string& result) {
    std::vector<char> buffer(2 * piece.size() + 1);
    const std::size_t count = std::wcstombs(buffer.data(), piece.c_str(), buffer.size());
    if (count == kRefused)
        return false;
    // The system may put a look-alike for a character that the code page lacks. Only what reads
    // back as the same text is that text.
    const std::string bytes(buffer.data(), count);
    std::wstring back;
    if (!AppendWide(bytes, back) || back != piece)
        return false;
    result += bytes;
    return true;
}

} // namespace

std::wstring MultibyteToWide(const std::string& text, const char* locale, bool& exact) {
    const std::lock_guard<std::mutex> lock(LocaleMutex());
    const LocaleScope scope(locale, "C");
    exact = scope.found() || IsAscii(text);
    return ConvertPieces<std::wstring>(text, exact, AppendWide);
}

std::string WideToMultibyte(const std::wstring& text, const char* locale, bool& exact) {
    const std::lock_guard<std::mutex> lock(LocaleMutex());
    const LocaleScope scope(locale, CurrentLocale());
    exact = scope.found() || IsAscii(text);
    return ConvertPieces<std::string>(text, exact, AppendMultibyte);
}

} // namespace orv
