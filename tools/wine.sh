# shellcheck shell=bash
# The Wine prefix of the build tree, and programs run in it. The user's own prefix is never touched.

export WINEPREFIX=$build_dir/wine
export WINEARCH=win64
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe='

setup_wine_prefix() {
  local recipe
  recipe="wine $(dpkg-query -W -f='${Version}' wine)"
  if [ "$(cat "$WINEPREFIX/orv-created" 2>/dev/null)" != "$recipe" ]; then
    end_wine
    rm -rf "$WINEPREFIX"
    step "create the Wine prefix" create_wine_prefix
    printf '%s\n' "$recipe" >"$WINEPREFIX/orv-created"
  fi
  if ! cmp -s "$root/tools/wine-prefix.reg" "$WINEPREFIX/orv-prefix.reg"; then
    step "set version and fonts of the Wine prefix" set_up_wine_prefix
    cp "$root/tools/wine-prefix.reg" "$WINEPREFIX/orv-prefix.reg"
  fi
}

create_wine_prefix() {
  start_display 800x600
  at_end end_wine
  wineboot -i
  wineserver -w
}

# Debian's Wine does not look where Debian keeps Wine's own fonts: without them a window's caption
# buttons show as digits.
set_up_wine_prefix() {
  ln -sf /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
  start_display 800x600
  at_end end_wine
  wine regedit /S "$(windows_path "$root/tools/wine-prefix.reg")"
  wineserver -w
}

# start_display WIDTHxHEIGHT: an X server of our own for what this run starts, ended with the run.
start_display() {
  local number_file
  mkdir -p "$work_dir"
  number_file=$work_dir/display
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
  end_wine
  at_end end_wine
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
}

# end_wine: ends every program that runs in the prefix.
end_wine() {
  [ -d "$WINEPREFIX" ] && command -v wineserver >/dev/null || return 0
  wineserver -k || true
  wineserver -w
}

end_process() {
  kill "$1" 2>/dev/null || true
  wait "$1" 2>/dev/null || true
}

# windows_path FILE: the Windows path of a file of this machine.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }
