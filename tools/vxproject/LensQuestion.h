#pragma once

#include "vxproject/Arguments.h"
#include "vxproject/Command.h"

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
class AskedLens {
public:
    /// Says what is wrong with the file, and what is not there.
    explicit AskedLens(LensQuestion const & question);

    /// Whether both lens and clip are there.
    bool isThere() const { return found_.clip; }
    /// EXIT_FINDINGS if there was anything to say.
    ExitCode code() const { return isThere() ? code_ : EXIT_FINDINGS; }
    QString const & path() const { return path_; }
    quint32 id() const { return id_; }

    /// Says so if the clip makes no camera of the lens.
    Gan_Camera cameraAt(double frame);
    /// The size of the clip's pictures; nothing, and a message, if they have none.
    std::optional<vxproject::FrameSize> size() const;

private:
    QString path_;
    quint32 id_;
    Kyn::View view_;
    std::unique_ptr<vxproject::Project> project_;
    ExitCode code_;
    LensOnClip found_;
};

} // namespace Tool
