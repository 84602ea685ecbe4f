#!/usr/bin/env bash
# Only win/ folders and the Win32 seam may include Windows headers.
set -euo pipefail
cd "$(dirname "$0")/.."
pattern='#[[:space:]]*include[[:space:]]*[<"](windows|winuser|wingdi|winbase|commctrl|commdlg|shellapi|shlobj|shlwapi|mmsystem|winnt|windef)\.h[>"]'
bad=$(grep -rlE -i "$pattern" src plugins tests bench tools 2>/dev/null \
      | grep -vE "(^|/)win/|^src/platform/win32/|^tests/win32/" || true)
if [ -n "$bad" ]; then
  echo "Windows headers outside win/ folders:" >&2
  echo "$bad" >&2
  exit 1
fi
echo "Windows headers only in win/ folders: ok"
