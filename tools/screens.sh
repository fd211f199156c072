# shellcheck shell=bash
# `./dev screens`: a picture of every dialog in its main states, in both languages, at two resolutions.

dev_screens() {
  rm -rf "$build_dir/screens"
  mkdir -p "$build_dir/screens"
  start_slots 4 1920x1400
  in_own_group take_pictures
  [ "$group_result" -eq 0 ] || fail "pictures are missing" "see above which stage failed"
  # What a person looks at: everything beside each other, in its own size.
  montage -font "$(fc-match -f '%{file}' sans)" -label '%t' "$build_dir"/screens/*-96-*.png "$build_dir"/screens/*-144-*.png \
    -background white -geometry '+16+16' -tile 4x "$build_dir/screens/sheet.png"
  say "the pictures are in build/screens/; sheet.png has them all"
}

# Both languages at both resolutions at a time, each in a slot.
take_pictures() {
  local slot=0 dots language run runs=() failed=0
  for dots in 96 144; do
    for language in en zh; do
      slot=$((slot + 1))
      take_pictures_of "$slot" "$language" "$dots" &
      runs+=($!)
    done
  done
  for run in "${runs[@]}"; do wait "$run" || failed=1; done
  return "$failed"
}

take_pictures_of() {
  WINEPREFIX=$slots_dir/$1
  DISPLAY=$(cat "$WINEPREFIX.display")
  export DISPLAY
  # A process takes the resolution from here when it starts.
  wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$3" /f >/dev/null 2>&1 </dev/null
  python3 "$root/demo/screens.py" "$2" "$3"
}
