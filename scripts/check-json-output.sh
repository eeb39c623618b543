#!/usr/bin/env bash
# Runs `kelxml check --output json` over every sample under examples/, once
# with --as and once without for the three documents, and validates each
# record against tools/schema/check-record.schema.json (python3-jsonschema).
# Each file gives one record whose verdict is the one its name says
# (valid-, invalid-, unreadable-), and the exit status is the one the text
# output gives.
#
# Usage: scripts/check-json-output.sh PATH/TO/kelxml
set -u
kelxml=${1:?usage: scripts/check-json-output.sh PATH/TO/kelxml}
kelxml=$(cd "$(dirname "$kelxml")" && pwd)/$(basename "$kelxml")
root=$(cd "$(dirname "$0")/.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$root/examples" || exit 2

status=0
: >"$work/records"
for file in */*.xml; do
    class=${file%%/*}
    [ "$class" = maps ] && continue
    runs=("--as $class")
    case $class in XmlCmdRoot | XmlRespRoot | XmlKelBtType) runs+=("") ;; esac
    for as in "${runs[@]}"; do
        # shellcheck disable=SC2086
        "$kelxml" check $as --output json "$file" >"$work/json"
        json_status=$?
        # shellcheck disable=SC2086
        "$kelxml" check $as "$file" >/dev/null 2>&1
        text_status=$?
        if [ "$json_status" != "$text_status" ]; then
            echo "FAIL: $file ${as:-(by content)}: exit $json_status in json, $text_status in text"
            status=1
        fi
        if [ "$(wc -l <"$work/json")" != 1 ]; then
            echo "FAIL: $file ${as:-(by content)}: not one record"
            status=1
        fi
        expected=${file#*/}
        expected=${expected%%-*}
        printf '%s\t%s\t' "$file" "$expected" >>"$work/records"
        cat "$work/json" >>"$work/records"
    done
done

python3 - "$root/tools/schema/check-record.schema.json" "$work/records" <<'PY' || status=1
import json, sys
import jsonschema

schema = json.load(open(sys.argv[1]))
jsonschema.Draft202012Validator.check_schema(schema)
validator = jsonschema.Draft202012Validator(schema)
failed = 0
count = 0
for line in open(sys.argv[2], encoding="ascii"):
    name, expected, record = line.rstrip("\n").split("\t", 2)
    count += 1
    data = json.loads(record)
    errors = sorted(validator.iter_errors(data), key=str)
    if errors:
        failed += 1
        print(f"FAIL: {name}: {errors[0].message}")
    if data["verdict"] != expected:
        failed += 1
        print(f"FAIL: {name}: verdict {data['verdict']}, the name says {expected}")
    if data["file"] != name:
        failed += 1
        print(f"FAIL: {name}: record of {data['file']}")
print(f"{count} records checked against the schema, {failed} failures")
sys.exit(1 if failed else 0)
PY
exit $status
