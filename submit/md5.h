#pragma once

#include <string>

namespace orv {

// MD5 (RFC 1321) of `bytes` as 32 lower-case hexadecimal characters. Made by the system's own
// cryptography; empty, with a line in "rud_data", when the system refuses.
std::string Md5Hex(const std::string& bytes);

} // namespace orv
