// Blocks, branches, loops and what leaves them early.
#pragma once

#include "standin/host/maxscript/expression.h"

namespace standin {
namespace maxscript {

class Block : public Expression { // ( ... ), also the body of a source
public:
    std::vector<ExpressionPtr> statements;

protected:
    Value evaluate(Frame& frame) const override;
};

// `local a = 1, b`: each of them, given its value anew each time that it is passed.
class LocalDeclaration : public Expression {
public:
    struct Variable {
        std::size_t slot = 0;
        ExpressionPtr value; // null: undefined
    };
    std::vector<Variable> variables;

protected:
    Value evaluate(Frame& frame) const override;
};

class If : public Expression {
public:
    ExpressionPtr condition;
    ExpressionPtr then;
    ExpressionPtr otherwise; // may be null

protected:
    Value evaluate(Frame& frame) const override;
};

class While : public Expression {
public:
    ExpressionPtr condition;
    ExpressionPtr body;
    bool bodyFirst = false; // do ... while

protected:
    Value evaluate(Frame& frame) const override;
};

// for i = a to b by c | for x in list | for x = list, with while, where, and do or collect.
class For : public Expression {
public:
    std::size_t slot = 0;
    ExpressionPtr first; // the list when `last` is null
    ExpressionPtr last;
    ExpressionPtr step;      // may be null
    ExpressionPtr goesOn;    // `while`, may be null
    ExpressionPtr condition; // `where`, may be null
    ExpressionPtr body;
    bool collects = false;

protected:
    Value evaluate(Frame& frame) const override;

private:
    bool pass(Frame& frame, const Value& item, Values& collected) const;
};

class Case : public Expression {
public:
    ExpressionPtr subject; // null: the labels are conditions
    std::vector<std::pair<ExpressionPtr, ExpressionPtr>> branches; // no label: `default`

protected:
    Value evaluate(Frame& frame) const override;
};

class Try : public Expression {
public:
    ExpressionPtr body;
    ExpressionPtr handler;

protected:
    Value evaluate(Frame& frame) const override;
};

class Leave : public Expression { // return, exit, continue
public:
    enum class Kind { Return, Exit, Continue };
    Kind kind = Kind::Return;
    ExpressionPtr result; // may be null

protected:
    Value evaluate(Frame& frame) const override;
};

} // namespace maxscript
} // namespace standin
