// The part of the parser that reads blocks, branches and loops.
#include "standin/host/maxscript/parser.h"
#include "standin/host/maxscript/statements.h"

namespace standin {
namespace maxscript {

ExpressionPtr Parser::keyword() {
    if (peek().kind != Token::Kind::Identifier) {
        return nullptr;
    }
    struct Word {
        const wchar_t* word;
        ExpressionPtr (Parser::*read)();
    };
    static const Word kWords[] = {
        {L"if", &Parser::branch},          {L"while", &Parser::whileLoop},
        {L"do", &Parser::doLoop},          {L"for", &Parser::forLoop},
        {L"case", &Parser::choice},        {L"try", &Parser::attempt},
        {L"return", &Parser::leave},       {L"exit", &Parser::leave},
        {L"continue", &Parser::leave},     {L"with", &Parser::context},
        {L"undo", &Parser::context},       {L"local", &Parser::locals},
        {L"global", &Parser::globalNames}, {L"fn", &Parser::function},
        {L"function", &Parser::function},  {L"struct", &Parser::structure}};
    for (const Word& each : kWords) {
        if (peek().folded == each.word) {
            return (this->*each.read)();
        }
    }
    return nullptr;
}

ExpressionPtr Parser::block() {
    const auto made = make<Block>();
    needSymbol(L"(");
    scopes_.enterBlock();
    while (takeSymbol(L";")) {
    }
    while (!takeSymbol(L")")) {
        made->statements.push_back(expression());
        if (!endsExpression() && !isSymbol(L")")) {
            fail(L"expected a line end, ; or )");
        }
        while (takeSymbol(L";")) {
        }
    }
    scopes_.leaveBlock();
    return made;
}

ExpressionPtr Parser::branch() {
    const auto made = make<If>();
    take();
    made->condition = expression();
    if (takeWord(L"do")) {
        made->then = expression();
        return made;
    }
    needWord(L"then");
    made->then = expression();
    if (takeWord(L"else")) {
        made->otherwise = expression();
    }
    return made;
}

ExpressionPtr Parser::whileLoop() {
    const auto made = make<While>();
    take();
    made->condition = expression();
    needWord(L"do");
    made->body = expression();
    return made;
}

ExpressionPtr Parser::doLoop() {
    const auto made = make<While>();
    take();
    made->bodyFirst = true;
    made->body = expression();
    needWord(L"while");
    made->condition = expression();
    return made;
}

ExpressionPtr Parser::forLoop() {
    const auto made = make<For>();
    take();
    const std::wstring name = needName(L"the loop's variable");
    if (isSymbol(L",")) {
        fail(L"loops with more than one variable are not known here");
    }
    if (!takeSymbol(L"=")) {
        needWord(L"in");
    }
    made->first = expression();
    if (takeWord(L"to")) {
        made->last = expression();
        if (takeWord(L"by")) {
            made->step = expression();
        }
    }
    scopes_.enterBlock();
    made->slot = scopes_.addLocal(name);
    if (takeWord(L"while")) {
        made->goesOn = expression();
    }
    if (takeWord(L"where")) {
        made->condition = expression();
    }
    made->collects = isWord(L"collect");
    if (!made->collects && !isWord(L"do")) {
        fail(L"expected do or collect");
    }
    take();
    made->body = expression();
    scopes_.leaveBlock();
    return made;
}

ExpressionPtr Parser::choice() {
    const auto made = make<Case>();
    take();
    if (!isWord(L"of")) {
        made->subject = expression();
    }
    needWord(L"of");
    needSymbol(L"(");
    scopes_.enterBlock();
    while (!takeSymbol(L")")) {
        ExpressionPtr label;
        if (!takeWord(L"default")) {
            label = operand();
        }
        needSymbol(L":");
        made->branches.emplace_back(label, expression());
        while (takeSymbol(L";")) {
        }
    }
    scopes_.leaveBlock();
    return made;
}

ExpressionPtr Parser::attempt() {
    const auto made = make<Try>();
    take();
    made->body = expression();
    needWord(L"catch");
    made->handler = expression();
    return made;
}

ExpressionPtr Parser::leave() {
    const auto made = make<Leave>();
    const std::wstring word = take().folded;
    if (word == L"continue") {
        made->kind = Leave::Kind::Continue;
        return made;
    }
    if (word == L"exit") {
        made->kind = Leave::Kind::Exit;
        if (takeWord(L"with")) {
            made->result = expression();
        }
        return made;
    }
    if (!endsExpression() && !isSymbol(L")")) {
        made->result = expression();
    }
    return made;
}

// `with redraw off (...)` and its like. Nothing here is drawn or undone, so only the body counts.
ExpressionPtr Parser::context() {
    const bool isWith = takeWord(L"with");
    const std::wstring what = Fold(needName(L"a context"));
    if (what != L"undo" && (!isWith || (what != L"redraw" && what != L"quiet"))) {
        fail(L"this context is not known here: " + what);
    }
    if (peek().kind == Token::Kind::Text) {
        take(); // the entry of the undo menu
    }
    if (!takeWord(L"on") && !takeWord(L"off") && !takeWord(L"true") && !takeWord(L"false")) {
        fail(L"expected on or off");
    }
    return expression();
}

ExpressionPtr Parser::locals() {
    const auto made = make<LocalDeclaration>();
    take();
    do {
        const std::wstring name = needName(L"a variable");
        LocalDeclaration::Variable variable;
        // The value is read first: a name in it cannot mean the variable that is being made.
        if (!peek().startsLine && takeSymbol(L"=")) {
            variable.value = expression();
        }
        variable.slot = scopes_.addLocal(name);
        made->variables.push_back(variable);
    } while (takeSymbol(L","));
    return made;
}

ExpressionPtr Parser::globalNames() {
    const auto made = make<Block>();
    take();
    do {
        const Token name = peek();
        scopes_.addGlobal(needName(L"a global variable"));
        if (!peek().startsLine && isSymbol(L"=")) {
            --at_;
            made->statements.push_back(expression());
        } else {
            made->statements.push_back(scopes_.global(name.text));
        }
    } while (takeSymbol(L","));
    return made;
}

} // namespace maxscript
} // namespace standin
