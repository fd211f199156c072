// What Visual C++'s start-up library would supply to objects that clang compiled for its layout:
// the table of std::type_info. Every library made of such objects links this source; Visual C++
// itself never compiles it.
extern "C" {

// Run-time type descriptors point here. Nothing calls through the table: the host reads names only.
extern const void* const typeInfoTable[2] __asm__("??_7type_info@@6B@");
const void* const typeInfoTable[2] = {nullptr, nullptr};
}
