# The Debian packages that building, testing and measuring need. Sourced by ../zan.

PACKAGES_build="g++ cmake ninja-build ccache gettext libboost1.81-dev libboost-json1.81-dev libboost-locale1.81-dev
  libsqlite3-dev libmariadb-dev unixodbc-dev pkgconf libssl-dev libspdlog-dev libfmt-dev libcli11-dev"
PACKAGES_test="libgtest-dev libgmock-dev clang-format clang-tidy chromium fonts-noto-cjk binutils sqlite3 openssl
  mariadb-server odbc-mariadb"
PACKAGES_bench="mariadb-server wrk"
PACKAGES_fuzz="clang"

is_installed() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

# Debian's own Node and npm, unless the machine has a Node of version 18 or later already.
node_packages() {
  local version
  version=$(node --version 2>/dev/null | sed 's/^v\([0-9]*\).*/\1/')
  if [ "${version:-0}" -lt 18 ] || ! command -v npm >/dev/null; then printf 'nodejs npm'; fi
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    complain "Packages have to be installed, and this is neither root nor is there sudo." \
      "Run as root: apt-get install ${*:4}"
    return 1
  fi
}

# install_packages GROUP...: installs what is missing of the groups.
install_packages() {
  local missing=() package group name
  for group in "$@"; do
    name=PACKAGES_$group
    for package in ${!name}; do is_installed "$package" || missing+=("$package"); done
  done
  for package in $(node_packages); do is_installed "$package" || missing+=("$package"); done
  if [ ${#missing[@]} -eq 0 ]; then return; fi
  if ! command -v apt-get >/dev/null; then
    complain "These packages are missing: ${missing[*]}" "Install them; only Debian's apt-get is known here."
    return 1
  fi
  as_root apt-get update -q
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
}
