#pragma once

#include "parameter/kyn/View.h"
#include "parameter/tov/FSPercentEscapedString.h"

#include <QIODevice>

#include <QString>
#include <QTextStream>
#include <QVarLengthArray>

#include <type_traits>

namespace Kyn {

/// The Kyn layer's text of a bool: "1" and "0"; reading also takes "true" and "false" in any case, and any number.
QTextStream & operator<<(QTextStream & stream, bool const & value);
QTextStream & operator>>(QTextStream & stream, bool & value);
/// A byte is a decimal number; of a larger one the low eight bits are taken.
QTextStream & operator<<(QTextStream & stream, unsigned char const & value);
QTextStream & operator>>(QTextStream & stream, unsigned char & value);

} // namespace Kyn

/// The text form of each member type, reading and writing. Numbers read exactly as Qt's own readers read them: plain
/// decimal forms are read quickly, all others are given to Qt.
namespace Kyn::detail {

/// A line under construction, on the stack for usual lengths.
class TextBuffer {
public:
    void append(char const * ascii, int length);
    template <std::size_t N>
    void append(char const (&ascii)[N]) {
        append(ascii, static_cast<int>(N) - 1);
    }
    void append(QStringView text);
    /// Six significant digits in the shorter of the two forms, as Qt's 'g' writes them.
    void append(double number);
    void append(int number);
    void append(unsigned int number);

    QStringView view() const { return QStringView(buffer_.constData(), buffer_.size()); }
    QString toString() const { return view().toString(); }

private:
    QVarLengthArray<char16_t, 192> buffer_;
};

/// A number at the start of the text as QTextStream reads it into a double: 0 where there is none.
double readReal(QStringView text);
/// The whole text as QString::toDouble and QString::toFloat read it: 0 where it is no number.
double wholeToDouble(QStringView text);
float wholeToFloat(QStringView text);
/// A plain decimal integer of up to nine digits without leading zeros, which every reader reads alike.
bool isPlainInteger(QStringView text, int & number);

/// The text without one double quote at each end, if both are there.
QStringView withoutQuotes(QStringView text);

template <class T>
T readThroughStream(QStringView text) {
    QString whole = text.toString();
    QTextStream stream(&whole, QIODevice::ReadWrite);
    T value = T();
    stream >> value;
    return value;
}

/// Reads a value from the whole of a text. Text that is no number gives what Qt gives, 0.
template <class T>
T readValue(QStringView text) {
    if constexpr (std::is_same_v<T, QString>) {
        return withoutQuotes(text).toString();
    } else if constexpr (std::is_same_v<T, Tov::FSPercentEscapedString>) {
        return Tov::FSPercentEscapedString(withoutQuotes(text).toString(), Tov::FSPercentEscapedString::Safety(0));
    } else if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(readReal(text));
    } else {
        int number = 0;
        if constexpr (std::is_same_v<T, View>) {
            return View(isPlainInteger(text, number) ? number : readThroughStream<int>(text));
        } else if constexpr (std::is_same_v<T, bool>) {
            return isPlainInteger(text, number) ? number != 0 : readThroughStream<T>(text);
        } else {
            // The sign is left to Qt: some enumerations pass through unsigned numbers.
            return isPlainInteger(text, number) && number >= 0 ? static_cast<T>(number) : readThroughStream<T>(text);
        }
    }
}

/// Writes a value on a stream, in its present number format.
template <class T>
void writeValue(QTextStream & stream, T const & value) {
    if constexpr (std::is_same_v<T, QString>)
        stream << '"' << value << '"';
    else if constexpr (std::is_same_v<T, Tov::FSPercentEscapedString>)
        stream << '"' << value.text() << '"';
    else
        stream << value;
}

/// Appends a value as a stream without settings of its own would write it: reals with six digits.
template <class T>
void appendValue(TextBuffer & text, T const & value) {
    if constexpr (std::is_floating_point_v<T>) {
        text.append(static_cast<double>(value));
    } else if constexpr (std::is_same_v<T, int> || std::is_same_v<T, unsigned int>) {
        text.append(value);
    } else {
        QString written;
        QTextStream stream(&written, QIODevice::ReadWrite);
        writeValue(stream, value);
        stream.flush();
        text.append(QStringView(written));
    }
}

} // namespace Kyn::detail
