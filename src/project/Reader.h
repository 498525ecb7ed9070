#pragma once

#include "project/LineCheck.h"
#include "project/Project.h"

#include <QHash>

#include <unordered_map>

namespace vxproject {

/// Reads the text of a project file into an empty project.
class Reader {
public:
    /// `path` is for messages alone.
    Reader(Project & project, QString const & path) : project_(project), path_(path) {}

    /// FileError for what makes no project; the project is then of no use.
    void read(QByteArray const & bytes);

private:
    /// Where a line goes.
    struct Target {
        Item * item = nullptr;
        Kyn::BasicParameter * member = nullptr; ///< Null if there is none of that name.
        QString missing;                        ///< What was not found, then.
        bool isRefused = false;                 ///< The item would take the line, and lose it.
        QString opening;                        ///< Of the member's lines in the file, the last "." included.
        LineCheck * check = nullptr;            ///< Null for a member that is no typed parameter.
    };
    /// A line by which a parameter named a master.
    struct MasterLine {
        qsizetype number;
        QString text;
        Item * item;
    };

    void readFirstLine(QStringView line);
    void settleForms(QStringView text);
    void readLine(QStringView line);
    void readItemLine(QStringView line, Item & item, qsizetype keyLength);
    void findTarget(QStringView line, Item & item, qsizetype keyLength);
    void noteMaster(Target const & target, QStringView line);
    void placeWaitingLines(Target const & target, QStringView line);
    void keep(QStringView line, Item * item, QStringList const & why);
    void resolveMasters();
    void finish(bool lastLineEnded);
    void report(qsizetype line, QString const & what) { project_.findings_.append({line, what}); }

    Project & project_;
    QString path_;
    Kyn::StreamVersion version_{Project::NEWEST_VERSION};
    qsizetype number_ = 1;
    bool anyLine_ = false; ///< Whether a line other than a comment has been read behind the first.
    Target last_;          ///< Lines of one member mostly stand together.
    std::unordered_map<Kyn::ParameterWithoutType const *, LineCheck> checks_;
    QHash<Kyn::ParameterWithoutType const *, MasterLine> masters_;
    QStringList waiting_;                  ///< Comments, and lines of no item, until a line comes to stand before.
    QHash<Item *, QStringList> waitingOf_; ///< Kept lines of an item, until a line of it comes.
};

} // namespace vxproject
