# shellcheck shell=bash
# `./dev lint`: what machines can check without running the program.

dev_lint() {
  local sources scripts
  mapfile -t sources < <(git ls-files -co --exclude-standard '*.cpp' '*.h' | existing)
  mapfile -t scripts < <(git ls-files -co --exclude-standard | existing | xargs grep -lE '^#!.*\bbash' --)
  step "check format" clang-format --dry-run --Werror "${sources[@]}"
  step "check shell scripts" shellcheck -x -a "${scripts[@]}"
  step "check tree" python3 tools/check_tree.py
  configure mingw
  step "check sources" python3 tools/tidy.py "$build_dir/mingw" "$build_dir/lint"
}

existing() {
  local file
  while read -r file; do [ ! -f "$file" ] || printf '%s\n' "$file"; done
}
