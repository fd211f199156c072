#pragma once

namespace orv {

// Base class for types that must not be copied.
class rud_Noncopyable {
public:
    rud_Noncopyable(const rud_Noncopyable&) = delete;
    rud_Noncopyable& operator=(const rud_Noncopyable&) = delete;

protected:
    rud_Noncopyable() = default;
    ~rud_Noncopyable() = default;
};

} // namespace orv
