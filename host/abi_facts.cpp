// Asserts that the host's headers in use, the stand-in's or the real ones, describe the binary
// interface of abi_facts.h. It makes no code. What a compiler cannot assert is listed there.
#include "max.h"
// the host's own header comes first
#include "gup.h"
#include "imenuman.h"
#include "imenus.h"
#include "iparamb2.h"
#include "notify.h"

#include "host/abi_facts.h"

#include <stddef.h>

namespace {

#define ORV_ASSERT_SIZE(type, bytes) static_assert(sizeof(type) == (bytes), "size of " #type);
ORV_HOST_SIZES(ORV_ASSERT_SIZE)

#define ORV_ASSERT_OFFSET(type, member, bytes)                                                     \
    static_assert(offsetof(type, member) == (bytes), "offset of " #type "::" #member);
ORV_HOST_OFFSETS(ORV_ASSERT_OFFSET)

// Only a derived class may name a protected member, and only as its own. Its constructor is
// declared because no compiler could make one; it is never defined or called. offsetof of a class
// with virtual functions is up to the compiler: those in use answer it, clang with a warning.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Winvalid-offsetof"
#endif
#define ORV_ASSERT_PROTECTED_OFFSET(type, member_, bytes)                                          \
    struct type##_##member_ : type {                                                               \
        type##_##member_();                                                                        \
        static void Check() {                                                                      \
            static_assert(offsetof(type##_##member_, member_) == (bytes),                          \
                          "offset of " #type "::" #member_);                                       \
        }                                                                                          \
    };
ORV_HOST_PROTECTED_OFFSETS(ORV_ASSERT_PROTECTED_OFFSET)
#ifdef __clang__
#pragma clang diagnostic pop
#endif

#define ORV_ASSERT_NUMBER(name, spelling, value)                                                   \
    static_assert(static_cast<int>(spelling) == (value), "value of " #name);
ORV_HOST_NUMBERS(ORV_ASSERT_NUMBER)

// A conversion that no other signature allows; nothing is evaluated.
#define ORV_ASSERT_SIGNATURE(type, name, number, function, result, arguments, qualifier)           \
    static_assert(sizeof(static_cast<result(type::*) arguments qualifier>(&type::function)) != 0,  \
                  "signature of " #type "::" #name);
ORV_HOST_SLOTS(ORV_ASSERT_SIGNATURE)

#define ORV_ASSERT_PROTECTED_SIGNATURE(type, name, number, function, result, arguments, qualifier) \
    struct type##_##name : type {                                                                  \
        type##_##name();                                                                           \
        static void Check() {                                                                      \
            static_assert(sizeof(static_cast<result(type::*) arguments qualifier>(                 \
                              &type##_##name::function)) != 0,                                     \
                          "signature of " #type "::" #name);                                       \
        }                                                                                          \
    };
ORV_HOST_PROTECTED_SLOTS(ORV_ASSERT_PROTECTED_SIGNATURE)

#define ORV_ASSERT_FUNCTION(function, result, arguments)                                           \
    static_assert(sizeof(static_cast<result(*) arguments>(&function)) != 0,                        \
                  "signature of " #function);
ORV_HOST_FUNCTIONS(ORV_ASSERT_FUNCTION)

} // namespace
