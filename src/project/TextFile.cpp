#include "project/TextFile.h"

#include "project/FileError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace vxproject {

bool Lines::next(QStringView & line) {
    if (rest_.isEmpty())
        return false;
    qsizetype const end = rest_.indexOf(QLatin1Char('\n'));
    ended_ = end >= 0;
    line = ended_ ? rest_.left(end) : rest_;
    rest_ = ended_ ? rest_.mid(end + 1) : QStringView();
    while (line.endsWith(QLatin1Char('\r')))
        line = line.chopped(1);
    ++number_;
    return true;
}

QByteArray readFile(QString const & path) {
    if (QFileInfo(path).isDir())
        throw FileError(path, 0, QStringLiteral("is a directory"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(path, 0, QStringLiteral("cannot be read: ") + file.errorString());
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw FileError(path, 0, QStringLiteral("cannot be read: ") + file.errorString());
    return bytes;
}

namespace {

QStringDecoder strictDecoder() {
    return QStringDecoder(QStringConverter::Utf8,
                          QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom);
}

qsizetype lineOfByte(QByteArray const & bytes, qsizetype at) {
    return std::count(bytes.begin(), bytes.begin() + at, '\n') + 1;
}

qsizetype firstLineNotUtf8(QByteArray const & bytes) {
    qsizetype line = 1;
    for (qsizetype start = 0; start < bytes.size(); ++line) {
        qsizetype const end = bytes.indexOf('\n', start);
        qsizetype const length = (end < 0 ? bytes.size() : end) - start;
        QStringDecoder decoder = strictDecoder();
        QString const text = decoder(QByteArrayView(bytes).sliced(start, length));
        if (decoder.hasError())
            return line;
        start += length + 1;
    }
    return line;
}

} // namespace

DecodedText decode(QByteArray const & bytes, QString const & path) {
    qsizetype const nul = bytes.indexOf('\0');
    if (nul >= 0)
        throw FileError(path, lineOfByte(bytes, nul), QStringLiteral("holds a NUL byte, so this is no text"));
    DecodedText decoded;
    QStringDecoder decoder = strictDecoder();
    decoded.text = decoder(bytes);
    if (decoder.hasError())
        throw FileError(path, firstLineNotUtf8(bytes), QStringLiteral("is not UTF-8"));
    decoded.hadByteOrderMark = decoded.text.startsWith(QChar(QChar::ByteOrderMark));
    if (decoded.hadByteOrderMark)
        decoded.text.remove(0, 1);
    return decoded;
}

namespace {

/// Makes sure that a file's new entry in its folder is on disk, too.
bool flushFolder(QString const & folder) {
#ifdef Q_OS_UNIX
    int const descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    bool const flushed = ::fsync(descriptor) == 0;
    ::close(descriptor);
    return flushed;
#else
    Q_UNUSED(folder)
    return true;
#endif
}

} // namespace

void replaceFile(QString const & path, QByteArray const & bytes) {
    QFileInfo const old(path);
    if (old.isDir())
        throw FileError(path, 0, QStringLiteral("is a directory"));
    if (old.exists() && !old.isFile())
        throw FileError(path, 0, QStringLiteral("is no plain file, so it cannot be replaced"));
    QString const target = old.isSymLink() && old.exists() ? old.canonicalFilePath() : path;
    QSaveFile file(target);
    // Without the flush, bytes that the disk does not take would go unnoticed: commit does not look at what its own
    // flush says. It does sync the file before it renames it.
    bool const written =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() && file.commit();
    if (!written)
        throw FileError(path, 0, QStringLiteral("cannot be written: ") + file.errorString());
    if (!flushFolder(QFileInfo(target).absolutePath()))
        throw FileError(path, 0, QStringLiteral("is written, but its folder could not be flushed to disk"));
}

} // namespace vxproject
