// Literals, variables, operators, properties, elements and calls.
#pragma once

#include "standin/host/maxscript/expression.h"
#include "standin/host/maxscript/globals.h"

namespace standin {
namespace maxscript {

class Literal : public Expression {
public:
    explicit Literal(Value value) : value_(std::move(value)) {}

protected:
    Value evaluate(Frame&) const override { return value_; }

private:
    Value value_;
};

class ArrayLiteral : public Expression {
public:
    std::vector<ExpressionPtr> items;

protected:
    Value evaluate(Frame& frame) const override;
};

// A variable of the running function. A parameter that was declared with & stands for its caller's.
class LocalVariable : public Expression {
public:
    explicit LocalVariable(std::size_t slot) : slot_(slot) {}
    void assign(Frame& frame, const Value& value) const override;
    bool isAssignable() const override { return true; }

protected:
    Value evaluate(Frame& frame) const override;

private:
    std::size_t slot_;
};

class GlobalVariable : public Expression {
public:
    explicit GlobalVariable(std::shared_ptr<GlobalCell> cell) : cell_(std::move(cell)) {}
    void assign(Frame& frame, const Value& value) const override;
    bool isAssignable() const override { return true; }

protected:
    Value evaluate(Frame& frame) const override;

private:
    std::shared_ptr<GlobalCell> cell_;
};

// A member of the structure whose function runs.
class OwnMember : public Expression {
public:
    explicit OwnMember(std::wstring name) : name_(std::move(name)) {}
    void assign(Frame& frame, const Value& value) const override;
    bool isAssignable() const override { return true; }

protected:
    Value evaluate(Frame& frame) const override;

private:
    std::wstring name_; // lower case
};

class Itself : public Expression { // `this`
protected:
    Value evaluate(Frame& frame) const override;
};

class Property : public Expression {
public:
    ExpressionPtr target;
    std::wstring name; // lower case
    void assign(Frame& frame, const Value& value) const override;
    bool isAssignable() const override { return true; }

protected:
    Value evaluate(Frame& frame) const override;
};

class Element : public Expression {
public:
    ExpressionPtr target;
    ExpressionPtr index;
    void assign(Frame& frame, const Value& value) const override;
    bool isAssignable() const override { return true; }

protected:
    Value evaluate(Frame& frame) const override;
};

class Call : public Expression {
public:
    ExpressionPtr function;
    std::vector<ExpressionPtr> values;
    std::vector<std::pair<std::wstring, ExpressionPtr>> named; // names in lower case

protected:
    Value evaluate(Frame& frame) const override;
};

class ByReference : public Expression { // &variable
public:
    ExpressionPtr variable;

protected:
    Value evaluate(Frame& frame) const override;
};

class Operation : public Expression {
public:
    std::wstring symbol; // + - * / ^ == != < <= > >=
    ExpressionPtr left;
    ExpressionPtr right;

protected:
    Value evaluate(Frame& frame) const override;
};

class Negation : public Expression { // -x
public:
    ExpressionPtr operand;

protected:
    Value evaluate(Frame& frame) const override;
};

class Logical : public Expression {
public:
    enum class Kind { And, Or, Not };
    Kind kind = Kind::And;
    ExpressionPtr left; // the operand of Not
    ExpressionPtr right;

protected:
    Value evaluate(Frame& frame) const override;
};

class Conversion : public Expression { // x as string
public:
    ExpressionPtr operand;
    std::wstring className; // lower case

protected:
    Value evaluate(Frame& frame) const override;
};

class Assignment : public Expression {
public:
    std::wstring symbol; // empty for =, else the operator of += and its like
    ExpressionPtr target;
    ExpressionPtr source;

protected:
    Value evaluate(Frame& frame) const override;
};

} // namespace maxscript
} // namespace standin
