#pragma once

#include "camera/FrameWarp.h"
#include "camera/ParameterisedGanCamera.h"

namespace VX {

/// The keyed form of a VX::FrameWarp, for scripts: ids, both cameras and the homography, each at any time. A fresh one
/// holds the zero matrix, not the identity, and two cameras of zeros.
///
/// This header is the set's table, in order of registration, which is the order of the script; "Type" follows it, and
/// then the nested cameras.
///
/// The keys of the homography are misspelt in every script ever written, so they stay misspelt, and its last element
/// shares the key of the one at the beginning of its row. Both are written, the row's beginning first, and both are
/// read back from what was written. Who reads the same set again after a part of a script calls beginReading() first.
class ParameterisedFrameWarp : public Kyn::ParameterSet, protected ParameterTable {
public:
    VX_DECLARE_TRANSLATION("VX::ParameterisedFrameWarp")

    ParameterisedFrameWarp();
    /// Takes over all values, keys and limits.
    ParameterisedFrameWarp(ParameterisedFrameWarp const & other);
    /// Takes over names as well. Nothing on self-assignment.
    ParameterisedFrameWarp & operator=(ParameterisedFrameWarp const & other);
    ~ParameterisedFrameWarp() override;

    /// Takes the view's keys from all parameters of the set itself. Their values from before there were keys come into
    /// force again; the nested cameras keep their keys.
    void reset(Kyn::View const & view);

    /// Writes the warp's ids, stages, cameras (VX_ParameterisedGanCamera::populateGanCamera) and homography, and
    /// nothing else: frame size, inverse and original homography stay as they were, and are stale, until the caller
    /// hands the warp's parts to vSetAttributes(). A stage may be off afterwards. An id of 4294967295 gives the
    /// selection -1.
    ///
    /// std::invalid_argument for a spline model where the warp's camera has no buffer of weights; what comes before the
    /// camera is then written.
    void populateFrameWarp(FrameWarp & warp, Kyn::Context const & context) const;
    /// The reverse, within the limits: every negative selection becomes 4294967295, so that -5 comes back as -1. The
    /// homography is the one in force, not the original. Refuses what populateFrameWarp() refuses.
    void setFromFrameWarp(FrameWarp const & warp, Kyn::Context const & context);

    // clang-format off
    Kyn::NumericParameter<unsigned int> layerId{row("LayerID"), KEYED, 0, 0, 4294967295u, HELD, HOLD}; ///< The selection.
    Kyn::Parameter<unsigned int> clipId        {row("ClipID"), KEYED, 0, HELD, HOLD};
    Kyn::Parameter<bool> useBackprojectionCamera{row("UseBackprojectionCamera"), KEYED, false, HELD, HOLD};
    VX_ParameterisedGanCamera backprojectionCamera;
    Kyn::Parameter<bool> useProjectionCamera   {row("UseProjectionCamera"), KEYED, false, HELD, HOLD};
    VX_ParameterisedGanCamera projectionCamera;
    Level homographyXX{row("HomograpyXX"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, GO_ON};
    Level homographyXY{row("HomograpyXY"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, GO_ON};
    Level homographyXZ{row("HomograpyXZ"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, GO_ON};
    Level homographyYX{row("HomograpyYX"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, GO_ON};
    Level homographyYY{row("HomograpyYY"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, GO_ON};
    Level homographyYZ{row("HomograpyYZ"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, GO_ON};
    Level homographyZX{row("HomograpyZX"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, GO_ON};
    Level homographyZY{row("HomograpyZY"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, GO_ON};
    Level homographyZZ{row("HomograpyZX"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, GO_ON}; // Really ZX again.
    // clang-format on
    /// "Type": read and written, and used by nothing here.
    FrameWarp::_Type type = FrameWarp::_Type();

private:
    QString translated(char const * text) const override { return tr(text); }
    void init();
};

} // namespace VX
