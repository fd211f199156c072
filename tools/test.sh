# shellcheck shell=bash
# `./dev test` and `./dev demo`: what was built, run under Wine on a display of its own.

dev_test() {
  local filter=()
  [ $# -gt 0 ] && filter=(-R "$1")
  # Many tests wait for the screen or for a deadline: one more than there are processors keeps those busy.
  local slots=$(($(nproc) + 1))
  start_slots "$slots" 1600x1200
  # Not through a step: the tests' own lines are the result, and CTest's summary comes last.
  in_own_group ctest --test-dir "$build_dir/mingw" --parallel "$slots" --output-on-failure --no-tests=error "${filter[@]}"
  return "$group_result"
}

dev_demo() {
  start_display 1280x800
  start_wine
  in_own_group python3 "$root/demo/run.py" "$@"
  return "$group_result"
}
