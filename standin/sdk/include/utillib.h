#pragma once

#include "systemutilities.h"
