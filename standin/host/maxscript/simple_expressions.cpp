#include "standin/host/maxscript/simple_expressions.h"

#include "standin/host/maxscript/interpreter.h"
#include "standin/host/maxscript/structures.h"

namespace standin {
namespace maxscript {

Value Expression::value(Frame& frame) const {
    const Interpreter::Depth depth(frame.interpreter);
    try {
        return evaluate(frame);
    } catch (ScriptError& error) {
        if (error.position().line == 0) {
            error.setPosition(position);
        }
        throw;
    }
}

void Expression::assign(Frame&, const Value&) const {
    throw ScriptError(L"Syntax error: this cannot be assigned to");
}

Value ArrayLiteral::evaluate(Frame& frame) const {
    const auto array = std::make_shared<Array>();
    for (const ExpressionPtr& item : items) {
        array->values.push_back(item->value(frame));
    }
    return Value(array);
}

Value LocalVariable::evaluate(Frame& frame) const {
    const Value& value = frame.slots[slot_];
    return value.is(Value::Kind::Reference) ? value.as<Reference>()->read() : value;
}

void LocalVariable::assign(Frame& frame, const Value& value) const {
    Value& slot = frame.slots[slot_];
    if (slot.is(Value::Kind::Reference)) {
        slot.as<Reference>()->write(value);
    } else {
        slot = value;
    }
}

Value GlobalVariable::evaluate(Frame&) const {
    return cell_->read ? cell_->read() : cell_->value;
}

void GlobalVariable::assign(Frame&, const Value& value) const {
    if (cell_->write) {
        cell_->write(value);
    } else if (cell_->isSystem) {
        throw ScriptError(L"Cannot assign to read-only system global: " + cell_->name);
    } else {
        cell_->value = value;
    }
}

Value OwnMember::evaluate(Frame& frame) const {
    if (!frame.self) {
        throw ScriptError(L"A structure's member outside of its instance: " + name_);
    }
    Value value;
    frame.self->property(name_, value);
    return value;
}

void OwnMember::assign(Frame& frame, const Value& value) const {
    if (!frame.self) {
        throw ScriptError(L"A structure's member outside of its instance: " + name_);
    }
    frame.self->setProperty(name_, value);
}

Value Itself::evaluate(Frame& frame) const {
    return frame.self ? Value(frame.self) : Value();
}

bool FindProperty(const Value& target, const std::wstring& name, Value& value) {
    if (target.is(Value::Kind::Object)) {
        return target.object()->property(name, value);
    }
    if (target.is(Value::Kind::Text) && name == L"count") {
        value = Value(static_cast<int>(target.text().size()));
        return true;
    }
    return false;
}

Value PropertyOf(const Value& target, const std::wstring& name) {
    Value value;
    if (!FindProperty(target, name, value)) {
        throw ScriptError(L"Unknown property: \"" + name + L"\" in " + ToText(target));
    }
    return value;
}

Value Property::evaluate(Frame& frame) const {
    return PropertyOf(target->value(frame), name);
}

void Property::assign(Frame& frame, const Value& value) const {
    const Value owner = target->value(frame);
    if (!owner.is(Value::Kind::Object) || !owner.object()->setProperty(name, value)) {
        throw ScriptError(L"Unable to set property: \"" + name + L"\" in " + ToText(owner));
    }
}

Value Element::evaluate(Frame& frame) const {
    const Value owner = target->value(frame);
    const Value place = index->value(frame);
    if (owner.is(Value::Kind::Text)) {
        const int at = place.is(Value::Kind::Integer) ? place.integer() : 0;
        if (at < 1 || static_cast<std::size_t>(at) > owner.text().size()) {
            throw ScriptError(L"String index out of range: " + ToText(place));
        }
        return Value(owner.text().substr(static_cast<std::size_t>(at) - 1, 1));
    }
    if (!owner.is(Value::Kind::Object)) {
        throw ScriptError(L"No \"[]\" function for " + ToText(owner));
    }
    return owner.object()->item(place);
}

void Element::assign(Frame& frame, const Value& value) const {
    const Value owner = target->value(frame);
    const Value place = index->value(frame);
    if (!owner.is(Value::Kind::Object)) {
        throw ScriptError(L"No \"[]=\" function for " + ToText(owner));
    }
    owner.object()->setItem(place, value);
}

Value Call::evaluate(Frame& frame) const {
    const Value callee = function->value(frame);
    if (!callee.is(Value::Kind::Object)) {
        throw ScriptError(L"Type error: Call needs function or class, got: " + ToText(callee));
    }
    Arguments arguments;
    arguments.values.reserve(values.size());
    for (const ExpressionPtr& each : values) {
        arguments.values.push_back(each->value(frame));
    }
    for (const auto& each : named) {
        arguments.named.emplace_back(each.first, each.second->value(frame));
    }
    return callee.object()->call(frame.interpreter, arguments);
}

Value ByReference::evaluate(Frame& frame) const {
    const auto owner = frame.shared_from_this();
    const ExpressionPtr target = variable;
    return Value(std::make_shared<Reference>(
        [owner, target] { return target->value(*owner); },
        [owner, target](const Value& value) { target->assign(*owner, value); }));
}

Value Operation::evaluate(Frame& frame) const {
    const Value first = left->value(frame);
    return Calculate(symbol, first, right->value(frame));
}

Value Negation::evaluate(Frame& frame) const {
    return Negate(operand->value(frame));
}

// Both sides have to be Boolean, but the right one is only looked at when it decides.
Value Logical::evaluate(Frame& frame) const {
    if (kind == Kind::Not) {
        return Value(!ToCondition(left->value(frame), L"not"));
    }
    const wchar_t* const word = kind == Kind::And ? L"and" : L"or";
    const bool first = ToCondition(left->value(frame), word);
    if (first == (kind == Kind::Or)) {
        return Value(first);
    }
    return Value(ToCondition(right->value(frame), word));
}

Value Conversion::evaluate(Frame& frame) const {
    return Convert(operand->value(frame), className);
}

Value Assignment::evaluate(Frame& frame) const {
    Value result = source->value(frame);
    if (!symbol.empty()) {
        result = Calculate(symbol, target->value(frame), result);
    }
    target->assign(frame, result);
    return result;
}

} // namespace maxscript
} // namespace standin
