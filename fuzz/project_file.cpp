// Any bytes as a project file.
//
// What must hold: a file is either refused as a whole, with a FileError, or read; what was read can be written; what
// was written is read without new findings, and written again as the same bytes.

#include "Property.h"

#include "project/FileError.h"
#include "project/Project.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    using vxproject::Project;
    QByteArray const bytes = QByteArray::fromRawData(reinterpret_cast<char const *>(data), static_cast<int>(size));
    std::unique_ptr<Project> project;
    try {
        project = Project::fromText(bytes, QStringLiteral("fuzzed"));
    } catch (vxproject::FileError const &) {
        return 0;
    }
    if (!project->lossesOfWriting().isEmpty())
        return 0; // Six digits merge two keys: what is written says less than what was read, as it says itself.
    QByteArray const written = project->toText();
    std::unique_ptr<Project> const again = Project::fromText(written, QStringLiteral("written"));
    Fuzz::requireEqual(again->toText(), written, "written, read and written is the same");
    Fuzz::require(again->findings().size() <= project->findings().size(), "writing brings no new finding", written);
    return 0;
}
