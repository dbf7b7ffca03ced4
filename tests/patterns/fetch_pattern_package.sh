#!/bin/bash
# Fetches a Debian package that ships hatch pattern files into a cache and
# unpacks it there, without installing it:
#   fetch_pattern_package.sh CACHE_DIR PACKAGE
# leaves the package's files under CACHE_DIR/PACKAGE/. Exits non-zero when
# the package cannot be had (no package lists, no network).
set -euo pipefail
cache=$1
package=$2
mkdir -p "$cache"
cd "$cache"
if ! ls "$package"_*.deb >/dev/null 2>&1; then
  if ! apt-get download "$package" >/dev/null 2>&1; then
    # A machine that installed nothing lately may have no package lists:
    # root can fetch them once and try again.
    [ "$(id -u)" = 0 ] && apt-get update -qq >/dev/null 2>&1 || true
    apt-get download "$package" >/dev/null 2>&1 || { echo "apt-get download $package failed" >&2; exit 1; }
  fi
fi
rm -rf "$package.tmp"
dpkg-deb -x "$(ls "$package"_*.deb | head -n 1)" "$package.tmp"
rm -rf "$package"
mv "$package.tmp" "$package"
