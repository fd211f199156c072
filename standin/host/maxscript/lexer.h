// Takes a MAXScript source apart into tokens.
#pragma once

#include "standin/host/maxscript/error.h"

#include <string>
#include <vector>

namespace standin {
namespace maxscript {

struct Token {
    enum class Kind {
        Identifier, // keywords too; the parser knows them
        Integer,
        Float,
        Time, // 10f: a number of frames
        Text,
        Name,   // #abc
        Symbol, // an operator or a bracket; "#(" is one symbol, and so are "==" and "+="
        End
    };

    Kind kind = Kind::End;
    std::wstring text;   // of an identifier as written, of a text or name its content
    std::wstring folded; // of an identifier, in lower case
    int integer = 0;
    float real = 0.0F;
    bool startsLine = false; // the first token of its line
    bool afterBlank = false; // a blank or a line end stands before it
    bool beforeBlank = false;
    Position position;
};

// All tokens, ended by one of Kind::End. Throws a ScriptError with the place of anything that is
// not a token.
std::vector<Token> Tokenize(const std::wstring& source,
                            const std::shared_ptr<const std::wstring>& name);

} // namespace maxscript
} // namespace standin
