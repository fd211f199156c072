#include "standin/host/maxscript/statements.h"

#include "standin/host/maxscript/interpreter.h"

namespace standin {
namespace maxscript {

Value Block::evaluate(Frame& frame) const {
    Value last = Value::special(Value::Kind::Ok);
    for (const ExpressionPtr& statement : statements) {
        last = statement->value(frame);
    }
    return last;
}

Value LocalDeclaration::evaluate(Frame& frame) const {
    Value last;
    for (const Variable& variable : variables) {
        last = variable.value ? variable.value->value(frame) : Value();
        frame.slots[variable.slot] = last;
    }
    return last;
}

Value If::evaluate(Frame& frame) const {
    if (ToCondition(condition->value(frame), L"if")) {
        return then->value(frame);
    }
    return otherwise ? otherwise->value(frame) : Value();
}

Value While::evaluate(Frame& frame) const {
    Value last = Value::special(Value::Kind::Ok);
    try {
        bool first = bodyFirst;
        while (first || ToCondition(condition->value(frame), L"while")) {
            first = false;
            try {
                last = body->value(frame);
            } catch (const ContinueSignal&) {
                continue; // the condition decides
            }
        }
    } catch (const ExitSignal& exit) {
        return exit.hasValue ? exit.value : Value();
    }
    return last;
}

// One passage; false when `while` says that it was the last.
bool For::pass(Frame& frame, const Value& item, Values& collected) const {
    frame.slots[slot] = item;
    if (goesOn && !ToCondition(goesOn->value(frame), L"while")) {
        return false;
    }
    if (condition && !ToCondition(condition->value(frame), L"where")) {
        return true;
    }
    try {
        const Value value = body->value(frame);
        if (collects && !value.is(Value::Kind::DontCollect)) {
            collected.push_back(value);
        }
    } catch (const ContinueSignal&) {
        return true;
    }
    return true;
}

Value For::evaluate(Frame& frame) const {
    Values collected;
    const Value from = first->value(frame);
    try {
        if (!last) {
            Values items;
            if (from.is(Value::Kind::Object)) {
                items = from.object()->items();
            } else {
                throw ScriptError(L"No for loop over " + ToText(from));
            }
            for (const Value& item : items) {
                if (!pass(frame, item, collected)) {
                    break;
                }
            }
        } else {
            const Value to = last->value(frame);
            const Value by = step ? step->value(frame) : Value(1);
            if (!from.isNumber() || !to.isNumber() || !by.isNumber()) {
                throw ScriptError(L"for requires numbers, got: " + ToText(from) + L", " +
                                  ToText(to) + L", " + ToText(by));
            }
            if (AreEqual(by, Value(0))) {
                throw ScriptError(L"for: by 0 never ends");
            }
            const bool up = by.real() > 0;
            for (Value at = from; up ? at.real() <= to.real() : at.real() >= to.real();
                 at = Calculate(L"+", at, by)) {
                if (!pass(frame, at, collected)) {
                    break;
                }
            }
        }
    } catch (const ExitSignal& exit) {
        if (exit.hasValue) {
            return exit.value;
        }
    }
    return collects ? Value(std::make_shared<Array>(std::move(collected)))
                    : Value::special(Value::Kind::Ok);
}

Value Case::evaluate(Frame& frame) const {
    const Value chosen = subject ? subject->value(frame) : Value();
    const Expression* otherwise = nullptr;
    for (const auto& branch : branches) {
        if (!branch.first) {
            otherwise = branch.second.get();
            continue;
        }
        const Value label = branch.first->value(frame);
        if (subject ? AreEqual(chosen, label) : ToCondition(label, L"case")) {
            return branch.second->value(frame);
        }
    }
    return otherwise != nullptr ? otherwise->value(frame) : Value();
}

Value Try::evaluate(Frame& frame) const {
    try {
        return body->value(frame);
    } catch (const ScriptError& error) {
        const std::wstring outer = frame.interpreter.exception;
        frame.interpreter.exception = error.message();
        Value value = handler->value(frame);
        frame.interpreter.exception = outer;
        return value;
    }
}

Value Leave::evaluate(Frame& frame) const {
    const Value value = result ? result->value(frame) : Value();
    switch (kind) {
    case Kind::Return:
        throw ReturnSignal{value};
    case Kind::Exit:
        throw ExitSignal{result != nullptr, value};
    case Kind::Continue:
        break;
    }
    throw ContinueSignal();
}

} // namespace maxscript
} // namespace standin
