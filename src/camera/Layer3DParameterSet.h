#pragma once

#include "camera/NullObject3DParameterSet.h"

#include <boost/shared_ptr.hpp>

#include <QMap>

/// The nulls of a layer, by id; a set named "Nulls".
///
/// Copies share the nulls: what is written to a null through one layer is seen through all that hold it, and the last
/// of them to let go deletes it. The maps are each layer's own, so a null made later, or cleared, concerns that layer
/// alone.
///
/// In script a null stands under its name. Where that is empty or taken, its id is put behind it, so that every null
/// can be read back: reading makes no nulls, they are made with the same ids and names first. A name with a "." can be
/// written, but not read.
class VX_Layer3DParameterSet : public Kyn::ParameterSet {
public:
    VX_DECLARE_TRANSLATION("VX_Layer3DParameterSet")

    VX_Layer3DParameterSet();
    VX_Layer3DParameterSet(VX_Layer3DParameterSet const & other);
    /// Lets go of the nulls held so far. Nothing on self-assignment.
    VX_Layer3DParameterSet & operator=(VX_Layer3DParameterSet const & other);
    ~VX_Layer3DParameterSet() override;

    /// The same on each null, in order of ids.
    virtual void deleteAllKeyframes();

    /// The nulls themselves are the layers'; pointers are good until the last layer that shares them lets go.
    QMap<unsigned int, VX_NullObject3DParameterSet *> const & getLayerNulls() const { return nulls_; }

    /// Null if there is none of the id.
    VX_NullObject3DParameterSet * findNull(int iId);
    VX_NullObject3DParameterSet const * findNull(int iId) const;
    /// Makes a null. One that exists under the id comes back as it is, name included.
    VX_NullObject3DParameterSet * createNull(int iId, QString const & strName);
    /// Lets go of all nulls.
    void clear();

private:
    void share(VX_Layer3DParameterSet const & other);

    QMap<unsigned int, VX_NullObject3DParameterSet *> nulls_;
    QMap<unsigned int, boost::shared_ptr<VX_NullObject3DParameterSet>> held_; ///< What keeps the nulls alive.
};
