#pragma once

#include "geometry/gandalf/Matrix33.h"
#include "parameter/NumericParameter.h"

#include <boost/function.hpp>

#include <QList>
#include <QString>

#include <array>

struct HomographyDecomposition;

namespace VX {

/// A keyed planar motion: a homography stored as eight animated values that mean something to a person.
///
/// Values: translations in the unit of the coordinates that the homography acts on, rotation in radians, the others
/// pure numbers. The neutral value of Scale and of Shear Y is 1, of all others 0. There are no limits.
///
/// Not a set: the set that owns one registers the eight parameters with forEachParameter(). A parameter's script name
/// is the prefix followed directly by its name: "Translation X", or "ViewOffsetTranslation X". The blank is part of it.
class HomographyParams {
public:
    typedef Kyn::NumericParameter<double> Value;

    explicit HomographyParams(QString const & prefix = QString());
    HomographyParams(HomographyParams const & other);
    /// Values, keys, names and limits, in order of members. Nothing on self-assignment.
    HomographyParams & operator=(HomographyParams const & other);

    /// The homography at a context: it maps column vectors. std::runtime_error "Unable to construct homography" for
    /// values that make none, which are those that are not finite.
    Gan_Matrix33 constructHomography(Kyn::Context const & context) const;

    /// Writes all eight values of a homography at a context, whatever model is tracked: making a key where there is
    /// none. A value that nearly equals what the curve gives there, to 1e-5 absolute or relative in single precision,
    /// is left alone, and no key is made. A view without data starts from a copy of the first view. A homography that
    /// cannot be decomposed writes the neutral values: test it first.
    void setFromHomography(Gan_Matrix33 const & homography, Kyn::Context const & context);

    /// Writes all eight values as they stand, whether or not they differ: each gets a key of its own. For tracks whose
    /// every frame was measured, which interpolation must not pull away.
    void setFromDecomposition(HomographyDecomposition const & values, Kyn::Context const & context);

    /// The values that a model drives, in the order in which a solver takes them; none for an unknown model.
    QList<Value *> trackingParameters(_TrackModel model);
    QList<Value const *> trackingParameters(_TrackModel model) const;

    /// Whether all, or any, of the model's values have a key exactly at the context. For a model without values the
    /// answers are true and false.
    bool allKeyframedAtTime(Kyn::Context const & context, _TrackModel model) const;
    bool anyKeyframedAtTime(Kyn::Context const & context, _TrackModel model) const;

    /// Calls with each of the eight and the view, in order of members: for registering them per view.
    void forEachParameter(boost::function<void(Kyn::ParameterWithoutType &, Kyn::View const &)> visit,
                          Kyn::View const & view);
    /// The same with a flag: for hiding or showing them.
    void forEachParameter(boost::function<void(Kyn::ParameterWithoutType &, bool)> visit, bool flag);

    Value translationX;
    Value translationY;
    Value rotation;
    Value scale;
    Value shearX;
    Value shearY;
    Value perspectiveX;
    Value perspectiveY;

private:
    typedef Value HomographyParams::*Member;
    static std::array<Member, 8> const & members();
};

} // namespace VX
