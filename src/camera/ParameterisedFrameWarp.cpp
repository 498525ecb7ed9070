#include "camera/ParameterisedFrameWarp.h"

namespace VX {

namespace {

typedef ParameterisedFrameWarp Set;

struct MatrixElement {
    Kyn::NumericParameter<double> Set::*parameter;
    double Gan_Matrix33::*field;
};

constexpr MatrixElement ELEMENTS[] = {
    {&Set::homographyXX, &Gan_Matrix33::xx}, {&Set::homographyXY, &Gan_Matrix33::xy},
    {&Set::homographyXZ, &Gan_Matrix33::xz}, {&Set::homographyYX, &Gan_Matrix33::yx},
    {&Set::homographyYY, &Gan_Matrix33::yy}, {&Set::homographyYZ, &Gan_Matrix33::yz},
    {&Set::homographyZX, &Gan_Matrix33::zx}, {&Set::homographyZY, &Gan_Matrix33::zy},
    {&Set::homographyZZ, &Gan_Matrix33::zz},
};

constexpr unsigned int NO_SELECTION = 0xFFFFFFFFu;

} // namespace

ParameterisedFrameWarp::ParameterisedFrameWarp() : Kyn::ParameterSet(QString(), nullptr) {
    init();
}

ParameterisedFrameWarp::ParameterisedFrameWarp(ParameterisedFrameWarp const & other)
    : Kyn::ParameterSet(QString(), nullptr), type(other.type) {
    init();
    copyMembers(other);
}

ParameterisedFrameWarp & ParameterisedFrameWarp::operator=(ParameterisedFrameWarp const & other) {
    if (this == &other)
        return *this;
    type = other.type;
    assignMembers(other);
    return *this;
}

ParameterisedFrameWarp::~ParameterisedFrameWarp() = default;

/// The rows have registered themselves; what they cannot say follows them.
void ParameterisedFrameWarp::init() {
    addField("Type", type);
    addSet(backprojectionCamera, QStringLiteral("BackprojectionCamera"));
    addSet(projectionCamera, QStringLiteral("ProjectionCamera"));
    backprojectionCamera.setDisplayName(QStringLiteral("BackprojectionCamera"));
    projectionCamera.setDisplayName(QStringLiteral("ProjectionCamera"));
}

void ParameterisedFrameWarp::reset(Kyn::View const & view) {
    forEachParameter([&view](Kyn::ParameterWithoutType * parameter) { parameter->deleteAllKeyframes(view); }, false);
}

void ParameterisedFrameWarp::populateFrameWarp(FrameWarp & warp, Kyn::Context const & context) const {
    warp.iSelectionID = static_cast<int>(layerId.value(context));
    warp.eReferenceClipID = clipId.value(context);
    warp.bUsingBackprojectionCamera = useBackprojectionCamera.value(context);
    backprojectionCamera.populateGanCamera(warp.gcBackprojectionCamera, context);
    warp.bUsingProjectionCamera = useProjectionCamera.value(context);
    projectionCamera.populateGanCamera(warp.gcProjectionCamera, context);
    for (MatrixElement const & element : ELEMENTS)
        warp.gmat33Homography.*element.field = (this->*element.parameter).value(context);
}

void ParameterisedFrameWarp::setFromFrameWarp(FrameWarp const & warp, Kyn::Context const & context) {
    layerId.setValue(warp.iSelectionID < 0 ? NO_SELECTION : static_cast<unsigned int>(warp.iSelectionID), context);
    clipId.setValue(warp.eReferenceClipID, context);
    useBackprojectionCamera.setValue(warp.bUsingBackprojectionCamera, context);
    backprojectionCamera.setFromGanCamera(warp.gcBackprojectionCamera, context);
    useProjectionCamera.setValue(warp.bUsingProjectionCamera, context);
    projectionCamera.setFromGanCamera(warp.gcProjectionCamera, context);
    for (MatrixElement const & element : ELEMENTS)
        (this->*element.parameter).setValue(warp.gmat33Homography.*element.field, context);
}

} // namespace VX
