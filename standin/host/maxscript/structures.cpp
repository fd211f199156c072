#include "standin/host/maxscript/structures.h"

#include "standin/host/maxscript/interpreter.h"

namespace standin {
namespace maxscript {

bool ScriptFunction::equals(const Object& other) const {
    const auto* const that = dynamic_cast<const ScriptFunction*>(&other);
    return that != nullptr && that->definition_ == definition_;
}

Value ScriptFunction::boundTo(const std::shared_ptr<StructInstance>& self) const {
    return Value(std::make_shared<ScriptFunction>(definition_, self));
}

void ScriptFunction::takeArguments(Frame& frame, const Arguments& arguments) const {
    std::size_t wanted = 0;
    std::size_t given = 0;
    for (std::size_t i = 0; i < definition_->parameters.size(); ++i) {
        const FunctionDefinition::Parameter& parameter = definition_->parameters[i];
        Value& slot = frame.slots[i];
        if (parameter.isKeyword) {
            slot = arguments.get(parameter.name.c_str(), Value::special(Value::Kind::Unsupplied));
            if (slot.is(Value::Kind::Unsupplied) && parameter.preset) {
                slot = parameter.preset->value(frame);
            }
            continue;
        }
        ++wanted;
        if (given < arguments.values.size()) {
            slot = arguments.values[given];
            ++given;
            if (parameter.byReference != slot.is(Value::Kind::Reference)) {
                throw ScriptError(L"Parameter " + parameter.name + L" of " + definition_->name +
                                  (parameter.byReference ? L" needs a reference (&)"
                                                         : L" takes no reference (&)"));
            }
        }
    }
    if (wanted != arguments.values.size()) {
        throw ScriptError(L"Argument count error: " + definition_->name + L" wanted " +
                          std::to_wstring(wanted) + L", got " +
                          std::to_wstring(arguments.values.size()));
    }
}

Value ScriptFunction::call(Interpreter& interpreter, const Arguments& arguments) {
    const auto definition = definition_; // the function may be replaced while it runs
    const auto frame = std::make_shared<Frame>(interpreter, definition->slots, self_);
    takeArguments(*frame, arguments);
    try {
        return definition->body->value(*frame);
    } catch (const ReturnSignal& signal) {
        return signal.value;
    }
}

Value FunctionExpression::evaluate(Frame& frame) const {
    Value function(std::make_shared<ScriptFunction>(definition, nullptr));
    if (variable) {
        variable->assign(frame, function);
    }
    return function;
}

Value StructDefinition::call(Interpreter& caller, const Arguments& arguments) {
    const auto self = std::static_pointer_cast<StructDefinition>(shared_from_this());
    const auto instance = std::make_shared<StructInstance>(self);
    std::size_t given = 0;
    for (std::size_t i = 0; i < members.size(); ++i) {
        const StructMember& member = members[i];
        if (!member.isFunction && given < arguments.values.size()) {
            instance->values[i] = arguments.values[given++];
            continue;
        }
        const Value none = Value::special(Value::Kind::Unsupplied);
        const Value named = arguments.get(Fold(member.name).c_str(), none);
        if (!named.is(Value::Kind::Unsupplied)) {
            instance->values[i] = named;
        } else if (member.preset) {
            const auto frame = std::make_shared<Frame>(caller, member.slots, instance);
            instance->values[i] = member.preset->value(*frame);
        }
    }
    if (given != arguments.values.size()) {
        throw ScriptError(L"Argument count error: " + name + L" wanted " + std::to_wstring(given) +
                          L", got " + std::to_wstring(arguments.values.size()));
    }
    for (const auto& each : arguments.named) {
        Value ignored;
        if (!instance->property(each.first, ignored)) {
            throw ScriptError(L"Unknown member of structure " + name + L": " + each.first);
        }
    }
    if (onCreate) {
        const auto frame = std::make_shared<Frame>(caller, onCreateSlots, instance);
        onCreate->value(*frame);
    }
    return Value(instance);
}

bool StructDefinition::property(const std::wstring& member, Value& value) {
    for (const StructMember& each : members) {
        if (each.isFunction && Fold(each.name) == member && interpreter != nullptr) {
            const auto frame = std::make_shared<Frame>(*interpreter, each.slots, nullptr);
            value = each.preset->value(*frame);
            return true;
        }
    }
    return false;
}

std::wstring StructInstance::text() const {
    std::wstring all = L"(" + definition_->name;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!definition_->members[i].isFunction) {
            all += L" " + definition_->members[i].name + L":" + ToLiteral(values[i]);
        }
    }
    return all + L")";
}

std::size_t StructInstance::indexOf(const std::wstring& name) const {
    std::size_t i = 0;
    while (i < definition_->members.size() && Fold(definition_->members[i].name) != name) {
        ++i;
    }
    return i;
}

bool StructInstance::property(const std::wstring& name, Value& value) {
    const std::size_t index = indexOf(name);
    if (index == values.size()) {
        return false;
    }
    value = values[index];
    if (definition_->members[index].isFunction) {
        if (const auto function = value.as<ScriptFunction>()) {
            value = function->boundTo(std::static_pointer_cast<StructInstance>(shared_from_this()));
        }
    }
    return true;
}

bool StructInstance::setProperty(const std::wstring& name, const Value& value) {
    const std::size_t index = indexOf(name);
    if (index == values.size()) {
        return false;
    }
    values[index] = value;
    return true;
}

Value StructExpression::evaluate(Frame& frame) const {
    definition->interpreter = &frame.interpreter;
    Value value(definition);
    variable->assign(frame, value);
    return value;
}

} // namespace maxscript
} // namespace standin
