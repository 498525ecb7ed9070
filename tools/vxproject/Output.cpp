#include "vxproject/Output.h"

#include "project/NumberText.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace Tool {

OutputError::OutputError(int error)
    : std::runtime_error(std::string("standard output: ") + std::strerror(error)), readerHasLeft_(error == EPIPE) {}

void print(QByteArray const & bytes) {
    auto const size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) != size)
        throw OutputError(errno);
}

void print(QString const & line) {
    print(line.toUtf8() + '\n');
}

void print(nlohmann::ordered_json const & document) {
    print(QByteArray::fromStdString(document.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace)) +
          '\n');
}

void flushOutput() {
    if (std::fflush(stdout) != 0)
        throw OutputError(errno);
}

void complain(QString const & message) {
    QString line = message;
    for (QChar & c : line)
        if (c.category() == QChar::Other_Control) // The name of a folder may hold a line break.
            c = QChar::ReplacementCharacter;
    std::fputs((line.toUtf8() + '\n').constData(), stderr);
}

ExitCode complainOf(QList<vxproject::Finding> const & findings, QString const & path) {
    constexpr qsizetype MOST_SHOWN = 10;
    for (qsizetype i = 0; i < std::min(findings.size(), MOST_SHOWN); ++i)
        complain(findings[i].toString(path));
    if (findings.size() > MOST_SHOWN)
        complain(QStringLiteral("%1: and %2 more").arg(path).arg(findings.size() - MOST_SHOWN));
    return findings.isEmpty() ? EXIT_DONE : EXIT_FINDINGS;
}

namespace {

/// A field of CSV: in quotes where it holds what would end it.
QString csvField(QString const & text) {
    bool const plain = !text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"')) &&
                       !text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r'));
    if (plain)
        return text;
    return QLatin1Char('"') + QString(text).replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

struct ToText {
    QString operator()(double number) const { return vxproject::shortestText(number); }
    QString operator()(float number) const { return vxproject::shortestText(number); }
    QString operator()(qint64 number) const { return QString::number(number); }
    QString operator()(bool flag) const { return QString::number(flag ? 1 : 0); }
    QString operator()(QString const & text) const { return csvField(text); }
};

struct ToJson {
    // A float is given the digits of its own shortest text, not those of the double that it widens to.
    nlohmann::ordered_json operator()(float number) const {
        return std::isfinite(number) ? nlohmann::ordered_json(vxproject::shortestText(number).toDouble())
                                     : nlohmann::ordered_json();
    }
    nlohmann::ordered_json operator()(double number) const { return number; }
    nlohmann::ordered_json operator()(qint64 number) const { return number; }
    nlohmann::ordered_json operator()(bool flag) const { return flag; }
    nlohmann::ordered_json operator()(QString const & text) const { return text.toStdString(); }
};

} // namespace

nlohmann::ordered_json toJson(vxproject::ParameterValue const & value) {
    return std::visit(ToJson(), value);
}

Field fieldIf(bool isThere, vxproject::ParameterValue const & value) {
    if (!isThere)
        return std::nullopt;
    return value;
}

Table::Table(Form form, QStringList const & columns) : form_(form) {
    QStringList header;
    for (QString const & column : columns) {
        header.append(csvField(column));
        columns_.push_back(column.toStdString());
    }
    if (form_ == Form::Csv)
        print(header.join(QLatin1Char(',')));
}

void Table::row(Fields const & fields) {
    if (form_ == Form::Csv)
        csvRow(fields);
    else
        jsonRow(fields);
    anyRow_ = true;
}

void Table::csvRow(Fields const & fields) {
    QStringList texts;
    for (Field const & field : fields)
        texts.append(field ? std::visit(ToText(), *field) : QStringLiteral("none"));
    print(texts.join(QLatin1Char(',')));
}

void Table::jsonRow(Fields const & fields) {
    nlohmann::ordered_json object;
    for (std::size_t i = 0; i < fields.size(); ++i)
        object[columns_[i]] = fields[i] ? toJson(*fields[i]) : nlohmann::ordered_json();
    print((anyRow_ ? QByteArray(",\n ") : QByteArray("[")) +
          QByteArray::fromStdString(object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace)));
}

void Table::finish() {
    if (form_ == Form::Json)
        print(anyRow_ ? QByteArray("]\n") : QByteArray("[]\n"));
}

QStringList pointColumns(std::size_t count) {
    QStringList columns{QStringLiteral("frame")};
    for (std::size_t i = 1; i <= count; ++i)
        columns << QStringLiteral("x%1").arg(i) << QStringLiteral("y%1").arg(i);
    return columns;
}

} // namespace Tool
