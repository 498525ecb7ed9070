#pragma once

#include "clip/ParameterTable.h"
#include "geometry/gandalf/Vector3.h"

/// A keyed triple of the 3D scene: a position or scale in scene units, or a rotation in degrees. The three components
/// have curves of their own, and any of them may be without keys. No limits but those of the type.
class VX_XYZParameterSet : public Kyn::ParameterSet, protected VX::ParameterTable {
public:
    VX_DECLARE_TRANSLATION("VX_XYZParameterSet")

    explicit VX_XYZParameterSet(QString const & name);
    /// Takes over values, keys and the name.
    VX_XYZParameterSet(VX_XYZParameterSet const & other);
    /// Nothing on self-assignment. Inside a set, the key in script stays the one that the owner gave.
    VX_XYZParameterSet & operator=(VX_XYZParameterSet const & other);

    /// Takes the keys of the default view from all components; their values from before there were keys stay.
    virtual void deleteAllKeyframes();

    Gan_Vector3 value(Kyn::Context context) const;
    /// Writes all three, in single precision: every component gets a key at the context, whether or not it had one.
    void setValue(Gan_Vector3 vector, Kyn::Context context);

    Kyn::NumericParameter<float> const * x() const { return &x_; }
    Kyn::NumericParameter<float> const * y() const { return &y_; }
    Kyn::NumericParameter<float> const * z() const { return &z_; }

    Amount x_{row("x"), KEYED, 0.0f, -LIMITLESS_AMOUNT, LIMITLESS_AMOUNT, LINEAR, HOLD};
    Amount y_{row("y"), KEYED, 0.0f, -LIMITLESS_AMOUNT, LIMITLESS_AMOUNT, LINEAR, HOLD};
    Amount z_{row("z"), KEYED, 0.0f, -LIMITLESS_AMOUNT, LIMITLESS_AMOUNT, LINEAR, HOLD};
};
