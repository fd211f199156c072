#include "standin/host/maxscript/language_library.h"

#include "standin/host/maxscript/structures.h"

namespace standin {
namespace maxscript {
namespace {

void AddFlow(Globals& globals) {
    globals.addValue(L"undefined", Value());
    globals.addValue(L"unsupplied", Value::special(Value::Kind::Unsupplied));
    globals.addValue(L"ok", Value::special(Value::Kind::Ok));
    globals.addValue(L"dontCollect", Value::special(Value::Kind::DontCollect));
    globals.addValue(L"true", Value(true));
    globals.addValue(L"false", Value(false));
    globals.addFunction(L"throw", 0, 2,
                        [](Interpreter& interpreter, const Arguments& arguments) -> Value {
                            std::wstring message;
                            for (const Value& each : arguments.values) {
                                message += (message.empty() ? L"" : L" ") + ToText(each);
                            }
                            // Without a message the error that is handled goes on.
                            throw ScriptError(message.empty() ? interpreter.exception : message);
                        });
    globals.addFunction(
        L"getCurrentException", 0, 0,
        [](Interpreter& interpreter, const Arguments&) { return Value(interpreter.exception); });
    globals.addFunction(L"fileIn", 1, 1, [](Interpreter& interpreter, const Arguments& arguments) {
        return interpreter.runFile(TextOf(arguments.values[0]));
    });
    for (const wchar_t* const name : {L"getSourceFileName", L"getThisScriptFilename"}) {
        globals.addFunction(name, 0, 0, [](Interpreter& interpreter, const Arguments&) {
            return Value(interpreter.sourceName());
        });
    }
}

} // namespace

const std::wstring& TextOf(const Value& value) {
    if (!value.is(Value::Kind::Text) && !value.is(Value::Kind::Name)) {
        throw ScriptError(L"Unable to convert: " + ToText(value) + L" to type: String");
    }
    return value.text();
}

int IntegerOf(const Value& value) {
    return Convert(value.is(Value::Kind::Text) ? Value() : value, L"integer").integer();
}

std::shared_ptr<Array> ArrayOf(const Value& value) {
    auto array = value.as<Array>();
    if (!array) {
        throw ScriptError(L"Unable to convert: " + ToText(value) + L" to type: Array");
    }
    return array;
}

Value MakeArray(Values values) {
    return Value(std::make_shared<Array>(std::move(values)));
}

Value MakeTexts(const std::vector<std::wstring>& texts) {
    return MakeArray(Values(texts.begin(), texts.end()));
}

bool Record::property(const std::wstring& name, Value& value) {
    const auto read = reads_.find(name);
    if (read != reads_.end()) {
        value = read->second();
        return true;
    }
    const auto found = values_.find(name);
    if (found == values_.end()) {
        return false;
    }
    value = found->second;
    return true;
}

Record& Record::add(const std::wstring& name, const Value& value) {
    values_[Fold(name)] = value;
    return *this;
}

Record& Record::add(const std::wstring& name, int least, int most, NativeFunction::Body body) {
    return add(name, Value(std::make_shared<NativeFunction>(name, least, most, std::move(body))));
}

Record& Record::addRead(const std::wstring& name, std::function<Value()> read) {
    reads_[Fold(name)] = std::move(read);
    return *this;
}

bool ClassValue::equals(const Object& other) const {
    const auto* const that = dynamic_cast<const ClassValue*>(&other);
    return that != nullptr && Fold(that->name) == Fold(name);
}

void AddLanguageLibrary(Interpreter& interpreter) {
    Globals& globals = interpreter.globals();
    AddFlow(globals);
    AddTextFunctions(globals);
    AddArrayFunctions(globals);
    AddNumberFunctions(globals);
    AddStreamFunctions(globals);
    AddClassFunctions(globals);
}

} // namespace maxscript
} // namespace standin
