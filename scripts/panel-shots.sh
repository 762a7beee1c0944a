#!/usr/bin/env bash
# Draws the tile panel over the simulated desktop in each style and writes the
# pictures: docs/panel-<style>.png by default, or into the folder given. With
# "--all" it also draws each style in Arabic and without captured images.
set -euo pipefail
cd "$(dirname "$0")/.."
out="docs"
all=no
for arg in "$@"; do
  case "$arg" in
    --all) all=yes ;;
    *) out="$arg" ;;
  esac
done
bash scripts/build.sh --target ravlin-sandbox >/dev/null
sandbox=build/debug/bin/ravlin-sandbox
mkdir -p "$out"

# The desktop: a few applications' items and two of the system's, a known place,
# weather and figures.
desktop() {
  cat <<'RVS'
app com.apple.controlcenter "Control Center"
app com.example.chat "Chat"
app com.example.vpn "Tunnel"
app com.example.notes "Notes"
app com.example.sync "Sync"
item com.apple.controlcenter "WiFi" ax.title="Wi-Fi, connected"
item com.apple.controlcenter "Sound" ax.title="Sound"
item com.example.chat "Chat Status" ax.title="Chat"
item com.example.vpn "Item-0" ax.title="Tunnel"
item com.example.notes "Notes Status" ax.title="Notes"
item com.example.sync "Sync Status" ax.title="Sync"
location 52.52 13.40 "Berlin"
forecast {"current":{"temperature_2m":21.4,"weather_code":2},"daily":{"temperature_2m_max":[24.2],"temperature_2m_min":[13.1]}}
probe cpu 100 100 800 0
probe ram 6000000000 16000000000
probe disk 1000000000000 400000000000
probe battery 80 100
probe net 1000000 200000
RVS
}

# shot STYLE FILE [LANGUAGE] [images]
shot() {
  {
    desktop
    [ "${4:-images}" = images ] || echo "permission screen off"
    echo "start"
    [ -z "${3:-}" ] || echo "language \"$3\""
    echo "prefs set tileStyle \"$1\""
    echo "advance 5"
    echo "probe cpu 340 220 1440 0"
    echo "probe net 3400000 560000"
    echo "click main"
    # Before the follow-up sample at 0.5 s, which would read no change since this one.
    echo "advance 0.3"
    echo "screenshot \"$2\" region=panel"
  } | "$sandbox" --script - 2> >(grep -v "does not support" >&2)
}

for style in dashboard capsules grid strip bar; do
  shot "$style" "$out/panel-$style.png"
  if [ "$all" = yes ]; then
    shot "$style" "$out/panel-$style-ar.png" ar
    shot "$style" "$out/panel-$style-plain.png" "" plain
  fi
done
echo "wrote the panel pictures to $out/"
