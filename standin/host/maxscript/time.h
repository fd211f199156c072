// A time of the scene, in frames.
#pragma once

#include "standin/host/maxscript/object.h"

namespace standin {
namespace maxscript {

class Time : public Object {
public:
    explicit Time(float inFrames) : frames(inFrames) {}

    std::wstring className() const override { return L"Time"; }
    std::wstring text() const override { return ToText(Value(static_cast<int>(frames))) + L"f"; }
    bool equals(const Object& other) const override {
        const auto* const that = dynamic_cast<const Time*>(&other);
        return that != nullptr && !(that->frames < frames) && !(that->frames > frames);
    }
    bool property(const std::wstring& name, Value& value) override {
        value = Value(frames);
        return name == L"frame";
    }

    const float frames;
};

} // namespace maxscript
} // namespace standin
