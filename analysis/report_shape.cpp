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

// A list whose entries are objects with a needed string.
struct ListShape {
    const char* name;
    const char* entryMember;
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
    {"missing_file", "path"},
    {"reference_file", "path"},
    {"cameras", "name"},
    {"dupl_cameras", "name"},
};

constexpr ListShape kErrorCodes = {"error_code", "code"};

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

std::string Fault(const std::string& member, const std::string& reason) {
    return "\"" + member + "\" " + reason;
}

template<std::size_t count>
std::string FaultOfMembers(const Json::Value& object, const std::string& place,
                           const MemberShape (&members)[count]) {
    for (const MemberShape& member : members) {
        if (!Fits(MemberOf(object, member.name), member.shape))
            return Fault(place + member.name, Expected(member.shape));
    }
    return {};
}

std::string FaultOfEntry(const Json::Value& entry, const std::string& place,
                         const ListShape& list) {
    if (!entry.isObject())
        return Fault(place, "is not an object");
    if (!MemberOf(entry, list.entryMember).isString())
        return Fault(place + "." + list.entryMember, Expected(Shape::Text));
    return {};
}

std::string FaultOfList(const Json::Value& object, const std::string& place,
                        const ListShape& list) {
    const Json::Value& entries = MemberOf(object, list.name);
    if (!Fits(entries, Shape::OptionalList))
        return Fault(place + list.name, Expected(Shape::OptionalList));
    for (Json::ArrayIndex i = 0; i < entries.size(); ++i) {
        const std::string entryPlace = place + list.name + "[" + std::to_string(i) + "]";
        std::string fault = FaultOfEntry(entries[i], entryPlace, list);
        if (!fault.empty())
            return fault;
    }
    return {};
}

std::string FaultOfLists(const Json::Value& report) {
    for (const ListShape& list : kLists) {
        std::string fault = FaultOfList(report, "", list);
        if (!fault.empty())
            return fault;
    }
    return {};
}

std::string FaultOfRendererSettings(const Json::Value& report) {
    const std::string fault =
        FaultOfMembers(MemberOf(report, "corona_setting"), "corona_setting.", kCorona);
    return fault.empty() ? FaultOfMembers(MemberOf(report, "vray_setting"), "vray_setting.", kVRay)
                         : fault;
}

// The image is needed only where there is a camera to take it.
std::string FaultOfCameras(const Json::Value& report) {
    const Json::Value& cameras = MemberOf(report, "cameras");
    if (cameras.empty())
        return {};
    for (Json::ArrayIndex i = 0; i < cameras.size(); ++i) {
        std::string fault =
            FaultOfMembers(cameras[i], "cameras[" + std::to_string(i) + "].", kCamera);
        if (!fault.empty())
            return fault;
    }
    return FaultOfMembers(report, "", kNeededWithCameras);
}

} // namespace

std::string FindReportFault(const Json::Value& report) {
    if (!report.isObject())
        return "it is not an object";
    std::string fault = FaultOfMembers(report, "", kTopLevel);
    if (fault.empty())
        fault = FaultOfLists(report);
    if (fault.empty())
        fault = FaultOfCameras(report);
    if (fault.empty())
        fault = FaultOfRendererSettings(report);
    if (fault.empty())
        fault = FaultOfList(MemberOf(report, "errors"), "errors.", kErrorCodes);
    return fault;
}

} // namespace orv
