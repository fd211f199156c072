#include "config/session_data.h"

#include "base/handles.h"
#include "tests/support/import_patch.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace orv {
namespace test {
namespace {

constexpr wchar_t kUserName[] = L"TALVEKRO_USERNAME_DATA";
constexpr wchar_t kSavePath[] = L"TALVEKRO_PLUGIN_SAVE_PATH";

// A section as the client makes it: named, as large as it wants, filled with `bytes`.
FileMappingHandle MakeSection(const wchar_t* name, const std::string& bytes, DWORD size) {
    FileMappingHandle section(
        ::CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, size, name));
    const MappedView view(::MapViewOfFile(section.get(), FILE_MAP_WRITE, 0, 0, 0));
    std::memcpy(view.get(), bytes.data(), bytes.size());
    return section;
}

FileMappingHandle MakeTextSection(const wchar_t* name, const std::string& text) {
    return MakeSection(name, text + '\0', 8192);
}

class Session : public ::testing::Test {
protected:
    SessionData read() const {
        SessionData data;
        data.userName = L"before";
        data.savePath = L"before";
        data.savePathBytes = "before";
        readSessionData(data);
        return data;
    }

    TestProductFolder product_;
};

TEST_F(Session, LeavesTheRecordAloneWithoutSections) {
    SessionData data = read();
    EXPECT_EQ(data.userName, L"before");
    EXPECT_EQ(data.savePath, L"before");
    EXPECT_FALSE(data.present);
    data.present = true;
    readSessionData(data);
    EXPECT_TRUE(data.present) << "it keeps its value";
    EXPECT_EQ(product_.log(L"rud_data").find("Session data"), std::string::npos)
        << "the normal case";
}

TEST_F(Session, TakesTheUserNameAlone) {
    const FileMappingHandle user = MakeTextSection(kUserName, "anna");
    const SessionData data = read();
    EXPECT_EQ(data.userName, L"anna");
    EXPECT_EQ(data.savePath, L"before");
    EXPECT_FALSE(data.present);
}

TEST_F(Session, DoesNotLookForTheSavePathWithoutAUserName) {
    const FileMappingHandle path = MakeTextSection(kSavePath, "D:\\out");
    const SessionData data = read();
    EXPECT_EQ(data.savePath, L"before");
    EXPECT_FALSE(data.present);
}

TEST_F(Session, TakesBothAsUtf8) {
    const std::string name = "\xE5\xB0\x8F\xE6\x98\x8E \xF0\x9F\x8E\xA5";
    const std::string path = "D:\\\xE8\xBE\x93\xE5\x87\xBA";
    const FileMappingHandle userSection = MakeTextSection(kUserName, name);
    const FileMappingHandle pathSection = MakeTextSection(kSavePath, path);
    const SessionData data = read();
    EXPECT_EQ(data.userName, L"\x5C0F\x660E \xD83C\xDFA5");
    EXPECT_EQ(data.savePath, L"D:\\\x8F93\x51FA");
    EXPECT_EQ(data.savePathBytes, path);
    EXPECT_TRUE(data.present);
}

TEST_F(Session, TakesEmptyValues) {
    const FileMappingHandle user = MakeTextSection(kUserName, "");
    const FileMappingHandle path = MakeTextSection(kSavePath, "");
    const SessionData data = read();
    EXPECT_EQ(data.userName, L"");
    EXPECT_EQ(data.savePath, L"");
    EXPECT_EQ(data.savePathBytes, "");
    EXPECT_TRUE(data.present);
}

TEST_F(Session, TakesAValueOf4095BytesAndNoLongerOne) {
    {
        const FileMappingHandle user = MakeTextSection(kUserName, std::string(4095, 'u'));
        EXPECT_EQ(read().userName, std::wstring(4095, L'u'));
    }
    const FileMappingHandle user = MakeTextSection(kUserName, std::string(4096, 'u'));
    EXPECT_EQ(read().userName, L"before");
    EXPECT_NE(product_.log(L"rud_data").find("no zero byte"), std::string::npos);
}

TEST_F(Session, StaysWithinASectionOfOnePageWithoutAZeroByte) {
    const FileMappingHandle user = MakeSection(kUserName, std::string(4096, 'u'), 4096);
    const FileMappingHandle path = MakeTextSection(kSavePath, "D:\\out");
    const SessionData data = read();
    EXPECT_EQ(data.userName, L"before");
    EXPECT_FALSE(data.present);
    EXPECT_NE(product_.log(L"rud_data").find("no zero byte"), std::string::npos);
}

TEST_F(Session, TakesTheTextOfALargeSection) {
    const FileMappingHandle user = MakeSection(kUserName, std::string("anna\0rest", 9), 1 << 20);
    EXPECT_EQ(read().userName, L"anna");
}

TEST_F(Session, TakesASectionOfAFewBytes) {
    // Windows gives whole pages; what lies behind the section's end reads as zero.
    const FileMappingHandle user = MakeSection(kUserName, "anna", 4);
    EXPECT_EQ(read().userName, L"anna");
}

// A section whose pages are reserved, but not there: a touch would end the process.
FileMappingHandle MakeReservedSection(const wchar_t* name) {
    return FileMappingHandle(::CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr,
                                                  PAGE_READWRITE | SEC_RESERVE, 0, 8192, name));
}

TEST_F(Session, SurvivesASectionWithoutMemoryBehindIt) {
    const FileMappingHandle user = MakeReservedSection(kUserName);
    ASSERT_TRUE(user);
    EXPECT_FALSE(read().present);
    EXPECT_EQ(read().userName, L"before");
    EXPECT_NE(product_.log(L"rud_data").find("its memory cannot be read"), std::string::npos);
}

TEST_F(Session, TakesAUserNameThatIsNotUtf8) {
    const FileMappingHandle user = MakeTextSection(kUserName, "anna \xFF");
    const FileMappingHandle path = MakeTextSection(kSavePath, "D:\\out");
    const SessionData data = read();
    EXPECT_EQ(data.userName, L"anna \xFFFD");
    EXPECT_EQ(data.savePath, L"D:\\out");
    EXPECT_TRUE(data.present);
    EXPECT_NE(product_.log(L"rud_data").find("TALVEKRO_USERNAME_DATA: the text is not UTF-8."),
              std::string::npos);
}

TEST_F(Session, SurvivesASectionOfAnotherKind) {
    const EventHandle event(::CreateEventW(nullptr, TRUE, FALSE, kUserName));
    ASSERT_TRUE(event);
    EXPECT_EQ(read().userName, L"before");
    EXPECT_FALSE(read().present);
}

TEST_F(Session, TakesAFolderThatIsNotUtf8) {
    const FileMappingHandle user = MakeTextSection(kUserName, "anna");
    const FileMappingHandle path = MakeTextSection(kSavePath, "D:\\out\xFF");
    const SessionData data = read();
    EXPECT_EQ(data.savePath, L"D:\\out\xFFFD");
    EXPECT_EQ(data.savePathBytes, "D:\\out\xFF") << "as the bytes stood in the memory";
    EXPECT_TRUE(data.present);
    EXPECT_NE(product_.log(L"rud_data").find("TALVEKRO_PLUGIN_SAVE_PATH: the text is not UTF-8."),
              std::string::npos);
}

// What the product asks for when it opens a section and a view of it.
struct Opened {
    DWORD access;
    BOOL isInherited;
};
std::vector<Opened> openedSections;
std::vector<DWORD> viewAccess;

HANDLE WINAPI NoteSection(DWORD access, BOOL isInherited, LPCWSTR name) {
    openedSections.push_back({access, isInherited});
    return ::CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 8192, name);
}

LPVOID WINAPI NoteView(HANDLE section, DWORD access, DWORD high, DWORD low, SIZE_T size) {
    viewAccess.push_back(access);
    return ::MapViewOfFileEx(section, access, high, low, size, nullptr);
}

// The client's memory is the client's: this product only reads, and hands the handle to nobody.
TEST_F(Session, IsOpenedForReadingOnlyAndNotInherited) {
    const FileMappingHandle user = MakeTextSection(kUserName, "anna");
    const FileMappingHandle path = MakeTextSection(kSavePath, "D:\\out");
    openedSections.clear();
    viewAccess.clear();
    const HMODULE program = ::GetModuleHandleW(nullptr);
    {
        const ImportPatch open(program, "OpenFileMappingW",
                               reinterpret_cast<ULONGLONG>(&NoteSection));
        const ImportPatch map(program, "MapViewOfFile", reinterpret_cast<ULONGLONG>(&NoteView));
        EXPECT_TRUE(read().present);
    }
    ASSERT_EQ(openedSections.size(), 2U);
    for (const Opened& section : openedSections) {
        EXPECT_EQ(section.access, static_cast<DWORD>(FILE_MAP_READ));
        EXPECT_FALSE(section.isInherited);
    }
    EXPECT_EQ(viewAccess, std::vector<DWORD>(2, FILE_MAP_READ));
}

TEST_F(Session, IsReadAnewEachTime) {
    EXPECT_FALSE(read().present);
    const FileMappingHandle user = MakeTextSection(kUserName, "anna");
    const FileMappingHandle path = MakeTextSection(kSavePath, "D:\\out");
    EXPECT_TRUE(read().present);
}

} // namespace
} // namespace test
} // namespace orv
