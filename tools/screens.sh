# shellcheck shell=bash
# `./dev screens`: a picture of every dialog in its main states, in both languages, at two resolutions.

dev_screens() {
  local dots language
  rm -rf "$build_dir/screens"
  mkdir -p "$build_dir/screens"
  start_display 1920x1400
  start_wine
  at_end set_dots_per_inch 96
  for dots in 96 144; do
    set_dots_per_inch "$dots"
    for language in en zh; do
      python3 "$root/demo/screens.py" "$language" "$dots"
    done
  done
  # What a person looks at: everything beside each other, in its own size.
  montage -font "$(fc-match -f '%{file}' sans)" -label '%t' "$build_dir"/screens/*-96-*.png "$build_dir"/screens/*-144-*.png \
    -background white -geometry '+16+16' -tile 4x "$build_dir/screens/sheet.png"
  say "the pictures are in build/screens/; sheet.png has them all"
}

# set_dots_per_inch NUMBER: the resolution that programs started from now on see.
set_dots_per_inch() {
  wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null 2>&1 </dev/null
}
