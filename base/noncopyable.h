#pragma once

namespace orv {

// Base of classes of which copies make no sense.
class rud_Noncopyable {
public:
    rud_Noncopyable(const rud_Noncopyable&) = delete;
    rud_Noncopyable& operator=(const rud_Noncopyable&) = delete;

protected:
    rud_Noncopyable() = default;
    ~rud_Noncopyable() = default;
};

} // namespace orv
