# shellcheck shell=bash
# `./dev build` and `./dev clean`.

dev_build() {
  local preset=${1:-mingw}
  configure "$preset"
  say "building $preset"
  in_own_group cmake --build --preset "$preset" --parallel "$(nproc)"
  [ "$group_result" -eq 0 ] ||
    fail "the build failed" "mend the first error above and run ./dev build again"
}

# configure PRESET: makes its build tree, anew when the project's folder was moved since.
configure() {
  local tree=$build_dir/$1
  case "$1" in
    mingw | mingw-debug | mingw-coverage) ;;
    *) fail "there is no preset '$1'" "use mingw or mingw-debug" ;;
  esac
  if [ -e "$tree/CMakeCache.txt" ] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$tree/CMakeCache.txt"; then
    say "the project was moved: its build tree is made anew"
    rm -rf "$tree"
  fi
  [ -e "$tree/build.ninja" ] || step "configure $1" cmake --preset "$1"
}

dev_clean() {
  case "${1:-}" in
    '') rm -rf "$build_dir/mingw" "$build_dir/mingw-debug" "$build_dir/mingw-coverage" "$build_dir/lint" "$build_dir/demo" \
      "$build_dir/mutate" ;;
    all)
      end_wine
      rm -rf "$build_dir"
      ;;
    *) fail "clean knows no '$1'" "use ./dev clean or ./dev clean all" ;;
  esac
}
