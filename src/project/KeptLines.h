#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <vector>

namespace Kyn {
class BasicParameter;
class ParameterWithoutType;
} // namespace Kyn

namespace vxproject {

/// The lines of an item that no member takes, comments and blank lines among them, each with its place: before the line
/// that followed it. That line is known by its member and by what it sets, so that a comment above a key stays with the
/// key while others come and go. Where the line is no longer written, the place is behind the member's last line.
class KeptLines {
public:
    /// Keeps lines before the line of `member` that sets `slot` (see slotOf()).
    void addBefore(Kyn::BasicParameter const & member, QString const & slot, QStringList const & lines);
    /// Keeps the line by which `parameter` named a master that could not be found. It is written for as long as the
    /// parameter has no other master.
    void addMaster(Kyn::ParameterWithoutType const & parameter, QString const & line);
    /// Keeps lines behind all members.
    void addLast(QStringList const & lines) { last_ += lines; }

    QStringList const & last() const { return last_; }

    /// A member's lines as they are written, with the kept ones among them. Each ends with a line end; every line of
    /// `written` opens with `opening`.
    QString woven(Kyn::BasicParameter const & member, QString const & written, QString const & opening) const;

    /// What a member's line sets, its opening taken off: "view[1].value", "before", or a key's view and time. Two lines
    /// of one slot stand for the same thing.
    static QString slotOf(QStringView line);

private:
    struct Kept {
        Kyn::BasicParameter const * member;
        Kyn::ParameterWithoutType const * withoutMaster; ///< Written only while this one has no master. May be null.
        QString slot;
        QStringList lines;
    };

    std::vector<Kept> kept_;
    QStringList last_;
};

} // namespace vxproject
