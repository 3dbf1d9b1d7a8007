#!/usr/bin/env bash
# Runs the stand-in host with the plug-in on its built-in sample scene. With
# a display the window opens for a person; without one the host takes its
# scripted tour under Xvfb and leaves screenshots in <build>/demo/.
set -euo pipefail
build=${1:-build}
shift || true
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    exec "$build/bin/kalhost" "$@"
fi
out="$build/demo"
mkdir -p "$out"
echo "No display: touring the sample scene under Xvfb."
exec xvfb-run -a -s "-screen 0 1400x900x24" "$build/bin/kalhost" --tour "$out" "$@"
