#include "vxproject/LayerQuestion.h"

#include "project/NumberText.h"

namespace Tool {

void LayerQuestion::addTo(CLI::App & command, std::string const & sizeMeaning) {
    command.add_option("FILE", file, "The project file")->required();
    command.add_option("--layer", layer, "The layer's id")->required();
    command.add_option("--view", view, "The view (0)");
    addSize(command, size, sizeMeaning);
}

// The size is read first: nothing is said of the file when the request makes no sense.
AskedLayer::AskedLayer(LayerQuestion const & question) : AskedLayer(question, sizeOf("--size", question.size)) {}

AskedLayer::AskedLayer(LayerQuestion const & question, std::optional<vxproject::FrameSize> const & size)
    : AskedItem(question.file, "layer", question.layer, question.view),
      size_(size),
      layer_(findLayer(project(), id(), path())) {
    if (!layer_)
        miss();
}

void AskedLayer::complainOfFrame(double frame, QString const & why) {
    complain(QStringLiteral("has no answer at frame %1: %2").arg(vxproject::shortestText(frame), why));
}

} // namespace Tool
