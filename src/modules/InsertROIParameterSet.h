#pragma once

#include "modules/ModuleTable.h"

#include <QPointer>

class VX_BaseClipInfo;

/// The part of an insert clip that is used, given by two corners. They are stored as fractions of the frame, from
/// (0, 0) to (1, 1) in a new set, may lie up to ten frames outside, and are shown in pixels of the insert clip.
///
/// Being fractions they follow every change of frame size by themselves.
class VX_InsertROIParameterSet : public VX::ClipBoundParameterSet, protected VX::ModuleTable {
public:
    VX_DECLARE_TRANSLATION("VX_InsertROIParameterSet")

    /// Where a region lies: the clip that a parameter names. Neither the parameter nor the container is owned. The
    /// parameter may be destroyed, and then names no clip; the container must outlive this.
    class RegionClip {
    public:
        /// Either may be null.
        RegionClip(Kyn::Parameter<unsigned int> * clipId, VX_BaseClipInfoContainer * clips);

        /// The frame's width or height in pixels; the height twice that of a field with the interlace modes 1 and 2,
        /// but once with those of pulldown. 1 where no clip is named, and for one that the container does not know.
        float width(Kyn::Context const & context) const;
        float height(Kyn::Context const & context) const;

    private:
        VX_BaseClipInfo const * clip(Kyn::Context const & context) const;

        Kyn::Parameter<unsigned int> * clipId_;
        QPointer<Kyn::ParameterWithoutType> alive_;
        VX_BaseClipInfoContainer * clips_;
    };

    /// One coordinate of a region: a fraction of the frame's width or height, shown in pixels. A clip without a width
    /// or height shows 0, and gives what float division gives for an entered value.
    class ROIParameter : public Kyn::NumericParameter<float> {
    public:
        ROIParameter(Kyn::ParameterSet::Row const & row, bool bAnimatable, float defaultValue, float minimum,
                     float maximum, Kyn::Interpolation defaultInterpolation, Kyn::Extrapolation extrapolation,
                     RegionClip const & clip, bool bHorizontal);
        /// Both take over which clip is meant: a copy goes on looking at the same clip id and the same container.
        ROIParameter(ROIParameter const & other);
        ROIParameter & operator=(ROIParameter const & other);
        void assignFrom(Kyn::ParameterWithoutType const & other) override;

        float toDisplay(float stored, Kyn::Context const & context) const override;
        float fromDisplay(float shown, Kyn::Context const & context) const override;

    private:
        float scale(Kyn::Context const & context) const;

        RegionClip clip_;
        bool bHorizontal_;
    };

    /// `clipId` says which of `clips` the region lies in. Neither is owned; see RegionClip.
    VX_InsertROIParameterSet(Kyn::Parameter<unsigned int> * clipId, VX_BaseClipInfoContainer * clips);
    /// Takes over all values, keys and hidden states; the names, and what is hidden at least, are those of a new set.
    VX_InsertROIParameterSet(VX_InsertROIParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_InsertROIParameterSet & operator=(VX_InsertROIParameterSet const & other);

private:
    static constexpr bool ACROSS = true;
    static constexpr bool DOWN = false;

    RegionClip const clip_; ///< For the rows below, which each keep their own.

public:
    // clang-format off
    ROIParameter roiX1 {row("ROIX1"), KEYED, 0.0f, -10.0f, 10.0f, LINEAR, HOLD, clip_, ACROSS};
    ROIParameter roiY1 {row("ROIY1"), KEYED, 0.0f, -10.0f, 10.0f, LINEAR, HOLD, clip_, DOWN};
    ROIParameter roiX2 {row("ROIX2"), KEYED, 1.0f, -10.0f, 10.0f, LINEAR, HOLD, clip_, ACROSS};
    ROIParameter roiY2 {row("ROIY2"), KEYED, 1.0f, -10.0f, 10.0f, LINEAR, HOLD, clip_, DOWN};
    // clang-format on
};
