#include "submit/random_text.h"

#include <cstdlib>
#include <ctime>

namespace orv {
namespace {

constexpr char kAlphabet[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr int kAlphabetSize = 62;
constexpr int kLength = 6;

} // namespace

std::string RandomText() {
    return RandomTextFromSeed(static_cast<unsigned>(std::time(nullptr)));
}

std::string RandomTextFromSeed(unsigned seed) {
    std::srand(seed);
    std::string text;
    for (int i = 0; i < kLength; ++i)
        text += kAlphabet[std::rand() % kAlphabetSize];
    return text;
}

} // namespace orv
