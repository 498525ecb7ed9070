#include "vxproject/LensQuestion.h"

#include "project/LayerWarp.h"
#include "project/NumberText.h"
#include "vxproject/Output.h"

namespace Tool {

void LensQuestion::addTo(CLI::App & command) {
    command.add_option("FILE", file, "The project file")->required();
    command.add_option("--lens", lens, "The lens's id")->required();
    command.add_option("--clip", clip, "The id of the clip whose pictures it shows. Without it, the lens's own");
    command.add_option("--view", view, "The view (0)");
}

AskedLens::AskedLens(LensQuestion const & question)
    : AskedItem(question.file, "lens", question.lens, question.view),
      found_(lensOnClip(project(), id(), question.clip, path())) {
    if (!isThere())
        miss();
}

std::optional<Gan_Camera> AskedLens::cameraAt(double frame) {
    Gan_Camera const camera = vxproject::cameraAt(*found_.lens, contextAt(frame), found_.clip->picture);
    if (vxproject::isUsable(camera))
        return camera;
    complain(QStringLiteral("makes no camera at frame %1: its clip has no film back or no size")
                 .arg(vxproject::shortestText(frame)));
    return std::nullopt;
}

std::optional<vxproject::FrameSize> AskedLens::size() {
    QSize const size = found_.clip->picture.format().size;
    if (!size.isEmpty())
        return vxproject::FrameSize{size.width(), size.height()};
    Tool::complain(path() + QStringLiteral(": a frame of %1x%2 makes no picture").arg(size.width()).arg(size.height()));
    miss();
    return std::nullopt;
}

} // namespace Tool
