#include "vxproject/AskedItem.h"

#include "vxproject/Output.h"

namespace Tool {

AskedItem::AskedItem(std::string const & file, char const * kind, long long id, int view)
    : kind_(QString::fromLatin1(kind)),
      path_(textOf(file)),
      id_(idOf((std::string("--") + kind).c_str(), id)),
      view_(viewOf(view)),
      project_(vxproject::Project::read(path_)),
      code_(complainOf(project_->findings(), path_)) {}

Kyn::Context AskedItem::contextAt(double frame) const {
    return Kyn::Context(Kyn::Time(frame), view_, Kyn::ProxyScale::FULL);
}

void AskedItem::complain(QString const & what) {
    Tool::complain(path_ + QStringLiteral(": %1 %2 ").arg(kind_).arg(id_) + what);
    code_ = EXIT_FINDINGS;
}

} // namespace Tool
