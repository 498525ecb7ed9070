#include "parameter/kyn/MovedParameter.h"

namespace Kyn {

MovedParameter::MovedParameter(QString const & scriptName) : scriptName_(scriptName) {}

bool MovedParameter::bStreamOut(QTextStream &, QString const &, bool) const {
    return true;
}

bool MovedParameter::setFromScriptString(QString const &, StreamVersion const &) {
    return true;
}

bool MovedParameter::bReadMemberLine(QString const & line, StreamVersion const & version) {
    return setFromScriptString(line.mid(scriptName_.size() + 1), version);
}

} // namespace Kyn
