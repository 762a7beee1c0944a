#!/usr/bin/env bash
# Makes the disk image people install from: Ravlin.app beside a link to /Applications, in a
# window laid out for dragging one onto the other. Where Finder cannot be scripted (a runner
# without a session), the image keeps the link but not the layout, and says so.
# Usage: make-dmg.sh APP OUTPUT.dmg [VOLUME NAME]      (macOS only)
set -euo pipefail
[ $# -ge 2 ] || { echo "usage: $0 APP OUTPUT.dmg [VOLUME NAME]" >&2; exit 2; }
app=$1 output=$2 volume=${3:-Ravlin}
[ -d "$app" ] || { echo "make-dmg: no $app" >&2; exit 2; }
work=$(mktemp -d)
trap 'hdiutil detach "$work/mount" -quiet -force 2>/dev/null || true; rm -rf "$work"' EXIT

mkdir "$work/stage"
ditto "$app" "$work/stage/$(basename "$app")"
ln -s /Applications "$work/stage/Applications"
hdiutil create -quiet -volname "$volume" -srcfolder "$work/stage" -fs HFS+ -format UDRW \
  -ov "$work/rw.dmg"
mkdir "$work/mount"
hdiutil attach -quiet -readwrite -noverify -noautoopen -mountpoint "$work/mount" "$work/rw.dmg"
if ! osascript <<APPLESCRIPT
tell application "Finder"
  tell disk "$volume"
    open
    set current view of container window to icon view
    set toolbar visible of container window to false
    set statusbar visible of container window to false
    set the bounds of container window to {200, 120, 740, 460}
    set viewOptions to the icon view options of container window
    set arrangement of viewOptions to not arranged
    set icon size of viewOptions to 112
    set position of item "$(basename "$app")" of container window to {140, 150}
    set position of item "Applications" of container window to {400, 150}
    update without registering applications
    delay 1
    close
  end tell
end tell
APPLESCRIPT
then
  echo "make-dmg: Finder could not lay the window out; the image keeps the Applications link" >&2
fi
sync
hdiutil detach -quiet "$work/mount"
rm -f "$output"
hdiutil convert -quiet "$work/rw.dmg" -format UDZO -imagekey zlib-level=9 -o "$output"
echo "made $output"
