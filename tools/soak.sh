# shellcheck shell=bash
# `./dev soak`: many submissions in one host process, and 10,000 analyses.

# dev_soak [SUBMISSIONS]: its last line counts them, or the lines before it tell what grew.
dev_soak() {
  local submissions=${1:-300} log=$work_dir/log/soak.log
  start_display 1600x1200
  start_wine
  mkdir -p "$work_dir/log"
  export ORV_SOAK_SUBMISSIONS=$submissions ORV_SOAK_ANALYSES=10000
  in_own_group soak_run "$log"
  [ "$group_result" -eq 0 ] || fail "the soak failed" "see what grew or failed above, and ${log#"$root"/}"
  printf 'soak: %s submissions, 0 crashes, 0 leaks\n' "$submissions"
}

soak_run() {
  cd "$build_dir/mingw/bin"
  wine system_soak_test.exe 2>/dev/null </dev/null | tr -d '\r' | tee "$1"
}
