# shellcheck shell=bash
# What every verb uses: where things are, how a step is announced and fails, and how what was started
# is ended again.

build_dir=$root/build
work_dir=$build_dir/var
export PYTHONDONTWRITEBYTECODE=1
# File names and texts are UTF-8 wherever this runs; Wine, too, takes its file names from it.
export LC_ALL=C.UTF-8

say() { printf -- '-- %s\n' "$*"; }

# fail WHAT ADVICE: one line on what went wrong and what to do about it.
fail() {
  printf 'dev: %s; %s\n' "$1" "$2" >&2
  exit 1
}

# Commands that undo what this run started. They run last to first, however the run ends.
end_commands=()
at_end() { end_commands+=("$*"); }
run_end_commands() {
  local i
  trap '' INT TERM HUP
  for ((i = ${#end_commands[@]} - 1; i >= 0; i--)); do
    ${end_commands[i]} || true
  done
}
set_end_traps() {
  trap run_end_commands EXIT
  trap 'echo >&2; exit 130' INT
  trap 'exit 143' TERM
  trap 'exit 129' HUP
}
set_end_traps
# end_last: runs the command that was given to at_end last, now.
end_last() {
  local command=${end_commands[-1]}
  unset 'end_commands[-1]'
  $command
}

# step NAME COMMAND...: runs a long command with its output in a log, which is shown only when it
# fails. On a terminal the seconds count up meanwhile.
step() {
  local name=$1 log started=$SECONDS ticker=''
  shift
  mkdir -p "$work_dir/log"
  log=$work_dir/log/${name// /-}.log
  printf -- '-- %s ... ' "$name"
  if [ -t 1 ]; then
    tick "$name" "$started" &
    ticker=$!
  fi
  in_own_group "$@" >"$log" 2>&1 </dev/null
  if [ -n "$ticker" ]; then
    kill "$ticker" 2>/dev/null || true
    wait "$ticker" 2>/dev/null || true
    printf '\r-- %s ... ' "$name"
  fi
  if [ "$group_result" -ne 0 ]; then
    printf 'failed\n'
    tail -n 40 "$log" >&2
    fail "'$name' failed" "see ${log#"$root"/}, mend the cause and run ./dev again"
  fi
  printf 'done in %d s\n' $((SECONDS - started))
}

# in_own_group COMMAND...: runs a command or function in a process group of its own, which can be ended
# whole: when this run is ended, so is the command and all that it started. An error within ends it at
# once; its exit code is left in group_result.
in_own_group() {
  group_result=0
  set -m
  (
    close_locks
    end_commands=()
    set_end_traps
    set -e
    "$@"
  ) &
  set +m
  at_end "end_group $!"
  wait $! || group_result=$?
  unset 'end_commands[-1]'
}

end_group() {
  kill -- "-$1" 2>/dev/null
  wait "$1" 2>/dev/null
}

tick() {
  while kill -0 $$ 2>/dev/null; do
    printf '\r-- %s ... %d s ' "$1" $((SECONDS - $2))
    sleep 1
  done
}

# locked NAME WHAT: takes the lock NAME of the build folder, waiting while another run holds it, until
# end_last or the end of this run.
lock_files=()
locked() {
  local name=$1 what=$2 file
  mkdir -p "$build_dir"
  exec {file}>"$build_dir/$name.lock"
  if ! flock -n "$file"; then
    say "another ./dev $what; waiting for it"
    flock "$file"
  fi
  lock_files+=("$file")
  at_end "flock -u $file"
}

# close_locks: for a process that may outlive this run: it must not keep the locks.
close_locks() {
  local file
  for file in "${lock_files[@]}"; do exec {file}>&-; done
}

# as_root COMMAND...: directly where we are root, through sudo elsewhere. Where sudo may ask for a
# password, ask before a step: a step has no terminal.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}
