#!/usr/bin/env bash
# A user who upgrades from macOS 15 to 27 keeps their placements and tile order: the
# items are read from another source there but under the same keys.
set -euo pipefail
sandbox="$1"
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
desktop() {
  cat <<'RVS'
app com.apple.controlcenter "Control Center"
app com.example.chat "Chat"
app com.example.sync "Sync"
app com.example.notes "Notes"
item com.apple.controlcenter "Clock" fixed width=80
item com.apple.controlcenter "WiFi" ax.title="Wi-Fi, connected"
item com.example.chat "Chat Status" ax.title="Chat"
item com.example.sync "Item-0" ax.title="Sync"
item com.example.notes "Notes Status" ax.title="Notes"
RVS
}
{ echo "system 15"; desktop; cat <<'RVS'
start
advance 3
placement "n:Chat Status" off
click main
tile drag "n:Notes Status" onto "b:com.example.sync#Item-0"
expect /panel/sections/2/tiles/0/key == "n:Notes Status"
RVS
} > "$dir/on15.rvs"
{ echo "system 27"; desktop; cat <<'RVS'
start
advance 3
expect /system/techniques/discovery == "accessibilityTree"
expect /scanner/detected contains "n:Chat Status"
click main
expect /panel/sections/2/tiles count 2
expect /panel/sections/2/tiles/0/key == "n:Notes Status"
expect /panel/sections/2/tiles/1/key == "b:com.example.sync#Item-0"
expect /panel/sections/2/tiles/1/label == "Sync"
expect /preferences/hiddenItemKeys == ["n:Chat Status"]
RVS
} > "$dir/on27.rvs"
"$sandbox" --script "$dir/on15.rvs" --defaults "$dir/settings.plist" 2> "$dir/log15" ||
  { echo "the run on 15 failed"; cat "$dir/log15"; exit 1; }
"$sandbox" --script "$dir/on27.rvs" --defaults "$dir/settings.plist" 2> "$dir/log27" ||
  { echo "the run on 27 failed"; cat "$dir/log27"; exit 1; }
echo "placements and tile order survived the upgrade"
