#pragma once

#include "parameter/kyn/BasicParameter.h"

namespace Kyn {

/// A placeholder under an old script name: takes every line under that name, keeps nothing and writes nothing,
/// so that old scripts are read without complaint. Held by boost::shared_ptr, shared between copies of a set.
class MovedParameter : public BasicParameter {
public:
    explicit MovedParameter(QString const & scriptName);

    QString const & scriptName() const override { return scriptName_; }
    bool bStreamOut(QTextStream & stream, QString const & prefix, bool bUseName) const override;
    bool setFromScriptString(QString const & line, StreamVersion const & version);
    bool bReadMemberLine(QString const & line, StreamVersion const & version) override;

private:
    QString scriptName_;
};

} // namespace Kyn
