#include "camera/HomographyParams.h"

#include "geometry/marlin/Homography.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace VX {

namespace {

Kyn::NumericParameter<double> valueNamed(QString const & prefix, char const * name, double neutral) {
    typedef std::numeric_limits<double> Limits;
    return Kyn::NumericParameter<double>(true, prefix + QLatin1String(name), neutral, Limits::lowest(), Limits::max(),
                                         Kyn::INTERPOLATION_LINEAR, Kyn::EXTRAPOLATION_CONSTANT);
}

/// Equal in single precision: strictly closer than the absolute bound, or at most the relative one apart.
bool bNearlyEqual(float a, float b, float fRelative = 1e-5f, float fAbsolute = 1e-5f) {
    float const difference = std::fabs(a - b);
    if (difference < fAbsolute)
        return true;
    float const larger = std::fabs(a) > std::fabs(b) ? std::fabs(a) : std::fabs(b);
    return difference / larger <= fRelative;
}

/// Judged in single precision, stored in double: what differs only beyond it is not worth a key.
void vSetValueIfChanged(Kyn::NumericParameter<double> & parameter, double dValue, Kyn::Context const & context) {
    if (bNearlyEqual(static_cast<float>(parameter.value(context)), static_cast<float>(dValue)))
        return;
    std::vector<Kyn::View> const & views = parameter.views();
    if (std::find(views.begin(), views.end(), context.view()) == views.end())
        parameter.copyView(context.view(), views.front(), nullptr); // A new view starts from the first one's curve.
    parameter.setValue(dValue, context);
}

/// The record that crosses to the decomposition has its own order; each member goes to its own field.
constexpr double HomographyDecomposition::*FIELDS[] = {
    &HomographyDecomposition::dTranslationX, &HomographyDecomposition::dTranslationY,
    &HomographyDecomposition::dRotation,     &HomographyDecomposition::dScale,
    &HomographyDecomposition::dShearX,       &HomographyDecomposition::dShearY,
    &HomographyDecomposition::dPerspectiveX, &HomographyDecomposition::dPerspectiveY,
};

} // namespace

HomographyParams::HomographyParams(QString const & prefix)
    : translationX(valueNamed(prefix, "Translation X", 0.0)),
      translationY(valueNamed(prefix, "Translation Y", 0.0)),
      rotation(valueNamed(prefix, "Rotation", 0.0)),
      scale(valueNamed(prefix, "Scale", 1.0)),
      shearX(valueNamed(prefix, "Shear X", 0.0)),
      shearY(valueNamed(prefix, "Shear Y", 1.0)),
      perspectiveX(valueNamed(prefix, "Perspective X", 0.0)),
      perspectiveY(valueNamed(prefix, "Perspective Y", 0.0)) {}

HomographyParams::HomographyParams(HomographyParams const & other) = default;

HomographyParams & HomographyParams::operator=(HomographyParams const & other) {
    if (this == &other)
        return *this;
    for (Member const member : members())
        this->*member = other.*member;
    return *this;
}

std::array<HomographyParams::Member, 8> const & HomographyParams::members() {
    static constexpr std::array<Member, 8> MEMBERS = {
        &HomographyParams::translationX, &HomographyParams::translationY, &HomographyParams::rotation,
        &HomographyParams::scale,        &HomographyParams::shearX,       &HomographyParams::shearY,
        &HomographyParams::perspectiveX, &HomographyParams::perspectiveY,
    };
    return MEMBERS;
}

Gan_Matrix33 HomographyParams::constructHomography(Kyn::Context const & context) const {
    HomographyDecomposition record = {};
    for (std::size_t i = 0; i < members().size(); ++i)
        record.*FIELDS[i] = (this->*members()[i]).value(context);
    Gan_Matrix33 homography;
    if (bReconstructHomography(&record, 0.0, &homography) == 0)
        throw std::runtime_error("Unable to construct homography");
    return homography;
}

void HomographyParams::setFromHomography(Gan_Matrix33 const & homography, Kyn::Context const & context) {
    HomographyDecomposition record = {};
    // The answer is not asked for: what cannot be decomposed comes back neutral, and is written as that.
    bDecomposeHomography(&homography, 0.0, &record);
    for (std::size_t i = 0; i < members().size(); ++i)
        vSetValueIfChanged(this->*members()[i], record.*FIELDS[i], context);
}

void HomographyParams::setFromDecomposition(HomographyDecomposition const & values, Kyn::Context const & context) {
    for (std::size_t i = 0; i < members().size(); ++i)
        (this->*members()[i]).setValue(values.*FIELDS[i], context);
}

namespace {

/// The values that each model drives, of an object or of a constant one.
template <class Params, class Value>
QList<Value *> drivenBy(Params & p, _TrackModel model) {
    switch (static_cast<int>(model)) {
    case TRACK_MODEL_AFFINE:
        return {&p.shearX, &p.shearY, &p.rotation, &p.scale, &p.translationX, &p.translationY};
    case TRACK_MODEL_PERSPECTIVE:
        return {&p.perspectiveX, &p.perspectiveY, &p.shearX,       &p.shearY,
                &p.rotation,     &p.scale,        &p.translationX, &p.translationY};
    case TRACK_MODEL_TRANSLATION:
        return {&p.translationX, &p.translationY};
    case TRACK_MODEL_TRANSLATION_ROTATION_SCALE:
        return {&p.rotation, &p.scale, &p.translationX, &p.translationY};
    case TRACK_MODEL_TRANSLATION_SCALE:
        return {&p.scale, &p.translationX, &p.translationY};
    }
    return {};
}

qsizetype keyframedAt(HomographyParams const & params, Kyn::Context const & context, _TrackModel model) {
    QList<HomographyParams::Value const *> const driven = params.trackingParameters(model);
    return std::count_if(driven.begin(), driven.end(),
                         [&](HomographyParams::Value const * value) { return value->isKeyframe(context); });
}

} // namespace

QList<HomographyParams::Value *> HomographyParams::trackingParameters(_TrackModel model) {
    return drivenBy<HomographyParams, Value>(*this, model);
}

QList<HomographyParams::Value const *> HomographyParams::trackingParameters(_TrackModel model) const {
    return drivenBy<HomographyParams const, Value const>(*this, model);
}

bool HomographyParams::allKeyframedAtTime(Kyn::Context const & context, _TrackModel model) const {
    return keyframedAt(*this, context, model) == trackingParameters(model).size();
}

bool HomographyParams::anyKeyframedAtTime(Kyn::Context const & context, _TrackModel model) const {
    return keyframedAt(*this, context, model) > 0;
}

void HomographyParams::forEachParameter(boost::function<void(Kyn::ParameterWithoutType &, Kyn::View const &)> visit,
                                        Kyn::View const & view) {
    for (Member const member : members())
        visit(this->*member, view);
}

void HomographyParams::forEachParameter(boost::function<void(Kyn::ParameterWithoutType &, bool)> visit, bool flag) {
    for (Member const member : members())
        visit(this->*member, flag);
}

} // namespace VX
