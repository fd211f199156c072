// What is behind a value of Kind::Object, and what all objects can be asked.
#pragma once

#include "standin/host/maxscript/error.h"
#include "standin/host/maxscript/value.h"

#include <functional>
#include <utility>

namespace standin {
namespace maxscript {

class Interpreter;

// What a call hands over. The names of keyword arguments are in lower case.
struct Arguments {
    Values values;
    std::vector<std::pair<std::wstring, Value>> named;

    // A keyword argument, or `other` when it was not given.
    const Value& get(const wchar_t* name, const Value& other) const {
        for (const auto& each : named) {
            if (each.first == name) {
                return each.second;
            }
        }
        return other;
    }
};

class Object : public std::enable_shared_from_this<Object> {
public:
    virtual ~Object() = default;

    virtual std::wstring className() const = 0;
    virtual std::wstring text() const { return L"<" + className() + L">"; }
    virtual bool equals(const Object& other) const { return this == &other; }

    // A property by its name in lower case. False when it is missing.
    virtual bool property(const std::wstring&, Value&) { return false; }
    virtual bool setProperty(const std::wstring&, const Value&) { return false; }

    virtual Value item(const Value&) {
        throw ScriptError(L"No \"[]\" function for " + className());
    }
    virtual void setItem(const Value&, const Value&) {
        throw ScriptError(L"No \"[]=\" function for " + className());
    }
    virtual Values items() { throw ScriptError(L"No for loop over " + className()); }

    virtual Value call(Interpreter&, const Arguments&) {
        throw ScriptError(L"Type error: Call needs function or class, got: " + text());
    }
};

class Array : public Object {
public:
    Array() = default;
    explicit Array(Values content) : values(std::move(content)) {}

    std::wstring className() const override { return L"Array"; }
    std::wstring text() const override;
    bool equals(const Object& other) const override;
    bool property(const std::wstring& name, Value& value) override;
    Value item(const Value& index) override; // undefined beyond the end
    void setItem(const Value& index, const Value& value) override;
    Values items() override { return values; }

    Values values;
};

// A function of the host's library. The number of positional arguments is checked for it.
class NativeFunction : public Object {
public:
    using Body = std::function<Value(Interpreter&, const Arguments&)>;
    static constexpr int kAny = 1000;

    NativeFunction(std::wstring name, int least, int most, Body body)
        : name_(std::move(name)), least_(least), most_(most), body_(std::move(body)) {}

    std::wstring className() const override { return L"Primitive"; }
    std::wstring text() const override { return name_ + L"()"; }
    Value call(Interpreter& interpreter, const Arguments& arguments) override;

private:
    std::wstring name_;
    int least_;
    int most_;
    Body body_;
};

// What &x hands over: a variable of the caller.
class Reference : public Object {
public:
    Reference(std::function<Value()> reads, std::function<void(const Value&)> writes)
        : read(std::move(reads)), write(std::move(writes)) {}
    std::wstring className() const override { return L"ValueRef"; }

    std::function<Value()> read;
    std::function<void(const Value&)> write;
};

} // namespace maxscript
} // namespace standin
