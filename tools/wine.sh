# shellcheck shell=bash
# The Wine prefix of the build tree, and programs run in it. The user's own prefix is never touched.

# Linux places a program's memory at random. Now and then, one start in some thousands, Wine then finds the fixed
# place of Windows' shared user data taken and ends the program at once, with exit code 1 and "failed to map the shared
# user data". So whoever uses Wine here runs without that randomness, and so does all that it starts. A container may
# refuse this.
if [ -z "${ORV_FIXED_PLACES:-}" ] && setarch -R true 2>/dev/null; then
  export ORV_FIXED_PLACES=1
  exec setarch -R "$BASH" "$0" "$@"
fi

export WINEPREFIX=$build_dir/wine
export WINEARCH=win64
export WINEDEBUG=${WINEDEBUG:-fixme-all} # its errors say why a program did not start
export WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe='

# The prefix as set-up makes it. Nothing runs in it: each other prefix is a copy of it.
pristine_prefix=$build_dir/wine-new

setup_wine_prefix() {
  local recipe
  recipe="wine $(dpkg-query -W -f='${Version}' wine), settings $(sha256sum "$root/tools/wine-prefix.reg" | cut -c1-16)"
  if [ "$(cat "$pristine_prefix.recipe" 2>/dev/null)" != "$recipe" ]; then
    local -x WINEPREFIX=$pristine_prefix
    rm -rf "$WINEPREFIX" "$WINEPREFIX.recipe"
    step "create the Wine prefix" create_wine_prefix
    printf '%s\n' "$recipe" >"$WINEPREFIX.recipe"
  fi
  if ! cmp -s "$pristine_prefix.recipe" "$build_dir/wine.recipe"; then
    local -x WINEPREFIX=$build_dir/wine
    step "copy the Wine prefix" copy_pristine_prefix
    cp "$pristine_prefix.recipe" "$WINEPREFIX.recipe"
  fi
}

# Debian's Wine does not look where Debian keeps Wine's own fonts: without them a window's caption
# buttons show as digits.
create_wine_prefix() {
  start_display 800x600
  at_end end_wine
  wineboot -i
  wineserver -w
  ln -sf /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
  wine regedit /S "$(windows_path "$root/tools/wine-prefix.reg")"
  wineserver -w
}

# copy_pristine_prefix: makes the prefix as new as it was after set-up. No program writes to Windows' own
# files, so the copy shares them; the registry and the folders of users and programs' data are its own.
copy_pristine_prefix() {
  local own
  end_wine
  mkdir -p "$WINEPREFIX"
  find "$WINEPREFIX" -mindepth 1 -delete
  cp -al "$pristine_prefix/." "$WINEPREFIX"
  for own in "$pristine_prefix"/*.reg "$pristine_prefix"/drive_c/{users,ProgramData}; do
    rm -rf "${WINEPREFIX:?}/${own#"$pristine_prefix"/}"
    cp -a "$own" "$WINEPREFIX/${own#"$pristine_prefix"/}"
  done
}

# start_display WIDTHxHEIGHT: an X server of our own for what this run starts, ended with the run.
start_display() {
  local number_file
  mkdir -p "$work_dir"
  number_file=$work_dir/display.$BASHPID
  rm -f "$number_file" && mkfifo "$number_file"
  (
    close_locks
    exec Xvfb -displayfd 3 -screen 0 "${1}x24" -nolisten tcp 3>"$number_file"
  ) >/dev/null 2>&1 &
  at_end "end_process $!"
  read -r -t 20 DISPLAY <"$number_file" || fail "Xvfb does not start" "run 'Xvfb :99' to see why"
  rm -f "$number_file"
  export DISPLAY=:$DISPLAY
}

# start_wine: one Wine server for the whole run, so that no program waits for one to start. The prefix
# is this run's alone meanwhile. Needs the display.
start_wine() {
  locked wine "runs programs under Wine here"
  at_end end_wine
  start_wine_server
}

# start_wine_server: the server of the prefix, and its desktop on the display.
start_wine_server() {
  end_wine
  (
    close_locks
    exec wineserver -p
  )
  # Wine's own services and its desktop start with the first program that has a window, and live on with
  # that program's output. Let that be this one: whoever waits for the end of a test's output would wait
  # for them.
  (
    close_locks
    exec wine rundll32 user32.dll,MessageBeep
  ) >/dev/null 2>&1 </dev/null || true
  # The desktop ends a second after its last program. The next program starts another one, and where that
  # takes longer than ten seconds, on a busy machine, goes on without: it has no windows. A program that
  # only waits keeps the desktop until the server ends.
  (
    close_locks
    exec wine ping -n 1000000 127.0.0.1
  ) >/dev/null 2>&1 </dev/null &
}

# end_wine: ends every program that runs in the prefix.
end_wine() {
  [ -d "$WINEPREFIX" ] && command -v wineserver >/dev/null || return 0
  wineserver -k || true
  wineserver -w
}

# Slots are for programs that run at the same time. Programs that share a prefix share the product
# folder, the desktop and the keyboard, so each slot is a prefix and a display of its own.
slots_dir=$build_dir/wine-slots

# start_slots COUNT WIDTHxHEIGHT: makes and starts that many slots for this run, as new as the prefix
# was after set-up. tools/under-wine runs a program in one of them.
start_slots() {
  local slot servers=()
  locked wine "runs programs under Wine here"
  mkdir -p "$slots_dir"
  rm -f "$slots_dir"/*.display
  for ((slot = 1; slot <= $1; slot++)); do
    local -x WINEPREFIX=$slots_dir/$slot DISPLAY
    start_display "$2"
    at_end "end_slot $slot"
    copy_pristine_prefix
    start_wine_server &
    servers+=($!)
    printf '%s\n' "$DISPLAY" >"$slots_dir/$slot.display"
  done
  wait "${servers[@]}"
  export ORV_WINE_SLOTS=$slots_dir
}

end_slot() {
  local -x WINEPREFIX=$slots_dir/$1
  end_wine
}

# take_slot: waits for a free slot; the prefix and the display are then those of the slot, until this
# process ends. Outside of `./dev test` they are the build tree's prefix and the display that $DISPLAY
# names, or a new one.
take_slot() {
  local file slot_lock
  if [ -z "${ORV_WINE_SLOTS:-}" ]; then
    [ -n "${DISPLAY:-}" ] || start_display 1600x1200
    return
  fi
  while :; do
    for file in "$ORV_WINE_SLOTS"/*.display; do
      exec {slot_lock}<"$file"
      if flock -n "$slot_lock"; then
        lock_files+=("$slot_lock")
        WINEPREFIX=${file%.display}
        read -r DISPLAY <&"$slot_lock"
        export DISPLAY
        return
      fi
      exec {slot_lock}<&-
    done
    sleep 0.1
  done
}

end_process() {
  kill "$1" 2>/dev/null || true
  wait "$1" 2>/dev/null || true
}

# in_slot PROGRAM [ARGUMENT...]: runs a program under Wine in the slot that was taken. What outlives the
# program does not keep the slot.
in_slot() {
  (
    close_locks
    exec wine "$@"
  )
}

# windows_path FILE: the Windows path of a file of this machine.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }
