// The values of MAXScript.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace standin {
namespace maxscript {

class Object;

// A value: small ones are held, objects are shared.
class Value {
public:
    enum class Kind {
        Undefined,
        Unsupplied, // of a keyword parameter that the caller left out
        Ok,
        DontCollect,
        Boolean,
        Integer, // 32 bits, as in the host
        Float,   // 32 bits, as in the host
        Text,
        Name,
        Reference, // what & makes; an object
        Object
    };

    Value() = default;
    explicit Value(bool flag) : kind_(Kind::Boolean), integer_(flag ? 1 : 0) {}
    explicit Value(int number) : kind_(Kind::Integer), integer_(number) {}
    explicit Value(float number) : kind_(Kind::Float), real_(number) {}
    explicit Value(std::wstring text)
        : kind_(Kind::Text), text_(std::make_shared<std::wstring>(std::move(text))) {}
    explicit Value(const wchar_t* text) : Value(std::wstring(text)) {}
    explicit Value(std::shared_ptr<Object> object);

    static Value name(std::wstring text);
    static Value special(Kind kind); // a kind without content

    Kind kind() const { return kind_; }
    bool is(Kind kind) const { return kind_ == kind; }
    bool isNumber() const { return kind_ == Kind::Integer || kind_ == Kind::Float; }

    // The content, each only for its kind. `real` also for an Integer, `text` also for a Name.
    bool boolean() const { return integer_ != 0; }
    int integer() const { return integer_; }
    float real() const { return kind_ == Kind::Integer ? static_cast<float>(integer_) : real_; }
    const std::wstring& text() const { return *text_; }
    const std::shared_ptr<Object>& object() const { return object_; }

    // The object when it is of that class, null otherwise.
    template<class Type>
    std::shared_ptr<Type> as() const {
        return std::dynamic_pointer_cast<Type>(object_);
    }

private:
    Kind kind_ = Kind::Undefined;
    int integer_ = 0;
    float real_ = 0.0F;
    std::shared_ptr<const std::wstring> text_;
    std::shared_ptr<Object> object_;
};

using Values = std::vector<Value>;

// The form that `as string` gives: no quotes around a text, no # before a name.
std::wstring ToText(const Value& value);

// The form inside an array that is printed: texts in quotes, names with their #.
std::wstring ToLiteral(const Value& value);

// The name of the value's class, as `classOf` prints it.
std::wstring ClassNameOf(const Value& value);

// Equality of the language: an integer equals a float of the same size, names ignore case, arrays
// and other objects are compared as their class defines it.
bool AreEqual(const Value& left, const Value& right);

// True for Boolean true; an error for anything that is no Boolean.
bool ToCondition(const Value& value, const wchar_t* where);

// Lower case, for everything in which the language ignores case.
std::wstring Fold(std::wstring text);
std::wstring ToUpper(std::wstring text);

} // namespace maxscript
} // namespace standin
