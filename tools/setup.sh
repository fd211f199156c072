# shellcheck shell=bash
# `./dev setup`: everything a fresh Debian 12 lacks. Each part looks whether it is done before it
# starts. What is built or fetched is done when its stamp says so, and the stamp is written last: a
# set-up that was interrupted, or whose versions have changed since, does the part anew.

deps_dir=$build_dir/deps

packages=(
  ca-certificates make cmake ninja-build python3 dpkg-dev     # to build and to fetch sources
  g++-mingw-w64-x86-64-posix clang llvm                       # the two compilers and their tools
  clang-format clang-tidy shellcheck cppcheck                 # ./dev lint
  clang-14 python3-clang-14                                   # ./dev mutate: clang's syntax tree
  clang-19 libc++-19-dev libwine-dev                          # ./dev lint: reading as Visual C++ does
  nsis                                                        # ./dev package
  wine wine64 xvfb                                            # to run what was built
  fonts-wine fonts-wqy-microhei fonts-liberation              # window captions, Chinese, English
  xdotool imagemagick 7zip                                    # ./dev demo: hands, eyes, a second reader
  googletest                                                  # sources, built for Windows below
  python3-jsonschema                                          # tests of documented file formats
)
jsoncpp_package=libjsoncpp
jsoncpp_version=1.9.5
seven_zip_package=7zip-bin@5.2.0

dev_setup() {
  locked setup "sets up here"
  setup_packages
  setup_googletest
  setup_jsoncpp
  setup_licences
  setup_seven_zip
  setup_wine_prefix
  end_last
}

# is_done NAME RECIPE: whether part NAME was finished by exactly this recipe.
is_done() { [ "$(cat "$deps_dir/stamps/$1" 2>/dev/null)" = "$2" ]; }
mark_done() {
  mkdir -p "$deps_dir/stamps"
  printf '%s\n' "$2" >"$deps_dir/stamps/$1"
}
mark_undone() { rm -f "$deps_dir/stamps/$1"; }

setup_packages() {
  local missing=() package status
  status=$(dpkg-query -W -f='${Package} ${Status}\n' "${packages[@]}" 2>/dev/null) || true
  for package in "${packages[@]}"; do
    grep -q "^$package install ok installed$" <<<"$status" || missing+=("$package")
  done
  # npm may come from elsewhere than Debian's package, and is needed for one download only.
  is_done seven-zip "$seven_zip_package" || command -v npm >/dev/null || missing+=(npm)
  [ ${#missing[@]} -eq 0 ] && return
  command -v apt-get >/dev/null || fail "this is no Debian system" "install by hand: ${missing[*]}"
  [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null ||
    fail "packages are missing and there is no sudo" "as root, install: ${missing[*]}"
  say "installing ${#missing[@]} packages: ${missing[*]}"
  as_root true
  step "update package lists" as_root apt-get update
  step "install packages" as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends "${missing[@]}"
}

# build_dependency SOURCE NAME OPTION...: builds it with the cross compiler and installs it.
build_dependency() {
  local source=$1 name=$2
  shift 2
  rm -rf "${work_dir:?}/$name"
  cmake -S "$source" -B "$work_dir/$name" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    "-DCMAKE_TOOLCHAIN_FILE=$root/cmake/mingw-w64-toolchain.cmake" \
    "-DCMAKE_INSTALL_PREFIX=$deps_dir" -DCMAKE_INSTALL_LIBDIR=lib -DBUILD_SHARED_LIBS=OFF \
    -DCMAKE_CXX_STANDARD=14 "$@"
  cmake --build "$work_dir/$name" --parallel "$(nproc)" --target install
}

# What the dependencies were built with: another compiler or other flags build them anew.
compiler_version() {
  printf '%s, flags %s' "$(x86_64-w64-mingw32-g++-posix -dumpfullversion)" \
    "$(sha256sum "$root/cmake/mingw-w64-toolchain.cmake" | cut -c1-16)"
}

setup_googletest() {
  local recipe
  recipe="googletest $(dpkg-query -W -f='${Version}' googletest), GCC $(compiler_version)"
  is_done googletest "$recipe" && return
  mark_undone googletest
  step "build GoogleTest" build_dependency /usr/src/googletest googletest
  mark_done googletest "$recipe"
}

setup_jsoncpp() {
  local recipe
  recipe="$jsoncpp_package $jsoncpp_version, GCC $(compiler_version)"
  is_done jsoncpp "$recipe" && return
  mark_undone jsoncpp
  step "fetch JsonCpp" fetch_debian_source "$jsoncpp_package" "$jsoncpp_version" jsoncpp_version
  step "build JsonCpp" build_dependency "$work_dir/$jsoncpp_package-source" jsoncpp \
    -DJSONCPP_WITH_TESTS=OFF -DJSONCPP_WITH_POST_BUILD_UNITTEST=OFF -DBUILD_OBJECT_LIBS=OFF \
    -DJSONCPP_WITH_PKGCONFIG_SUPPORT=OFF -DJSONCPP_WITH_EXAMPLE=OFF
  mark_done jsoncpp "$recipe"
}

# The licence that goes into the package, from the same sources.
setup_licences() {
  local recipe="$jsoncpp_package $jsoncpp_version"
  is_done licences "$recipe" && return
  mark_undone licences
  [ -f "$work_dir/$jsoncpp_package-source/LICENSE" ] ||
    step "fetch JsonCpp" fetch_debian_source "$jsoncpp_package" "$jsoncpp_version" jsoncpp_version
  mkdir -p "$deps_dir/licences"
  cp "$work_dir/$jsoncpp_package-source/LICENSE" "$deps_dir/licences/jsoncpp.txt"
  mark_done licences "$recipe"
}

# fetch_debian_source PACKAGE VERSION VARIABLE: unpacks the sources of PACKAGE into PACKAGE-source of the
# work folder; VARIABLE is where VERSION is set.
fetch_debian_source() {
  local download=$work_dir/$1-download
  rm -rf "$work_dir/$1-source" "$download"
  mkdir -p "$download"
  cd "$download" || return
  fetch_source "$1"
  ls "$1_$2"-*.dsc || {
    echo "Debian now has another version than $2: set $3 in tools/setup.sh"
    return 1
  }
  dpkg-source -x ./*.dsc "$work_dir/$1-source"
}

# fetch_source PACKAGE: downloads the source package of that name into the current folder. The
# machine's own package sources are asked, through lists of our own, so that its lists stay as they are.
fetch_source() {
  local apt=$work_dir/apt file
  rm -rf "$apt"
  mkdir -p "$apt/sources" "$apt/lists/partial" "$apt/cache/archives/partial"
  for file in /etc/apt/sources.list.d/*.sources; do
    [ -e "$file" ] || continue
    sed 's/^Types:.*/Types: deb-src/' "$file" >"$apt/sources/${file##*/}"
  done
  for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [ -e "$file" ] || continue
    sed -n 's/^deb /deb-src /p' "$file" >"$apt/sources/from-${file##*/}"
  done
  local private=(
    -o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$apt/sources"
    -o "Dir::State::Lists=$apt/lists" -o "Dir::Cache=$apt/cache"
    -o APT::Sandbox::User=root -o Acquire::Languages=none
  )
  # A source that offers no source packages is no obstacle: the download below tells what counts.
  apt-get "${private[@]}" update || true
  apt-get "${private[@]}" source --download-only "$1"
}

# 7-Zip for Windows: the stand-alone program that the product runs.
setup_seven_zip() {
  is_done seven-zip "$seven_zip_package" && return
  mark_undone seven-zip
  step "fetch 7-Zip" fetch_seven_zip
  mark_done seven-zip "$seven_zip_package"
}

fetch_seven_zip() {
  local download=$work_dir/7-zip
  rm -rf "$download" "$deps_dir/7-Zip"
  mkdir -p "$download" "$deps_dir/7-Zip"
  cd "$download" || return
  npm pack --silent "$seven_zip_package"
  tar -xzf ./*.tgz
  cp package/win/x64/7za.exe "$deps_dir/7-Zip/7z.exe"
  cp package/LICENSE.txt "$deps_dir/7-Zip/package-license.txt"
}
