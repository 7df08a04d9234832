# SPDX-License-Identifier: MIT
# Installs missing packages of packages.txt; sourced by run, test and check.
# install_packages build        packages for every build
# install_packages build test   packages for the tests, too

install_packages() {
  local list missing=() name uses use sudo=()
  list=$(dirname "${BASH_SOURCE[0]}")/../packages.txt
  while read -r name uses; do
    [[ $name == '#'* || -z $name ]] && continue
    for use in $uses; do
      [[ " $* " == *" $use "* ]] || continue
      [[ $(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null) == installed ]] \
        || missing+=("$name")
      break
    done
  done <"$list"
  [[ ${#missing[@]} -eq 0 ]] && return 0
  echo "Installing: ${missing[*]}"
  [[ $(id -u) -eq 0 ]] || sudo=(sudo)
  "${sudo[@]}" apt-get update -qq
  "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build_preset NAME [TARGET...]: configures the build tree if it is new, and builds. With ccache, a
# file that was compiled before, also in another checkout, is not compiled again.
build_preset() {
  local preset=$1
  shift
  if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
    export CCACHE_SLOPPINESS=pch_defines,time_macros # precompiled headers
  fi
  [[ -e build/$preset/build.ninja ]] || cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" ${*:+--target "$@"}
}
