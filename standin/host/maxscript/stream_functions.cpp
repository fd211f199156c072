#include "standin/host/maxscript/language_library.h"

namespace standin {
namespace maxscript {
namespace {

class StringStream : public TextSink {
public:
    explicit StringStream(std::wstring text) : text_(std::move(text)) {}

    std::wstring className() const override { return L"StringStream"; }
    std::wstring text() const override { return text_; }
    void write(const std::wstring& text) override { text_ += text; }

private:
    std::wstring text_;
};

void Write(Interpreter& interpreter, const Arguments& a, const std::wstring& text) {
    const Value to = a.get(L"to", Value());
    if (to.is(Value::Kind::Undefined)) {
        interpreter.print(text);
        return;
    }
    const auto sink = to.as<TextSink>();
    if (!sink) {
        throw ScriptError(L"to: needs a stream, got: " + ToText(to));
    }
    sink->write(text);
}

// Each % of the first argument takes the next value; a value's own % is nothing special.
Value Format(Interpreter& interpreter, const Arguments& a) {
    const std::wstring& form = TextOf(a.values[0]);
    std::wstring made;
    std::size_t next = 1;
    for (const wchar_t each : form) {
        if (each != L'%') {
            made.push_back(each);
        } else if (next < a.values.size()) {
            made += ToText(a.values[next++]);
        } else {
            throw ScriptError(L"format: more % than values");
        }
    }
    Write(interpreter, a, made);
    return Value::special(Value::Kind::Ok);
}

Value Print(Interpreter& interpreter, const Arguments& a) {
    Write(interpreter, a, ToLiteral(a.values[0]) + L"\n");
    return a.values[0];
}

} // namespace

void AddStreamFunctions(Globals& globals) {
    globals.addFunction(L"stringStream", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(std::make_shared<StringStream>(TextOf(a.values[0])));
    });
    globals.addFunction(L"format", 1, NativeFunction::kAny, Format);
    globals.addFunction(L"print", 1, 1, Print);
}

} // namespace maxscript
} // namespace standin
