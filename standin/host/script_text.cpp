#include "standin/host/script_text.h"

namespace standin {
namespace {

bool IsBlank(wchar_t character) {
    return character == L' ' || character == L'\t';
}
bool IsLineEnd(wchar_t character) {
    return character == L'\n' || character == L'\r' || character == L';';
}

bool IsNamePart(wchar_t character) {
    return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z') ||
           (character >= L'0' && character <= L'9') || character == L'_' || character == L'.';
}

int HexDigit(wchar_t digit) {
    if (digit >= L'0' && digit <= L'9') {
        return digit - L'0';
    }
    if (digit >= L'a' && digit <= L'f') {
        return digit - L'a' + 10;
    }
    return digit >= L'A' && digit <= L'F' ? digit - L'A' + 10 : -1;
}

class Reader {
public:
    explicit Reader(const std::wstring& text) : text_(text) {}

    bool atEnd() const { return at_ >= text_.size(); }
    wchar_t peek(size_t ahead = 0) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : L'\0';
    }
    void skip() { ++at_; }
    void skipBlanks() {
        while (!atEnd() && IsBlank(peek())) {
            skip();
        }
    }
    void skipLineEnds() {
        while (!atEnd() && (IsBlank(peek()) || IsLineEnd(peek()))) {
            skip();
        }
    }
    std::wstring name() {
        const size_t begin = at_;
        while (!atEnd() && IsNamePart(peek())) {
            skip();
        }
        return text_.substr(begin, at_ - begin);
    }
    bool literal(std::wstring& value);

private:
    void escape(std::wstring& value);

    const std::wstring& text_;
    size_t at_ = 0;
};

bool Reader::literal(std::wstring& value) {
    const bool verbatim = peek() == L'@';
    if (verbatim) {
        skip();
    }
    skip(); // the opening quote
    while (!atEnd()) {
        const wchar_t character = peek();
        skip();
        if (character == L'"') {
            return true;
        }
        if (character == L'\\' && !verbatim) {
            escape(value);
        } else {
            value.push_back(character);
        }
    }
    return false;
}

void Reader::escape(std::wstring& value) {
    const std::wstring plain = L"\"*?\\%";
    const wchar_t character = peek();
    if (character == L'x' && HexDigit(peek(1)) >= 0) {
        skip();
        unsigned code = 0;
        for (; HexDigit(peek()) >= 0; skip()) {
            code = (code * 16U + static_cast<unsigned>(HexDigit(peek()))) & 0xFFFFU;
        }
        value.push_back(static_cast<wchar_t>(code));
        return;
    }
    if (character == L'n' || character == L'r' || character == L't') {
        value.push_back(character == L'n' ? L'\n' : character == L'r' ? L'\r' : L'\t');
        skip();
        return;
    }
    if (character != L'\0' && plain.find(character) != std::wstring::npos) {
        value.push_back(character);
        skip();
        return;
    }
    value.push_back(L'\\');
}

bool ParseCall(Reader& reader, ScriptCall& call, std::wstring& error) {
    call.name = reader.name();
    if (call.name.empty()) {
        error = std::wstring(L"a name was expected at \"") + reader.peek() + L"\"";
        return false;
    }
    for (;;) {
        reader.skipBlanks();
        if (reader.atEnd() || IsLineEnd(reader.peek())) {
            return true;
        }
        if (reader.peek() != L'"' && !(reader.peek() == L'@' && reader.peek(1) == L'"')) {
            error = L"a text was expected after " + call.name;
            return false;
        }
        std::wstring argument;
        if (!reader.literal(argument)) {
            error = L"the text after " + call.name + L" has no closing quote";
            return false;
        }
        call.arguments.push_back(argument);
    }
}

} // namespace

bool ParseScriptText(const std::wstring& text, std::vector<ScriptCall>& calls,
                     std::wstring& error) {
    std::vector<ScriptCall> found;
    Reader reader(text);
    for (reader.skipLineEnds(); !reader.atEnd(); reader.skipLineEnds()) {
        ScriptCall call;
        if (!ParseCall(reader, call, error)) {
            return false;
        }
        found.push_back(call);
    }
    if (found.empty()) {
        error = L"the script text is empty";
        return false;
    }
    calls.swap(found);
    return true;
}

} // namespace standin
