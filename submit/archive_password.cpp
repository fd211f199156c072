#include "submit/archive_password.h"

#include "submit/md5.h"

namespace orv {
namespace {

constexpr char kSecondDigestSuffix[] = ".7z.orv";

// Which characters of the digests are taken: digit d at place i takes character 3 * i + d, at most
// the 31st.
constexpr char kFromFirst[] = "20719364";
constexpr char kFromSecond[] = "58140732";
constexpr char kFromBoth[] =
    "93605182"; // even places from the first digest, odd ones from the second

constexpr std::size_t kDigits = 8;

char Picked(const std::string& digest, const char* digits, std::size_t place) {
    return digest[3 * place + static_cast<std::size_t>(digits[place] - '0')];
}

} // namespace

std::string ArchivePassword(const std::string& baseName) {
    const std::string first = Md5Hex(baseName);
    const std::string second = Md5Hex(baseName + kSecondDigestSuffix);
    if (first.empty() || second.empty())
        return {};
    std::string password;
    for (std::size_t i = 0; i < kDigits; ++i)
        password += Picked(first, kFromFirst, i);
    for (std::size_t i = 0; i < kDigits; ++i)
        password += Picked(second, kFromSecond, i);
    for (std::size_t i = 0; i < kDigits; ++i)
        password += Picked(i % 2 == 0 ? first : second, kFromBoth, i);
    return password;
}

} // namespace orv
