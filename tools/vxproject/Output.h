#pragma once

#include "project/Finding.h"
#include "project/ParameterValue.h"
#include "vxproject/Command.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <vector>

/// Results go to standard output, messages to standard error; both are UTF-8.
namespace Tool {

/// Standard output took no more. Somebody who has closed a pipe has read enough: then there is nothing to say.
class OutputError : public std::runtime_error {
public:
    explicit OutputError(int error);

    bool readerHasLeft() const { return readerHasLeft_; }

private:
    bool readerHasLeft_;
};

void print(QByteArray const & bytes);
void print(QString const & line);
void print(nlohmann::ordered_json const & document);
/// Sees to it that all is out. OutputError if not.
void flushOutput();

/// A message of one line.
void complain(QString const & message);
/// The first findings of a file that a command could work with, and how many more there are. The exit code that they
/// make of EXIT_DONE.
ExitCode complainOf(QList<vxproject::Finding> const & findings, QString const & path);

/// How a table is written.
enum class Form { Csv, Json };

inline Form formOf(bool json) {
    return json ? Form::Json : Form::Csv;
}

/// A field of a table. Nothing where a row has no such value: "none" in CSV, null in JSON.
typedef std::optional<vxproject::ParameterValue> Field;
typedef std::vector<Field> Fields;

Field fieldIf(bool isThere, vxproject::ParameterValue const & value);

/// Writes a table row by row: CSV with a header line, or a JSON list with one object for each row, keyed by column.
/// Numbers have the shortest text that reads back as the same number; JSON has null for one that is not finite.
class Table {
public:
    Table(Form form, QStringList const & columns);

    void row(Fields const & fields);
    /// Without it the table is not complete.
    void finish();

private:
    void csvRow(Fields const & fields);
    void jsonRow(Fields const & fields);

    Form form_;
    std::vector<std::string> columns_;
    bool anyRow_ = false;
};

/// "frame", and "x1", "y1" and so on for points.
QStringList pointColumns(std::size_t count);

nlohmann::ordered_json toJson(vxproject::ParameterValue const & value);

} // namespace Tool
