#pragma once

#include "strclass.h"
