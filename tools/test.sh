# shellcheck shell=bash
# `./dev test`: the test programs run under Wine on a display of their own.

dev_test() {
  local filter=()
  [ $# -gt 0 ] && filter=(-R "$1")
  wineserver -k 2>/dev/null || true
  xvfb-run -a -s '-screen 0 1600x1200x24' "$root/tools/ctest-under-wine" "${filter[@]}"
}
