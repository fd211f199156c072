# shellcheck shell=bash
# What every verb uses: where things are, and how a step is announced and fails.

build_dir=$root/build
deps_dir=$build_dir/deps
work_dir=$build_dir/work
jobs=$(nproc)

say() { printf '%s\n' "-- $*"; }

# fail WHAT ADVICE: one line on what went wrong and what to do about it.
fail() {
  printf 'dev: %s; %s\n' "$1" "$2" >&2
  exit 1
}

# step NAME COMMAND...: runs a long command with its output in a log, which is shown only when it fails.
step() {
  local name=$1 log started=$SECONDS
  shift
  mkdir -p "$work_dir/log"
  log=$work_dir/log/${name// /-}.log
  printf -- '-- %s ... ' "$name"
  if "$@" >"$log" 2>&1 </dev/null; then
    printf 'done in %d s\n' $((SECONDS - started))
  else
    printf 'failed\n'
    tail -n 40 "$log" >&2
    fail "'$name' failed" "see ${log#"$root"/}, mend the cause and run ./dev again"
  fi
}

# as_root COMMAND...: directly where we are root, through sudo elsewhere.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# fetch_source PACKAGE: downloads the source package of that name into the current folder. The
# machine's own package sources are asked, through lists of our own, so that its lists stay as they are.
fetch_source() {
  local apt=$work_dir/apt
  mkdir -p "$apt/sources" "$apt/lists/partial" "$apt/cache/archives/partial"
  if [ ! -e "$apt/ready" ]; then
    cat /etc/apt/sources.list.d/*.sources 2>/dev/null | sed 's/^Types: *deb$/Types: deb-src/' >"$apt/sources/all.sources"
    cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null | sed -n 's/^deb /deb-src /p' >"$apt/sources/all.list" || true
    apt-get "${apt_private[@]}" update
    touch "$apt/ready"
  fi
  apt-get "${apt_private[@]}" source --download-only "$1"
}
apt_private=(
  -o "Dir::Etc::sourcelist=/dev/null" -o "Dir::Etc::sourceparts=$work_dir/apt/sources"
  -o "Dir::State::Lists=$work_dir/apt/lists" -o "Dir::Cache=$work_dir/apt/cache"
)
