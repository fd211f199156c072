# shellcheck shell=bash
# `./dev bench`: the benchmarks, run under Wine one after the other.

dev_bench() {
  local filter=() program over=0
  [ $# -gt 0 ] && filter=("--benchmark_filter=$1")
  start_display 800x600
  start_wine
  for program in "$build_dir"/mingw/bin/orv_bench_*.exe; do
    in_own_group wine "$program" "${filter[@]}"
    [ "$group_result" -eq 0 ] || over=1
  done
  [ "$over" -eq 0 ] ||
    fail "a figure is over its limit, or a benchmark has failed" "see the lines that begin with 'bench:'"
}
