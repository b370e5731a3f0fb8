#!/bin/sh
# Draws the pictures of the demo system Kestrel with ImageMagick: the planet strip (one 160 x 120
# cell per planet, in planet order) and the 16 x 16 star picture. Run from anywhere; it rewrites
# demo/game/PICTURES/Kestrel.bmp and KestrelSun.bmp.
set -eu
out="$(cd "$(dirname "$0")" && pwd)/game/PICTURES"
tmp="$(mktemp -d)"
trap 'rm -rf "$tmp"' EXIT

# A dark cell with a fixed scatter of faint stars (the seed differs per cell so the strip does
# not look tiled).
sky() {  # sky <file> <seed>
    stars=$(awk -v seed="$2" 'BEGIN { srand(seed);
        for (i = 0; i < 28; i++) printf "point %d,%d ", int(rand() * 160), int(rand() * 120) }')
    convert -size 160x120 xc:'#0b0b1a' -fill '#9a9ab0' -draw "$stars" "$1"
}

# A shaded disc: radial gradient from a lit colour to a dark one, lit from the upper left.
planet() {  # planet <file> <seed> <radius> <light> <dark> [extra draw options...]
    file=$1 seed=$2 r=$3 light=$4 dark=$5
    shift 5
    d=$((2 * r))
    sky "$tmp/sky.png" "$seed"
    convert -size "$((d * 2))x$((d * 2))" "radial-gradient:$light-$dark" \
        -crop "${d}x${d}+$((r * 7 / 5))+$((r * 7 / 5))" +repage "$@" "$tmp/ball.png"
    convert -size "${d}x${d}" xc:black -fill white -draw "circle $r,$r $r,0" "$tmp/mask.png"
    convert "$tmp/ball.png" "$tmp/mask.png" -alpha off -compose CopyOpacity -composite \
        "$tmp/disc.png"
    convert "$tmp/sky.png" "$tmp/disc.png" -gravity center -compose Over -composite "$file"
}

# 1 Cinder: small molten world (class E).
planet "$tmp/p1.png" 11 18 '#ff7a3a' '#3a0600'
# 2 Halcyon: temperate ocean world with island chains (class M).
planet "$tmp/p2.png" 12 38 '#7fc8ff' '#06204a' \
    -fill '#3f8f3a' -draw 'ellipse 30,34 10,5 0,360' -draw 'ellipse 50,52 8,4 0,360' \
    -draw 'ellipse 22,58 6,3 0,360' -fill '#e8f4ff' -draw 'ellipse 38,12 18,3 0,360'
# 3 Rustmoor: dead red world with dark craters (class K).
planet "$tmp/p3.png" 13 28 '#ff9a70' '#4a1000' \
    -fill '#7a2a10' -draw 'circle 20,22 24,22' -draw 'circle 36,34 39,34' -draw 'circle 18,40 20,40'
# 5 Kestrel V: large banded gas giant (class A).
planet "$tmp/p5.png" 15 52 '#fff2a0' '#5a3a00' \
    -fill '#c88a2a' -draw 'rectangle 0,30 104,38' -draw 'rectangle 0,52 104,58' \
    -draw 'rectangle 0,70 104,76' -fill '#b0461e' -draw 'ellipse 64,56 9,5 0,360'
# 6 Undertow: deep water world (class N).
planet "$tmp/p6.png" 16 44 '#4aa0ff' '#000a30' \
    -fill '#1a4a9a' -draw 'ellipse 40,30 20,4 0,360' -draw 'ellipse 52,58 24,4 0,360'

# 4 The Shards: an asteroid belt, rocks strewn across the cell.
sky "$tmp/p4.png" 14
rocks=""
i=0
for xy in 12,70 24,62 31,75 45,58 52,69 60,80 71,55 80,66 88,74 97,52 104,63 112,77 121,49 \
          130,60 138,71 148,47 18,84 66,44 92,86 126,82 140,56 40,88; do
    x=${xy%,*} y=${xy#*,}
    rx=$((2 + i % 4)) ry=$((1 + i % 3))
    rocks="$rocks ellipse $x,$y $rx,$ry 0,360"
    i=$((i + 1))
done
convert "$tmp/p4.png" -fill '#8a8a8a' -stroke '#505050' -draw "$rocks" "$tmp/p4.png"

convert "$tmp/p1.png" "$tmp/p2.png" "$tmp/p3.png" "$tmp/p4.png" "$tmp/p5.png" "$tmp/p6.png" \
    +append -type TrueColor "BMP3:$out/Kestrel.bmp"

# The star: a 16 x 16 ember-orange sun.
convert -size 32x32 radial-gradient:'#fff0b0'-'#c03000' -crop 16x16+10+10 +repage "$tmp/sun.png"
convert -size 16x16 xc:black -fill white -draw 'circle 7.5,7.5 7.5,0.5' "$tmp/sunmask.png"
convert -size 16x16 xc:black \( "$tmp/sun.png" "$tmp/sunmask.png" -alpha off \
    -compose CopyOpacity -composite \) -compose Over -composite -type TrueColor \
    "BMP3:$out/KestrelSun.bmp"
