#include "standin/client/job_check.h"

#include "analysis/text/text_convert.h"
#include "base/handles.h"

#include <algorithm>
#include <exception>

namespace standin {

namespace {

enum ReplyCodes : int {
    kAccepted = 10001,
    kSceneMissing = 10005,
    kJobFileMissing = 10006,
    kJobFileUnreadable = 10007,
    kOwnWords = 10010,
};

constexpr LONGLONG kLargestJobFile = LONGLONG{64} * 1024 * 1024;

struct Member {
    const char* name;
    Json::ValueType type;
};

const Member kBodyMembers[] = {
    {"scenePath", Json::stringValue},           {"filePath", Json::stringValue},
    {"maxVersion", Json::stringValue},          {"compressPath", Json::stringValue},
    {"PLUGIN_SAVE_SCENE_FILE", Json::intValue},
};

const Member kJobMembers[] = {
    {"name", Json::stringValue},        {"enable_blocking", Json::intValue},
    {"num_blocks", Json::intValue},     {"distributed_render", Json::intValue},
    {"max_options", Json::objectValue},
};

const Member kCameraMembers[] = {
    {"name", Json::stringValue},
    {"camera_width", Json::intValue},
    {"camera_height", Json::intValue},
    {"frame_to_render", Json::intValue},
    {"img_output_format", Json::stringValue},
    {"img_output_name", Json::stringValue},
    {"renderable", Json::stringValue},
    {"is_spherical", Json::booleanValue},
};

// The members that a line of output repeats, so that a reader need not open the job file.
const char* const kShownMembers[] = {"name",        "app_version",     "cameras",
                                     "num_blocks",  "enable_blocking", "distributed_render",
                                     "max_options", "corona_options",  "reference_file"};

bool ParseJson(const std::string& text, Json::Value& value) {
    try {
        return Json::Reader().parse(text, value) && value.isObject();
    } catch (const std::exception&) { // nested too deeply
        return false;
    }
}

template<std::size_t N>
void CheckMembers(const Json::Value& object, const Member (&members)[N], const std::string& where,
                  std::vector<std::string>& problems) {
    for (const Member& member : members) {
        const Json::Value& value = object[member.name];
        const bool fits =
            member.type == Json::intValue ? value.isInt() : value.type() == member.type;
        if (!fits)
            problems.push_back(where + " has no proper \"" + member.name + "\"");
    }
}

std::string TextOf(const Json::Value& object, const char* name) {
    const Json::Value& value = object[name];
    return value.isString() ? value.asString() : std::string();
}

// Opens a file for reading and describes it; the handle is empty when the file does not exist.
orv::FileHandle Open(const std::string& path, Json::Value& description, LONGLONG& size) {
    orv::FileHandle file(::CreateFileW(orv::Utf8ToWide(path).c_str(), GENERIC_READ,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER length = {};
    if (file && !::GetFileSizeEx(file.get(), &length))
        file.reset();
    description["path"] = path;
    description["exists"] = static_cast<bool>(file);
    if (file)
        description["bytes"] = static_cast<Json::Int64>(length.QuadPart);
    size = length.QuadPart;
    return file;
}

std::string Read(const orv::FileHandle& file, std::size_t size) {
    std::string bytes(size, '\0');
    DWORD read = 0;
    if (!::ReadFile(file.get(), &bytes[0], static_cast<DWORD>(size), &read, nullptr))
        read = 0;
    bytes.resize(read);
    return bytes;
}

bool HasBareLineFeed(const std::string& text) {
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1)) {
        if (at == 0 || text[at - 1] != '\r')
            return true;
    }
    return false;
}

void CheckJobText(const std::string& text, const Json::Value& job, JobCheck& check) {
    if (text.compare(0, 3, "\xEF\xBB\xBF") == 0)
        check.problems.emplace_back("the job file begins with a byte-order mark");
    if (HasBareLineFeed(text))
        check.problems.emplace_back("the job file has a line that does not end in CR LF");
    CheckMembers(job, kJobMembers, "the job file", check.problems);
    if (job["name"] != check.body["scenePath"])
        check.problems.emplace_back("the job file's \"name\" is not the request's \"scenePath\"");
    if (!job["errors"].isNull())
        check.problems.emplace_back("the job file still has \"errors\"");
    if (job.isMember("cameras")) {
        if (!job["cameras"].isArray() || job["cameras"].empty())
            check.problems.emplace_back("the job file's \"cameras\" is no list of cameras");
        else
            for (const Json::Value& camera : job["cameras"]) {
                if (camera.isObject())
                    CheckMembers(camera, kCameraMembers, "a camera of the job file",
                                 check.problems);
                else
                    check.problems.emplace_back("a camera of the job file is no object");
            }
    }
    for (const char* name : kShownMembers) {
        if (job.isMember(name))
            check.jobFile["members"][name] = job[name];
    }
}

void CheckJobFile(JobCheck& check) {
    LONGLONG size = 0;
    const orv::FileHandle file = Open(TextOf(check.body, "filePath"), check.jobFile, size);
    if (!file) {
        check.problems.emplace_back("the job file cannot be opened");
        check.replyCode = kJobFileMissing;
        return;
    }
    const std::string text =
        Read(file, static_cast<std::size_t>((std::min)(size, kLargestJobFile)));
    Json::Value job;
    if (!ParseJson(text, job)) {
        check.problems.emplace_back("the job file is no JSON object");
        check.replyCode = kJobFileUnreadable;
        return;
    }
    CheckJobText(text, job, check);
}

void CheckArchive(JobCheck& check) {
    LONGLONG size = 0;
    const orv::FileHandle file = Open(TextOf(check.body, "compressPath"), check.archive, size);
    if (!file) {
        check.problems.emplace_back("the archive cannot be opened");
        return;
    }
    const bool is7z = Read(file, 6) == "7z\xBC\xAF\x27\x1C";
    check.archive["is_7z"] = is7z;
    if (!is7z)
        check.problems.emplace_back("the archive does not begin as a 7z archive does");
}

} // namespace

JobCheck CheckJob(const std::string& body) {
    JobCheck check;
    check.replyCode = kAccepted;
    if (!ParseJson(body, check.body)) {
        check.body = Json::nullValue;
        check.problems.emplace_back("the body is no JSON object");
        check.replyCode = kOwnWords;
        return check;
    }
    CheckMembers(check.body, kBodyMembers, "the body", check.problems);

    CheckArchive(check);
    CheckJobFile(check);
    LONGLONG size = 0;
    if (!Open(TextOf(check.body, "scenePath"), check.scene, size)) {
        check.problems.emplace_back("the scene file cannot be opened");
        check.replyCode = kSceneMissing;
    }
    if (check.replyCode == kAccepted && !check.problems.empty())
        check.replyCode = kOwnWords;
    return check;
}

} // namespace standin
