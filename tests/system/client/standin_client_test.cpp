// The stand-in client itself: what it publishes, and how strictly it reads.
#include "analysis/text/text_convert.h"
#include "base/handles.h"
#include "tests/support/files.h"
#include "tests/support/loopback.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/client/client_process.h"

#include <gtest/gtest.h>

#include <string>

namespace orv {
namespace test {
namespace {

// Sends bytes as they are and reads the answer to its end.
std::string Talk(std::uint16_t port, const std::string& bytes) {
    const SocketHandle socket = ConnectTo(port);
    if (!socket)
        return "not connected";
    ::send(socket.get(), bytes.data(), static_cast<int>(bytes.size()), 0);
    ::shutdown(socket.get(), SD_SEND);
    return ReceiveAll(socket.get());
}

std::string RequestFor(std::uint16_t port, const std::string& body) {
    return "POST / HTTP/1.1\r\n"
           "Connection: Keep-Alive\r\n"
           "Content-Type: application/json;charset=utf-8\r\n"
           "User-Agent: A WinHTTP Program For Tallowmere/1.0\r\n"
           "Content-Length: " +
           std::to_string(body.size()) + "\r\nHost: 127.0.0.1:" + std::to_string(port) +
           "\r\n\r\n" + body;
}

std::string Replaced(std::string text, const std::string& old, const std::string& now) {
    return text.replace(text.find(old), old.size(), now);
}

std::string SharedText(const wchar_t* name) {
    const FileMappingHandle section(::OpenFileMappingW(FILE_MAP_READ, FALSE, name));
    if (!section)
        return "no section";
    const MappedView view(::MapViewOfFile(section.get(), FILE_MAP_READ, 0, 0, 0));
    return view ? std::string(static_cast<const char*>(view.get())) : "no view";
}

// A job as the plug-in leaves it: scene, archive and job file in one folder.
class JobOnDisk {
public:
    JobOnDisk() : folder_(L"任务 job") {
        WriteFileBytes(folder_.file(L"场景.max"), "scene");
        WriteFileBytes(folder_.file(L"job.7z"), "7z\xBC\xAF\x27\x1C and more");
        Json::Value job;
        job["name"] = path(L"场景.max");
        job["app_version"] = "2019";
        job["enable_blocking"] = 0;
        job["num_blocks"] = 0;
        job["distributed_render"] = 0;
        job["max_options"]["color_channel"] = false;
        Json::Value camera;
        camera["name"] = WideToUtf8(L"相机");
        camera["camera_width"] = 1920;
        camera["camera_height"] = 1080;
        camera["frame_to_render"] = 0;
        camera["img_output_format"] = "PNG";
        camera["img_output_name"] = WideToUtf8(L"相机");
        camera["renderable"] = "1";
        camera["is_spherical"] = false;
        job["cameras"].append(camera);
        writeJob(job.toStyledString());
    }

    std::string path(const wchar_t* name) const { return WideToUtf8(folder_.file(name)); }

    void writeJob(const std::string& text) const {
        std::string crlf;
        for (const char character : text)
            crlf += character == '\n' ? std::string("\r\n") : std::string(1, character);
        WriteFileBytes(folder_.file(L"job.json"), crlf);
    }

    Json::Value body() const {
        Json::Value body;
        body["scenePath"] = path(L"场景.max");
        body["filePath"] = path(L"job.json");
        body["compressPath"] = path(L"job.7z");
        body["maxVersion"] = "3ds Max 2019";
        body["PLUGIN_SAVE_SCENE_FILE"] = 1u;
        return body;
    }

    void remove(const wchar_t* name) const { DeleteTree(folder_.file(name)); }

private:
    TemporaryFolder folder_;
};

int ReplyCodeOf(const std::string& answer) {
    Json::Value reply;
    const std::size_t begin = answer.find('{');
    if (begin == std::string::npos || !Json::Reader().parse(answer.substr(begin), reply))
        return 0;
    return reply["ret"].asInt();
}

TEST(TheStandInClient, AcceptsARequestOfThePluginAndDescribesIt) {
    const JobOnDisk job;
    ClientProcess client;
    const std::string body = job.body().toStyledString();
    EXPECT_EQ(ReplyCodeOf(Talk(client.port(), RequestFor(client.port(), body))), 10001);

    const Json::Value line = client.nextLine();
    EXPECT_TRUE(line["ok"].asBool()) << line["problems"].toStyledString();
    EXPECT_EQ(line["head"].asString(), "POST / HTTP/1.1");
    EXPECT_EQ(line["body_bytes"].asUInt(), body.size());
    EXPECT_EQ(line["body"].toStyledString(), body);
    EXPECT_EQ(line["remote"].asString().find("127.0.0.1:"), 0U);
    EXPECT_EQ(line["job_file"]["members"]["cameras"][0]["name"].asString(),
              "\xE7\x9B\xB8\xE6\x9C\xBA");
    EXPECT_EQ(line["archive"]["bytes"].asInt(), 15);
    EXPECT_TRUE(line["archive"]["is_7z"].asBool());
    EXPECT_EQ(line["scene"]["bytes"].asInt(), 5);
}

TEST(TheStandInClient, NoticesEachByteOfTheHeadThatIsNotThePlugins) {
    const JobOnDisk job;
    const std::pair<const char*, const char*> faults[] = {
        {"POST / HTTP/1.1", "POST /job HTTP/1.1"},
        {"POST", "PUT"},
        {"HTTP/1.1", "HTTP/1.0"},
        {"Keep-Alive", "close"},
        {"charset=utf-8", "charset=UTF-8"},
        {"application/json;charset", "application/json; charset"},
        {"User-Agent", "User-agent"},
        {"Tallowmere/1.0", "Tallowmere/1.1"},
        {"Content-Length: ", "Content-Length: 9"},
        {"Content-Length: ", "Content-Length:"},
        {"Host: 127.0.0.1", "Host: localhost"},
        {"Host: 127.0.0.1:", "Host: 127.0.0.1:1"},
        {"\r\nHost", "\r\nAccept: */*\r\nHost"},
        {"\r\nHost", "\nHost"},
        {"\r\n\r\n", "\n\n"},
        {"}", "} "},
    };
    ClientProcess client;
    for (const auto& fault : faults) {
        const std::string request = Replaced(RequestFor(client.port(), job.body().toStyledString()),
                                             fault.first, fault.second);
        EXPECT_EQ(ReplyCodeOf(Talk(client.port(), request)), 10010) << fault.second;
        const Json::Value line = client.nextLine();
        EXPECT_FALSE(line["ok"].asBool()) << fault.second;
        EXPECT_FALSE(line["problems"].empty()) << fault.second;
    }
}

TEST(TheStandInClient, AnswersWithTheCodeThatAMissingOrBrokenFileDeserves) {
    struct Fault {
        const wchar_t* missing;
        int code;
    };
    ClientProcess client;
    const auto talk = [&client](const JobOnDisk& job) {
        return ReplyCodeOf(
            Talk(client.port(), RequestFor(client.port(), job.body().toStyledString())));
    };
    for (const Fault& fault :
         {Fault{L"场景.max", 10005}, Fault{L"job.json", 10006}, Fault{L"job.7z", 10010}}) {
        const JobOnDisk job;
        job.remove(fault.missing);
        EXPECT_EQ(talk(job), fault.code);
    }
    const JobOnDisk job;
    job.writeJob("{ no JSON");
    EXPECT_EQ(talk(job), 10007);
    job.writeJob("{\"name\": \"another scene\"}");
    EXPECT_EQ(talk(job), 10010);
}

TEST(TheStandInClient, SurvivesABodyThatIsNoRequest) {
    std::string deep;
    deep.append(10000, '[');
    ClientProcess client;
    for (const std::string& body :
         {std::string(), std::string("[]"), std::string("{}"), std::string("\0\xFF", 2), deep,
          std::string("{\"scenePath\":1,\"filePath\":[],\"compressPath\":{}}")}) {
        EXPECT_NE(ReplyCodeOf(Talk(client.port(), RequestFor(client.port(), body))), 10001);
        EXPECT_FALSE(client.nextLine()["ok"].asBool());
    }
    EXPECT_EQ(ReplyCodeOf(Talk(client.port(), "")), 10010) << "no bytes at all";
}

TEST(TheStandInClient, PublishesUserNameAndSavePathWhileItRuns) {
    {
        ClientProcess client(L"--user-name \"王小明\" --save-path \"D:\\farm 输出\"");
        EXPECT_EQ(SharedText(L"TALVEKRO_USERNAME_DATA"), WideToUtf8(L"王小明"));
        EXPECT_EQ(SharedText(L"TALVEKRO_PLUGIN_SAVE_PATH"), WideToUtf8(L"D:\\farm 输出"));
    }
    EXPECT_TRUE(WaitUntil([] { return SharedText(L"TALVEKRO_USERNAME_DATA") == "no section"; }));
}

TEST(TheStandInClient, PublishesNothingWhenToldSo) {
    ClientProcess client(L"--no-shared-memory");
    EXPECT_EQ(SharedText(L"TALVEKRO_USERNAME_DATA"), "no section");
    EXPECT_EQ(SharedText(L"TALVEKRO_PLUGIN_SAVE_PATH"), "no section");
}

TEST(TheStandInClient, EndsAfterTheRequestsAskedFor) {
    ClientProcess client(L"--requests 2 --reply-code 10001");
    DWORD code = 1;
    Talk(client.port(), RequestFor(client.port(), "{}"));
    Talk(client.port(), RequestFor(client.port(), "{}"));
    EXPECT_TRUE(client.waitForExit(code));
    EXPECT_EQ(code, 0U);
}

TEST(TheStandInClient, RefusesOptionsItDoesNotKnowAndPortsInUse) {
    for (const wchar_t* arguments : {L"--nonsense", L"--port", L"--port 70000", L"--port x",
                                     L"--split middle", L"--requests 0"}) {
        ClientProcess client(arguments);
        DWORD code = 0;
        EXPECT_TRUE(client.waitForExit(code));
        EXPECT_EQ(code, 2U) << WideToUtf8(arguments);
    }
    ClientProcess first;
    ClientProcess second(L"--no-shared-memory --port " + std::to_wstring(first.port()));
    DWORD code = 0;
    EXPECT_TRUE(second.waitForExit(code));
    EXPECT_EQ(code, 1U);
}

} // namespace
} // namespace test
} // namespace orv
