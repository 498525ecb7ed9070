#include "vxproject/LutFile.h"

#include "vxproject/Command.h"

namespace Tool {

namespace {

QByteArray numberText(double number) {
    constexpr int DIGITS = 9;
    return QByteArray::number(number, 'f', DIGITS);
}

QByteArray spi1dText(std::vector<double> const & entries) {
    QByteArray text =
        "Version 1\nFrom 0.0 1.0\nLength " + QByteArray::number(qulonglong(entries.size())) + "\nComponents 1\n{\n";
    for (double const entry : entries)
        text += "    " + numberText(entry) + '\n';
    return text + "}\n";
}

QByteArray cubeText(std::vector<double> const & entries, QString const & title) {
    QByteArray text = "TITLE \"" + title.toUtf8() + "\"\nLUT_1D_SIZE " +
                      QByteArray::number(qulonglong(entries.size())) +
                      "\nDOMAIN_MIN 0.0 0.0 0.0\nDOMAIN_MAX 1.0 1.0 1.0\n";
    for (double const entry : entries) {
        QByteArray const number = numberText(entry);
        text += number + ' ' + number + ' ' + number + '\n';
    }
    return text;
}

} // namespace

LutFormat lutFormatOf(QString const & path) {
    if (path.endsWith(QLatin1String(".spi1d"), Qt::CaseInsensitive))
        return LutFormat::Spi1d;
    if (path.endsWith(QLatin1String(".cube"), Qt::CaseInsensitive))
        return LutFormat::Cube;
    throw UsageError("-o '" + path.toStdString() + "': the file's name ends in .spi1d or .cube");
}

QByteArray lutText(LutFormat format, std::vector<double> const & entries, QString const & title) {
    return format == LutFormat::Spi1d ? spi1dText(entries) : cubeText(entries, title);
}

} // namespace Tool
