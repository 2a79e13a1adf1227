#!/bin/sh
# A shared library exports exactly the symbols its list names, and each of
# them is declared in an installed header.
# usage: symbols_test.sh <library> <list> <include dir> [internal header]...
#   internal header: a file name under <include dir> that is not installed
set -eu
lib=$1
list=$2
include=$3
shift 3
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

nm -D --defined-only "$lib" | awk 'NF == 3 {print $3}' | c++filt | LC_ALL=C sort -u > "$tmp/exported"
sed -e '/^#/d' -e '/^[[:space:]]*$/d' "$list" | LC_ALL=C sort > "$tmp/listed"
status=0
if [ -n "$(uniq -d "$tmp/listed")" ]; then
    echo "listed twice in $list:"; uniq -d "$tmp/listed" | sed 's/^/  /'; status=1
fi
LC_ALL=C comm -23 "$tmp/exported" "$tmp/listed" > "$tmp/unlisted"
LC_ALL=C comm -13 "$tmp/exported" "$tmp/listed" > "$tmp/missing"
if [ -s "$tmp/unlisted" ]; then
    echo "exported by $(basename "$lib") but not in $list (mark it ONDREL_API only if it is documented, and list it):"
    sed 's/^/  /' "$tmp/unlisted"; status=1
fi
if [ -s "$tmp/missing" ]; then
    echo "listed in $list but not exported by $(basename "$lib") (ONDREL_API missing?):"
    sed 's/^/  /' "$tmp/missing"; status=1
fi

# Every listed name is declared in a header that is installed.
find "$include" -type f \( -name '*.h' -o -name '*.hpp' \) > "$tmp/headers"
for internal in "$@"; do
    grep -v "/$internal\$" "$tmp/headers" > "$tmp/kept" || true
    mv "$tmp/kept" "$tmp/headers"
done
while IFS= read -r symbol; do
    # The function's own name: "ondrel::message(ondrel::Status)" gives "message".
    name=$(printf '%s\n' "$symbol" | sed -e 's/(.*//' -e 's/\[abi:[^]]*\]//g' -e 's/.*:://')
    # shellcheck disable=SC2046
    if ! grep -qw -- "$name" $(cat "$tmp/headers"); then
        echo "listed but declared in no installed header: $symbol"; status=1
    fi
done < "$tmp/listed"

[ "$status" -eq 0 ] && echo "$(basename "$lib"): $(wc -l < "$tmp/exported") exported symbols, all listed and declared"
exit "$status"
