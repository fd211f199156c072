#pragma once

#include <json/value.h>

namespace orv {
namespace test {

// A report of a random scene that the reader does not refuse: with and without each optional part,
// with names of all kinds. The same for the same seed. No two paths of a list are the same.
Json::Value GeneratedReport(unsigned seed);

} // namespace test
} // namespace orv
