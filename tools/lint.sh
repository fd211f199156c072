# shellcheck shell=bash
# `./dev lint`: what machines can check without running the program.

dev_lint() {
  local sources
  mapfile -t sources < <(git ls-files -co --exclude-standard '*.cpp' '*.h')
  step "check format" clang-format --dry-run --Werror "${sources[@]}"
  step "check shell scripts" shellcheck -x dev tools/*.sh tools/ctest-under-wine demo/run .ci/run
}
