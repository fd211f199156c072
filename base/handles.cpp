#include "base/handles.h"

namespace orv {
namespace handle_kinds {

void File::close(Value value) noexcept {
    ::CloseHandle(value);
}

void Find::close(Value value) noexcept {
    ::FindClose(value);
}

void View::close(Value value) noexcept {
    ::UnmapViewOfFile(value);
}

void Socket::close(Value value) noexcept {
    ::closesocket(value);
}

void GlobalBlock::close(Value value) noexcept {
    ::GlobalFree(value);
}

void CreatedDc::close(Value value) noexcept {
    ::DeleteDC(value);
}

} // namespace handle_kinds
} // namespace orv
