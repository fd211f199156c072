#pragma once

#include "gup.h"
