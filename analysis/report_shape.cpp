// Which members a report must have, and of which types, before anything of it is taken.
#include "analysis/report_json.h"

namespace orv {
namespace {

// What a member may be. A member that is missing reads as null.
enum class Shape {
    Text,           // a string, needed
    OptionalText,   // a string or null
    Plain,          // a string, a boolean or null
    Switch,         // a boolean, a number or null
    OptionalObject, // an object or null
    OptionalList,   // an array or null
};

struct MemberShape {
    const char* name;
    Shape shape;
};

using Texts = std::vector<const char*>;

// A list whose entries are objects with a needed string.
struct ListShape {
    const char* name;
    const char* entryMember;
    Texts ReportPaths::*texts; // where the strings are noted, if anywhere
};

constexpr MemberShape kTopLevel[] = {
    {"is_region", Shape::Text},
    {"renderer_full_name", Shape::OptionalText},
    {"corona_setting", Shape::OptionalObject},
    {"vray_setting", Shape::OptionalObject},
    {"image_format", Shape::Plain},
    {"gamma_out", Shape::OptionalText},
    {"errors", Shape::OptionalObject},
    {"version", Shape::Plain},
    {"same_file", Shape::OptionalList},
};

constexpr MemberShape kNeededWithCameras[] = {
    {"image_width", Shape::Text},
    {"image_height", Shape::Text},
    {"start_frame", Shape::Text},
};

constexpr MemberShape kCamera[] = {
    {"camWidth", Shape::OptionalText},
    {"camHeight", Shape::OptionalText},
};

constexpr MemberShape kCorona[] = {
    {"pass_limit", Shape::OptionalText},
    {"time_limit", Shape::OptionalText},
    {"noise_level_limit", Shape::OptionalText},
};

constexpr MemberShape kVRay[] = {
    {"imagesampler_type", Shape::OptionalText},   {"gi_irradmap_preset", Shape::OptionalText},
    {"gi_irradmap_minRate", Shape::OptionalText}, {"gi_irradmap_maxRate", Shape::OptionalText},
    {"camera_override_fov", Shape::Switch},       {"camera_fov", Shape::OptionalText},
    {"is_spherical", Shape::OptionalText},
};

constexpr ListShape kLists[] = {
    {"missing_file", "path", &ReportPaths::missing},
    {"reference_file", "path", &ReportPaths::referenced},
    {"cameras", "name", nullptr},
    {"dupl_cameras", "name", nullptr},
};

constexpr ListShape kErrorCodes = {"error_code", "code", nullptr};

bool Fits(const Json::Value& value, Shape shape) {
    switch (shape) {
    case Shape::Text:
        return value.isString();
    case Shape::OptionalText:
        return value.isString() || value.isNull();
    case Shape::Plain:
        return value.isString() || value.isBool() || value.isNull();
    case Shape::Switch:
        return value.isBool() || value.isNumeric() || value.isNull();
    case Shape::OptionalObject:
        return value.isObject() || value.isNull();
    case Shape::OptionalList:
        return value.isArray() || value.isNull();
    }
    return false;
}

const char* Expected(Shape shape) {
    switch (shape) {
    case Shape::Text:
        return "is missing or is not a text";
    case Shape::OptionalText:
        return "is not a text";
    case Shape::Plain:
        return "is neither a text nor true or false";
    case Shape::Switch:
        return "is neither true or false nor a number";
    case Shape::OptionalObject:
        return "is not an object";
    case Shape::OptionalList:
        return "is not a list";
    }
    return "";
}

// A member that is missing or has the wrong type. A null reason means that there is no fault.
// Always made with {}: Visual C++ 2015 does not take values in braces where a member has a default.
struct Fault {
    std::string member;
    const char* reason;
};

// The fault of a part of the report, as one of the whole report. Only a fault costs the time to
// write its place: lists have hundreds of thousands of entries.
Fault Within(const std::string& place, const Fault& fault) {
    const char* const dot = fault.member.empty() ? "" : ".";
    return {place + dot + fault.member, fault.reason};
}

template<std::size_t count>
Fault FaultOfMembers(const Json::Value& object, const MemberShape (&members)[count]) {
    for (const MemberShape& member : members) {
        if (!Fits(MemberOf(object, member.name), member.shape))
            return {member.name, Expected(member.shape)};
    }
    return {};
}

// The fault of an entry, if any, as one of the whole report.
Fault InEntry(const char* listName, std::size_t index, const Fault& fault) {
    return fault.reason == nullptr
               ? Fault{}
               : Within(std::string(listName) + "[" + std::to_string(index) + "]", fault);
}

Fault FaultOfList(const Json::Value& object, const ListShape& list, ReportPaths& paths) {
    const Json::Value& entries = MemberOf(object, list.name);
    if (!Fits(entries, Shape::OptionalList))
        return {list.name, Expected(Shape::OptionalList)};
    Texts unused;
    Texts& texts = list.texts != nullptr ? paths.*list.texts : unused;
    texts.reserve(entries.size());
    for (const Json::Value& entry : entries) {
        if (!entry.isObject())
            return InEntry(list.name, texts.size(), {"", "is not an object"});
        const Json::Value& text = entry[list.entryMember];
        if (!text.isString())
            return InEntry(list.name, texts.size(), {list.entryMember, Expected(Shape::Text)});
        texts.push_back(text.asCString());
    }
    return {};
}

Fault FaultOfLists(const Json::Value& report, ReportPaths& paths) {
    for (const ListShape& list : kLists) {
        Fault fault = FaultOfList(report, list, paths);
        if (fault.reason != nullptr)
            return fault;
    }
    return {};
}

// The image is needed only where there is a camera to take it.
Fault FaultOfCameras(const Json::Value& report) {
    const Json::Value& cameras = MemberOf(report, "cameras");
    if (cameras.empty())
        return {};
    std::size_t index = 0;
    for (const Json::Value& camera : cameras) {
        Fault fault = InEntry("cameras", index++, FaultOfMembers(camera, kCamera));
        if (fault.reason != nullptr)
            return fault;
    }
    return FaultOfMembers(report, kNeededWithCameras);
}

template<std::size_t count>
Fault FaultOfSetting(const Json::Value& report, const char* setting,
                     const MemberShape (&members)[count]) {
    const Fault fault = FaultOfMembers(MemberOf(report, setting), members);
    return fault.reason != nullptr ? Within(setting, fault) : Fault();
}

Fault FaultOfErrors(const Json::Value& report) {
    ReportPaths none;
    const Fault fault = FaultOfList(MemberOf(report, "errors"), kErrorCodes, none);
    return fault.reason != nullptr ? Within("errors", fault) : Fault();
}

Fault FirstFault(const Json::Value& report, ReportPaths& paths) {
    Fault fault = FaultOfMembers(report, kTopLevel);
    if (fault.reason == nullptr)
        fault = FaultOfLists(report, paths);
    if (fault.reason == nullptr)
        fault = FaultOfCameras(report);
    if (fault.reason == nullptr)
        fault = FaultOfSetting(report, "corona_setting", kCorona);
    if (fault.reason == nullptr)
        fault = FaultOfSetting(report, "vray_setting", kVRay);
    if (fault.reason == nullptr)
        fault = FaultOfErrors(report);
    return fault;
}

} // namespace

std::string FindReportFault(const Json::Value& report, ReportPaths& paths) {
    if (!report.isObject())
        return "it is not an object";
    const Fault fault = FirstFault(report, paths);
    return fault.reason == nullptr ? std::string() : "\"" + fault.member + "\" " + fault.reason;
}

} // namespace orv
