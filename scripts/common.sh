# SPDX-License-Identifier: Apache-2.0
# What ./run and ./test share: the packages a Debian 12 machine needs, and steps that say what they
# do and how long they took. Sourced, not run.

build_packages=(
  g++ cmake ninja-build pkg-config scdoc
  qt6-base-dev libcli11-dev nlohmann-json3-dev libpng-dev
  libocct-foundation-dev libocct-modeling-data-dev libocct-modeling-algorithms-dev
  libocct-data-exchange-dev libocct-ocaf-dev libocct-visualization-dev
)
test_packages=(
  clang clang-format libclang-rt-14-dev qtbase5-dev libgtest-dev libgmock-dev
  occt-misc binutils python3 git locales doxygen
  reuse clang-tidy lintian dpkg-dev zsh fish
)
# What the library races against in benchmarks/.
benchmark_packages=(
  libbenchmark-dev
  libmimalloc-dev libjemalloc-dev libboost-dev libroaring-dev libeigen3-dev libglm-dev
  libhdf5-dev libflatbuffers-dev flatbuffers-compiler
)

# step TEXT COMMAND...: runs the command and says how long it took; ends the script on failure.
step() {
  local text=$1 start status=0
  shift
  printf '== %s\n' "$text"
  start=$(date +%s)
  "$@" || status=$?
  printf '== %s: %s after %d s\n' "$text" "$([ $status = 0 ] && echo done || echo FAILED)" \
    $(($(date +%s) - start))
  return $status
}

as_root() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi; }

missing_packages() {
  local package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null)" = "install ok installed" ] ||
      printf '%s\n' "$package"
  done
}

# install_packages PACKAGE...: installs those that are missing, and says which.
install_packages() {
  local missing
  mapfile -t missing < <(missing_packages "$@")
  [ ${#missing[@]} -gt 0 ] || return 0
  printf '   installing %s\n' "${missing[*]}"
  as_root apt-get update -qq &&
    as_root env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build PRESET [TARGET...]: configures, with the words of configure_options on top of the preset, and
# builds, quietly unless something goes wrong.
configure_options=()
build() {
  local preset=$1 log status=0
  shift
  log=$(mktemp)
  { cmake --preset "$preset" "${configure_options[@]}" && cmake --build --preset "$preset" ${1:+--target "$@"}; } \
    >"$log" 2>&1 || status=$?
  [ $status = 0 ] || tail -n 60 "$log"
  rm -f "$log"
  return $status
}
