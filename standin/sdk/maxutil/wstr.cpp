#include "strclass.h"

#include <string.h>
#include <wchar.h>

namespace {

const wchar_t* Text(const void* text) {
    return text ? static_cast<const wchar_t*>(text) : L"";
}

// An empty text needs no block.
void* Copy(const wchar_t* text) {
    const size_t length = text ? wcslen(text) : 0;
    if (length == 0)
        return nullptr;
    void* block = MaxHeapOperators::operator new((length + 1) * sizeof(wchar_t));
    if (block)
        memcpy(block, text, (length + 1) * sizeof(wchar_t));
    return block;
}

} // namespace

WStr::WStr() : text_(nullptr) {}
WStr::WStr(const wchar_t* text) : text_(Copy(text)) {}
WStr::WStr(const WStr& other) : MaxHeapOperators(), text_(Copy(other.data())) {}
WStr::~WStr() {
    MaxHeapOperators::operator delete(text_);
}

WStr& WStr::operator=(const WStr& other) {
    return *this = other.data();
}

WStr& WStr::operator=(const wchar_t* text) {
    void* copy = Copy(text); // before the old text goes: it may be a part of it
    MaxHeapOperators::operator delete(text_);
    text_ = copy;
    return *this;
}

const wchar_t* WStr::data() const {
    return Text(text_);
}
int WStr::Length() const {
    return static_cast<int>(wcslen(Text(text_)));
}
bool WStr::isNull() const {
    return text_ == nullptr;
}
