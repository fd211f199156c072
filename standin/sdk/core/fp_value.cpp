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

// Everything that is smaller than an argument's place is passed as int or double.
va_list FPValue::Loadva(int kind, va_list list, bool) {
    Free();
    type = static_cast<ParamType2>(kind);
    switch (kind) {
    case TYPE_INT:
    case TYPE_BOOL:
    case TYPE_INDEX:
        i = va_arg(list, int);
        break;
    case TYPE_DWORD:
        d = va_arg(list, DWORD);
        break;
    case TYPE_FLOAT:
        f = static_cast<float>(va_arg(list, double));
        break;
    case TYPE_STRING:
        s = va_arg(list, const MCHAR*);
        break;
    case TYPE_INTERFACE:
        ptr = va_arg(list, void*);
        break;
    default:
        __builtin_trap(); // a kind that nothing here publishes
    }
    return list;
}
