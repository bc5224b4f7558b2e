#!/usr/bin/env bash
# Writes one glTF file with the zyvo program, then holds it against the reference glTF validator.
#   check-export.sh OUTPUT ZYVO [ZYVO ARGUMENTS...]     (the arguments write OUTPUT)
# Exits 77 (skipped) when node is not installed.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
output=$1
shift

if ! command -v node >/dev/null 2>&1; then
  echo "skipped: node is not installed, so the glTF validator cannot run (scripts/setup installs it)"
  exit 77
fi
if [ ! -d "$here/node_modules/gltf-validator" ]; then
  echo "the glTF validator is not installed in tests/tools/gltf: run scripts/setup" >&2
  exit 1
fi

rm -f "$output"
mkdir -p "$(dirname "$output")"
"$@"
node "$here/validate.js" "$output"
