#pragma once

#include "project/FrameList.h"
#include "project/Layer.h"
#include "project/PixelCoordinates.h"
#include "project/Project.h"

#include <optional>
#include <string>
#include <vector>

/// What the texts on a command line mean. UsageError, with the argument's name, for those that mean nothing.
namespace Tool {

vxproject::FrameList framesOf(std::string const & text);
Kyn::View viewOf(int id);
/// "1920x1080"; nothing for an empty text.
std::optional<vxproject::FrameSize> sizeOf(std::string const & text);
/// "x y; x y; ..."
std::vector<Gan_Vector2> pointsOf(std::string const & text);
quint32 layerIdOf(long long id);

/// The layer of an id; null, and a message that names those that there are, if the project has none.
vxproject::Layer * findLayer(vxproject::Project const & project, quint32 id, QString const & path);

inline QString textOf(std::string const & argument) {
    return QString::fromStdString(argument);
}

} // namespace Tool
