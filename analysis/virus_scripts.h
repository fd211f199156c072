#pragma once

namespace orv {

// Runs the three cleaning scripts that ship with the product on the open scene. A script that is
// missing or fails stops nothing: the host reports its error itself. Each run leaves a line in
// "rud_data".
void RunVirusScripts();

} // namespace orv
