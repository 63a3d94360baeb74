# Debian packages that the build needs; sourced by run and test.
packages="g++ cmake ninja-build libsqlite3-dev nlohmann-json3-dev libcli11-dev libfmt-dev libxlsxwriter-dev zlib1g-dev
  libgtest-dev libgmock-dev libbenchmark-dev ccache"

install_packages() {
  local missing=() package
  for package in $packages; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  echo "installing ${missing[*]}" >&2
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  "${as_root[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
