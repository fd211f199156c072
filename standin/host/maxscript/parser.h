// Makes expressions of tokens, by the language's own precedence:
//     . and []   before calls, before `as`, before ^, before * and /, before + and -,
//     before comparisons, before not, before and, before or.
// A line end ends an expression that is complete.
#pragma once

#include "standin/host/maxscript/expression.h"
#include "standin/host/maxscript/lexer.h"
#include "standin/host/maxscript/scopes.h"

namespace standin {
namespace maxscript {

class Parser {
public:
    Parser(std::vector<Token> tokens, Globals& globals)
        : tokens_(std::move(tokens)), scopes_(globals) {}

    // The next top-level expression, or null at the end. The host runs each before it reads the
    // next, so a global that one makes is known in the next. Throws ScriptError.
    ExpressionPtr next();

    // How many variables the expression that next() gave needs.
    std::size_t slots() const { return scopes_.slots(); }

private:
    // parser.cpp: values
    ExpressionPtr expression();
    ExpressionPtr assignmentOrValue();
    ExpressionPtr disjunction();
    ExpressionPtr conjunction();
    ExpressionPtr negation();
    ExpressionPtr comparison();
    ExpressionPtr sum();
    ExpressionPtr product();
    ExpressionPtr power();
    ExpressionPtr conversion();
    ExpressionPtr call();
    ExpressionPtr operand();
    ExpressionPtr afterCall(ExpressionPtr value);
    ExpressionPtr factor();
    ExpressionPtr identifier();
    ExpressionPtr arrayLiteral();
    ExpressionPtr variable(const Token& name);
    ExpressionPtr reference();
    ExpressionPtr operation(ExpressionPtr left, ExpressionPtr (Parser::*readNext)());

    // statement_parser.cpp
    ExpressionPtr keyword(); // null when the token starts none
    ExpressionPtr block();
    ExpressionPtr branch();
    ExpressionPtr whileLoop();
    ExpressionPtr doLoop();
    ExpressionPtr forLoop();
    ExpressionPtr choice();
    ExpressionPtr attempt();
    ExpressionPtr leave();
    ExpressionPtr context();
    ExpressionPtr locals();
    ExpressionPtr globalNames();

    // definition_parser.cpp
    ExpressionPtr function();
    std::shared_ptr<FunctionDefinition> functionDefinition();
    ExpressionPtr structure();
    void structureMember(StructDefinition& definition);

    const Token& peek(std::size_t ahead = 0) const;
    Token take();
    bool isSymbol(const wchar_t* symbol, std::size_t ahead = 0) const;
    bool isWord(const wchar_t* word) const;
    bool takeSymbol(const wchar_t* symbol);
    bool takeWord(const wchar_t* word);
    void needSymbol(const wchar_t* symbol);
    void needWord(const wchar_t* word);
    std::wstring needName(const wchar_t* what);
    bool startsArgument() const;
    bool endsExpression() const;
    [[noreturn]] void fail(const std::wstring& message) const;

    template<class Type>
    std::shared_ptr<Type> make() const {
        auto made = std::make_shared<Type>();
        made->position = peek().position;
        return made;
    }

    // Source text must not be able to end the host by nesting.
    class Nesting {
    public:
        explicit Nesting(Parser& parser);
        ~Nesting() { --parser_.nesting_; }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;

    private:
        Parser& parser_;
    };

    std::vector<Token> tokens_;
    Scopes scopes_;
    std::size_t at_ = 0;
    int nesting_ = 0;
};

} // namespace maxscript
} // namespace standin
