#include "parameter/StaticParameter.h"

#include "parameter/ScriptLine.h"
#include "parameter/ValueText.h"

namespace Kyn {

namespace {

/// Whether the line names this member and, behind the name, its value.
bool isValueLine(QStringView line, QStringView scriptName) {
    if (!line.startsWith(scriptName))
        return false;
    QStringView const rest = line.mid(scriptName.size());
    return rest.startsWith(QLatin1Char('.')) && rest.mid(1).startsWith(QLatin1String("value"), Qt::CaseInsensitive);
}

} // namespace

template <class T>
bool StaticParameter<T>::bStreamOut(QTextStream & stream, QString const & prefix, bool bUseName) const {
    stream << prefix;
    if (bUseName)
        stream << scriptName_ << '.';
    stream << "value=";
    detail::writeValue(stream, value());
    stream << Qt::endl;
    return true;
}

template <class T>
bool StaticParameter<T>::setFromScriptString(QString const & line) {
    if (!isValueLine(line, scriptName_))
        return false;
    setValue(detail::readValue<T>(detail::valueField(line)));
    Q_EMIT this->valueChanged();
    return true;
}

template <class T>
bool StaticParameter<T>::bReadMemberLine(QString const & line, StreamVersion const &) {
    return setFromScriptString(line);
}

} // namespace Kyn

#define VX_INSTANTIATE_STATIC_PARAMETER(T) template class Kyn::StaticParameter<T>;
VX_FOR_EACH_STATIC_TYPE(VX_INSTANTIATE_STATIC_PARAMETER)
