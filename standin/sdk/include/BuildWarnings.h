#pragma once

#define UNUSED_PARAM(x) (x)
