#pragma once

#include <QString>

class QTextStream;

namespace Kyn {

/// One view of a stereo or multi-camera clip, named by a signed 32-bit id.
/// Ids are compared by value; a negative id names no view.
class View {
public:
    /// The default view.
    constexpr View() = default;
    constexpr explicit View(int id) : id_(id) {}

    constexpr int id() const { return id_; }
    constexpr bool isValid() const { return id_ >= 0; }

    /// The id of the view that script text writes without a prefix: 0.
    static constexpr int defaultViewId() { return 0; }

    /// The view with a negative id (-1).
    static View const & INVALID();

    /// The prefix that names this view in a script line, "view[3]." for the id 3; empty for a negative id.
    QString toString() const;

    /// Takes a leading "view[N]." off `text`, N a decimal number of digits only from 0 to 2147483647, and returns
    /// that view. Any other text is left as it stands and gives a view with a negative id.
    static View extractStringPrefix(QString & text);

    /// The same for a reader that only looks: moves the start of `text` behind the prefix.
    static View extractStringPrefix(QStringView & text);

    friend constexpr bool operator==(View a, View b) { return a.id_ == b.id_; }
    friend constexpr bool operator!=(View a, View b) { return a.id_ != b.id_; }
    friend constexpr bool operator<(View a, View b) { return a.id_ < b.id_; }

private:
    int id_ = defaultViewId();
};

/// A view as a parameter value is its decimal id.
QTextStream & operator<<(QTextStream & stream, View const & view);
QTextStream & operator>>(QTextStream & stream, View & view);

} // namespace Kyn
