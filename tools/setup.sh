# shellcheck shell=bash
# `./dev setup`: everything a fresh Debian 12 lacks. Each part looks whether it is done before it starts.

packages=(
  ca-certificates cmake ninja-build make git python3 dpkg-dev
  g++-mingw-w64-x86-64-posix clang llvm clang-format clang-tidy cppcheck shellcheck
  wine wine64 xvfb xauth xdotool imagemagick x11-utils
  fonts-wine fonts-wqy-microhei fonts-liberation
  googletest 7zip
)
jsoncpp_package=libjsoncpp
seven_zip_package=7zip-bin@5.2.0

dev_setup() {
  setup_packages
  setup_googletest
  setup_jsoncpp
  setup_seven_zip
  setup_wine_prefix
}

setup_packages() {
  local missing=() package status
  status=$(dpkg-query -W -f='${Package} ${Status}\n' "${packages[@]}" 2>/dev/null || true)
  for package in "${packages[@]}"; do
    grep -q "^$package install ok installed$" <<<"$status" || missing+=("$package")
  done
  command -v npm >/dev/null || missing+=(npm)
  [ ${#missing[@]} -eq 0 ] && return
  command -v apt-get >/dev/null || fail "this is no Debian system" "install by hand: ${missing[*]}"
  [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null ||
    fail "packages are missing and there is no sudo" "as root, install: ${missing[*]}"
  say "installing ${#missing[@]} packages: ${missing[*]}"
  step "update package lists" as_root apt-get update
  step "install packages" as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends "${missing[@]}"
}

cross_cmake=(-G Ninja -DCMAKE_BUILD_TYPE=Release "-DCMAKE_TOOLCHAIN_FILE=$root/cmake/mingw-w64-toolchain.cmake"
  "-DCMAKE_INSTALL_PREFIX=$deps_dir" -DCMAKE_INSTALL_LIBDIR=lib -DBUILD_SHARED_LIBS=OFF)

# build_dependency SOURCE NAME OPTION...
build_dependency() {
  local source=$1 name=$2
  shift 2
  cmake -S "$source" -B "$work_dir/$name" "${cross_cmake[@]}" "$@" &&
    cmake --build "$work_dir/$name" --parallel "$jobs" --target install
}

setup_googletest() {
  [ -e "$deps_dir/lib/libgmock.a" ] && return
  step "build GoogleTest" build_dependency /usr/src/googletest googletest -DCMAKE_CXX_STANDARD=14
}

setup_jsoncpp() {
  [ -e "$deps_dir/lib/libjsoncpp.a" ] && return
  step "fetch JsonCpp" fetch_jsoncpp
  step "build JsonCpp" build_dependency "$work_dir/jsoncpp-source" jsoncpp -DCMAKE_CXX_STANDARD=14 \
    -DJSONCPP_WITH_TESTS=OFF -DJSONCPP_WITH_POST_BUILD_UNITTEST=OFF -DBUILD_OBJECT_LIBS=OFF \
    -DJSONCPP_WITH_PKGCONFIG_SUPPORT=OFF -DJSONCPP_WITH_EXAMPLE=OFF
}

fetch_jsoncpp() {
  rm -rf "$work_dir/jsoncpp-source" "$work_dir/jsoncpp-download"
  mkdir -p "$work_dir/jsoncpp-download"
  (cd "$work_dir/jsoncpp-download" && fetch_source "$jsoncpp_package" &&
    dpkg-source -x ./*.dsc "$work_dir/jsoncpp-source")
}

# 7-Zip for Windows: the stand-alone program that the product runs, with its licence.
setup_seven_zip() {
  [ -e "$deps_dir/7-Zip/7z.exe" ] && return
  step "fetch 7-Zip" fetch_seven_zip
}

fetch_seven_zip() {
  local download=$work_dir/7-zip
  rm -rf "$download" && mkdir -p "$download" "$deps_dir/7-Zip" &&
    (cd "$download" && npm pack --silent "$seven_zip_package" && tar -xzf ./*.tgz) &&
    cp "$download/package/win/x64/7za.exe" "$deps_dir/7-Zip/7z.exe.part" &&
    mv "$deps_dir/7-Zip/7z.exe.part" "$deps_dir/7-Zip/7z.exe"
}
