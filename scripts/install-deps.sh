#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the editor need, and only those missing.
# clang and its runtime libraries (libFuzzer, the sanitizers) are for `make fuzz` and
# `make sanitize`.
set -eu
packages=(
    g++ cmake make pkg-config
    clang libclang-rt-14-dev
    googletest libgtest-dev libgmock-dev libbenchmark-dev
    qt6-base-dev qt6-multimedia-dev libgl-dev libzip-dev
    xvfb xauth fonts-dejavu-core
)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
echo "Installing missing packages: ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
