#include "track/TrackingParameterSet.h"

#include "parameter/Scaling.h"
#include "parameter/kyn/ParameterPairs.h"

#include <boost/make_shared.hpp>

#include <stdexcept>

namespace {

struct TrackingDataMemento : public Tov::MementoBase {
    VX_TrackingParameterSet set;
};

struct PixelAmount {
    Kyn::NumericParameter<unsigned int> VX_TrackingParameterSet::*pixels;
    bool horizontal;
};

/// What follows a change of frame size.
constexpr PixelAmount AMOUNTS[] = {
    {&VX_TrackingParameterSet::maxMotionX, true},
    {&VX_TrackingParameterSet::maxMotionY, false},
    {&VX_TrackingParameterSet::autoMaxMotionX, true},
    {&VX_TrackingParameterSet::autoMaxMotionY, false},
    {&VX_TrackingParameterSet::interviewAutoMaxMotionX, true},
    {&VX_TrackingParameterSet::interviewAutoMaxMotionY, false},
};

void takeHiddenFlags(VX_TrackingParameterSet & set, VX_TrackingParameterSet const & source) {
    Kyn::forEachPair(set, source, [](Kyn::ParameterWithoutType & own, Kyn::ParameterWithoutType const & other) {
        own.hide(other.isHidden());
    });
}

} // namespace

VX_TrackingParameterSet::VX_TrackingParameterSet(Kyn::View const & view)
    : VX::ClipBoundParameterSet(QString::fromUtf8(VX::Strings::ModuleName::TRACK2D), nullptr),
      render_(boost::make_shared<Kyn::MovedParameter>(QStringLiteral("Render"))) {
    init(view);
}

VX_TrackingParameterSet::VX_TrackingParameterSet(VX_TrackingParameterSet const & other)
    : VX::ClipBoundParameterSet(QString::fromUtf8(VX::Strings::ModuleName::TRACK2D), nullptr),
      Tov::MementoUndoable(other),
      render_(other.render_) {
    init(Kyn::View::INVALID());
    copyMembers(other);
    for (VX::HomographyParams * homography : {&track, &viewOffset})
        homography->forEachParameter([](Kyn::ParameterWithoutType & parameter, bool hidden) { parameter.hide(hidden); },
                                     false);
    inputClipId.setSplittable(false);
}

VX_TrackingParameterSet & VX_TrackingParameterSet::operator=(VX_TrackingParameterSet const & other) {
    if (this == &other)
        return *this;
    render_ = other.render_;
    assignMembers(other);
    return *this;
}

/// The rows have registered themselves; what they cannot say follows them.
void VX_TrackingParameterSet::init(Kyn::View const & view) {
    for (VX::HomographyParams * homography : {&track, &viewOffset})
        homography->forEachParameter([this](Kyn::ParameterWithoutType & parameter,
                                            Kyn::View const & bound) { addSplittableParameter(parameter, bound); },
                                     view);
    addMovedParameter(render_);
    inputClipId.setSplittable(false);
}

void VX_TrackingParameterSet::rescale(float fXScale, float fYScale, Kyn::View const & view) {
    for (PixelAmount const & amount : AMOUNTS)
        Kyn::rescale(this->*amount.pixels, static_cast<double>(amount.horizontal ? fXScale : fYScale), view);
}

void VX_TrackingParameterSet::rescale(float fXScale, float fYScale) {
    for (PixelAmount const & amount : AMOUNTS)
        Kyn::rescale(this->*amount.pixels, static_cast<double>(amount.horizontal ? fXScale : fYScale));
}

void VX_TrackingParameterSet::removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) {
    forgetClips(uiOldClip, uiNewClip, {&inputClipId}, {});
}

boost::shared_ptr<Tov::MementoBase> VX_TrackingParameterSet::exportState() const {
    boost::shared_ptr<TrackingDataMemento> memento = boost::make_shared<TrackingDataMemento>();
    memento->set = *this;
    return memento;
}

void VX_TrackingParameterSet::importState(boost::shared_ptr<Tov::MementoBase> memento) {
    boost::shared_ptr<TrackingDataMemento> const saved = boost::dynamic_pointer_cast<TrackingDataMemento>(memento);
    if (!saved)
        throw std::logic_error("Bad memento type");
    takeHiddenFlags(saved->set, *this); // What is hidden is not part of what is restored.
    *this = saved->set;
}
