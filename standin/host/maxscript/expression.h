// A parsed expression of MAXScript. Everything in the language is one and has a value.
#pragma once

#include "standin/host/maxscript/operations.h"

#include <memory>
#include <vector>

namespace standin {
namespace maxscript {

class Interpreter;
class StructInstance;

// The variables of a running function, or of a top-level expression.
struct Frame : std::enable_shared_from_this<Frame> {
    Frame(Interpreter& runs, std::size_t count, std::shared_ptr<StructInstance> owner)
        : interpreter(runs), slots(count), self(std::move(owner)) {}

    Interpreter& interpreter;
    Values slots;
    std::shared_ptr<StructInstance> self; // of a structure's function
};

class Expression {
public:
    virtual ~Expression() = default;

    // The value. An error without a place gets this expression's; nesting is bounded, because a
    // script must not be able to end the host by recursion.
    Value value(Frame& frame) const;

    // Gives a variable, property or element a value. Throws for any other expression.
    virtual void assign(Frame& frame, const Value& value) const;
    virtual bool isAssignable() const { return false; }

    Position position;

protected:
    virtual Value evaluate(Frame& frame) const = 0;
};

using ExpressionPtr = std::shared_ptr<const Expression>;

// What leaves an expression early. None of them is an error, so `try` does not see them.
struct ReturnSignal {
    Value value;
};
struct ExitSignal {
    bool hasValue = false;
    Value value;
};
struct ContinueSignal {};

} // namespace maxscript
} // namespace standin
