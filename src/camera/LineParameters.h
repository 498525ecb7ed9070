#pragma once

struct Gan_LineFeatureMap;

/// The lines that a user has drawn on one frame of a lens's calibration. Copies own copies of the lines.
class VX_LineParameters {
public:
    VX_LineParameters() = default;
    VX_LineParameters(VX_LineParameters const & other);
    VX_LineParameters & operator=(VX_LineParameters const & other);
    /// Frees the lines with gan_line_feature_map_free.
    ~VX_LineParameters();

    Gan_LineFeatureMap * pLines = nullptr; ///< Owned, from gan_line_feature_map_alloc or _copy; null for none.
    int iIdentifier = -1;                  ///< The application's own number for them.
};
