# shellcheck shell=bash
# `./dev bench`: the benchmarks, run under Wine one after the other.

dev_bench() {
  local program measured=0 failed=0
  start_display 800x600
  start_wine
  for program in "$build_dir"/mingw/bin/orv_bench_*.exe; do
    in_own_group wine "$program" "$@"
    case "$group_result" in
      0) measured=1 ;;
      3) ;; # the filter left out all its figures
      *) failed=1 ;;
    esac
  done
  [ "$failed" -eq 0 ] ||
    fail "a figure is over its limit, or a benchmark has failed" "see the lines that begin with 'bench:'"
  [ "$measured" -eq 1 ] || fail "no figure matches '${1:-}'" "the names are those that ./dev bench prints"
}
