// Owners of the Windows handles that the product uses: one type for each kind, because the value
// that means "none" and the function that closes the handle differ from kind to kind.
#pragma once

#include "base/windows.h"

#include <utility>

namespace orv {

// Owns one handle of the kind that `Kind` describes: a type `Value`, the value `none()`, and
// `close`, which is called once for each handle owned and never for `none()`. Can be moved, not
// copied.
template<class Kind>
class Owner {
public:
    using Value = typename Kind::Value;

    Owner() noexcept = default;
    explicit Owner(Value value) noexcept : value_(value) {}
    Owner(Owner&& other) noexcept : value_(other.release()) {}
    Owner& operator=(Owner&& other) noexcept {
        reset(other.release());
        return *this;
    }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    ~Owner() { reset(); }

    // The handle, still owned here.
    Value get() const noexcept { return value_; }
    explicit operator bool() const noexcept { return value_ != Kind::none(); }

    // Releases the handle to the caller, which has to close it.
    Value release() noexcept { return std::exchange(value_, Kind::none()); }

    // Closes the handle, if any, and takes ownership of `value`. Resetting to the handle that is
    // already owned has no effect.
    void reset(Value value = Kind::none()) noexcept {
        if (value == value_)
            return;
        const Value old = std::exchange(value_, value);
        if (old != Kind::none())
            Kind::close(old);
    }

private:
    Value value_ = Kind::none();
};

namespace handle_kinds {

// Files and folders opened with CreateFileW, whose "none" is INVALID_HANDLE_VALUE.
struct File {
    using Value = HANDLE;
    static Value none() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Value value) noexcept;
};

// Processes, threads, events, mutexes, jobs, file mappings: kernel objects whose "none" is null.
// `Tag` keeps the kinds apart, so that a thread cannot be put where a process is wanted.
template<class Tag>
struct Kernel {
    using Value = HANDLE;
    static Value none() noexcept { return nullptr; }
    static void close(Value value) noexcept { ::CloseHandle(value); }
};

struct Find {
    using Value = HANDLE;
    static Value none() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Value value) noexcept;
};

struct View {
    using Value = void*;
    static Value none() noexcept { return nullptr; }
    static void close(Value value) noexcept;
};

struct Socket {
    using Value = SOCKET;
    static Value none() noexcept { return INVALID_SOCKET; }
    static void close(Value value) noexcept;
};

struct GlobalBlock {
    using Value = HGLOBAL;
    static Value none() noexcept { return nullptr; }
    static void close(Value value) noexcept;
};

// Fonts, brushes, pens, bitmaps and regions.
template<class Object>
struct Gdi {
    using Value = Object;
    static Value none() noexcept { return nullptr; }
    static void close(Value value) noexcept { ::DeleteObject(value); }
};

// Device contexts made by CreateCompatibleDC or CreateDC.
struct CreatedDc {
    using Value = HDC;
    static Value none() noexcept { return nullptr; }
    static void close(Value value) noexcept;
};

} // namespace handle_kinds

using FileHandle = Owner<handle_kinds::File>;
using ProcessHandle = Owner<handle_kinds::Kernel<struct ProcessTag>>;
using ThreadHandle = Owner<handle_kinds::Kernel<struct ThreadTag>>;
using EventHandle = Owner<handle_kinds::Kernel<struct EventTag>>;
using JobHandle = Owner<handle_kinds::Kernel<struct JobTag>>;
using FileMappingHandle = Owner<handle_kinds::Kernel<struct FileMappingTag>>;
using FindHandle = Owner<handle_kinds::Find>;
using MappedView = Owner<handle_kinds::View>; // the address that MapViewOfFile returned
using SocketHandle = Owner<handle_kinds::Socket>;
using GlobalMemory = Owner<handle_kinds::GlobalBlock>;
using FontHandle = Owner<handle_kinds::Gdi<HFONT>>;
using BrushHandle = Owner<handle_kinds::Gdi<HBRUSH>>;
using BitmapHandle = Owner<handle_kinds::Gdi<HBITMAP>>;
using MemoryDc = Owner<handle_kinds::CreatedDc>;

} // namespace orv
