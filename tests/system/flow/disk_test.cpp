// A full disk and one that cannot be written to.
#include "resources/controls.h"
#include "resources/texts.h"
#include "tests/system/flow/flow.h"

#include <cstdlib>
#include <stdexcept>

namespace orv {
namespace test {
namespace {

constexpr std::size_t kDisk = 256U << 10; // bytes of the small disk

class Disk : public SubmissionFlow {
protected:
    // A folder of the disks that the tests are given.
    static std::wstring folder(const wchar_t* name) {
        const wchar_t* const disks = ::_wgetenv(L"ORV_TEST_DISKS");
        if (disks == nullptr)
            throw std::runtime_error("ORV_TEST_DISKS does not name the folder of the test disks");
        return std::wstring(disks) + L"/" + name;
    }

    void begin(const wchar_t* disk) {
        host_.sceneFolder = folder(disk);
        filler_ = host_.sceneFolder + L"\\filler.bin";
        ASSERT_TRUE(PathExists(host_.sceneFolder));
        emptyFolder();
        ASSERT_NO_FATAL_FAILURE(startClient());
        ASSERT_NO_FATAL_FAILURE(open());
    }
    ~Disk() override { emptyFolder(); }

    void emptyFolder() const {
        for (const std::wstring& name : ListFolder(host_.sceneFolder))
            DeleteTree(host_.sceneFolder + L"\\" + name);
    }

    // Fills the disk up to the last byte that it takes.
    void fillUp() const {
        const FileHandle file(::CreateFileW(filler_.c_str(), GENERIC_WRITE, 0, nullptr,
                                            CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        const std::string block(4096, 'f');
        DWORD written = 0;
        std::size_t total = 0;
        while (::WriteFile(file.get(), block.data(), static_cast<DWORD>(block.size()), &written,
                           nullptr) &&
               written != 0)
            total += written;
        ASSERT_LT(total, kDisk) << "this is no small disk";
    }
    void makeRoom() const { ASSERT_TRUE(DeleteTree(filler_)); }

    void expectRefusedByTheClient(unsigned textId = 0) {
        int code = kStillRunning;
        const MessageSeen message = submitToMessage(&code);
        EXPECT_NE(message.text, text(IDS_REPLY_ACCEPTED));
        if (textId != 0) {
            EXPECT_EQ(message.text, text(textId));
        }
        EXPECT_EQ(code, 0);
        EXPECT_TRUE(dialogStays());
    }

    std::wstring filler_;
};

TEST_F(Disk, WithoutRoomForTheArchiveLosesNothing) {
    host_.sceneBytes = NoisyBytes(kDisk * 6 / 10);
    ASSERT_NO_FATAL_FAILURE(begin(L"full"));
    expectRefusedByTheClient();
    EXPECT_TRUE(logHas(L"rud_data", "[ERROR] Pack scene: the archiver ended with code "));
    EXPECT_TRUE(archives().empty());
    EXPECT_EQ(jobFiles().size(), 1U);
    expectNothingLostOrLeft();
}

TEST_F(Disk, WithoutAnyRoomLeavesNoHalfWrittenFile) {
    host_.sceneBytes = NoisyBytes(20000);
    ASSERT_NO_FATAL_FAILURE(begin(L"full"));
    MakeFolders(outputFolder() + L"/json");
    ASSERT_NO_FATAL_FAILURE(fillUp());
    expectRefusedByTheClient(IDS_REPLY_JOB_FILE_MISSING);
    EXPECT_TRUE(logHas(L"rud_data", "[ERROR] Pack scene: the archiver ended with code "));
    EXPECT_TRUE(logHas(L"rud_data", "[ERROR] WriteFile "));
    EXPECT_TRUE(archives().empty());
    EXPECT_TRUE(jobFiles().empty());
    expectNothingLostOrLeft({L"filler.bin"});

    ASSERT_NO_FATAL_FAILURE(makeRoom());
    expectSecondSubmissionSucceeds();
    expectNothingLostOrLeft();
}

// The disk is mounted where the job's folder belongs.
TEST_F(Disk, ThatCannotBeWrittenToIsTold) {
    host_.sceneBytes = NoisyBytes(4000);
    host_.sceneFolder = folder(L"protected");
    ASSERT_NO_FATAL_FAILURE(startClient());
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_TRUE(PathExists(outputFolder()));
    for (int attempt = 0; attempt < 2; ++attempt) {
        int code = kStillRunning;
        EXPECT_EQ(submitToMessage(&code).text, text(IDS_JOB_NOT_WRITTEN));
        EXPECT_EQ(code, -1);
        EXPECT_TRUE(dialogStays());
    }
    EXPECT_TRUE(logHas(L"rud_data", "[ERROR] CreateDirectoryW "));
    EXPECT_TRUE(logHas(L"rud_data", "[ERROR] Pack scene: the archiver ended with code "));
    EXPECT_TRUE(logHas(L"rud_data", "[ERROR] Open json file failed when write it!"));
    EXPECT_TRUE(ListFolder(outputFolder()).empty());
    expectNothingLostOrLeft();

    // Under another name there is a folder that can be written to.
    Type(dialog_, IDC_SCENE_NAME, L"other");
    EXPECT_EQ(submitToMessage().text, text(IDS_REPLY_ACCEPTED));
    EXPECT_TRUE(dialogCloses());
    expectNothingLostOrLeft({L"other.max", L"other.max.json", L"other_plugin_output"});
}

} // namespace
} // namespace test
} // namespace orv
