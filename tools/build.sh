# shellcheck shell=bash
# `./dev build` and `./dev clean`.

dev_build() {
  local preset=${1:-mingw}
  case "$preset" in
    mingw | mingw-debug) ;;
    *) fail "there is no preset '$preset'" "use mingw or mingw-debug" ;;
  esac
  [ -e "$build_dir/$preset/build.ninja" ] || step "configure $preset" cmake --preset "$preset"
  say "building $preset"
  cmake --build --preset "$preset" --parallel "$jobs" ||
    fail "the build failed" "mend the first error above and run ./dev build again"
}

dev_clean() {
  case "${1:-}" in
    '') rm -rf "$build_dir/mingw" "$build_dir/mingw-debug" "$build_dir/demo" ;;
    all) rm -rf "$build_dir" ;;
    *) fail "clean knows no '$1'" "use ./dev clean or ./dev clean all" ;;
  esac
}
