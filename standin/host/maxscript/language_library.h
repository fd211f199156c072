// The functions of the language itself: texts, arrays, numbers, streams, files, errors and classes.
// Those of the open scene are in scene_library.h.
#pragma once

#include "standin/host/maxscript/interpreter.h"
#include "standin/host/maxscript/operations.h"

namespace standin {
namespace maxscript {

void AddLanguageLibrary(Interpreter& interpreter); // all below but the files

void AddTextFunctions(Globals& globals);
void AddArrayFunctions(Globals& globals);
void AddNumberFunctions(Globals& globals);
void AddStreamFunctions(Globals& globals);
void AddClassFunctions(Globals& globals);

// Arguments as the type that a function needs. Throw ScriptError for another.
const std::wstring& TextOf(const Value& value); // a Text or a Name
int IntegerOf(const Value& value);              // a Float is cut off
std::shared_ptr<Array> ArrayOf(const Value& value);

Value MakeArray(Values values);
Value MakeTexts(const std::vector<std::wstring>& texts);

// A namespace of functions such as `bit` or `persistents`, or a record of values. Property names
// are in lower case. Cannot be assigned to.
class Record : public Object {
public:
    explicit Record(std::wstring name) : name_(std::move(name)) {}

    std::wstring className() const override { return name_; }
    bool property(const std::wstring& name, Value& value) override;

    Record& add(const std::wstring& name, const Value& value);
    Record& add(const std::wstring& name, int least, int most, NativeFunction::Body body);
    Record& addRead(const std::wstring& name, std::function<Value()> read); // asked each time

private:
    std::wstring name_;
    std::map<std::wstring, Value> values_;
    std::map<std::wstring, std::function<Value()>> reads_;
};

// A class as a value: what classOf gives, and what its name means in a script.
class ClassValue : public Object {
public:
    explicit ClassValue(std::wstring itsName, std::wstring itsBase = L"Value")
        : name(std::move(itsName)), base(std::move(itsBase)) {}

    std::wstring className() const override { return base + L"Class"; }
    std::wstring text() const override { return name; }
    bool equals(const Object& other) const override;

    const std::wstring name;
    const std::wstring base; // its superclass
};

// A stream that text is written to: a StringStream or a file.
class TextSink : public Object {
public:
    virtual void write(const std::wstring& text) = 0;
};

} // namespace maxscript
} // namespace standin
