# shellcheck shell=bash
# `./dev races`: inputs of a user at every moment of a submission.

# dev_races [RUNS [SEED]]: its last line counts the runs; the lines before it say what was sent and what was told.
dev_races() {
  local log=$work_dir/log/races.log
  start_display 1600x1200
  start_wine
  mkdir -p "$work_dir/log"
  export ORV_RACES_RUNS=${1:-300} ORV_RACES_SEED=${2:-$((RANDOM * 32768 + RANDOM + 1))}
  in_own_group races_run "$log"
  [ "$group_result" -eq 0 ] || fail "a race was lost" "see which above, and ${log#"$root"/}"
  grep '^races: .* runs' "$log"
}

races_run() {
  cd "$build_dir/mingw/bin"
  wine system_races_test.exe 2>/dev/null </dev/null | tr -d '\r' | tee "$1"
}
