#!/usr/bin/env bash
# Installs the Debian packages the build needs, when any is missing.
set -euo pipefail
# binutils (nm, readelf), pkgconf, dpkg-dev (dpkg-shlibdeps) and python3: the installation's tests;
# pybind11 and numpy: the Python package; pytest, matplotlib and dask: its tests and examples.
pkgs=(cmake make g++ gfortran libgtest-dev libgmock-dev libbenchmark-dev libsqlite3-dev sqlite3
      binutils pkgconf dpkg-dev python3
      python3-dev python3-pybind11 pybind11-dev python3-numpy python3-pytest
      python3-matplotlib python3-dask python3-distributed)
missing=()
for p in "${pkgs[@]}"; do
  dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
