#pragma once

#include "geometry/gandalf/CameraType.h"

#include <QMap>
#include <QString>
#include <QStringList>

namespace VX {

/// A lens model that a user can choose: one of six, which are fewer than the geometry layer computes.
///
/// A model has two numbers. The id is its place in the list of models, kept stable for projects; the Gan_CameraType is
/// the one that cameras carry. They part from id 3 on, and this class is the only translation between them.
class CameraType {
public:
    CameraType(int iId, QString strName, Gan_CameraType eType);

    int numericId() const { return iNumericId; }
    /// As shown to a user, translated when the model was first asked for and kept so.
    QString const & name() const { return strName; }
    Gan_CameraType ganCameraType() const { return eGanCameraType; }

    /// @name The models, in order of their ids
    /// @{
    static CameraType const & LINEAR();            ///< 0: no distortion
    static CameraType const & ONE_PARAMETER();     ///< 1: radial, one term
    static CameraType const & TWO_PARAMETER();     ///< 2: radial, two terms
    static CameraType const & ONE_PARAMETER_INV(); ///< 3: radial, one term that undistorts
    static CameraType const & ANAMORPHIC();        ///< 4: four terms, two for each axis
    static CameraType const & DISTORTION_MAP();    ///< 5: offsets from images
    /// @}

    /// The models by their ids. An application may enter its own; emptied, it is filled with the six again. Results of
    /// the two functions below point into it. First use from two threads at once is not protected.
    static QMap<int, CameraType> & s_allTypes();
    /// The model of an id. For an unknown id the linear model, and a warning.
    static CameraType const & fromId(int iId);
    /// The first model, by ids, that cameras know by that number. The linear model and a warning if there is none: that
    /// is so for every type that the geometry layer has beyond the six.
    static CameraType const & fromGandalf(Gan_CameraType eType);
    /// The names of all models, by ids.
    static QStringList ALL_NAMES();

private:
    int iNumericId;
    QString strName;
    Gan_CameraType eGanCameraType;
};

} // namespace VX
