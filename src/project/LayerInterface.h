#pragma once

#include "clip/ILayer.h"

namespace vxproject {

class Layer;

/// A layer of a project as the library's interface has it. The layer must outlive it.
class LayerInterface : public VX::ILayer {
public:
    LayerInterface(Layer & layer, unsigned int id) : layer_(layer), id_(id) {}

    unsigned int layerId() const override { return id_; }
    QString name() const override;
    void setName(QString const & name) override;
    unsigned int inputClipId() const override;

    Kyn::ParameterSet & parameters() override;
    QStringList moduleNames() const override;
    Kyn::ParameterSet * module(QString const & scriptName) override;

    std::optional<Gan_Matrix33> homography(Kyn::Context const & context) const override;
    bool bTrackRange(Kyn::View const & view, Kyn::Time & first, Kyn::Time & last) const override;

    void rescale(float fXScale, float fYScale) override;
    void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) override;

private:
    Layer & layer_;
    unsigned int id_;
};

} // namespace vxproject
