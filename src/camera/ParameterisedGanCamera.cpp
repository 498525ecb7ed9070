#include "camera/ParameterisedGanCamera.h"

#include "geometry/gandalf/Camera.h"

#include <stdexcept>

namespace {

typedef VX_ParameterisedGanCamera Lens;

struct Scalar {
    Lens::Number Lens::*parameter;
    double Gan_Camera::*field;
};

constexpr Scalar SCALARS[] = {
    {&Lens::z, &Gan_Camera::zh},  {&Lens::fx, &Gan_Camera::fx}, {&Lens::fy, &Gan_Camera::fy},
    {&Lens::x0, &Gan_Camera::x0}, {&Lens::y0, &Gan_Camera::y0},
};

constexpr Lens::Number Lens::*TERMS[] = {&Lens::distortion1, &Lens::distortion2, &Lens::distortion3,
                                         &Lens::distortion4};

/// What a model has beyond the scalars.
struct Distortion {
    std::size_t terms;
    std::size_t weights;
};

Distortion distortionOf(Gan_CameraType type) {
    switch (static_cast<unsigned int>(type)) {
    case GAN_CAMERA_RADIAL_1:
    case GAN_CAMERA_RADIAL_1_INVERSE:
        return {1, 0};
    case GAN_CAMERA_RADIAL_2:
    case GAN_CAMERA_RADIAL_2_INVERSE:
        return {2, 0};
    case GAN_CAMERA_RADIAL_3:
        return {3, 0};
    case GAN_CAMERA_ANAMORPHIC:
        return {4, 0};
    case GAN_CAMERA_BSPLINE:
    case GAN_CAMERA_BSPLINE_INVERSE:
        return {0, Lens::WEIGHT_COUNT};
    }
    return {0, 0};
}

/// The same, once it is sure that the camera can hold it.
Distortion distortionOf(Gan_CameraType type, Gan_Camera const & camera) {
    Distortion const distortion = distortionOf(type);
    if (distortion.weights > 0 && !camera.weight)
        throw std::invalid_argument("A spline camera needs a buffer of weights");
    return distortion;
}

/// The script names of the grid in order of registration; they live as long as the program, as rows need them.
std::vector<QByteArray> const & weightNames() {
    static std::vector<QByteArray> const names = [] {
        std::vector<QByteArray> made;
        made.reserve(Lens::WEIGHT_COUNT);
        for (unsigned int i = 0; i < GAN_BSPLINE_GRID_SIZE; ++i)
            for (unsigned int j = 0; j < GAN_BSPLINE_GRID_SIZE; ++j)
                for (char const axis : {'X', 'Y'})
                    made.push_back("Weight-" + QByteArray::number(i) + '-' + QByteArray::number(j) + axis);
        return made;
    }();
    return names;
}

} // namespace

VX_ParameterisedGanCamera::VX_ParameterisedGanCamera() : Kyn::ParameterSet(QStringLiteral("GanCamera"), nullptr) {
    init();
}

VX_ParameterisedGanCamera::VX_ParameterisedGanCamera(VX_ParameterisedGanCamera const & other)
    : Kyn::ParameterSet(QStringLiteral("GanCamera"), nullptr) {
    init();
    copyMembers(other);
}

VX_ParameterisedGanCamera & VX_ParameterisedGanCamera::operator=(VX_ParameterisedGanCamera const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}

/// The rows of the table have registered themselves; those of the grid follow. A registered parameter must stay where
/// it is, so all have their place before the first is made.
void VX_ParameterisedGanCamera::init() {
    weights_.reserve(WEIGHT_COUNT);
    for (QByteArray const & name : weightNames())
        weights_.emplace_back(row(name.constData()), KEYED, 0.0f, -100.0f, 100.0f, LINEAR, GO_ON);
}

void VX_ParameterisedGanCamera::populateGanCamera(Gan_Camera & camera, Kyn::Context context) const {
    Gan_CameraType const model = type.value(context);
    Distortion const distortion = distortionOf(model, camera);
    camera.type = model;
    for (Scalar const & scalar : SCALARS)
        camera.*scalar.field = (this->*scalar.parameter).value(context);
    for (std::size_t i = 0; i < distortion.terms; ++i)
        camera.distortion[i] = (this->*TERMS[i]).value(context);
    for (std::size_t i = 0; i < distortion.weights; ++i)
        camera.weight->element[i] = static_cast<double>(weights_[i].value(context));
}

void VX_ParameterisedGanCamera::setFromGanCamera(Gan_Camera const & camera, Kyn::Context context) {
    Distortion const distortion = distortionOf(camera.type, camera);
    type.setValue(camera.type, context);
    for (Scalar const & scalar : SCALARS)
        (this->*scalar.parameter).setValue(camera.*scalar.field, context);
    for (std::size_t i = 0; i < distortion.terms; ++i)
        (this->*TERMS[i]).setValue(camera.distortion[i], context);
    for (std::size_t i = 0; i < distortion.weights; ++i)
        weights_[i].setValue(static_cast<float>(camera.weight->element[i]), context);
}
