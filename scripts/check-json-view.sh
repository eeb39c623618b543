#!/usr/bin/env bash
# Runs `kelxml json` over every sample under examples/ that reads: the output
# must be one valid JSON document whose elements, taken depth first, carry
# the element names, in order, that `kelxml format` writes for the same file.
#
# Usage: scripts/check-json-view.sh PATH/TO/kelxml
set -u
kelxml=${1:?usage: scripts/check-json-view.sh PATH/TO/kelxml}
kelxml=$(cd "$(dirname "$kelxml")" && pwd)/$(basename "$kelxml")
root=$(cd "$(dirname "$0")/.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$root/examples" || exit 2

status=0
checked=0
for file in */*.xml; do
    class=${file%%/*}
    [ "$class" = maps ] && continue
    case ${file#*/} in unreadable-*) continue ;; esac
    "$kelxml" format --as "$class" "$file" >"$work/xml" 2>/dev/null
    "$kelxml" json --as "$class" "$file" >"$work/json" 2>"$work/err"
    if [ $? != 0 ]; then
        echo "FAIL: $file: json exits $? ($(cat "$work/err"))"
        status=1
        continue
    fi
    if ! python3 - "$work/json" "$work/xml" <<'PY'; then
import json, re, sys

with open(sys.argv[1], encoding="ascii") as f:
    text = f.read()
document = json.loads(text)  # fails on anything but one JSON document

names = []
def walk(element):
    assert set(element) >= {"element", "class", "attributes", "children"}, element
    names.append(element["element"])
    if "unit" in element:
        assert "value" in element, element
    for child in element["children"]:
        walk(child)
walk(document)

# The start tags of the formatted form; a few classes write names with spaces
# that no XML reader takes, so the tags are found by pattern: the name is
# what stands before the attributes.
with open(sys.argv[2], encoding="utf-8") as f:
    xml = f.read()
written = []
for tag in re.findall(r"<([^/?!][^>]*?)/?>", xml):
    written.append(re.sub(r'(\s+[\w:.-]+="[^"]*")+\s*$', "", tag))
if names != written:
    for i, (a, b) in enumerate(zip(names, written)):
        if a != b:
            sys.exit(f"element {i + 1}: json {a!r}, format {b!r}")
    sys.exit(f"{len(names)} elements in json, {len(written)} in format")
PY
        echo "FAIL: $file"
        status=1
    fi
    checked=$((checked + 1))
done
echo "$checked samples viewed as JSON"
[ "$checked" -gt 0 ] || status=1
exit $status
