#pragma once

#include <QString>

namespace Tov {
/// A file-system name (a prefix, a suffix) as text that is safe between double quotes on one line of a script.
///
/// Escaped are, as % and two upper-case hexadecimal digits: % itself, the double quote, and the control characters
/// U+0000 to U+001F and U+007F, line breaks among them. All other characters, blanks, slashes and anything beyond
/// ASCII, stand for themselves. unescaped() of an escaped text gives the name back, whatever it holds.
class FSPercentEscapedString {
public:
    /// What the text given to the constructor is.
    enum Safety : int {
        ALREADY_ESCAPED = 0, ///< escaped text: stored as it stands, whatever it holds
        ESCAPE = 1,          ///< a plain name: stored escaped
    };

    FSPercentEscapedString() = default;
    FSPercentEscapedString(QString const & text, Safety const & safety);

    /// The stored, escaped text: what scripts carry and paths are built from.
    QString const & text() const { return m_text; }

    /// The name with each %XX (digits in any case) replaced by its character. A % without two hexadecimal digits
    /// after it stands for itself.
    QString unescaped() const;

    /// Equal stored texts; "a" and "%61" differ.
    bool operator==(FSPercentEscapedString const & other) const { return m_text == other.m_text; }
    bool operator!=(FSPercentEscapedString const & other) const { return m_text != other.m_text; }

private:
    QString m_text;
};
} // namespace Tov
