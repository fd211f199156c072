# shellcheck shell=bash
# `./dev lint`: what machines can check without running the program. With --all clang-tidy reads the
# stand-ins as well, which doubles its time.

dev_lint() {
  local files sources scripts more=()
  case "${1:-}" in
    --all) more=(standin/ tests/tools/) ;;
    "") ;;
    *) fail "there is no option '$1' of lint" "use --all or none" ;;
  esac
  files=$(python3 tools/source_tree.py files)
  mapfile -t sources < <(grep -E '\.(cpp|h)$' <<<"$files")
  mapfile -t scripts < <(xargs -d '\n' grep -lE '^#!.*\bbash' -- <<<"$files")
  step "check format" clang-format --dry-run --Werror "${sources[@]}"
  step "check shell scripts" shellcheck -x -a "${scripts[@]}"
  step "check tree" python3 tools/check_tree.py
  step "check texts" python3 tools/check_texts.py
  configure mingw
  step "compile for the host's layout" cmake --build --preset mingw --target \
    orv_plugin_code_objects orv_host_door_inside_objects orv_layout_runtime_objects
  step "check the host's layout" python3 tools/check_host_layout.py "$build_dir/mingw"
  step "check sources as Visual C++" python3 tools/vc_check.py "$build_dir/lint/vc-work" "$build_dir/lint/vc"
  step "check sources with cppcheck" lint_cppcheck
  step "check sources" python3 tools/tidy.py "$build_dir/mingw" "$build_dir/lint" "${more[@]}"
}

# Off: passedByValue, as the compilers' checks have it off: a text that another thread or a caller's
# temporary gives is handed over whole.
lint_cppcheck() {
  local sources folders definitions
  mapfile -t folders < <(python3 tools/source_tree.py product)
  mapfile -t definitions < <(python3 tools/source_tree.py definitions)
  mapfile -t sources < <(python3 tools/source_tree.py files |
    grep -E "^($(IFS='|' && printf '%s' "${folders[*]}")|standin/).*\.cpp$")
  mkdir -p "$build_dir/lint/cppcheck"
  cppcheck --quiet --language=c++ --std=c++14 --platform=win64 -j "$(nproc)" --error-exitcode=1 \
    --enable=warning,performance,portability --suppress=passedByValue --inline-suppr \
    --cppcheck-build-dir="$build_dir/lint/cppcheck" \
    -I. -D_WIN32 -D_WIN64 "${definitions[@]}" "${sources[@]}"
}
