#pragma once

#include "parameter/kyn/StreamVersion.h"

#include <QObject>
#include <QString>

class QTextStream;

namespace Kyn {

/// What everything that has a script name and a value is to a parameter set: a member that writes its lines
/// and takes the lines that its name opens.
class BasicParameter : public QObject {
    Q_OBJECT

public:
    ~BasicParameter() override;

    /// The key under which a script names this member. Unique in its set, with few exceptions that stand at the sets.
    virtual QString const & scriptName() const = 0;

    /// Writes the member's lines, each opened by `prefix` and, if asked and not empty, the script name and ".".
    /// Always true.
    virtual bool bStreamOut(QTextStream & stream, QString const & prefix, bool bUseName) const = 0;

    /// Takes a line that still bears this member's script name and "." in front. False if it was not understood;
    /// then nothing has changed.
    virtual bool bReadMemberLine(QString const & line, StreamVersion const & version) = 0;

Q_SIGNALS:
    /// A value has been read from a script line. Sent by static and virtual parameters only; typed parameters
    /// report every change through ParameterWithoutType::changed.
    void valueChanged();
};

} // namespace Kyn
