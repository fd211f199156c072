#include "ifnpub.h"

namespace {

// A text by value belongs to the value; everything else is only referred to.
bool OwnsText(const FPValue& value) {
    return value.type == TYPE_TSTR_BV && value.tstr;
}

} // namespace

FPValue::~FPValue() {
    Free();
}

void FPValue::Init() {
    type = TYPE_VOID;
    i64 = 0;
}

void FPValue::Free() {
    if (OwnsText(*this))
        delete tstr;
    Init();
}

FPValue& FPValue::operator=(const FPValue& other) {
    if (this == &other)
        return *this;
    Free();
    type = other.type;
    i64 = other.i64;
    if (OwnsText(other))
        tstr = new MSTR(*other.tstr);
    return *this;
}
