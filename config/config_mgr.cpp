#include "config/config_mgr.h"

namespace orv {

OrvRenderingConfigMgr::OrvRenderingConfigMgr() = default;

OrvRenderingConfigMgr::~OrvRenderingConfigMgr() = default;

OrvRenderingConfigMgr& OrvRenderingConfigMgr::instance() {
    static OrvRenderingConfigMgr manager;
    return manager;
}

} // namespace orv
