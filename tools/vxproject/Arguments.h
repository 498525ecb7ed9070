#pragma once

#include "project/Clip.h"
#include "project/FrameList.h"
#include "project/Layer.h"
#include "project/Lens.h"
#include "project/PixelCoordinates.h"
#include "project/Project.h"

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

/// What the texts on a command line mean. UsageError, with the argument's name, for those that mean nothing.
namespace Tool {

vxproject::FrameList framesOf(std::string const & text);
/// The same, of whole frames from `lowest` to `highest` alone.
vxproject::FrameList wholeFramesOf(char const * option, std::string const & text, double lowest, double highest);
Kyn::View viewOf(int id);
/// "1920x1080"; nothing for an empty text.
std::optional<vxproject::FrameSize> sizeOf(char const * option, std::string const & text);
/// "x y; x y; ..."
std::vector<Gan_Vector2> pointsOf(char const * option, std::string const & text);
/// What project files number their items with: 0 to 4294967295.
quint32 idOf(char const * option, long long id);

/// The item of an id; null, and a message that names those that there are, if the project has none.
vxproject::Layer * findLayer(vxproject::Project const & project, quint32 id, QString const & path);
vxproject::Clip * findClip(vxproject::Project const & project, quint32 id, QString const & path);

vxproject::Lens * findLens(vxproject::Project const & project, quint32 id, QString const & path);

/// A lens and the clip whose pictures it is asked for.
struct LensOnClip {
    vxproject::Lens * lens = nullptr;
    vxproject::Clip * clip = nullptr; ///< Null, and a message, if either is not there.
};

/// Without a clip's id, the lens's own input clip is taken.
LensOnClip lensOnClip(vxproject::Project const & project, quint32 lensId, std::optional<long long> clip,
                      QString const & path);

/// --frames, which framesOf reads, and which is required.
void addFrames(CLI::App & command, std::string & frames);
/// --size, which sizeOf reads; `meaning` goes on from "Frame size, WIDTHxHEIGHT".
void addSize(CLI::App & command, std::string & size, std::string const & meaning);
/// For a `meaning`: what numbers are without a frame size.
constexpr char PROJECT_COORDINATES[] = "project coordinates: origin at the frame's centre, its width the unit, y down";

inline QString textOf(std::string const & argument) {
    return QString::fromStdString(argument);
}

} // namespace Tool
