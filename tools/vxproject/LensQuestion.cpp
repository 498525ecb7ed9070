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
    : path_(textOf(question.file)),
      id_(idOf("--lens", question.lens)),
      view_(viewOf(question.view)),
      project_(vxproject::Project::read(path_)),
      code_(complainOf(project_->findings(), path_)),
      found_(lensOnClip(*project_, id_, question.clip, path_)) {}

Gan_Camera AskedLens::cameraAt(double frame) {
    Kyn::Context const context(Kyn::Time(frame), view_, Kyn::ProxyScale::FULL);
    Gan_Camera const camera = vxproject::cameraAt(*found_.lens, context, found_.clip->picture);
    if (!vxproject::isUsable(camera)) {
        complain(path_ + QStringLiteral(": lens %1 makes no camera at frame %2: its clip has no film back or no size")
                             .arg(id_)
                             .arg(vxproject::shortestText(frame)));
        code_ = EXIT_FINDINGS;
    }
    return camera;
}

std::optional<vxproject::FrameSize> AskedLens::size() const {
    QSize const size = found_.clip->picture.format().size;
    if (!size.isEmpty())
        return vxproject::FrameSize{size.width(), size.height()};
    complain(path_ + QStringLiteral(": a frame of %1x%2 makes no picture").arg(size.width()).arg(size.height()));
    return std::nullopt;
}

} // namespace Tool
