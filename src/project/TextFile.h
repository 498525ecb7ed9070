#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace vxproject {

/// The lines of a text that has been decoded, without their line ends: LF, and every CR before it. A CR elsewhere
/// belongs to its line. Looks into the text, which must stay.
class Lines {
public:
    explicit Lines(QStringView text) : rest_(text) {}

    /// Takes the next line. False behind the last one; an end of line at the very end opens no further line.
    bool next(QStringView & line);
    /// The number of the line taken last; the first is 1.
    qsizetype number() const { return number_; }
    /// Whether that line had an end.
    bool wasEnded() const { return ended_; }

private:
    QStringView rest_;
    qsizetype number_ = 0;
    bool ended_ = true;
};

/// A UTF-8 text and how it began.
struct DecodedText {
    QString text;
    bool hadByteOrderMark = false; ///< It has been taken off.
};

/// The bytes of a file. FileError if there is none, if it cannot be read, and for a directory.
QByteArray readFile(QString const & path);

/// Decodes UTF-8. FileError with the line for bytes that are none, and for a NUL byte; `path` is for the message.
DecodedText decode(QByteArray const & bytes, QString const & path);

/// Puts bytes in place of a file, or makes it: the old file stands until the new one is whole on disk, its entry in the
/// folder included. Through a symbolic link, the file that it names is replaced. FileError if that cannot be done, and
/// for a path that names something other than a plain file; the old file is then as it was.
void replaceFile(QString const & path, QByteArray const & bytes);

} // namespace vxproject
