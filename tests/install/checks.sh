# Shared by the installation tests (sourced): what the README's programs
# print for dry air, and the helpers that run and check them.
expected="h = 0.0000 kJ/kg, s = 6.8597 kJ/(kg K)"  # dry air at 1.01325 bar, 25 C

step() { echo "--- $*"; }
fail() {
    echo "FAILED: $*"
    exit 1
}
# Runs a program and checks that it succeeds and prints the expected values.
runs() {
    out=$("$1" 2>&1) || fail "$1 exited with status $?: $out"
    case $out in *"$expected"*) ;; *) fail "$1 printed: $out" ;; esac
}
