# shellcheck shell=bash
# The Wine prefix of the build tree, and programs run in it. The user's own prefix is never touched.

export WINEPREFIX=$build_dir/wine
export WINEARCH=win64
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe='

setup_wine_prefix() {
  [ -e "$WINEPREFIX/orv-ready" ] && return
  rm -rf "$WINEPREFIX"
  mkdir -p "$build_dir"
  step "create the Wine prefix" create_wine_prefix
}

create_wine_prefix() {
  xvfb-run -a wineboot -i &&
    write_font_settings >"$WINEPREFIX/fonts.reg" &&
    xvfb-run -a wine regedit /S "$(winepath_of "$WINEPREFIX/fonts.reg")" &&
    wineserver -w &&
    touch "$WINEPREFIX/orv-ready"
}

# Windows' fonts under the names that the dialogs ask for. Without them Chinese shows as boxes.
write_font_settings() {
  local name
  printf 'REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]\n'
  for name in 'Microsoft YaHei UI' 'Microsoft YaHei' 'SimSun' 'NSimSun' 'SimHei' 'MS Shell Dlg' 'MS Shell Dlg 2' \
    'Segoe UI' 'Tahoma'; do
    printf '"%s"="WenQuanYi Micro Hei"\n' "$name"
  done
}

# winepath_of FILE: the Windows path of a file of this machine.
winepath_of() { printf 'Z:%s' "${1//\//\\}"; }

# The all-users application data folder of the prefix, which holds the product folder.
common_app_data() { printf '%s' "$WINEPREFIX/drive_c/ProgramData"; }
