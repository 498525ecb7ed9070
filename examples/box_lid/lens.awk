# Refits a measured lens of three radial terms as one of two over its frame, by least squares over a grid of pixels, and
# prints the lines of a project that hold it; on standard error, how far the two lenses are apart.
#
# The lens was calibrated from 13 photographs of a chessboard, 640 by 480 pixels, with a mean reprojection error of 0.39
# pixels. It belongs to another camera than the one that the box was filmed with, and stands in for that one.
#
# usage: awk -f lens.awk [-v clip=1] [-v lens=1] [-v plate=FOLDER]     the folder of the clip's pictures

function curve(r) { return r * (1 + k1 * r ^ 2 + k2 * r ^ 4 + k3 * r ^ 6) }
function slope(r) { return 1 + 3 * k1 * r ^ 2 + 5 * k2 * r ^ 4 + 7 * k3 * r ^ 6 }

# The undistorted radius of a distorted one, in units of the focal length.
function undistorted(R,    r, i) {
    r = R
    for (i = 0; i < 50; ++i)
        r -= (curve(r) - R) / slope(r)
    return r
}

BEGIN {
    if (!clip) clip = 1
    if (!lens) lens = 1
    width = 640; height = 480
    focal = 535.91573396163199; x0 = 342.28315473308373; y0 = 235.57082909788173 # pixels
    k1 = -0.26637260909660682; k2 = -0.038588898922304653; k3 = 0.23839153080878486
    back = 36 # millimetres across, as if the lens sat on a full-frame camera

    for (y = 2; y < height; y += 4)
        for (x = 2; x < width; x += 4) {
            R = sqrt((x - x0) ^ 2 + (y - y0) ^ 2) / focal
            r = undistorted(R)
            radius[++count] = r; image[count] = R
            a = r ^ 3; b = r ^ 5; c = R - r
            aa += a * a; ab += a * b; bb += b * b; ac += a * c; bc += b * c
        }
    determinant = aa * bb - ab * ab
    q1 = (ac * bb - bc * ab) / determinant
    q2 = (aa * bc - ab * ac) / determinant
    for (i = 1; i <= count; ++i) {
        r = radius[i]
        distance = focal * (r * (1 + q1 * r ^ 2 + q2 * r ^ 4) - image[i])
        if (distance < 0) distance = -distance
        squares += distance ^ 2
        if (distance > largest) largest = distance
    }
    printf "Two terms in place of three: %.2f pixels apart (root mean square), at most %.1f in the far corner\n",
        sqrt(squares / count), largest > "/dev/stderr"

    picture = "Clip[" clip "].Picture.Core."
    print "Clip[" clip "].Name.value=\"box\""
    print picture "FrameWidth.value=" width
    print picture "FrameHeight.value=" height
    print picture "FilmBackWidth.value=" back
    print picture "FilmBackHeight.value=" back * height / width
    if (plate) {
        source = "Clip[" clip "].Source.Core."
        print source "ClipDirectory.value=\"" plate "\""
        print source "ClipPrefix.value=\"box.\""
        print source "ClipSuffix.value=\".jpg\""
        print source "MaximumIndex.value=390"
        print source "IndexWidth.value=4"
        print source "HasIndex.value=1"
        print source "ClipLength.value=391"
    }
    set = "Lens[" lens "].Camera."
    print "Lens[" lens "].Name.value=\"chessboard lens\""
    print set "InputClipID.value=" clip
    print set "Type.value=2"
    printf "%sFocalDistance.value=%.9g\n", set, focal * back / width
    printf "%sImageCentreX.value=%.9g\n", set, x0 / width
    printf "%sImageCentreY.value=%.9g\n", set, y0 / height
    printf "%sRadialK1.value=%.9g\n", set, q1
    printf "%sRadialK2.value=%.9g\n", set, q2
}
