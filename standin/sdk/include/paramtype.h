// Types of the values that scripts and published functions exchange.
#pragma once

enum ParamType {
    TYPE_FLOAT = 0,
    TYPE_INT = 1,
    TYPE_RGBA = 2,
    TYPE_POINT3 = 3,
    TYPE_BOOL = 4,
    TYPE_USER = 5
};

enum ParamType2 {
    TYPE_STRING = 8,
    TYPE_FILENAME = 9,
    TYPE_TIMEVALUE = 12,
    TYPE_INDEX = 19,
    TYPE_ENUM = 45,
    TYPE_VOID = 46,
    TYPE_TSTR = 57,
    TYPE_INTERFACE = 59,
    TYPE_HWND = 60,
    TYPE_NAME = 61,
    TYPE_FPVALUE = 63,
    TYPE_VALUE = 64,
    TYPE_DWORD = 65,
    TYPE_bool = 66,
    TYPE_INTPTR = 67,
    TYPE_INT64 = 68,
    TYPE_DOUBLE = 69,

    TYPE_TAB = 0x0800,
    TYPE_BY_REF = 0x1000,
    TYPE_BY_VAL = 0x2000,
    TYPE_BY_PTR = 0x4000,
    TYPE_TSTR_BV = TYPE_TSTR | TYPE_BY_VAL
};
