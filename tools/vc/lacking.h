// What libc++ expects of a C library and Wine's copy of Microsoft's headers does not declare.
// Included before every source by tools/vc_check.py; nothing of it is ever compiled into a program.
#pragma once

// libc++'s own wchar.h declares const overloads that Microsoft's headers have already.
#define _LIBCPP_WCHAR_H

#include <ctype.h>
#include <io.h>
#include <locale.h>
#include <stddef.h>
#include <stdlib.h>
#include <time.h>

typedef double max_align_t;

struct timespec {
    time_t tv_sec;
    long tv_nsec;
};

#define MB_CUR_MAX 2

extern "C" {
int _islower_l(int, _locale_t);
int _isupper_l(int, _locale_t);
float _strtof_l(const char*, char**, _locale_t);
double _strtod_l(const char*, char**, _locale_t);
}

// Functions in Microsoft's headers; macros in Wine's, which rename members of that name.
#undef close
#undef open
#undef read
#undef write

#undef isnan
#undef isinf
template<class Number>
constexpr bool isnan(Number number) {
    return number != number;
}
template<class Number>
constexpr bool isinf(Number number) {
    return !isnan(number) && isnan(number - number);
}
