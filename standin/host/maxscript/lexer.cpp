#include "standin/host/maxscript/lexer.h"

#include "standin/host/maxscript/value.h"

#include <cstdlib>
#include <cwctype>

namespace standin {
namespace maxscript {
namespace {

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

bool IsHex(wchar_t c) {
    return IsDigit(c) || (c >= L'a' && c <= L'f') || (c >= L'A' && c <= L'F');
}

bool StartsIdentifier(wchar_t c) {
    return c == L'_' || std::iswalpha(c) != 0 || c > 0x7F;
}

bool ContinuesIdentifier(wchar_t c) {
    return StartsIdentifier(c) || IsDigit(c);
}

class Lexer {
public:
    Lexer(const std::wstring& source, const std::shared_ptr<const std::wstring>& name)
        : source_(source), name_(name) {}

    std::vector<Token> all() {
        std::vector<Token> tokens;
        do {
            const std::size_t before = at_;
            const bool newLine = skipBlanks() || tokens.empty();
            if (!tokens.empty()) {
                tokens.back().beforeBlank = at_ != before;
            }
            Token token;
            token.startsLine = newLine;
            token.afterBlank = at_ != before;
            token.position = {name_, line_, static_cast<int>(at_ - lineStart_) + 1};
            read(token);
            tokens.push_back(token);
        } while (tokens.back().kind != Token::Kind::End);
        return tokens;
    }

private:
    wchar_t peek(std::size_t ahead = 0) const {
        return at_ + ahead < source_.size() ? source_[at_ + ahead] : L'\0';
    }

    [[noreturn]] void fail(const std::wstring& message) const {
        throw ScriptError(L"Syntax error: " + message,
                          {name_, line_, static_cast<int>(at_ - lineStart_) + 1});
    }

    void newLine() {
        ++line_;
        lineStart_ = at_ + 1;
    }

    // Skips blanks and comments; true when a line ended that a backslash did not continue.
    bool skipBlanks() {
        bool ended = false;
        while (at_ < source_.size()) {
            const wchar_t c = peek();
            if (c == L'\n') {
                newLine();
                ended = true;
                ++at_;
            } else if (c == L' ' || c == L'\t' || c == L'\r' || c == 0xFEFF || c == 0x3000) {
                ++at_;
            } else if (c == L'-' && peek(1) == L'-') {
                while (at_ < source_.size() && peek() != L'\n') {
                    ++at_;
                }
            } else if (c == L'/' && peek(1) == L'*') {
                skipComment();
            } else if (c == L'\\' && skipContinuation()) {
                continue;
            } else {
                break;
            }
        }
        return ended;
    }

    void skipComment() {
        const std::size_t start = at_;
        while (at_ < source_.size() &&
               !(at_ > start + 2 && peek() == L'/' && source_[at_ - 1] == L'*')) {
            if (peek() == L'\n') {
                newLine();
            }
            ++at_;
        }
        if (at_ == source_.size()) {
            fail(L"a comment has no end");
        }
        ++at_;
    }

    // A backslash that only blanks separate from the line's end.
    bool skipContinuation() {
        std::size_t end = at_ + 1;
        while (end < source_.size() &&
               (source_[end] == L' ' || source_[end] == L'\t' || source_[end] == L'\r')) {
            ++end;
        }
        if (end >= source_.size() || source_[end] != L'\n') {
            return false;
        }
        at_ = end;
        newLine();
        ++at_;
        return true;
    }

    void read(Token& token) {
        const wchar_t c = peek();
        if (at_ >= source_.size()) {
            token.kind = Token::Kind::End;
        } else if (c == L'"') {
            readText(token);
        } else if (c == L'@' && peek(1) == L'"') {
            readVerbatim(token);
        } else if (IsDigit(c) || (c == L'.' && IsDigit(peek(1)))) {
            readNumber(token);
        } else if (StartsIdentifier(c)) {
            token.kind = Token::Kind::Identifier;
            token.text = identifier();
            token.folded = Fold(token.text);
        } else if (c == L'#' && (ContinuesIdentifier(peek(1)) || peek(1) == L'\'')) {
            readName(token);
        } else {
            readSymbol(token);
        }
    }

    std::wstring identifier() {
        const std::size_t start = at_;
        while (ContinuesIdentifier(peek())) {
            ++at_;
        }
        return source_.substr(start, at_ - start);
    }

    void readName(Token& token) {
        token.kind = Token::Kind::Name;
        ++at_;
        if (peek() != L'\'') {
            token.text = identifier();
            return;
        }
        const std::size_t end = source_.find(L'\'', at_ + 1);
        if (end == std::wstring::npos) {
            fail(L"a name has no closing quote");
        }
        token.text = source_.substr(at_ + 1, end - at_ - 1);
        at_ = end + 1;
    }

    void readText(Token& token) {
        token.kind = Token::Kind::Text;
        ++at_;
        while (peek() != L'"') {
            if (at_ >= source_.size()) {
                throw ScriptError(L"Syntax error: a text has no closing quote", token.position);
            }
            if (peek() == L'\n') {
                newLine();
            }
            if (peek() == L'\\') {
                readEscape(token.text);
            } else if (peek() == L'\r' && peek(1) == L'\n') {
                ++at_;
            } else {
                token.text.push_back(source_[at_++]);
            }
        }
        ++at_;
    }

    // A backslash before a letter that makes no escape stays a backslash.
    void readEscape(std::wstring& text) {
        static const std::wstring from = L"\"\\nrt*?%";
        static const std::wstring to = L"\"\\\n\r\t*?%";
        const std::size_t which =
            at_ + 1 < source_.size() ? from.find(peek(1)) : std::wstring::npos;
        if (which != std::wstring::npos) {
            text.push_back(to[which]);
            at_ += 2;
        } else if (peek(1) == L'x' && IsHex(peek(2))) {
            at_ += 2;
            unsigned code = 0;
            for (; IsHex(peek()); ++at_) {
                const wchar_t digit = peek();
                const int value = IsDigit(digit) ? digit - L'0' : (digit | 0x20) - L'a' + 10;
                code = (code * 16 + static_cast<unsigned>(value)) & 0xFFFFU;
            }
            text.push_back(static_cast<wchar_t>(code));
        } else {
            text.push_back(L'\\');
            ++at_;
        }
    }

    void readVerbatim(Token& token) {
        token.kind = Token::Kind::Text;
        const std::size_t end = source_.find(L'"', at_ + 2);
        if (end == std::wstring::npos) {
            fail(L"a text has no closing quote");
        }
        token.text = source_.substr(at_ + 2, end - at_ - 2);
        for (; at_ < end; ++at_) {
            if (peek() == L'\n') {
                newLine();
            }
        }
        at_ = end + 1;
    }

    void readNumber(Token& token) {
        const std::size_t start = at_;
        if (peek() == L'0' && (peek(1) | 0x20) == L'x') {
            at_ += 2;
            while (IsHex(peek())) {
                ++at_;
            }
            token.kind = Token::Kind::Integer;
            token.integer = static_cast<int>(
                std::wcstoul(source_.substr(start + 2, at_ - start - 2).c_str(), nullptr, 16));
            return;
        }
        token.kind = Token::Kind::Integer;
        readDigits();
        if (peek() == L'.' && IsDigit(peek(1))) {
            token.kind = Token::Kind::Float;
            ++at_;
            readDigits();
        } else if (peek() == L'.' && !ContinuesIdentifier(peek(1))) {
            token.kind = Token::Kind::Float; // "1." as well
            ++at_;
        }
        const std::size_t sign = peek(1) == L'-' || peek(1) == L'+' ? 2 : 1;
        if ((peek() | 0x20) == L'e' && IsDigit(peek(sign))) {
            token.kind = Token::Kind::Float;
            at_ += sign;
            readDigits();
        }
        const std::wstring digits = source_.substr(start, at_ - start);
        token.real = std::wcstof(digits.c_str(), nullptr);
        token.integer = static_cast<int>(std::wcstol(digits.c_str(), nullptr, 10));
        if ((peek() | 0x20) == L'f' && !ContinuesIdentifier(peek(1))) {
            token.kind = Token::Kind::Time;
            ++at_;
        } else if (ContinuesIdentifier(peek())) {
            fail(L"unknown form of a number");
        }
    }

    void readDigits() {
        while (IsDigit(peek())) {
            ++at_;
        }
    }

    void readSymbol(Token& token) {
        static const wchar_t* const kSymbols[] = {
            L"==", L"!=", L"<=", L">=", L"+=", L"-=", L"*=", L"/=", L"::", L"..", L"#(",
            L"#{", L"(",  L")",  L"[",  L"]",  L"{",  L"}",  L",",  L";",  L".",  L":",
            L"=",  L"<",  L">",  L"+",  L"-",  L"*",  L"/",  L"^",  L"&",  L"$",  L"?"};
        token.kind = Token::Kind::Symbol;
        for (const wchar_t* const symbol : kSymbols) {
            const std::wstring text(symbol);
            if (source_.compare(at_, text.size(), text) == 0) {
                token.text = text;
                at_ += text.size();
                return;
            }
        }
        fail(L"unknown character: " + std::wstring(1, peek()));
    }

    const std::wstring& source_;
    std::shared_ptr<const std::wstring> name_;
    std::size_t at_ = 0;
    std::size_t lineStart_ = 0;
    int line_ = 1;
};

} // namespace

std::vector<Token> Tokenize(const std::wstring& source,
                            const std::shared_ptr<const std::wstring>& name) {
    return Lexer(source, name).all();
}

} // namespace maxscript
} // namespace standin
