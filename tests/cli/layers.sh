#!/usr/bin/env bash
# Every include points down: foundation → platform interfaces → core and the backends → ui → app.
# A backend (sim, linux, macos, qt) sees foundation and the interfaces, never the core or the ui.
set -euo pipefail
src="$1"
status=0
check() { # folder, allowed include prefixes (extended regex)
  local folder=$1 allowed=$2
  while IFS= read -r line; do
    echo "layer violation: $line"
    status=1
  done < <(grep -rnE '#include "[a-z]+/' "$src/$folder" --include='*.h' --include='*.cpp' --include='*.mm' \
             | grep -vE "#include \"($allowed)" || true)
}
check foundation 'foundation/'
for backend in sim linux macos qt; do
  check "platform/$backend" 'foundation/|platform/[A-Za-z]+\.h|platform/qt/|platform/'"$backend"'/'
done
# The interfaces themselves include only foundation (and each other, by plain name).
while IFS= read -r line; do
  echo "layer violation: $line"; status=1
done < <(grep -nE '#include "[a-z]+/' "$src"/platform/*.h "$src"/platform/*.cpp | grep -vE '#include "foundation/' || true)
check core 'foundation/|platform/[A-Za-z]+\.h|core/'
check ui 'foundation/|platform/[A-Za-z]+\.h|core/|ui/'
[[ $status -eq 0 ]] && echo "every include points down"
exit $status
