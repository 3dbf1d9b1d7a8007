#!/usr/bin/env bash
# Runs the stand-in host with the plug-in. Without a display the host runs on
# Qt's offscreen platform.
set -euo pipefail
build=${1:-build}
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    export QT_QPA_PLATFORM=offscreen
fi
exec "$build/bin/kalhost" "${@:2}"
