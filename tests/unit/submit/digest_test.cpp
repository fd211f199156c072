// Digests, passwords and random texts.
#include "submit/scene_archive.h"

#include <gtest/gtest.h>

#include <cctype>
#include <ctime>

namespace orv {
namespace test {
namespace {

struct Md5Case {
    const char* text;
    const char* digest;
};

TEST(Md5HexTest, GivesTheDigestsOfRfc1321) {
    const Md5Case cases[] = {
        {"", "d41d8cd98f00b204e9800998ecf8427e"},
        {"a", "0cc175b9c0f1b6a831c399e269772661"},
        {"abc", "900150983cd24fb0d6963f7d28e17f72"},
        {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
        {"abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b"},
        {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789",
         "d174ab98d277d9f5a5611c2c9f419d9f"},
        {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
         "57edf4a22be3c955ac49da2e2107b67a"},
    };
    for (const Md5Case& md5 : cases)
        EXPECT_EQ(Md5Hex(md5.text), md5.digest) << md5.text;
}

TEST(Md5HexTest, TakesZeroBytesAndLongTexts) {
    EXPECT_EQ(Md5Hex(std::string(1, '\0')), "93b885adfe0da089cdf634904fd59f71");
    EXPECT_EQ(Md5Hex(std::string(1000000, 'a')), "7707d6ae4e027c70eea2a935c2296f21");
}

// The rule once more, as docs/archive.md words it.
std::string ExpectedPassword(const std::string& baseName) {
    const std::string d1 = Md5Hex(baseName);
    const std::string d2 = Md5Hex(baseName + ".7z.orv");
    const std::string rows[] = {"20719364", "58140732", "93605182"};
    std::string password;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t i = 0; i < 8; ++i) {
            const std::size_t position = 3 * i + static_cast<std::size_t>(rows[row][i] - '0');
            const bool isFromFirst = row == 0 || (row == 2 && i % 2 == 0);
            password += (isFromFirst ? d1 : d2).at(position);
        }
    }
    return password;
}

TEST(ArchivePasswordTest, FollowsTheDocumentedRule) {
    for (const char* name : {"shot", "", "a name with blanks", "\xE5\x9C\xBA\xE6\x99\xAF"}) {
        const std::string password = ArchivePassword(name);
        EXPECT_TRUE(password == ExpectedPassword(name));
        EXPECT_EQ(password.size(), 24U);
        EXPECT_EQ(password.find_first_not_of("0123456789abcdef"), std::string::npos);
    }
    EXPECT_TRUE(ArchivePassword("shot") != ArchivePassword("shot2"));
}

TEST(RandomTextTest, HasSixLettersAndDigits) {
    for (unsigned seed = 0; seed < 1000; ++seed) {
        const std::string text = RandomTextFromSeed(seed);
        EXPECT_EQ(text.size(), 6U);
        for (const char character : text)
            EXPECT_TRUE(std::isalnum(static_cast<unsigned char>(character)));
    }
    EXPECT_NE(RandomTextFromSeed(1), RandomTextFromSeed(2));
}

TEST(RandomTextTest, IsTheSameWithinOneSecond) {
    std::string first;
    std::string second;
    std::time_t before = 0;
    do { // again when a new second began in between
        before = std::time(nullptr);
        first = RandomText();
        second = RandomText();
    } while (std::time(nullptr) != before);
    EXPECT_EQ(first, second);
}

} // namespace
} // namespace test
} // namespace orv
