#pragma once

#include "camera/HomographyParams.h"
#include "clip/ClipBoundParameterSet.h"
#include "clip/ParameterTable.h"
#include "foundation/Strings.h"

/// Everything the planar tracker needs for one layer, and its result: the settings of the search, the clip it reads and
/// two keyed homographies, the track itself and the offset of a view against it. It does no tracking.
///
/// This header is the set's table, in order of registration, which is the order of the script. Only the two
/// homographies may differ from view to view.
class VX_TrackingParameterSet : public VX::ClipBoundParameterSet,
                                public Tov::MementoUndoable,
                                protected VX::ParameterTable {
public:
    VX_DECLARE_TRANSLATION("VX_TrackingParameterSet")

    /// `view` is the view that the homographies are bound to; an invalid one binds them to none.
    explicit VX_TrackingParameterSet(Kyn::View const & view = Kyn::View::INVALID());
    /// Takes over all values and keys. Names and hidden states are those of a new set.
    VX_TrackingParameterSet(VX_TrackingParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_TrackingParameterSet & operator=(VX_TrackingParameterSet const & other);

    /// Multiplies the six limits of motion, cut to whole pixels. Tracks, rotation and zoom stay. Keys are held within
    /// the limits; the value of a view without keys is not, until it is read.
    void rescale(float fXScale, float fYScale, Kyn::View const & view) override;
    void rescale(float fXScale, float fYScale) override;
    void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) override;

    /// One memento of the whole set, both homographies with all keys and views included. importState refuses a memento
    /// of anything else, and a null one, with std::logic_error "Bad memento type".
    boost::shared_ptr<Tov::MementoBase> exportState() const override;
    void importState(boost::shared_ptr<Tov::MementoBase> memento) override;

    // clang-format off
    ClipReference inputClipId            {row("InputClipID").hidden(), STATIC, 0, HELD, HOLD};
    Count autoMaxMotionX                 {row("AutoMaxMotionX").hidden(), KEYED, 0, 0, 10000, LINEAR, HOLD};
    Count autoMaxMotionY                 {row("AutoMaxMotionY").hidden(), KEYED, 0, 0, 10000, LINEAR, HOLD};
    Count interviewAutoMaxMotionX        {row("interviewAutoMaxMotionX").hidden(), KEYED, 0, 0, 10000, LINEAR, HOLD};
    Count interviewAutoMaxMotionY        {row("interviewAutoMaxMotionY").hidden(), KEYED, 0, 0, 10000, LINEAR, HOLD};
    Amount smoothingLevel                {row("SmoothingLevel").shown("Smoothing Level"), KEYED, 0.0f, 0.0f, 100.0f, LINEAR, HOLD};
    Level minPercentagePixelUsage        {row("MinPercentagePixelUsage").shown("Min % Pixels Used"), KEYED, 50.0, 0.0, 100.0, LINEAR, HOLD};
    Flag applySearch                     {row("ApplySearch").hidden(), KEYED, true, HELD, HOLD};
    Flag manualTrack                     {row("ManualTrack").hidden(), STATIC, false, HELD, HOLD};
    Level maxRotationAngle               {row("MaxRotationAngle").shown("Max Rotation Angle"), KEYED, 0.0, 0.0, 1000.0, LINEAR, HOLD};
    Level maxZoomPercentage              {row("MaxZoomPercentage").shown("Max Zoom %"), KEYED, 0.0, 0.0, 1000.0, LINEAR, HOLD};
    Count maxMotionX                     {row("MaxMotionX").shown("Max Motion X"), KEYED, 100, 0, 1000, LINEAR, HOLD};
    Count maxMotionY                     {row("MaxMotionY").shown("Max Motion Y"), KEYED, 100, 0, 1000, LINEAR, HOLD};
    Flag predictMaxMotionX               {row("PredictMaxMotionX").hidden(), KEYED, true, HELD, HOLD};
    Flag predictMaxMotionY               {row("PredictMaxMotionY").hidden(), KEYED, true, HELD, HOLD};
    Kyn::Parameter<_TrackModel> trackingModel{row("TrackingModel").hidden(), KEYED, TRACK_MODEL_AFFINE, HELD, HOLD};
    Flag useActiveColorChannel           {row("UseActiveColorChannel").hidden(), KEYED, false, HELD, HOLD};
    Flag trackThisView                   {row("TrackThisView").hidden(), KEYED, true, HELD, HOLD};
    Flag trackFromOtherViews             {row("TrackFromOtherViews").hidden(), KEYED, true, HELD, HOLD};
    Flag useWideBaselineTracker          {row("UseWideBaselineTracker"), KEYED, false, HELD, HOLD};
    VX::HomographyParams track;                                ///< The track: "Translation X" and so on.
    VX::HomographyParams viewOffset{QStringLiteral("ViewOffset")}; ///< A view's offset: "ViewOffsetTranslation X".
    // clang-format on

private:
    QString translated(char const * text) const override { return tr(text); }
    void init(Kyn::View const & view);

    boost::shared_ptr<Kyn::MovedParameter> render_; ///< Old scripts carry the key "Render". Shared by copies.
};
