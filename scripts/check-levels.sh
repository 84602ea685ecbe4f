#!/usr/bin/env bash
# The levels hold: a file of src/<level>/ (or tests/<level>/) includes
# headers of its own level and those below it, in the order src/README.md
# lists them; a portable file includes no win/ header and holds no _WIN32
# block; Windows headers appear only in win/ folders and the Win32 seam.
set -euo pipefail
cd "$(dirname "$0")/.."
levels=($(sed -n 's/^| `\([a-z_]*\)\/` | `tesel_[a-z_]*` |.*/\1/p' src/README.md))
[ ${#levels[@]} -gt 3 ] || { echo "no levels found in src/README.md" >&2; exit 1; }
declare -A rank
for i in "${!levels[@]}"; do rank[${levels[$i]}]=$i; done

portable() { [[ ! $1 =~ (^|/)win/ && ! $1 =~ ^src/platform/win32/ && ! $1 =~ ^tests/win32/ ]]; }

failures=0
report() { echo "$1" >&2; failures=$((failures + 1)); }

while IFS= read -r file; do
  top=${file#*/}
  own=${top%%/*}
  [ -n "${rank[$own]+set}" ] || continue
  while IFS= read -r header; do
    level=${header%%/*}
    [ -n "${rank[$level]+set}" ] || continue
    [ "${rank[$level]}" -le "${rank[$own]}" ] ||
      report "$file includes $header, of the higher level $level/"
    if portable "$file" && [[ $header =~ (^|/)win/ ]]; then
      report "$file is portable and includes the Windows side's $header"
    fi
  done < <(sed -n 's/^[[:space:]]*#[[:space:]]*include[[:space:]]*"\([^"]*\)".*/\1/p' "$file")
done < <(git ls-files 'src/*.h' 'src/*.cpp' 'tests/*.h' 'tests/*.cpp')

while IFS= read -r file; do
  portable "$file" && grep -qE '^[[:space:]]*#[[:space:]]*(if|ifdef|ifndef|elif).*_WIN32' "$file" &&
    report "$file is portable and holds a _WIN32 block"
done < <(git ls-files 'src/*.h' 'src/*.cpp' 'tests/*.h' 'tests/*.cpp' 'bench/*' 'tools/*')

windows='#[[:space:]]*include[[:space:]]*[<"](windows|winuser|wingdi|winbase|commctrl|commdlg|shellapi|shlobj|shlwapi|mmsystem|winnt|windef)\.h[>"]'
while IFS= read -r file; do
  portable "$file" && report "$file is portable and includes a Windows header"
done < <(git grep -liE "$windows" -- '*.h' '*.cpp' ':!src/platform/win32' || true)

[ "$failures" -eq 0 ] || { echo "$failures breaches of the levels" >&2; exit 1; }
echo "levels (${levels[*]}): ok"
