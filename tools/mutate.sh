# shellcheck shell=bash
# `./dev mutate`: would a test notice if a rule of the product were another one?

dev_mutate() {
  local count=${1:-400} seed=${2:-$RANDOM} disks=$build_dir/mutate/source/build/mingw/test-disks
  # Without it the list of compile commands lacks the sources of the host's layout.
  step "list the compile commands" cmake --build --preset mingw --target host_layout_compile_commands
  start_slots "$(($(nproc) + 1))" 1600x1200
  at_end "$root/tests/system/flow/disks.sh down $disks"
  "$root/tests/system/flow/disks.sh" up "$disks"
  # Debian's own Python: clang's bindings belong to it.
  in_own_group /usr/bin/python3 "$root/tools/mutate.py" "$count" "$seed"
  return "$group_result"
}
