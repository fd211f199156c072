#include "standin/host/maxscript/parser.h"

#include "standin/host/maxscript/simple_expressions.h"
#include "standin/host/maxscript/time.h"

#include <set>

namespace standin {
namespace maxscript {
namespace {

constexpr int kDeepestNesting = 150;

const std::set<std::wstring>& ReservedWords() {
    static const std::set<std::wstring> words = {
        L"about",       L"and",        L"animate",  L"as",       L"at",     L"by",      L"case",
        L"catch",       L"collect",    L"continue", L"coordsys", L"do",     L"else",    L"exit",
        L"fn",          L"for",        L"function", L"global",   L"if",     L"in",      L"local",
        L"macroscript", L"mapped",     L"max",      L"not",      L"of",     L"on",      L"or",
        L"parameters",  L"persistent", L"plugin",   L"rcmenu",   L"return", L"rollout", L"struct",
        L"then",        L"to",         L"tool",     L"try",      L"undo",   L"utility", L"when",
        L"where",       L"while",      L"with"};
    return words;
}

} // namespace

Parser::Nesting::Nesting(Parser& parser) : parser_(parser) {
    if (++parser_.nesting_ > kDeepestNesting) {
        --parser_.nesting_;
        parser_.fail(L"too deeply nested");
    }
}

const Token& Parser::peek(std::size_t ahead) const {
    return tokens_[at_ + ahead < tokens_.size() ? at_ + ahead : tokens_.size() - 1];
}

Token Parser::take() {
    const Token& token = peek();
    if (at_ + 1 < tokens_.size()) {
        ++at_;
    }
    return token;
}

void Parser::fail(const std::wstring& message) const {
    const Token& token = peek();
    const std::wstring at =
        token.kind == Token::Kind::End ? L"the end" : L"\"" + token.text + L"\"";
    throw ScriptError(L"Syntax error: at " + at + L": " + message, token.position);
}

bool Parser::isSymbol(const wchar_t* symbol, std::size_t ahead) const {
    const Token& token = peek(ahead);
    return token.kind == Token::Kind::Symbol && token.text == symbol;
}

bool Parser::isWord(const wchar_t* word) const {
    return peek().kind == Token::Kind::Identifier && peek().folded == word;
}

bool Parser::takeSymbol(const wchar_t* symbol) {
    const bool found = isSymbol(symbol);
    if (found) {
        take();
    }
    return found;
}

bool Parser::takeWord(const wchar_t* word) {
    const bool found = isWord(word);
    if (found) {
        take();
    }
    return found;
}

void Parser::needSymbol(const wchar_t* symbol) {
    if (!takeSymbol(symbol)) {
        fail(std::wstring(L"expected ") + symbol);
    }
}

void Parser::needWord(const wchar_t* word) {
    if (!takeWord(word)) {
        fail(std::wstring(L"expected ") + word);
    }
}

std::wstring Parser::needName(const wchar_t* what) {
    if (peek().kind != Token::Kind::Identifier) {
        fail(std::wstring(L"expected the name of ") + what);
    }
    return take().text;
}

ExpressionPtr Parser::next() {
    while (takeSymbol(L";")) {
    }
    if (peek().kind == Token::Kind::End) {
        return nullptr;
    }
    scopes_.reset();
    ExpressionPtr whole = expression();
    if (!endsExpression()) {
        fail(L"expected the end of the expression");
    }
    return whole;
}

bool Parser::endsExpression() const {
    return peek().startsLine || peek().kind == Token::Kind::End || isSymbol(L";");
}

ExpressionPtr Parser::expression() {
    const Nesting nesting(*this);
    if (ExpressionPtr special = keyword()) {
        return special;
    }
    return assignmentOrValue();
}

ExpressionPtr Parser::assignmentOrValue() {
    const auto assignment = make<Assignment>();
    ExpressionPtr left = disjunction();
    if (peek().kind != Token::Kind::Symbol || peek().startsLine) {
        return left;
    }
    const std::wstring& symbol = peek().text;
    const bool isPlain = symbol == L"=";
    if (!isPlain && symbol != L"+=" && symbol != L"-=" && symbol != L"*=" && symbol != L"/=") {
        return left;
    }
    if (!left->isAssignable()) {
        fail(L"what stands before it cannot be assigned to");
    }
    assignment->symbol = isPlain ? L"" : symbol.substr(0, 1);
    take();
    assignment->target = left;
    assignment->source = expression();
    return assignment;
}

ExpressionPtr Parser::disjunction() {
    ExpressionPtr left = conjunction();
    while (isWord(L"or")) {
        const auto both = make<Logical>();
        take();
        both->kind = Logical::Kind::Or;
        both->left = left;
        both->right = conjunction();
        left = both;
    }
    return left;
}

ExpressionPtr Parser::conjunction() {
    ExpressionPtr left = negation();
    while (isWord(L"and")) {
        const auto both = make<Logical>();
        take();
        both->left = left;
        both->right = negation();
        left = both;
    }
    return left;
}

ExpressionPtr Parser::negation() {
    if (!isWord(L"not")) {
        return comparison();
    }
    const Nesting nesting(*this);
    const auto inverse = make<Logical>();
    take();
    inverse->kind = Logical::Kind::Not;
    inverse->left = negation();
    return inverse;
}

// left, and the operator before the cursor, and what `readNext` reads.
ExpressionPtr Parser::operation(ExpressionPtr left, ExpressionPtr (Parser::*readNext)()) {
    const auto made = make<Operation>();
    made->symbol = take().text;
    made->left = std::move(left);
    made->right = (this->*readNext)();
    return made;
}

ExpressionPtr Parser::comparison() {
    ExpressionPtr left = sum();
    while (!peek().startsLine && (isSymbol(L"==") || isSymbol(L"!=") || isSymbol(L"<") ||
                                  isSymbol(L"<=") || isSymbol(L">") || isSymbol(L">="))) {
        left = operation(left, &Parser::sum);
    }
    return left;
}

ExpressionPtr Parser::sum() {
    ExpressionPtr left = product();
    while (!peek().startsLine && (isSymbol(L"+") || isSymbol(L"-"))) {
        left = operation(left, &Parser::product);
    }
    return left;
}

ExpressionPtr Parser::product() {
    ExpressionPtr left = power();
    while (!peek().startsLine && (isSymbol(L"*") || isSymbol(L"/"))) {
        left = operation(left, &Parser::power);
    }
    return left;
}

ExpressionPtr Parser::power() {
    ExpressionPtr left = conversion();
    while (!peek().startsLine && isSymbol(L"^")) {
        left = operation(left, &Parser::conversion);
    }
    return left;
}

ExpressionPtr Parser::conversion() {
    ExpressionPtr value = call();
    while (isWord(L"as") && !peek().startsLine) {
        const auto made = make<Conversion>();
        take();
        made->operand = value;
        made->className = Fold(needName(L"a class"));
        value = made;
    }
    return value;
}

// What can be an argument, and so makes a call of the operand before it.
bool Parser::startsArgument() const {
    const Token& token = peek();
    if (token.startsLine) {
        return false;
    }
    switch (token.kind) {
    case Token::Kind::Identifier:
        // A keyword argument may be called like a reserved word: to:file
        return (isSymbol(L":", 1) && !token.beforeBlank) ||
               ReservedWords().count(token.folded) == 0;
    case Token::Kind::Symbol:
        if (token.text == L"-") {
            return token.afterBlank && !token.beforeBlank; // f -1, but not a - 1
        }
        return token.text == L"(" || token.text == L"#(" || token.text == L"&" ||
               token.text == L"::" || token.text == L"#{" || token.text == L"$" ||
               (token.text == L"[" && token.afterBlank);
    case Token::Kind::End:
        return false;
    default:
        return true;
    }
}

ExpressionPtr Parser::call() {
    const auto made = make<Call>();
    ExpressionPtr function = operand();
    if (!startsArgument()) {
        return function;
    }
    made->function = function;
    while (startsArgument()) {
        if (peek().kind == Token::Kind::Identifier && isSymbol(L":", 1)) {
            const std::wstring name = take().folded;
            take();
            made->named.emplace_back(name, operand());
        } else if (isSymbol(L"&")) {
            made->values.push_back(reference());
        } else {
            made->values.push_back(operand());
        }
    }
    return made;
}

ExpressionPtr Parser::operand() {
    const Nesting nesting(*this);
    return afterCall(factor());
}

// Properties and elements of a value, and calls without arguments among them: a.b()[1].c
ExpressionPtr Parser::afterCall(ExpressionPtr value) {
    for (;;) {
        if (isSymbol(L".") && !peek().startsLine) {
            const auto made = make<Property>();
            take();
            made->target = value;
            made->name = Fold(needName(L"a property"));
            value = made;
        } else if (isSymbol(L"[") && !peek().afterBlank) {
            const auto made = make<Element>();
            take();
            made->target = value;
            made->index = expression();
            needSymbol(L"]");
            value = made;
        } else if (isSymbol(L"(") && isSymbol(L")", 1) && !peek().startsLine) {
            const auto made = make<Call>();
            take();
            take();
            made->function = value;
            value = made;
        } else {
            return value;
        }
    }
}

ExpressionPtr Parser::factor() {
    const Token& token = peek();
    switch (token.kind) {
    case Token::Kind::Integer: {
        auto made = std::make_shared<Literal>(Value(token.integer));
        made->position = take().position;
        return made;
    }
    case Token::Kind::Float: {
        auto made = std::make_shared<Literal>(Value(token.real));
        made->position = take().position;
        return made;
    }
    case Token::Kind::Time: {
        auto made = std::make_shared<Literal>(Value(std::make_shared<Time>(token.real)));
        made->position = take().position;
        return made;
    }
    case Token::Kind::Text:
        return std::make_shared<Literal>(Value(take().text));
    case Token::Kind::Name:
        return std::make_shared<Literal>(Value::name(take().text));
    case Token::Kind::Identifier:
        return identifier();
    case Token::Kind::End:
        fail(L"an expression is missing");
    case Token::Kind::Symbol:
        break;
    }
    if (token.text == L"(") {
        return block();
    }
    if (token.text == L"#(") {
        return arrayLiteral();
    }
    if (token.text == L"-") {
        const auto made = make<Negation>();
        take();
        made->operand = operand();
        return made;
    }
    if (token.text == L"::") {
        take();
        return scopes_.global(needName(L"a global variable"));
    }
    if (token.text == L"[" || token.text == L"$" || token.text == L"#{" || token.text == L"?") {
        fail(L"points, path names, bit arrays and ? are not known here");
    }
    fail(L"an expression cannot start with it");
}

ExpressionPtr Parser::identifier() {
    const Token& token = peek();
    if (ReservedWords().count(token.folded) != 0) {
        fail(L"an expression cannot start with this word here");
    }
    if (token.folded == L"this" && scopes_.inStruct()) {
        auto made = make<Itself>();
        take();
        return made;
    }
    return variable(take());
}

ExpressionPtr Parser::variable(const Token& name) {
    try {
        return scopes_.resolve(name.text);
    } catch (ScriptError& error) {
        error.setPosition(name.position);
        throw;
    }
}

ExpressionPtr Parser::reference() {
    const auto made = make<ByReference>();
    take();
    made->variable = operand();
    if (!made->variable->isAssignable()) {
        fail(L"& needs a variable");
    }
    return made;
}

ExpressionPtr Parser::arrayLiteral() {
    const auto made = make<ArrayLiteral>();
    take();
    while (!takeSymbol(L")")) {
        made->items.push_back(expression());
        if (!isSymbol(L")")) {
            needSymbol(L",");
        }
    }
    return made;
}

} // namespace maxscript
} // namespace standin
