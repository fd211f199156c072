// Functions and structures that scripts define.
#pragma once

#include "standin/host/maxscript/expression.h"

namespace standin {
namespace maxscript {

// A function's text, shared by all its values.
struct FunctionDefinition {
    struct Parameter {
        std::wstring name; // lower case
        bool isKeyword = false;
        bool byReference = false;
        ExpressionPtr preset; // of a keyword parameter; null: unsupplied
    };

    std::wstring name;                 // as written, empty for one without
    std::vector<Parameter> parameters; // in the first slots of the frame
    std::size_t slots = 0;
    ExpressionPtr body;
};

class ScriptFunction : public Object {
public:
    ScriptFunction(std::shared_ptr<const FunctionDefinition> definition,
                   std::shared_ptr<StructInstance> self)
        : definition_(std::move(definition)), self_(std::move(self)) {}

    std::wstring className() const override { return L"MAXScriptFunction"; }
    std::wstring text() const override { return definition_->name + L"()"; }
    bool equals(const Object& other) const override;
    Value call(Interpreter& interpreter, const Arguments& arguments) override;

    // The same function as a member of an instance.
    Value boundTo(const std::shared_ptr<StructInstance>& self) const;

private:
    void takeArguments(Frame& frame, const Arguments& arguments) const;

    std::shared_ptr<const FunctionDefinition> definition_;
    std::shared_ptr<StructInstance> self_; // null outside of structures
};

class FunctionExpression : public Expression { // fn name ... = body
public:
    std::shared_ptr<FunctionDefinition> definition;
    ExpressionPtr variable; // takes the function; null for a structure's

protected:
    Value evaluate(Frame& frame) const override;
};

struct StructMember {
    std::wstring name;    // as written
    ExpressionPtr preset; // null: undefined
    bool isFunction = false;
    std::size_t slots = 0; // that the preset's frame needs
};

// What `struct` defines: called, it makes an instance, with values for its data members by position
// or by name.
class StructDefinition : public Object {
public:
    std::wstring className() const override { return L"StructDef"; }
    std::wstring text() const override { return L"#Struct:" + name; }
    Value call(Interpreter& caller, const Arguments& arguments) override;
    bool property(const std::wstring& member, Value& value) override; // its functions

    std::wstring name;
    std::vector<StructMember> members;
    ExpressionPtr onCreate; // null without
    std::size_t onCreateSlots = 0;
    Interpreter* interpreter = nullptr;
};

class StructInstance : public Object {
public:
    explicit StructInstance(std::shared_ptr<const StructDefinition> definition)
        : definition_(std::move(definition)), values(definition_->members.size()) {}

    std::wstring className() const override { return definition_->name; }
    std::wstring text() const override;
    bool property(const std::wstring& name, Value& value) override;
    bool setProperty(const std::wstring& name, const Value& value) override;

private:
    std::size_t indexOf(const std::wstring& name) const; // the member count when it is missing

    std::shared_ptr<const StructDefinition> definition_;

public:
    Values values; // one for each member
};

class StructExpression : public Expression { // struct name ( ... )
public:
    std::shared_ptr<StructDefinition> definition;
    ExpressionPtr variable;

protected:
    Value evaluate(Frame& frame) const override;
};

} // namespace maxscript
} // namespace standin
