#!/usr/bin/env bash
# Draws the tracked lid and the lens grid of the box's project over four of its frames, without a display.
# usage: run.sh PLATE_HOST PROJECT FOLDER     the program, what box_lid/run.sh left, and where the pictures are to lie
set -euo pipefail

if (($# != 3)); then
    echo "usage: $0 PLATE_HOST PROJECT FOLDER" >&2
    exit 2
fi
plate_host=$1
project=$2
folder=$3
measured=$(dirname "${BASH_SOURCE[0]}")/../box_lid/box_lid_track.csv
corners=$(sed -n 's/^# surface corners in frame 0 (pixels, x y): //p' "$measured")

mkdir -p "$folder"
# The track was measured on the pictures as they were filmed, so it is drawn without the lens, which stands in.
"$plate_host" "$project" --layer 1 --frames 0-390x130 --corners "$corners" --flat --grid \
    --output "$folder/box.####.jpg" --sheet "$folder/box_sheet.jpg"

echo
echo "The lid where the track takes it, and the lens grid, over frames of the box:"
ls -1 "$folder"/box.*.jpg "$folder/box_sheet.jpg"
