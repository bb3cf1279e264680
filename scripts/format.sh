#!/usr/bin/env bash
# Formats the C++ sources of src, tests, bench and fuzz with clang-format (.clang-format).
#   scripts/format.sh          rewrites the files in place
#   scripts/format.sh --check  changes nothing; lists each unformatted file and fails
set -euo pipefail
cd "$(dirname "$0")/.."
CLANG_FORMAT=${CLANG_FORMAT:-clang-format}
if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
  mapfile -t files < <(git ls-files -- 'src/*.cpp' 'src/*.h' 'tests/*.cpp' 'tests/*.h' \
                                       'bench/*.cpp' 'bench/*.h' 'fuzz/*.cpp' 'fuzz/*.h')
else
  mapfile -t files < <(find src tests bench fuzz -name '*.cpp' -o -name '*.h' | sort)
fi
if [ "${1:-}" = "--check" ]; then
  bad=0
  for f in "${files[@]}"; do
    if ! "$CLANG_FORMAT" --dry-run --Werror "$f" >/dev/null 2>&1; then
      echo "not formatted: $f (scripts/format.sh fixes it)" >&2
      bad=1
    fi
  done
  exit $bad
fi
"$CLANG_FORMAT" -i "${files[@]}"
