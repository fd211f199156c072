#include "standin/host/maxscript/language_library.h"

#include "standin/host/maxscript/scene_object.h"

namespace standin {
namespace maxscript {
namespace {

Value ClassOf(const Value& value) {
    if (const auto object = value.as<SceneObject>()) {
        return Value(std::make_shared<ClassValue>(object->className(), object->superClass()));
    }
    return Value(std::make_shared<ClassValue>(ClassNameOf(value)));
}

// The superclass of an object, or of a class.
Value SuperClassOf(const Value& value) {
    if (const auto object = value.as<SceneObject>()) {
        return Value(std::make_shared<ClassValue>(object->superClass()));
    }
    if (const auto asClass = value.as<ClassValue>()) {
        return Value(std::make_shared<ClassValue>(asClass->base));
    }
    return Value(std::make_shared<ClassValue>(L"Value"));
}

Value IsKindOf(Interpreter&, const Arguments& a) {
    return Value(AreEqual(ClassOf(a.values[0]), a.values[1]) ||
                 AreEqual(SuperClassOf(a.values[0]), a.values[1]));
}

Value IsProperty(Interpreter&, const Arguments& a) {
    Value ignored;
    return Value(FindProperty(a.values[0], Fold(TextOf(a.values[1])), ignored));
}

Value GetProperty(Interpreter&, const Arguments& a) {
    return PropertyOf(a.values[0], Fold(TextOf(a.values[1])));
}

Value SetProperty(Interpreter&, const Arguments& a) {
    const Value& owner = a.values[0];
    if (!owner.is(Value::Kind::Object) ||
        !owner.object()->setProperty(Fold(TextOf(a.values[1])), a.values[2])) {
        throw ScriptError(L"Unable to set property: \"" + TextOf(a.values[1]) + L"\" in " +
                          ToText(owner));
    }
    return a.values[2];
}

Value GetPropNames(Interpreter&, const Arguments& a) {
    const auto object = a.values[0].as<SceneObject>();
    if (!object) {
        throw ScriptError(L"getPropNames: needs an object, got: " + ToText(a.values[0]));
    }
    Values names;
    for (const std::wstring& name : object->propertyNames()) {
        names.push_back(Value::name(name));
    }
    return MakeArray(names);
}

} // namespace

void AddClassFunctions(Globals& globals) {
    globals.addFunction(L"classOf", 1, 1,
                        [](Interpreter&, const Arguments& a) { return ClassOf(a.values[0]); });
    globals.addFunction(L"superClassOf", 1, 1,
                        [](Interpreter&, const Arguments& a) { return SuperClassOf(a.values[0]); });
    globals.addFunction(L"isKindOf", 2, 2, IsKindOf);
    globals.addFunction(L"isProperty", 2, 2, IsProperty);
    globals.addFunction(L"hasProperty", 2, 2, IsProperty);
    globals.addFunction(L"getProperty", 2, 2, GetProperty);
    globals.addFunction(L"setProperty", 3, 3, SetProperty);
    globals.addFunction(L"getPropNames", 1, 1, GetPropNames);
    for (const wchar_t* const name :
         {L"String", L"Integer", L"Float", L"BooleanClass", L"Array", L"Name", L"UndefinedClass",
          L"MAXScriptFunction", L"Time", L"OkClass"}) {
        globals.addValue(name, Value(std::make_shared<ClassValue>(name)));
    }
}

} // namespace maxscript
} // namespace standin
