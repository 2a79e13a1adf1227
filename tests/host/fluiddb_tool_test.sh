#!/bin/sh
# The fluiddb tool imports a text file as a record, lists it and shows it
# back unchanged; it refuses a file beyond the record limits.
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
echo "fluiddb tool: all checks passed"
