#!/usr/bin/env bash
# Builds the libFuzzer harnesses of tests/fuzz with clang and the address and
# undefined-behaviour sanitizers (in build-fuzz/), and runs each for a bounded
# time on a copy of its seed corpus.
#   tools/fuzz.sh [SECONDS [HARNESS...]]
#     SECONDS  run time of each harness (default 60)
#     HARNESS  fieldread gasdata mixture if97 pwsftn (default: all)
# A finding (crash, sanitizer report, failed check, leak, timeout) keeps its
# input in build-fuzz/findings/ and makes the exit status 1. Without clang's
# libFuzzer (after trying to install it) the run is skipped: the script says
# so and exits with 0, having fuzzed nothing.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-60}
shift || true
harnesses=("$@")
[ ${#harnesses[@]} -eq 0 ] && harnesses=(fieldread gasdata mixture if97 pwsftn)
build="$root/build-fuzz"

skip() {
    echo "fuzz: SKIPPED, nothing was fuzzed: $1"
    exit 0
}

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
apt_install() {
    echo "fuzz: installing $*"
    { $sudo apt-get update -qq && DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "$@"; } >/dev/null 2>&1
}

# clang, and a libFuzzer that links.
"$root/tools/install-deps.sh"
command -v clang++ >/dev/null 2>&1 || apt_install clang || true
command -v clang++ >/dev/null 2>&1 || skip "clang++ is not installed and could not be installed"
probe=$(mktemp -d)
trap 'rm -rf "$probe"' EXIT
echo 'extern "C" int LLVMFuzzerTestOneInput(const unsigned char*, unsigned long) { return 0; }' >"$probe/p.cpp"
links() { clang++ -fsanitize=fuzzer,address,undefined "$probe/p.cpp" -o "$probe/p" >/dev/null 2>&1; }
if ! links; then
    version=$(clang++ --version | sed -n 's/.*clang version \([0-9]*\).*/\1/p' | head -1)
    apt_install "libclang-rt-${version}-dev" || true
    links || skip "clang's libFuzzer runtime (libclang-rt-${version}-dev) is not available"
fi

jobs=$(nproc 2>/dev/null || echo 2)
CC=clang CXX=clang++ cmake -S "$root" -B "$build" -DONDREL_FUZZ=ON -DONDREL_BUILD_TESTS=OFF \
    -DONDREL_BUILD_EXAMPLES=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
targets=()
for h in "${harnesses[@]}"; do targets+=(--target "fuzz_$h"); done
cmake --build "$build" -j "$jobs" "${targets[@]}"

# Longest input worth trying, per harness.
max_len() {
    case $1 in
    fieldread) echo 64 ;;
    gasdata) echo 2048 ;;
    *) echo 512 ;;
    esac
}

work=$(mktemp -d)
trap 'rm -rf "$probe" "$work"' EXIT
mkdir -p "$build/findings"
status=0
total=0
for h in "${harnesses[@]}"; do
    cp -r "$root/tests/fuzz/corpus/$h" "$work/$h"
    log="$work/$h.log"
    start=$(date +%s)
    if UBSAN_OPTIONS=print_stacktrace=1 "$build/tests/fuzz/fuzz_$h" "$work/$h" -max_total_time="$seconds" \
        -max_len="$(max_len "$h")" -timeout=10 -rss_limit_mb=2048 -close_fd_mask=1 -print_final_stats=1 \
        -artifact_prefix="$build/findings/$h-" >"$log" 2>&1; then
        result=ok
    else
        result="FINDING (input in build-fuzz/findings/)"
        status=1
        tail -n 40 "$log"
    fi
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
    cov=$(grep -o 'cov: [0-9]*' "$log" | tail -1 | cut -d' ' -f2)
    took=$(($(date +%s) - start))
    total=$((total + took))
    printf 'fuzz: %-9s %10s executions in %3d s, coverage %6s edges: %s\n' "$h" "${runs:-?}" "$took" "${cov:-?}" "$result"
done
echo "fuzz: ${#harnesses[@]} harnesses in $total s"
exit $status
