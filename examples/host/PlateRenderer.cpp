#include "PlateRenderer.h"

#include "Failure.h"
#include "Overlay.h"

#include "geometry/gandalf/ImageHeaderInfo.h"
#include "host/CompositeRenderable.h"
#include "host/ImageSaveContext.h"
#include "host/ImageSaveOptions.h"
#include "project/ClipFiles.h"
#include "project/FileError.h"
#include "project/Layer.h"
#include "project/LayerWarp.h"
#include "project/Lens.h"
#include "project/TrackComparison.h"

#include <boost/make_shared.hpp>

namespace {

constexpr float JPEG_QUALITY = 90.0f;
constexpr int TEXT_HEIGHTS_IN_FRAME = 30;
constexpr unsigned int SHEET_SIDE = 320; ///< The longest side of a picture on a sheet, pixels.

std::unique_ptr<vxproject::Project> openProject(QString const & file) {
    try {
        return vxproject::Project::read(file);
    } catch (vxproject::FileError const & error) {
        HOST_FAIL(VX_BadFile, error.what(), "The project cannot be opened: " + file.toStdString());
    }
}

vxproject::Layer const & layerOf(vxproject::Project const & project, quint32 id) {
    vxproject::Layer const * const layer = project.findLayer(id);
    if (!layer)
        HOST_FAIL(VX_BadArgument, "no Layer[" + std::to_string(id) + "]",
                  "The project has no layer " + std::to_string(id) + ".");
    return *layer;
}

unsigned int clipOf(vxproject::Layer const & layer, ClipBin const & clips) {
    unsigned int const clip = layer.tracking.inputClipId.staticValue(Kyn::View());
    VX_BaseClipInfo const * const picture = clips.pcGetBaseClipInfo(clip);
    if (!picture)
        HOST_FAIL(VX_BadArgument, "InputClipID is " + std::to_string(clip), "The layer has no clip.");
    if (picture->bHasFields())
        HOST_FAIL(VX_NotImplemented, "interlace mode " + std::to_string(picture->interlaceMode),
                  "Pictures made of fields cannot be drawn.");
    return clip;
}

vxproject::FrameSize sizeOf(VX_BaseClipInfo const & picture) {
    QSize const size = picture.format().size;
    if (size.isEmpty())
        HOST_FAIL(VX_BadSize, "a frame of " + std::to_string(size.width()) + " by " + std::to_string(size.height()),
                  "Neither the project nor its pictures tell how large they are.");
    return {size.width(), size.height()};
}

VX::Rectangle wholeFrame(int width, int height) {
    return {0.0f, 0.0f, static_cast<float>(width), static_cast<float>(height)};
}

std::string frameText(double frame) {
    return "frame " + QString::number(frame).toStdString();
}

} // namespace

PlateRenderer::PlateRenderer(QString const & projectFile, Wishes const & wishes, HostServices & host)
    : wishes_(wishes),
      host_(host),
      project_(openProject(projectFile)),
      clips_(*project_, host),
      layer_(layerOf(*project_, wishes.layer)),
      clip_(clipOf(layer_, clips_)),
      size_(sizeOf(*clips_.pcGetBaseClipInfo(clip_))) {}

void PlateRenderer::renderFrame(double frame, QString const & output) {
    QString const file = fileAt(frame);
    unsigned int width = 0;
    unsigned int height = 0;
    Gan_ImageFormat format = GAN_IMAGE_FORMAT_NONE;
    Gan_Type type = GAN_TYPE_NONE;
    Gan_ImageFileFormat fileFormat = Gan_ImageFileFormat();
    Gan_ImageHeaderInfo header;
    if (host_.table().eGetImageInfo(host_.router(), file.toUtf8().constData(), VX_FALSE, 0, &width, &height, &format,
                                    &type, &fileFormat, &header,
                                    clips_.pcGetClipInfo(clip_)->colourspace) != VX_STATUS_DONE)
        HOST_FAIL(VX_BadFile, "no picture in " + file.toStdString(),
                  "The picture of " + frameText(frame) + " is missing.");

    HostBuffer plate(host_, format, type, width, height);
    loadPlate(file, contextAt(frame), plate.image());
    drawFrame(frame, plate.image());
    save(reduced(size_.width), reduced(size_.height), output, contextAt(frame));
}

void PlateRenderer::loadPlate(QString const & file, Kyn::Context const & context, Gan_Image & plate) {
    VX_CallbackStruct const & table = host_.table();
    VX::FootageContext const footage{context};
    if (table.eLoadFromCache(host_.context(), &plate, file, clip_, footage.context, Kyn::ProxyScale::FULL, 0) ==
        VX_STATUS_DONE)
        return;
    if (table.eLoadImage(host_.router(), &plate, file.toUtf8().constData(), VX_FALSE, footage,
                         VX_INTERLACE_MODE_PROGRESSIVE, false, nullptr, nullptr,
                         clips_.pcGetClipInfo(clip_)->colourspace, nullptr, nullptr) != VX_STATUS_DONE)
        HOST_FAIL(VX_BadFile, "cannot decode " + file.toStdString(),
                  "The picture of " + frameText(context.time().toDouble()) + " is damaged.");
    table.eSaveToCache(host_.context(), &plate, file, clip_, footage.context, Kyn::ProxyScale::FULL, 0);
}

void PlateRenderer::drawFrame(double frame, Gan_Image const & plate) {
    Kyn::Context const context = contextAt(frame);
    VX::Rectangle const whole = wholeFrame(size_.width, size_.height);
    auto const textHeight = static_cast<float>(size_.height) / TEXT_HEIGHTS_IN_FRAME;

    VX::CompositeRenderable picture;
    picture.add(boost::make_shared<Plate>(suite_, plate, whole));
    if (wishes_.hasGrid)
        picture.add(boost::make_shared<LensGrid>(suite_, lensAt(context), size_));
    if (!wishes_.corners.empty())
        picture.add(boost::make_shared<Quad>(suite_, quadAt(context)));
    picture.add(boost::make_shared<Caption>(suite_, QString::fromStdString(frameText(frame)), textHeight));

    if (!suite_.bBeginFrame(reduced(size_.width), reduced(size_.height)))
        HOST_FAIL(VX_BadSize, "the suite has no frame of that size", "The picture is too large to be drawn.");
    suite_.vSetWindow(whole);
    suite_.vSetTextHeight(textHeight * static_cast<float>(reduced(size_.height)) / whole.bottom);
    picture.render();
    suite_.vEndFrame();
}

std::vector<Gan_Vector2> PlateRenderer::quadAt(Kyn::Context const & context) const {
    auto const track = vxproject::homographyAt(layer_.tracking.track, context, size_);
    auto const warp = vxproject::LayerWarp::at(*project_, layer_, context, size_);
    std::vector<Gan_Vector2> corners;
    for (Gan_Vector2 const & corner : wishes_.corners) {
        Gan_Vector2 mapped;
        if (wishes_.isFlat && track && vxproject::mapPoint(*track, corner, mapped))
            corners.push_back(mapped);
        else if (std::optional<Gan_Vector2> const warped = wishes_.isFlat || !warp ? std::nullopt : warp->warp(corner))
            corners.push_back(*warped);
        else
            HOST_FAIL(VX_OutOfRange, "the track takes a corner nowhere",
                      "There is no track at " + frameText(context.time().toDouble()) + ".");
    }
    return corners;
}

Gan_Camera PlateRenderer::lensAt(Kyn::Context const & context) const {
    vxproject::Lens const * const lens = project_->lensOfClip(clip_);
    if (!lens)
        HOST_FAIL(VX_BadState, "no lens has InputClipID " + std::to_string(clip_), "The clip has no lens.");
    Gan_Camera const camera = lens->camera.getCamera(context, *clips_.pcGetBaseClipInfo(clip_));
    if (!vxproject::isUsable(camera))
        HOST_FAIL(VX_GandalfError, "a camera without a film back or a focal length", "The lens makes no camera.");
    return camera;
}

void PlateRenderer::save(unsigned int width, unsigned int height, QString const & output,
                         Kyn::Context const & context) {
    HostBuffer result(host_, GAN_IMAGE_FORMAT_RGB_ALPHA, GAN_TYPE_UNSIGNED_CHAR, width, height);
    if (!suite_.bReadPixels(result.image()))
        HOST_FAIL(VX_BadState, "no frame to read back", "The picture was not drawn.");
    VX::ImageSaveOptions options;
    options.context = context;
    options.quality = JPEG_QUALITY;
    if (host_.table().eSaveImage(host_.router(), result.image(), output, options, VX::ImageSaveContext()) !=
        VX_STATUS_DONE)
        HOST_FAIL(VX_OperationFailed, "cannot write " + output.toStdString(),
                  "The picture cannot be saved as " + output.toStdString());
}

void PlateRenderer::renderSheet(QStringList const & pictures, int across, QString const & output) {
    std::vector<boost::shared_ptr<Gan_Image>> thumbnails;
    int width = 0;
    int height = 0;
    for (QString const & picture : pictures) {
        boost::shared_ptr<Gan_Image> const thumbnail = host_.router()->images.thumbnail(picture, SHEET_SIDE);
        if (!thumbnail)
            HOST_FAIL(VX_BadFile, "no picture in " + picture.toStdString(), "A picture of the sheet is gone.");
        width = std::max(width, static_cast<int>(thumbnail->width));
        height = std::max(height, static_cast<int>(thumbnail->height));
        thumbnails.push_back(thumbnail);
    }
    int const count = static_cast<int>(thumbnails.size());
    int const columns = std::min(across, count);
    int const rows = (count + across - 1) / across;
    unsigned int const sheetWidth = static_cast<unsigned int>(columns * width);
    unsigned int const sheetHeight = static_cast<unsigned int>(rows * height);

    if (!suite_.bBeginFrame(sheetWidth, sheetHeight))
        HOST_FAIL(VX_BadSize, "the suite has no frame of that size", "There are too many pictures for a sheet.");
    for (int i = 0; i < count; ++i) {
        int const column = i % across;
        int const row = i / across;
        auto const left = static_cast<float>(column * width);
        auto const top = static_cast<float>(row * height);
        Gan_Image const & image = *thumbnails[static_cast<std::size_t>(i)];
        Plate(suite_, image,
              {left, top, left + static_cast<float>(image.width), top + static_cast<float>(image.height)})
            .render();
    }
    suite_.vEndFrame();
    save(sheetWidth, sheetHeight, output, contextAt(0.0));
}

QString PlateRenderer::fileAt(double frame) const {
    vxproject::ClipFiles const files(*clips_.pcGetClipInfo(clip_), VX_INTERLACE_MODE_PROGRESSIVE, wishes_.view);
    QString file = files.fileOf(static_cast<qint64>(frame));
    if (file.isNull())
        HOST_FAIL(VX_OutOfRange, frameText(frame) + " has no file",
                  "The clip has no picture of " + frameText(frame) + ".");
    return file;
}

unsigned int PlateRenderer::reduced(int side) const {
    int const divisor = wishes_.scale == Kyn::ProxyScale::QUARTER ? 4 : wishes_.scale == Kyn::ProxyScale::HALF ? 2 : 1;
    return static_cast<unsigned int>((side + divisor - 1) / divisor);
}
