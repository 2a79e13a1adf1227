#!/bin/sh
# The library as a user installs and uses it. Installed from the build tree
# into a temporary prefix, it serves the README's programs in C, C++ and
# Fortran, built as a separate project with find_package and with
# pkg-config, linked with the shared and with the static library; the
# programs sit inside the prefix, as an application installed beside the
# library would. The prefix is then moved elsewhere: everything still runs
# and finds its gas data, with no environment variable.
# usage: consumer_test.sh <build dir> <source dir>
set -eu
build=$(cd "$1" && pwd)
src=$(cd "$2" && pwd)
tmp=$(mktemp -d "${TMPDIR:-/tmp}/ondrel-consumer-XXXXXX")
trap 'rm -rf "$tmp"' EXIT
unset ONDREL_FLUIDPATH ONDREL_GAS_SOURCE PKG_CONFIG_PATH CMAKE_PREFIX_PATH LD_LIBRARY_PATH LD_RUN_PATH
prefix=$tmp/prefix
. "$(dirname "$0")/checks.sh"
dynamic() { readelf -d "$1" | sed -n "s/.*($2).*\\[\\(.*\\)\\]/\\1/p"; }

step "install into a temporary prefix"
cmake --install "$build" --prefix "$prefix" > "$tmp/install.log"
lib=$(dirname "$(find "$prefix" -name libondrel.so.3 | head -n 1)")
librel=${lib#"$prefix"/}
for f in "$lib/libondrel.so" "$lib/libondrel.a" "$lib/libif97.so" "$lib/libif97.a" "$prefix/bin/fluiddb" \
    "$prefix/share/ondrel/Ondrel.Dat" "$prefix/include/ondrel/ondrel.h" "$prefix/include/ondrel/fortran/ondrel.mod" \
    "$lib/cmake/Ondrel/OndrelConfig.cmake" "$lib/pkgconfig/ondrel.pc" "$lib/pkgconfig/ondrel-static.pc" \
    "$lib/pkgconfig/if97.pc"; do
    [ -e "$f" ] || fail "not installed: ${f#"$prefix"/}"
done
for f in od_thermo.h od_fluiddata.h; do
    [ ! -e "$prefix/include/ondrel/$f" ] || fail "internal header installed: $f"
done
[ "$(dynamic "$lib/libondrel.so" SONAME)" = libondrel.so.3 ] || fail "SONAME of libondrel.so"
[ "$(dynamic "$lib/libif97.so" SONAME)" = libif97.so.1 ] || fail "SONAME of libif97.so"
[ "$(dynamic "$lib/libondrel.so" RUNPATH)" = '$ORIGIN' ] || fail "RUNPATH of libondrel.so"
case $(dynamic "$prefix/bin/fluiddb" RUNPATH) in '$ORIGIN/'*) ;; *) fail "RUNPATH of fluiddb" ;; esac

# The Python package, when this build has it: beside the libraries it links.
python=
if grep -q '^ONDREL_BUILD_PYTHON:BOOL=ON' "$build/CMakeCache.txt"; then
    python=/usr/bin/python3
    pydir=$(dirname "$(find "$prefix" -path '*/ondrel/__init__.py' | head -n 1)")
    pyrel=${pydir#"$prefix"/}
    pyrel=${pyrel%/ondrel}
    [ -n "$(find "$prefix/$pyrel/ondrel" -name '_ondrel*.so')" ] || fail "not installed: the Python module"
    case $(dynamic "$(find "$prefix/$pyrel/ondrel" -name '_ondrel*.so')" RUNPATH) in '$ORIGIN/'*) ;;
    *) fail "RUNPATH of the Python module" ;; esac
fi
# Runs the README's Python program against the package under a prefix.
runs_python() {
    [ -n "$python" ] || return 0
    out=$(cd "$tmp" && PYTHONPATH="$1/$pyrel" "$python" -B "$src/examples/readme/air.py" 2>&1) ||
        fail "air.py with the package in $1 exited with status $?: $out"
    case $out in *"$expected"*) ;; *) fail "air.py printed: $out" ;; esac
}
runs_python "$prefix"

step "every installed header compiles on its own (C headers as C and C++)"
for h in $(cd "$prefix/include" && find . -name '*.h' -o -name '*.hpp' | sed 's|^\./||'); do
    case $h in
    *.h) printf "#include <%s>\nint ondrel_header_check;\n" "$h" | cc -std=c99 -Wall -Wextra -Wpedantic -Werror -fsyntax-only -I"$prefix/include" -x c - ||
        fail "$h as C" ;;
    esac
    echo "#include <$h>" | c++ -std=c++20 -Wall -Wextra -Wpedantic -Werror -fsyntax-only -I"$prefix/include" -x c++ - ||
        fail "$h as C++"
done

step "versions of the libraries agree with their packages"
export PKG_CONFIG_PATH="$lib/pkgconfig"
cat > "$tmp/version.c" << 'EOF'
#include <stdio.h>
#include <if97/if97.h>
#include <ondrel/ondrel.h>
int main(void) {
    int32_t v[4], a, b, c, d;
    od_getversion_(v);
    getversion_(&a, &b, &c, &d);
    printf("%d.%d.%d %d.%d.%d\n", (int)v[0], (int)v[1], (int)v[2], (int)a, (int)b, (int)c);
    return 0;
}
EOF
# shellcheck disable=SC2046
cc "$tmp/version.c" -o "$tmp/version" -Wl,-rpath,"$lib" $(pkg-config --cflags --libs ondrel if97)
[ "$("$tmp/version")" = "$(pkg-config --modversion ondrel) $(pkg-config --modversion if97)" ] ||
    fail "versions: $("$tmp/version") against $(pkg-config --modversion ondrel if97 | tr '\n' ' ')"

step "the README's project with find_package (examples/readme/CMakeLists.txt)"
# Built into <prefix>/bin: it finds the libraries through $ORIGIN once the
# prefix is moved; no C++ standard is set, it comes with the target.
cmake -S "$src/examples/readme" -B "$tmp/readme-build" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_RUNTIME_OUTPUT_DIRECTORY="$prefix/bin" -DCMAKE_BUILD_RPATH="\$ORIGIN/../$librel" \
    > "$tmp/readme-configure.log" || { cat "$tmp/readme-configure.log"; fail "configure"; }
cmake --build "$tmp/readme-build" > "$tmp/readme-build.log" 2>&1 || { cat "$tmp/readme-build.log"; fail "build"; }
for p in air-c air-cpp air-fortran air-static; do runs "$prefix/bin/$p"; done

step "the README's pkg-config commands (examples/readme/pkg-config.sh)"
mkdir "$prefix/work"
cp "$src/examples/readme/air.c" "$src/examples/readme/air.cpp" "$src/examples/readme/air.f90" "$prefix/work/"
(cd "$prefix/work" && LD_RUN_PATH="\$ORIGIN/../$librel" sh "$src/examples/readme/pkg-config.sh") ||
    fail "pkg-config commands"
for p in air-c air-cpp air-fortran air-static; do runs "$prefix/work/$p"; done
unset PKG_CONFIG_PATH

step "the prefix moved elsewhere"
moved=$tmp/moved/elsewhere
mkdir -p "$tmp/moved"
mv "$prefix" "$moved"
for p in air-c air-cpp air-fortran air-static; do
    runs "$moved/bin/$p"
    runs "$moved/work/$p"
done
runs_python "$moved"
"$moved/bin/fluiddb" where > "$tmp/where.txt" || { cat "$tmp/where.txt"; fail "fluiddb where"; }
grep -qx "it reads $moved/share/ondrel/Ondrel.Dat" "$tmp/where.txt" || { cat "$tmp/where.txt"; fail "fluiddb where"; }
# The CMake package and the pkg-config files point into the moved prefix.
mkdir "$tmp/find"
cat > "$tmp/find/CMakeLists.txt" << 'EOF'
cmake_minimum_required(VERSION 3.25)
project(find LANGUAGES NONE)
find_package(Ondrel 3 CONFIG REQUIRED)
foreach(t ondrel ondrel_static if97 if97_static)
  get_target_property(configs Ondrel::${t} IMPORTED_CONFIGURATIONS)
  list(GET configs 0 config)
  get_target_property(location Ondrel::${t} IMPORTED_LOCATION_${config})
  message(STATUS "Ondrel::${t}: ${location}")
endforeach()
EOF
cmake -S "$tmp/find" -B "$tmp/find/build" -DCMAKE_PREFIX_PATH="$moved" > "$tmp/find.log" ||
    { cat "$tmp/find.log"; fail "find_package in the moved prefix"; }
[ "$(grep -c "Ondrel::.*: $moved/$librel/lib" "$tmp/find.log")" -eq 4 ] || { cat "$tmp/find.log"; fail "imported locations"; }
pc_libdir=$(PKG_CONFIG_PATH="$moved/$librel/pkgconfig" pkg-config --variable=libdir ondrel)
[ "$(cd "$pc_libdir" && pwd -P)" = "$(cd "$moved/$librel" && pwd -P)" ] || fail "pkg-config libdir $pc_libdir"

step "without its gas data, the library says where it looked"
rm "$moved/share/ondrel/Ondrel.Dat"
if [ -e "$(sed -n 's/^ONDREL_DATA_DIR:STRING=//p' "$build/CMakeCache.txt")Ondrel.Dat" ]; then
    echo "(skipped: the configured data directory of this build holds gas data)"
else
    out=$("$moved/bin/air-c" 2>&1) && fail "air-c ran without gas data"
    case $out in *"error code 1"*) ;; *) fail "air-c without gas data printed: $out" ;; esac
    "$moved/bin/fluiddb" where > "$tmp/where.txt" && fail "fluiddb where found gas data"
    grep -qx "  $moved/share/ondrel/Ondrel.Dat  (beside the library, missing)" "$tmp/where.txt" &&
        grep -qx "gas data not found" "$tmp/where.txt" || { cat "$tmp/where.txt"; fail "fluiddb where"; }
fi
echo "consumer test: all checks passed"
