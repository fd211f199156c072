// The part of the parser that reads functions and structures.
#include "standin/host/maxscript/parser.h"
#include "standin/host/maxscript/structures.h"

namespace standin {
namespace maxscript {

ExpressionPtr Parser::function() {
    const auto made = make<FunctionExpression>();
    // The name is known in the body, so that a function can call itself.
    made->variable = scopes_.definitionTarget(peek(1).text);
    made->definition = functionDefinition();
    return made;
}

std::shared_ptr<FunctionDefinition> Parser::functionDefinition() {
    auto made = std::make_shared<FunctionDefinition>();
    take();
    made->name = needName(L"a function");
    scopes_.enterFunction();
    while (!isSymbol(L"=")) {
        FunctionDefinition::Parameter parameter;
        parameter.byReference = takeSymbol(L"&");
        const std::wstring name = needName(L"a parameter");
        parameter.name = Fold(name);
        if (takeSymbol(L":")) {
            parameter.isKeyword = true;
            if (!isSymbol(L"=") && !(peek().kind == Token::Kind::Identifier && isSymbol(L":", 1))) {
                parameter.preset = operand();
            }
        }
        scopes_.addLocal(name);
        made->parameters.push_back(parameter);
    }
    needSymbol(L"=");
    made->body = expression();
    made->slots = scopes_.slots();
    scopes_.leaveFunction();
    return made;
}

ExpressionPtr Parser::structure() {
    const auto made = make<StructExpression>();
    take();
    const auto definition = std::make_shared<StructDefinition>();
    definition->name = needName(L"a structure");
    made->definition = definition;
    made->variable = scopes_.definitionTarget(definition->name);
    needSymbol(L"(");
    scopes_.enterStruct();
    while (!takeSymbol(L")")) {
        structureMember(*definition);
        if (!isSymbol(L")")) {
            needSymbol(L",");
        }
    }
    scopes_.leaveStruct();
    return made;
}

// A data member with or without a preset, a function, or `on create do`. `public` and `private` are
// read over.
void Parser::structureMember(StructDefinition& definition) {
    while (isWord(L"public") || isWord(L"private")) {
        take();
    }
    if (isSymbol(L")")) {
        return;
    }
    StructMember member;
    scopes_.enterFunction();
    if (takeWord(L"on")) {
        needWord(L"create");
        needWord(L"do");
        definition.onCreate = expression();
        definition.onCreateSlots = scopes_.slots();
        scopes_.leaveFunction();
        return;
    }
    if (isWord(L"fn") || isWord(L"function")) {
        const auto made = make<FunctionExpression>();
        member.name = peek(1).text;
        member.isFunction = true;
        scopes_.addMember(member.name);
        made->definition = functionDefinition();
        member.preset = made;
    } else {
        member.name = needName(L"a member");
        if (takeSymbol(L"=")) {
            member.preset = expression();
        }
        scopes_.addMember(member.name);
    }
    member.slots = scopes_.slots();
    scopes_.leaveFunction();
    definition.members.push_back(member);
}

} // namespace maxscript
} // namespace standin
