// Files: names, whole files, text and byte streams, through real files.
#include "standin/host/maxscript_runner.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/maxscript/script_rows.h"

#include "base/windows.h"

namespace {

class FileFunctions : public ::testing::Test {
protected:
    // A script in which % stands for the test's folder.
    std::wstring run(const std::wstring& script) {
        std::wstring text;
        for (const wchar_t each : script)
            text += each == L'%' ? folder_.path() : std::wstring(1, each);
        const standin::ScriptOutcome outcome = runner_.run(L"(" + text + L") as string");
        return outcome.ok ? outcome.text : L"error: " + outcome.error;
    }
    std::string bytes(const std::wstring& name) const {
        return orv::test::ReadFileBytes(folder_.file(name));
    }
    void write(const std::wstring& name, const std::string& content) const {
        orv::test::WriteFileBytes(folder_.file(name), content);
    }
    bool exists(const std::wstring& name) const {
        return orv::test::PathExists(folder_.file(name));
    }

    orv::test::TemporaryFolder folder_{L"\u811A\u672C files"};
    standin::Scene scene_;
    standin::MaxscriptRunner runner_{scene_,
                                     [](const std::wstring& name) { return L"C:\\host\\" + name; },
                                     [](const std::wstring&) {}};
};

TEST_F(FileFunctions, TakeNamesApart) {
    EXPECT_EQ(run(L"filenameFromPath @\"C:\\a\\b.c.max\""), L"b.c.max");
    EXPECT_EQ(run(L"getFilenamePath @\"C:\\a\\b.max\""), L"C:\\a\\");
    EXPECT_EQ(run(L"getFilenameFile @\"C:\\a\\b.c.max\""), L"b.c");
    EXPECT_EQ(run(L"getFilenameType @\"C:\\a.x\\b.max\""), L".max");
    EXPECT_EQ(run(L"getFilenameType @\"C:\\a.x\\b\""), L"");
}

TEST_F(FileFunctions, WriteUtf8WithAndWithoutAMark) {
    EXPECT_EQ(run(L"f = createFile @\"%\\a.txt\" encoding:#utf8 writeBOM:false; format "
                  L"\"\u4E2D\\n\" to:f; close f"),
              L"OK");
    EXPECT_EQ(bytes(L"a.txt"), "\xE4\xB8\xAD\r\n");
    run(L"f = createFile @\"%\\b.txt\" encoding:#utf8 writeBOM:true; format \"x\" to:f; close f");
    EXPECT_EQ(bytes(L"b.txt"), "\xEF\xBB\xBFx");
    run(L"f = createFile @\"%\\c.txt\" encoding:#utf16le writeBOM:true; format \"x\" to:f; close "
        L"f");
    EXPECT_EQ(bytes(L"c.txt"), std::string("\xFF\xFEx\0", 4));
}

TEST_F(FileFunctions, AddToAFile) {
    write(L"a.txt", "one ");
    run(L"f = openFile @\"%\\a.txt\" mode:\"at\" encoding:#utf8; format \"two\" to:f; close f");
    EXPECT_EQ(bytes(L"a.txt"), "one two");
}

TEST_F(FileFunctions, GiveUndefinedWhereNoFileCanBeMade) {
    EXPECT_EQ(run(L"createFile @\"%\\no folder\\a.txt\""), L"undefined");
    EXPECT_EQ(run(L"fopen @\"%\\absent.txt\" \"rb\""), L"undefined");
}

TEST_F(FileFunctions, RefuseAClosedStream) {
    EXPECT_EQ(run(L"f = createFile @\"%\\a.txt\"; close f; format \"x\" to:f")
                  .find(L"error: write error"),
              0U);
    EXPECT_EQ(run(L"f = fopen @\"%\\a.txt\" \"rb\"; fclose f; readByte f")
                  .find(L"error: needs an open BinStream"),
              0U);
}

TEST_F(FileFunctions, ReadAndWriteBytes) {
    write(L"a.bin", std::string("\x01\xFF\0", 3));
    EXPECT_EQ(run(L"f = fopen @\"%\\a.bin\" \"rb\"; b = for i = 1 to 4 collect (readByte f "
                  L"#unsigned); fclose f; b"),
              L"#(1, 255, 0, undefined)");
    run(L"f = fopen @\"%\\b.bin\" \"wb\"; writeByte f 254 #unsigned; fclose f");
    EXPECT_EQ(bytes(L"b.bin"), "\xFE");
    EXPECT_EQ(run(L"f = fopen @\"%\\a.bin\" \"rb\"; fseek f 1 #seek_set; n = ftell f; fclose f; n"),
              L"1");
}

TEST_F(FileFunctions, CopyRenameAndDeleteWholeFiles) {
    write(L"a.txt", "a");
    EXPECT_EQ(run(L"copyFile @\"%\\a.txt\" @\"%\\b.txt\""), L"true");
    EXPECT_EQ(run(L"copyFile @\"%\\a.txt\" @\"%\\b.txt\""), L"false"); // never over another file
    EXPECT_EQ(run(L"renameFile @\"%\\b.txt\" @\"%\\c.txt\""), L"true");
    EXPECT_EQ(run(L"#(doesFileExist @\"%\\b.txt\", doesFileExist @\"%\\c.txt\", getFileSize "
                  L"@\"%\\c.txt\")"),
              L"#(false, true, 1)");
    EXPECT_EQ(run(L"deleteFile @\"%\\c.txt\""), L"true");
    EXPECT_EQ(run(L"deleteFile @\"%\\c.txt\""), L"false");
}

TEST_F(FileFunctions, ReadAndSetAttributes) {
    write(L"a.txt", "a");
    EXPECT_EQ(run(L"setFileAttribute @\"%\\a.txt\" #readOnly true"), L"true");
    EXPECT_EQ(run(L"getFileAttribute @\"%\\a.txt\" #readOnly"), L"true");
    EXPECT_EQ(run(L"setFileAttribute @\"%\\a.txt\" #readOnly false; deleteFile @\"%\\a.txt\""),
              L"true");
}

TEST_F(FileFunctions, ListFilesAndFolders) {
    write(L"b.ms", "");
    write(L"a.ms", "");
    EXPECT_EQ(run(L"makeDir @\"%\\one\\two\""), L"true");
    EXPECT_EQ(run(L"for f in (getFiles @\"%\\*.ms\") collect (filenameFromPath f)"),
              L"#(\"a.ms\", \"b.ms\")");
    EXPECT_EQ(run(L"(getDirectories @\"%\\*\").count"), L"1");
    EXPECT_EQ(run(L"getFiles @\"%\\absent\\*\""), L"#()");
}

TEST_F(FileFunctions, KnowTheHostsFolders) {
    EXPECT_EQ(run(L"getDir #userStartupScripts"), L"C:\\host\\userstartupscripts");
}

TEST_F(FileFunctions, RunAScriptFileInEachEncoding) {
    write(L"utf8.ms", "\xEF\xBB\xBF\"\xE4\xB8\xAD\"");
    write(L"utf16.ms", std::string("\xFF\xFE\"\0-N\"\0", 8));
    write(L"plain.ms", "\"plain\"");
    EXPECT_EQ(run(L"fileIn @\"%\\utf8.ms\""), L"\u4E2D");
    EXPECT_EQ(run(L"fileIn @\"%\\utf16.ms\""), L"\u4E2D");
    EXPECT_EQ(run(L"fileIn @\"%\\plain.ms\""), L"plain");
    EXPECT_EQ(run(L"fileIn @\"%\\absent.ms\"").find(L"error: fileIn: cannot open file"), 0U);
}

TEST_F(FileFunctions, TellAScriptItsOwnFile) {
    write(L"inner.ms", "getSourceFileName()");
    write(L"outer.ms", "fileIn ((getFilenamePath (getSourceFileName())) + \"inner.ms\")");
    EXPECT_EQ(run(L"filenameFromPath (fileIn @\"%\\outer.ms\")"), L"inner.ms");
}

TEST_F(FileFunctions, MakeTheCopyThatStandsForAnEncryptedScript) {
    write(L"a.ms", "5");
    run(L"encryptScript @\"%\\a.ms\"");
    EXPECT_EQ(run(L"fileIn @\"%\\a.mse\""), L"5");
    EXPECT_EQ(run(L"encryptScript @\"%\\absent.ms\"").find(L"error: encryptScript"), 0U);
}

} // namespace
