# shellcheck shell=bash
# `./dev package`: what an artist installs.

dev_package() {
  rm -rf "$build_dir/package"
  in_own_group python3 "$root/packaging/make.py" "$@"
  [ "$group_result" -eq 0 ] ||
    fail "no package was made" "mend the cause above and run ./dev package again"
  say "the package is in build/package/"
}
