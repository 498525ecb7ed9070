#pragma once

#include "vxproject/AskedItem.h"

namespace Tool {

/// What every command about a lens asks for: the lens, and the clip whose pictures it shows.
struct LensQuestion {
    std::string file;
    long long lens = 0;
    std::optional<long long> clip; ///< Without it, the lens's own.
    int view = 0;

    void addTo(CLI::App & command);
};

/// The lens that was asked for, in its project.
class AskedLens : public AskedItem {
public:
    /// Says what is wrong with the file, and what is not there.
    explicit AskedLens(LensQuestion const & question);

    /// Whether both lens and clip are there.
    bool isThere() const { return found_.clip; }

    /// Nothing, and a message, if the clip makes no camera of the lens.
    std::optional<Gan_Camera> cameraAt(double frame);
    /// The size of the clip's pictures; nothing, and a message, if they have none.
    std::optional<vxproject::FrameSize> size();

private:
    LensOnClip found_;
};

} // namespace Tool
