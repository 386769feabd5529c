#!/usr/bin/env bash
# Fails when the committed reference (docs/ and the README's list of implemented kinds) is not
# what the tool generates from the current parameter tables.
# Usage: docs_fresh_test.sh GRAINSMITH-TOOL SOURCE-DIR
set -euo pipefail
tool=$1 source=$2
work=$(mktemp -d /tmp/grainsmith-docs-XXXXXX)
trap 'rm -rf "$work"' EXIT
cp "$source/README.md" "$work/README.md"
"$tool" docs -o "$work/docs" --readme "$work/README.md" 2>/dev/null
stale=0
diff -r --brief "$source/docs" "$work/docs" || stale=1
cmp -s "$source/README.md" "$work/README.md" || { echo "README.md: the list of implemented kinds differs"; stale=1; }
if [ $stale -ne 0 ]; then
  echo "The committed reference is out of date with the parameter tables; refresh it with: scripts/docs" >&2
  exit 1
fi
echo "docs/ and README.md are up to date"
