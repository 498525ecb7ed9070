#include "foundation/Strings.h"

#include <QCoreApplication>

#include <iterator>

namespace VX {
namespace {
struct TranslatedText {
    char const * source;
    char const * comment;
};

constexpr TranslatedText clipNamePrefixes[] = {
    {"Layer", "Layer clip name prefix"},
    {"Filled", "Filled clip name prefix"},
    {"Filter", "Filter clip name prefix"},
    {"Luminance", "Luminance clip name prefix"},
    {"Shadow", "Shadow clip name prefix"},
    {"Highlight", "Highlight clip name prefix"},
    {"RenderMatte", "RenderMatte clip name prefix"},
    {"Warped", "Warped clip name prefix"},
    {"Composite", "Composite clip name prefix"},
    // The one source text that is not English: translation files know the row by it, so it stays.
    {"移除", "Remove clip name prefix"},
};

static_assert(std::size(clipNamePrefixes) == Strings::REMOVE + 1, "one row for each prefix");
} // namespace

char const * const Strings::ModuleName::CLIP = "片段";
char const * const Strings::ModuleName::CAMERA = "Camera";
char const * const Strings::ModuleName::LENS = "镜头";
char const * const Strings::ModuleName::TRACK2D = "跟踪";
char const * const Strings::ModuleName::ADJUSTTRACK = "调整";
char const * const Strings::ModuleName::REMOVE = "移除";
char const * const Strings::ModuleName::STABILIZE = "稳定";
char const * const Strings::ModuleName::INSERT = "插入";
char const * const Strings::ModuleName::WARPER = "Warp";
char const * const Strings::ModuleName::CAMERASOLVE = "摄像机解算";
char const * const Strings::ModuleName::ROTOLP = "ODM";

char const * const Strings::MATTE_CLIP_PREFIX_FORMAT = "Matte for %1";

QString Strings::tr(ClipNamePrefix prefix) {
    TranslatedText const & text = clipNamePrefixes[prefix];
    return QCoreApplication::translate("VX_Strings", text.source, text.comment);
}
} // namespace VX
