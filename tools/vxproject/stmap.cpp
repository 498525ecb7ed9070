#include "project/StMap.h"
#include "project/LayerWarp.h"
#include "project/TextFile.h"
#include "vxproject/LensQuestion.h"
#include "vxproject/Output.h"

namespace Tool {

namespace {

struct Options {
    LensQuestion question;
    double frame = 0.0;
    std::string output;
    bool inverse = false;
};

ExitCode stmap(Options const & options) {
    AskedLens asked(options.question);
    std::optional<vxproject::FrameSize> const size = asked.isThere() ? asked.size() : std::nullopt;
    if (!size)
        return EXIT_FINDINGS;
    if (size->height > vxproject::StMap::MOST_PIXELS / size->width) {
        complain(asked.path() + QStringLiteral(": a frame of %1x%2 is too large").arg(size->width).arg(size->height));
        return EXIT_FINDINGS;
    }

    std::optional<Gan_Camera> const camera = asked.cameraAt(options.frame);
    if (!camera)
        return asked.code();
    vxproject::StMap const map = vxproject::stMapOf(
        *camera, *size, options.inverse ? vxproject::MapDirection::Inverse : vxproject::MapDirection::Direct);
    QString const output = textOf(options.output);
    vxproject::replaceFile(output, vxproject::exrOf(map));
    print(output + QStringLiteral(": %1x%2").arg(size->width).arg(size->height));
    if (map.nowhere == 0)
        return asked.code();
    complain(output + QStringLiteral(": the lens shows nothing at %1 pixels, which are -1 -1").arg(map.nowhere));
    return EXIT_FINDINGS;
}

constexpr char FOOTER[] =
    "\nEach pixel of the map says which place of the source picture is seen there: R from 0 at the left edge to 1 at\n"
    "the right, G from 0 at the bottom to 1 at the top, as 32-bit floats at the pixel's centre. The map takes the\n"
    "lens's distortion out of a picture; with --inverse it puts it in. A pair can be read back: a lens of type 15\n"
    "whose directSTMapClipID and inverseSTMapClipID name clips with these files.\n"
    "\nExamples:\n"
    "  vxproject stmap shot.vxp --lens 1 --frame 1 -o undistort.exr\n"
    "  vxproject stmap shot.vxp --lens 1 --frame 1 --inverse -o distort.exr";

} // namespace

void addStMap(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("stmap", "Write a lens as a map image that other tools read");
    command->footer(FOOTER);
    options->question.addTo(*command);
    command->add_option("--frame", options->frame, "The frame")->required();
    command->add_option("-o,--output", options->output, "The OpenEXR file, which is replaced")->required();
    command->add_flag("--inverse", options->inverse, "The map that puts the distortion in");
    command->callback([options, &chosen] { chosen = [options] { return stmap(*options); }; });
}

} // namespace Tool
