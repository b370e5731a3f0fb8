#!/usr/bin/env bash
# Makes the README's screenshots: starts the editor on a temporary copy of the demo game folder
# under a virtual X display, opens the demo system and lets the editor save pictures of its own
# windows: the main window, and the message editor on the second planet (responses of group
# "Treaty", the first one being edited). Usage: scripts/screenshots.sh [BUILD_DIR]   (default: build)
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

# Own settings folder: the user's real settings are neither read nor changed. Each picture starts
# the editor afresh on the same copy; a run leaves no working copy behind. A message box would
# wait for nobody on the virtual display, so a run that takes too long is stopped.
shoot() {
    if ! XDG_CONFIG_HOME="$work/config" xvfb-run -a -s "-screen 0 1280x1024x24" \
        timeout 120 "$editor" --game-dir "$work/game" "$@" "$system"; then
        echo "screenshots: the editor failed or waited on a question ($*)" >&2
        exit 1
    fi
}

shoot --screenshot "$shots/main-window.png"
echo "screenshots: wrote ${shots#"$root"/}/main-window.png"
shoot --screenshot-messages "$shots/message-editor.png"
echo "screenshots: wrote ${shots#"$root"/}/message-editor.png"
