#pragma once

#include "camera/NullObject3DParameterSet.h"
#include "camera/StereoCamera3DParameterSet.h"
#include "project/Item.h"

#include <map>
#include <memory>

namespace vxproject {

/// A point of the scene, with a name for the user.
class SceneNull : public VX_NullObject3DParameterSet {
public:
    explicit SceneNull(QString const & key) : VX_NullObject3DParameterSet(key) {}
    SceneNull(SceneNull const &) = delete;
    SceneNull & operator=(SceneNull const &) = delete;

    /// Any text without a line break.
    Kyn::Parameter<QString> name{row("Name"), false, QString(), Kyn::INTERPOLATION_CONSTANT,
                                 Kyn::EXTRAPOLATION_CONSTANT};
};

/// The solved 3D scene, of which a project has at most one: the stereo rig, and the nulls by their ids. A null is made
/// by the first line that names it.
///
///     Scene.StereoCamera.InteraxialDistance.value=6.5
///     Scene.Null[3].Name.value="lamp"
class Scene : public Item {
public:
    Scene() { addSet(rig); }

    void expect(QStringView line) override;
    /// Puts the nulls in the order of their ids.
    QStringList settle() override;

    /// The null of an id, made if there is none yet.
    SceneNull & null(quint32 id);
    std::map<quint32, std::unique_ptr<SceneNull>> const & nulls() const { return nulls_; }

    VX_StereoCamera3DParameterSet rig;

private:
    std::map<quint32, std::unique_ptr<SceneNull>> nulls_;
};

} // namespace vxproject
