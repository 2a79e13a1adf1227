#!/bin/sh
# The fluiddb tool imports a text file as a record, lists it and shows it
# back unchanged; it refuses a file beyond the record limits; it tells
# where the library looks for its gas data.
# usage: fluiddb_tool_test.sh <fluiddb executable> <text file>
set -eu
tool=$1
text=$2
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
db="$dir/fluids.db"

"$tool" import "$db" Ondrel.Dat "$text" >/dev/null
lines=$(wc -l < "$text" | tr -d ' ')
"$tool" list "$db" | grep -qx "Ondrel.Dat	$lines"
"$tool" show "$db" Ondrel.Dat | tr -d '\r' > "$dir/back.txt"
tr -d '\r' < "$text" | cmp -s - "$dir/back.txt"

# 256 lines: refused, and the stored record is unchanged.
i=0
while [ $i -lt 256 ]; do echo "line $i"; i=$((i + 1)); done > "$dir/long.txt"
if "$tool" import "$db" Ondrel.Dat "$dir/long.txt" 2>/dev/null; then exit 1; fi
"$tool" list "$db" | grep -qx "Ondrel.Dat	$lines"
# A missing record or database is an error.
if "$tool" show "$db" Missing 2>/dev/null; then exit 1; fi
if "$tool" list "$dir/none.db" 2>/dev/null; then exit 1; fi

# --help succeeds; a wrong command prints the usage and fails with status 2.
"$tool" --help | grep -q '^usage: fluiddb import'
status=0; "$tool" frobnicate 2>/dev/null || status=$?
[ "$status" -eq 2 ]

# where: the one place ONDREL_FLUIDPATH names; status 1 while it holds no data.
status=0; ONDREL_FLUIDPATH="$dir" "$tool" where > "$dir/where.txt" || status=$?
[ "$status" -eq 1 ]
grep -qx "  $dir/Ondrel.Dat  (ONDREL_FLUIDPATH, missing)" "$dir/where.txt"
grep -qx "gas data not found" "$dir/where.txt"
cp "$text" "$dir/Ondrel.Dat"
ONDREL_FLUIDPATH="$dir" "$tool" where | grep -qx "it reads $dir/Ondrel.Dat"
ONDREL_FLUIDPATH="$dir" ONDREL_GAS_SOURCE=database "$tool" where | grep -qx "it reads $dir/fluids.db"
# Without the setting, the library in the build tree finds the data beside itself.
env -u ONDREL_FLUIDPATH -u ONDREL_GAS_SOURCE "$tool" where | grep -q "(beside the library, present)"
echo "fluiddb tool: all checks passed"
