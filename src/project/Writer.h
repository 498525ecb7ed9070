#pragma once

#include "project/Item.h"

#include <QByteArray>
#include <QStringList>

namespace vxproject {

/// Puts the text of a project file together. Refuses what could not be read back, see Project::toText().
class Writer {
public:
    void line(QString const & text);
    void lines(QStringList const & texts);
    /// All lines of an item, each opened by its key and ".".
    void item(Item & item, QString const & key);

    QByteArray const & text() const { return text_; }

private:
    void set(Kyn::ParameterSet const & set, QString const & path, KeptLines const & kept);
    void member(Kyn::BasicParameter const & member, QString const & path, KeptLines const & kept);

    QByteArray text_;
};

/// What the key lines of a parameter would lose of it; empty if nothing.
QString lossOfWriting(Kyn::ParameterWithoutType const & parameter);

} // namespace vxproject
