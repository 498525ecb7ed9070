#!/usr/bin/env bash
# Takes the measured track of a box's lid into a project file and out again, and fails if it comes out anywhere more
# than 0.05 pixels from where it was measured.
# usage: run.sh VXPROJECT [FOLDER]     the program, and where the project is to lie (a temporary folder without one)
set -euo pipefail

if (($# < 1 || $# > 2)); then
    echo "usage: $0 VXPROJECT [FOLDER]" >&2
    exit 2
fi
vxproject=$1
measured=$(dirname "${BASH_SOURCE[0]}")/box_lid_track.csv
if (($# == 2)); then
    folder=$2
    mkdir -p "$folder"
else
    folder=$(mktemp -d)
    trap 'rm -rf "$folder"' EXIT
fi
project=$folder/box_lid.vxp
size=640x480
in_columns() {
    awk -F, 'NR == 1 { printf "%5s", $1; for (i = 2; i <= NF; i++) printf "%9s", $i; print "" }
             NR > 1 { printf "%5s", $1; for (i = 2; i <= NF; i++) printf "%9.2f", $i; print "" }'
}
corners=$(sed -n 's/^# surface corners in frame 0 (pixels, x y): //p' "$measured")

echo "The track, as it was measured, goes into a project:"
"$vxproject" import-track "$measured" --size "$size" --layer 1 -o "$project"
"$vxproject" check "$project"

echo
echo "What the project holds, read back from its file:"
"$vxproject" info "$project"

echo
echo "Where the lid's four corners are, in pixels:"
"$vxproject" track "$project" --layer 1 --size "$size" --corners "$corners" --frames 0-390x65 | in_columns

echo
echo "How far they are from where they were measured, in pixels, over all frames:"
"$vxproject" compare-track "$project" "$measured" --layer 1 --size "$size" --corners "$corners" --limit 0.05 |
    awk -F, 'NR == 1 { for (i = 1; i <= NF; i++) name[i] = $i }
             NR > 1 { for (i = 1; i <= NF; i++) printf "%15s  %.5g\n", name[i], $i }'
echo "All of it is what the six significant digits of a key line cost: before they are written, the curves give each"
echo "measured homography back to rounding. The limit is 0.05 pixels."

echo
echo "The same through a lens: out of it, along with the track, and into it again. The lens is another camera's:"
here=$(dirname "$measured")
awk -f "$here/lens.awk" -v plate="$here/plate" 2>&1 >> "$project"
sed -i 's/^\(Layer\[1\]\.跟踪\.InputClipID\.value=\)0$/\11/' "$project"
"$vxproject" lens "$project" --lens 1 --frames 0
"$vxproject" warp "$project" --layer 1 --points "$corners" --frames 0-390x65 | in_columns
