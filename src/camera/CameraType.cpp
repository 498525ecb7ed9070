#include "camera/CameraType.h"

#include <QCoreApplication>
#include <QDebug>

#include <algorithm>
#include <utility>

namespace VX {

namespace {

CameraType translated(int iId, char const * name, Gan_CameraType eType) {
    return CameraType(iId, QCoreApplication::translate("CameraType", name), eType);
}

} // namespace

CameraType::CameraType(int iId, QString strDisplayName, Gan_CameraType eType)
    : iNumericId(iId), strName(std::move(strDisplayName)), eGanCameraType(eType) {}

CameraType const & CameraType::LINEAR() {
    static CameraType const type = translated(0, "无畸变", GAN_CAMERA_LINEAR);
    return type;
}

CameraType const & CameraType::ONE_PARAMETER() {
    static CameraType const type = translated(1, "1-参数", GAN_CAMERA_RADIAL_1);
    return type;
}

CameraType const & CameraType::TWO_PARAMETER() {
    static CameraType const type = translated(2, "2-参数", GAN_CAMERA_RADIAL_2);
    return type;
}

CameraType const & CameraType::ONE_PARAMETER_INV() {
    static CameraType const type = translated(3, "1-反转参数", GAN_CAMERA_RADIAL_1_INVERSE);
    return type;
}

CameraType const & CameraType::ANAMORPHIC() {
    static CameraType const type = translated(4, "变形", GAN_CAMERA_ANAMORPHIC);
    return type;
}

CameraType const & CameraType::DISTORTION_MAP() {
    static CameraType const type = translated(5, "畸变映射", GAN_CAMERA_DISTORTION_MAP);
    return type;
}

QMap<int, CameraType> & CameraType::s_allTypes() {
    static QMap<int, CameraType> types;
    if (types.isEmpty())
        for (auto * type : {LINEAR, ONE_PARAMETER, TWO_PARAMETER, ONE_PARAMETER_INV, ANAMORPHIC, DISTORTION_MAP})
            types.insert(type().numericId(), type());
    return types;
}

CameraType const & CameraType::fromId(int iId) {
    QMap<int, CameraType> const & types = s_allTypes();
    auto const found = types.find(iId);
    if (found != types.end())
        return *found;
    qWarning() << "CameraType::fromId(): invalid id" << iId;
    return LINEAR();
}

CameraType const & CameraType::fromGandalf(Gan_CameraType eType) {
    QMap<int, CameraType> const & types = s_allTypes();
    auto const found = std::find_if(types.begin(), types.end(),
                                    [eType](CameraType const & type) { return type.ganCameraType() == eType; });
    if (found != types.end())
        return *found;
    qWarning() << "CameraType::fromGandalf(): no camera type found for Gandalftype" << static_cast<unsigned int>(eType);
    return LINEAR();
}

QStringList CameraType::ALL_NAMES() {
    QStringList names;
    for (CameraType const & type : std::as_const(s_allTypes()))
        names.append(type.name());
    return names;
}

} // namespace VX
