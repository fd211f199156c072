// The small dialog that stays on screen while a submission runs.
#pragma once

#include "config/plugin_data.h"
#include "ui/dialog.h"

namespace orv {

// Shown by the progress worker over the main dialog. It looks at the shared flags every 30 ms: it
// hides while `hide` is set and ends when `done` is set or no submission runs any more. Its title
// bar cannot close it.
class ProgressDialog : public Dialog {
public:
    explicit ProgressDialog(const PluginData& data) : data_(data) {}

protected:
    bool onInit(LPARAM parameter) override;
    bool onTimer(UINT_PTR id) override;
    bool onClose() override;

private:
    const PluginData& data_;
};

} // namespace orv
