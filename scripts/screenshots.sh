#!/usr/bin/env bash
# Makes the README's screenshots: starts the editor on a temporary copy of the demo game folder
# under a virtual X display, opens the demo system and lets the editor save a picture of its own
# window. Usage: scripts/screenshots.sh [BUILD_DIR]   (default: build)
set -euo pipefail

root="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-build}"
case "$build" in
    /*) ;;
    *) build="$root/$build" ;;
esac
editor="$build/bin/orrerion"
system="Kestrel"
shots="$root/docs/screenshots"

if [ ! -x "$editor" ]; then
    echo "screenshots: $editor is missing; build the editor first" >&2
    exit 1
fi
if ! command -v xvfb-run >/dev/null 2>&1; then
    echo "screenshots: xvfb-run is missing (make deps installs it)" >&2
    exit 1
fi

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
cp -r "$root/demo/game" "$work/game"
mkdir -p "$work/config" "$shots"

# Own settings folder: the user's real settings are neither read nor changed.
XDG_CONFIG_HOME="$work/config" xvfb-run -a -s "-screen 0 1280x1024x24" \
    "$editor" --game-dir "$work/game" --screenshot "$shots/main-window.png" "$system"

echo "screenshots: wrote ${shots#"$root"/}/main-window.png"
