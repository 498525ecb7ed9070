#pragma once

#include "ClipBin.h"
#include "HostServices.h"
#include "RasterSuite.h"

#include "geometry/gandalf/Vector2.h"
#include "project/PixelCoordinates.h"
#include "project/Project.h"

#include <memory>
#include <vector>

/// What is to be drawn over the pictures.
struct Wishes {
    quint32 layer = 1;
    Kyn::View view;
    Kyn::ProxyScale::Enum scale = Kyn::ProxyScale::FULL;
    std::vector<Gan_Vector2> corners; ///< Of the quad, where the track's homographies begin; none for no quad.
    bool isFlat = false;              ///< The track was measured on the pictures as they are: draw it without the lens.
    bool hasGrid = false;             ///< The lens grid.
};

/// Draws the pictures of a layer's clip, with what is known of them over them, and saves the result.
///
/// All that goes wrong is a VX_Exception.
class PlateRenderer {
public:
    /// Opens a project file. VX_BadFile if there is none that can be read, VX_BadArgument without the layer or a clip
    /// for it, VX_BadSize if nobody knows how large its pictures are, VX_NotImplemented for interlaced pictures.
    PlateRenderer(QString const & projectFile, Wishes const & wishes, HostServices & host);

    /// What was not understood in the project file.
    QList<vxproject::Finding> const & findings() const { return project_->findings(); }

    /// VX_BadFile without a picture, VX_OperationFailed if the result cannot be written; others where lens or track
    /// give nothing at that frame.
    void renderFrame(double frame, QString const & output);

    /// Small copies of saved pictures, in rows of `across`, as one picture.
    void renderSheet(QStringList const & pictures, int across, QString const & output);

private:
    void drawFrame(double frame, Gan_Image const & plate);
    std::vector<Gan_Vector2> quadAt(Kyn::Context const & context) const;
    Gan_Camera lensAt(Kyn::Context const & context) const;
    void loadPlate(QString const & file, Kyn::Context const & context, Gan_Image & plate);
    void save(unsigned int width, unsigned int height, QString const & output, Kyn::Context const & context);
    Kyn::Context contextAt(double frame) const { return Kyn::Context(Kyn::Time(frame), wishes_.view, wishes_.scale); }
    QString fileAt(double frame) const;
    unsigned int reduced(int side) const;

    Wishes wishes_;
    HostServices & host_;
    std::unique_ptr<vxproject::Project> project_;
    ClipBin clips_;
    vxproject::Layer const & layer_;
    unsigned int clip_;
    vxproject::FrameSize size_;
    RasterSuite suite_;
};
