# shellcheck shell=bash
# `./dev fuzz`: hostile inputs for everything of the product that reads what comes from outside.

# dev_fuzz [INPUTS [SEED]]: that many inputs for each target; the seed makes other ones.
dev_fuzz() {
  local inputs=${1:-200000} seed=${2:-20190507}
  local log=$work_dir/log/fuzz total failed
  start_display 800x600
  start_wine
  mkdir -p "$work_dir/log"
  rm -f "$log".*
  # Most of the time goes to the files of the jobs: they have a lane of their own.
  in_own_group fuzz_lanes "$inputs" "$seed" "$log"
  total=$(cat "$log".* | sed -nE 's/^fuzz: ([0-9]+) inputs.*/\1/p' | awk '{ sum += $1 } END { print sum + 0 }')
  failed=$(cat "$log".* | grep -c '^crash: ' || true)
  cat "$log".failed
  printf 'fuzz: %s inputs, %s crashes\n' "$total" "$failed"
  [ "$failed" -eq 0 ] && [ ! -s "$log.failed" ]
}

fuzz_lanes() {
  local inputs=$1 seed=$2 log=$3 lane
  : >"$log.failed"
  fuzz_lane jobs job-description &
  lane=$!
  fuzz_lane rest report scene-name settings custom-address shared-memory text names reply request
  wait "$lane"
}

# fuzz_lane NAME TARGET...: one after the other; a crash ends its target alone.
fuzz_lane() {
  local name=$1 target
  shift
  for target; do
    if ! wine "$build_dir/mingw/bin/orv_fuzz.exe" --target "$target" --inputs "$inputs" --seed "$seed" \
      2>/dev/null </dev/null | tr -d '\r' | tee -a "$log.$name" | sed -u '/^fuzz: /d'; then
      printf '%s did not come to its end\n' "$target" >>"$log.failed"
    fi
  done
}
