#include "project/LayerInterface.h"

#include "project/Layer.h"
#include "project/TrackComparison.h"

#include <algorithm>

namespace vxproject {

namespace {

/// The sets of a layer that stand on clips: all but those of its own.
void forEachModule(Layer & layer, boost::function<void(VX::ClipBoundParameterSet &)> visit) {
    layer.forEachSet([&](Kyn::ParameterSet * set, QString const &) {
        if (auto * const module = dynamic_cast<VX::ClipBoundParameterSet *>(set))
            visit(*module);
    });
}

} // namespace

QString LayerInterface::name() const {
    return layer_.name.staticValue(Kyn::View());
}

void LayerInterface::setName(QString const & name) {
    layer_.name.setStaticValue(name, Kyn::View());
}

unsigned int LayerInterface::inputClipId() const {
    return layer_.tracking.inputClipId.staticValue(Kyn::View());
}

Kyn::ParameterSet & LayerInterface::parameters() {
    return layer_;
}

QStringList LayerInterface::moduleNames() const {
    QStringList names;
    layer_.forEachSet([&](Kyn::ParameterSet *, QString const & name) { names.append(name); });
    return names;
}

Kyn::ParameterSet * LayerInterface::module(QString const & scriptName) {
    return layer_.findSet(scriptName);
}

std::optional<Gan_Matrix33> LayerInterface::homography(Kyn::Context const & context) const {
    return homographyAt(layer_.tracking.track, context, std::nullopt);
}

bool LayerInterface::bTrackRange(Kyn::View const & view, Kyn::Time & first, Kyn::Time & last) const {
    bool found = false;
    layer_.tracking.track.forEachParameter(
        [&](Kyn::ParameterWithoutType const & parameter, bool) {
            unsigned int const count = parameter.numKeyframes(view);
            if (count == 0)
                return;
            Kyn::Time const begin = parameter.keyframeContext(0, view).time();
            Kyn::Time const end = parameter.keyframeContext(count - 1, view).time();
            first = found ? std::min(first, begin) : begin;
            last = found ? std::max(last, end) : end;
            found = true;
        },
        false);
    return found;
}

void LayerInterface::rescale(float fXScale, float fYScale) {
    forEachModule(layer_, [&](VX::ClipBoundParameterSet & module) { module.rescale(fXScale, fYScale); });
}

void LayerInterface::removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) {
    forEachModule(layer_,
                  [&](VX::ClipBoundParameterSet & module) { module.removeReferencesToClip(uiOldClip, uiNewClip); });
}

} // namespace vxproject
