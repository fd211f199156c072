# shellcheck shell=bash
# `./dev coverage`: which lines and branches of the product the tests run.

# Left out is what runs the same code again: the package, another resolution, load and hostile inputs.
coverage_leaves_out='^(system_package_test|texts_and_pages_test|dialogs_144_test|system_soak_test|fuzz_share_test)$'

dev_coverage() {
  local tree=$build_dir/mingw-coverage
  find "$tree" -name '*.gcda' -delete
  start_display 1600x1200
  start_wine
  in_own_group ctest --test-dir "$tree" --output-on-failure --no-tests=error -E "$coverage_leaves_out"
  [ "$group_result" -eq 0 ] || fail "tests failed" "mend them first: what did not run was not counted"
  python3 "$root/tools/coverage.py" "$tree"
}
