#include "bench/report_text.h"

#include <random>

namespace orv {
namespace bench {
namespace {

const char* const kFolders[] = {
    "D:\\\\工作室 项目\\\\海边别墅 A 方案\\\\贴图\\\\第二版\\\\审核通过",
    "\\\\\\\\server01\\\\library\\\\textures\\\\architecture\\\\interior\\\\2019\\\\spring",
    "E:\\\\projects\\\\2019\\\\harbour_office\\\\maps\\\\final\\\\approved_by_client",
    "D:\\\\素材库\\\\木地板与石材\\\\高清无缝贴图\\\\第二版\\\\审核通过",
};
const char* const kNames[] = {"石材_爵士白_反射",       "oak_floor_diffuse_4k", "沙发布纹 (深灰)",
                              "Concrete_Wall_Bump_v02", "窗帘-薄纱-透明通道",   "leaf_opacity_02"};
const char* const kSuffixes[] = {".jpg", ".png", ".exr", ".hdr", ".tga"};

class ReportWriter {
public:
    void files(const char* key, int count, int illegalEvery) {
        list(key, count, [this, illegalEvery](int index) {
            text_ += "{\"path\": \"";
            text_ += pick(kFolders);
            text_ += illegalEvery > 0 && index % illegalEvery == 0 ? "\\\\100%_" : "\\\\";
            text_ += pick(kNames) + std::string("_") + std::to_string(1000000 + index);
            text_ += pick(kSuffixes) + std::string("\"}");
        });
    }

    void cameras(int count) {
        list("cameras", count, [this](int index) {
            text_ += index % 2 == 0 ? "{\"name\": \"客厅 相机 " : "{\"name\": \"Cam_Living_";
            text_ += std::to_string(index);
            text_ += "\", \"camWidth\": \"3840\", \"camHeight\": \"2160\"}";
        });
    }

    std::string finished() {
        return "{\n  \"name\": \"D:\\\\工作室 项目\\\\客厅 夜景.max\",\n"
               "  \"version\": \"21.0\",\n  \"app_version\": \"2019\",\n"
               "  \"renderer_full_name\": \"V_Ray_Adv_4_10_03\",\n"
               "  \"is_region\": \"false\",\n  \"image_format\": \"png\",\n"
               "  \"image_width\": \"3000\",\n  \"image_height\": \"2000\",\n"
               "  \"start_frame\": \"0\",\n  \"end_frame\": \"0\"" +
               text_ + "\n}\n";
    }

private:
    template<typename WriteEntry>
    void list(const char* key, int count, WriteEntry writeEntry) {
        text_ += std::string(",\n  \"") + key + "\": [";
        for (int index = 0; index < count; ++index) {
            text_ += index == 0 ? "\n    " : ",\n    ";
            writeEntry(index);
        }
        text_ += "\n  ]";
    }

    template<std::size_t count>
    const char* pick(const char* const (&words)[count]) {
        return words[random_() % count];
    }

    std::string text_;
    std::mt19937 random_{20190507U};
};

} // namespace

std::string MakeReport(const ReportSize& size) {
    ReportWriter report;
    report.files("missing_file", size.missingFiles, 0);
    report.files("reference_file", size.references, size.illegalEvery);
    report.cameras(size.cameras);
    return report.finished();
}

} // namespace bench
} // namespace orv
