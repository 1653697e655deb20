#!/bin/sh
# Renders every icon's vector source to the pictures the module carries: a 38 pixel tool icon, at 1x and 2x.
set -eu
cd "$(dirname "$0")/icons"
for source in *.svg; do
    name=${source%.svg}
    rsvg-convert --width 38 --height 38 --output "$name.png" "$source"
    rsvg-convert --width 76 --height 76 --output "$name@2x.png" "$source"
done
