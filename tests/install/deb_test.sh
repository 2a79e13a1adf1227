#!/bin/sh
# The Debian package. Configured for /usr, the library is built and packaged
# with cpack -G DEB; the package carries its run-time dependencies; installed
# with apt-get, it serves the README's project (find_package and pkg-config,
# shared and static) and its Python program with no setting at all; it is
# then purged, leaving the machine as it was found.
# Needs root: skipped (exit status 77) otherwise, and when a package named
# ondrel is installed already (it is left alone).
# usage: deb_test.sh <source dir> <work dir>
set -eu
src=$(cd "$1" && pwd)
work=$2
. "$(dirname "$0")/checks.sh"

if [ "$(id -u)" -ne 0 ]; then
    echo "skipped: installing a package needs root"
    exit 77
fi
if dpkg -s ondrel > /dev/null 2>&1; then
    echo "skipped: a package named ondrel is installed already"
    exit 77
fi
unset ONDREL_FLUIDPATH ONDREL_GAS_SOURCE PKG_CONFIG_PATH CMAKE_PREFIX_PATH LD_LIBRARY_PATH
rm -rf "$work"
mkdir -p "$work"

step "build for /usr and package"
cmake -S "$src" -B "$work/build" -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_BUILD_TYPE=Release \
    -DONDREL_BUILD_TESTS=OFF -DONDREL_BUILD_EXAMPLES=OFF > "$work/configure.log" ||
    { cat "$work/configure.log"; fail "configure"; }
nice cmake --build "$work/build" -j 2 > "$work/build.log" 2>&1 || { tail -n 50 "$work/build.log"; fail "build"; }
(cd "$work/build" && cpack -G DEB > "$work/cpack.log" 2>&1) || { cat "$work/cpack.log"; fail "cpack"; }
deb=$(ls "$work"/build/ondrel_*.deb)
echo "$(basename "$deb"):"
dpkg-deb --field "$deb" Package Version Architecture Depends Recommends | sed 's/^/  /'
depends=$(dpkg-deb --field "$deb" Depends)
for d in libc6 libstdc++6 libsqlite3-0 python3-numpy; do
    case $depends in *"$d"*) ;; *) fail "Depends lacks $d" ;; esac
done
dpkg-deb --contents "$deb" | awk '{print $6}' > "$work/contents.txt"
multiarch=$(dpkg-architecture -qDEB_HOST_MULTIARCH 2> /dev/null || gcc -print-multiarch)
for f in "./usr/lib/$multiarch/libondrel.so.3" "./usr/lib/$multiarch/libondrel.a" "./usr/lib/$multiarch/libif97.so.1" \
    ./usr/bin/fluiddb ./usr/share/ondrel/Ondrel.Dat ./usr/include/ondrel/ondrel.h \
    ./usr/include/ondrel/fortran/ondrel.mod "./usr/lib/$multiarch/cmake/Ondrel/OndrelConfig.cmake" \
    "./usr/lib/$multiarch/pkgconfig/ondrel.pc" ./usr/lib/python3/dist-packages/ondrel/__init__.py \
    ./usr/lib/python3/dist-packages/ondrel/_ondrel; do
    grep -q "^$f" "$work/contents.txt" || fail "not in the package: $f"
done

step "apt-get install ./$(basename "$deb")"
trap 'DEBIAN_FRONTEND=noninteractive apt-get purge -y -qq ondrel > /dev/null 2>&1 || true' EXIT
DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "$deb" > "$work/install.log" 2>&1 ||
    { cat "$work/install.log"; fail "apt-get install"; }
dpkg -s ondrel > /dev/null || fail "the package is not installed"

step "the README's project against the package"
cmake -S "$src/examples/readme" -B "$work/readme-build" > "$work/readme-configure.log" ||
    { cat "$work/readme-configure.log"; fail "configure"; }
cmake --build "$work/readme-build" > "$work/readme-build.log" 2>&1 || { cat "$work/readme-build.log"; fail "build"; }
for p in air-c air-cpp air-fortran air-static; do runs "$work/readme-build/$p"; done
mkdir "$work/pc"
cp "$src/examples/readme/air.c" "$src/examples/readme/air.cpp" "$src/examples/readme/air.f90" "$work/pc/"
(cd "$work/pc" && sh "$src/examples/readme/pkg-config.sh") || fail "pkg-config commands"
for p in air-c air-cpp air-fortran air-static; do runs "$work/pc/$p"; done
out=$(cd "$work" && /usr/bin/python3 -B "$src/examples/readme/air.py" 2>&1) || fail "air.py: $out"
case $out in *"$expected"*) ;; *) fail "air.py printed: $out" ;; esac
fluiddb where | grep -qx "it reads /usr/share/ondrel/Ondrel.Dat" || { fluiddb where; fail "fluiddb where"; }

step "purge the package"
DEBIAN_FRONTEND=noninteractive apt-get purge -y -qq ondrel > "$work/purge.log" 2>&1 || { cat "$work/purge.log"; fail "purge"; }
trap - EXIT
! dpkg -s ondrel > /dev/null 2>&1 || fail "the package is still installed"
[ ! -e /usr/share/ondrel ] && [ ! -e "/usr/lib/$multiarch/libondrel.so.3" ] || fail "files left behind"
echo "Debian package test: all checks passed"
