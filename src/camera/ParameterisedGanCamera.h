#pragma once

#include "clip/ParameterTable.h"
#include "geometry/gandalf/CubicBSplineWeights.h"

#include <vector>

struct Gan_Camera;

/// A whole lens camera as keyed parameters: the model, the third image coordinate, focal lengths and centre in pixels,
/// up to four distortion terms, and the 17 by 17 grid of the spline models. All 588 exist whatever the model.
///
/// Every value but the model and the grid lies between 0 and 10000, the distortion terms too: a negative term, a centre
/// left of the frame and the like become 0 when they are written or read. So a lens with a negative term does not come
/// back from here as it went in.
///
/// This header is the set's table, in order of registration, which is the order of the script; the grid follows it.
class VX_ParameterisedGanCamera : public Kyn::ParameterSet, protected VX::ParameterTable {
public:
    VX_DECLARE_TRANSLATION("VX_ParameterisedGanCamera")

    typedef Kyn::NumericParameter<double> Number;
    typedef Kyn::NumericParameter<float> Weight;
    static constexpr std::size_t WEIGHT_COUNT = 2 * GAN_BSPLINE_GRID_SIZE * GAN_BSPLINE_GRID_SIZE;

    VX_ParameterisedGanCamera();
    /// Takes over all values, keys and limits. The name is that of a new set.
    VX_ParameterisedGanCamera(VX_ParameterisedGanCamera const & other);
    /// Takes over names as well. Nothing on self-assignment.
    VX_ParameterisedGanCamera & operator=(VX_ParameterisedGanCamera const & other);

    /// Writes `type`, `zh`, `fx`, `fy`, `x0`, `y0` and those distortion terms, or that grid, which the model has; a
    /// type without a model here has none. Nothing else: the camera's point functions are as before, and stale for
    /// another model until gan_camera_internalize().
    ///
    /// The grid goes into the buffer that the camera's `weight` points to. Without one a spline model is refused with
    /// std::invalid_argument, and nothing is written.
    void populateGanCamera(Gan_Camera & camera, Kyn::Context context) const;
    /// The reverse, within the limits: each parameter that the camera's model has gets its value, or a key, at the
    /// context; the others stay.
    void setFromGanCamera(Gan_Camera const & camera, Kyn::Context context);

    /// The grid parameters in their order: X of row i and column j of the grid at 2 (17 i + j), its Y next to it. From
    /// -100 to 100. `index` below WEIGHT_COUNT.
    Weight & weight(std::size_t index) { return weights_[index]; }
    Weight const & weight(std::size_t index) const { return weights_[index]; }

    // clang-format off
    Kyn::Parameter<Gan_CameraType> type{row("Type"), KEYED, GAN_CAMERA_LINEAR, HELD, HOLD};
    Number z          {row("Z"), KEYED, 0.0, 0.0, 10000.0, LINEAR, GO_ON};
    Number fx         {row("Fx"), KEYED, 0.0, 0.0, 10000.0, LINEAR, GO_ON};
    Number fy         {row("Fy"), KEYED, 0.0, 0.0, 10000.0, LINEAR, GO_ON};
    Number x0         {row("X0"), KEYED, 0.0, 0.0, 10000.0, LINEAR, GO_ON};
    Number y0         {row("Y0"), KEYED, 0.0, 0.0, 10000.0, LINEAR, GO_ON};
    Number distortion1{row("Distortion1"), KEYED, 0.0, 0.0, 10000.0, LINEAR, GO_ON};
    Number distortion2{row("Distortion2"), KEYED, 0.0, 0.0, 10000.0, LINEAR, GO_ON};
    Number distortion3{row("Distortion3"), KEYED, 0.0, 0.0, 10000.0, LINEAR, GO_ON};
    Number distortion4{row("Distortion4"), KEYED, 0.0, 0.0, 10000.0, LINEAR, GO_ON};
    // clang-format on

private:
    QString translated(char const * text) const override { return tr(text); }
    void init();

    std::vector<Weight> weights_; ///< "Weight-0-0X", "Weight-0-0Y" to "Weight-16-16Y". Never moved: made once.
};
