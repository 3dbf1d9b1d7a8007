#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the demo need
# (with the argument "fuzz", also what `make fuzz` needs; with "bench", what
# `make bench` needs; with "package", what `make package` needs).
# Idempotent: packages already present are not touched, so a second run is
# quick and needs no network.
set -euo pipefail

packages=(
    build-essential dpkg-dev cmake pkg-config binutils
    qtbase5-dev qtbase5-dev-tools qttools5-dev-tools
    libcoin-dev libsoqt520-dev
    libbenchmark-dev
    xvfb xauth libgl1-mesa-dri fonts-dejavu-core
)
# `make fuzz` alone needs clang and its libFuzzer runtime; CI does not.
if [ "${1:-}" = fuzz ]; then
    packages+=(clang libclang-rt-14-dev)
fi
# `make package` has lintian check the package it builds.
if [ "${1:-}" = package ]; then
    packages+=(lintian)
fi
# `make bench` checks its figures with a Python script (standard library only).
if [ "${1:-}" = bench ]; then
    packages+=(python3)
fi

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$p")
    fi
done

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

if [ "$(id -u)" -ne 0 ]; then
    echo "Missing system packages: ${missing[*]}" >&2
    echo "Install them as root, then run make again:" >&2
    echo "    sudo apt-get update && sudo apt-get install -y ${missing[*]}" >&2
    exit 1
fi

echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update -q
apt-get install -y -q --no-install-recommends "${missing[@]}"
