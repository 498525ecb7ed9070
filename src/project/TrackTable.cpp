#include "project/TrackTable.h"

#include "project/FileError.h"
#include "project/NumberText.h"
#include "project/TextFile.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vxproject {

namespace {

struct Column {
    QLatin1String name;
    double Gan_Matrix33::*element; ///< Null for the frame.
};

constexpr std::array<Column, 10> COLUMNS = {{
    {QLatin1String("frame"), nullptr},
    {QLatin1String("h11"), &Gan_Matrix33::xx},
    {QLatin1String("h12"), &Gan_Matrix33::xy},
    {QLatin1String("h13"), &Gan_Matrix33::xz},
    {QLatin1String("h21"), &Gan_Matrix33::yx},
    {QLatin1String("h22"), &Gan_Matrix33::yy},
    {QLatin1String("h23"), &Gan_Matrix33::yz},
    {QLatin1String("h31"), &Gan_Matrix33::zx},
    {QLatin1String("h32"), &Gan_Matrix33::zy},
    {QLatin1String("h33"), &Gan_Matrix33::zz},
}};

/// Reads one table line by line.
class TableReader {
public:
    explicit TableReader(QString const & path) : path_(path) {}

    void readLine(QStringView line, qsizetype number) {
        number_ = number;
        if (line.startsWith(QLatin1Char('#')) || line.trimmed().isEmpty())
            return;
        QList<QStringView> fields = line.split(QLatin1Char(','));
        for (QStringView & field : fields)
            field = field.trimmed();
        if (fieldCount_ == 0)
            readHeader(fields);
        else
            readRow(fields);
    }

    TrackTable finish() {
        if (fieldCount_ == 0)
            throw FileError(path_, 0, QStringLiteral("holds no table: there is no header line"));
        std::stable_sort(table_.rows.begin(), table_.rows.end(),
                         [](TrackRow const & a, TrackRow const & b) { return a.frame < b.frame; });
        dropRepeatedFrames();
        return std::move(table_);
    }

private:
    [[noreturn]] void fail(QString const & what) const { throw FileError(path_, number_, what); }

    void readHeader(QList<QStringView> const & names) {
        fieldCount_ = names.size();
        for (std::size_t i = 0; i < COLUMNS.size(); ++i) {
            auto const isIt = [&](QStringView name) { return name == COLUMNS[i].name; };
            auto const found = std::find_if(names.begin(), names.end(), isIt);
            if (found == names.end())
                fail(QStringLiteral("the header has no column '%1'").arg(COLUMNS[i].name));
            if (std::find_if(found + 1, names.end(), isIt) != names.end())
                fail(QStringLiteral("the header has two columns '%1'").arg(COLUMNS[i].name));
            places_[i] = found - names.begin();
        }
    }

    void readRow(QList<QStringView> const & fields) {
        if (fields.size() != fieldCount_)
            fail(QStringLiteral("the row has %1 fields, the header %2").arg(fields.size()).arg(fieldCount_));
        TrackRow row{number_, 0.0, {}};
        for (std::size_t i = 0; i < COLUMNS.size(); ++i) {
            bool isNumber = false;
            double const number = fields[places_[i]].toDouble(&isNumber);
            if (!isNumber || !std::isfinite(number))
                fail(QStringLiteral("column '%1' holds %2, which is no finite number")
                         .arg(COLUMNS[i].name, quoted(fields[places_[i]])));
            (COLUMNS[i].element ? row.homography.*COLUMNS[i].element : row.frame) = number;
        }
        table_.rows.push_back(row);
    }

    void dropRepeatedFrames() {
        std::vector<TrackRow> & rows = table_.rows;
        for (std::size_t i = 1; i < rows.size(); ++i)
            if (rows[i].frame == rows[i - 1].frame)
                table_.findings.append({rows[i].line, QStringLiteral("frame %1 stands in line %2 already, in whose "
                                                                     "place this row comes")
                                                          .arg(shortestText(rows[i].frame))
                                                          .arg(rows[i - 1].line)});
        // Of equal frames the last stays.
        auto const kept = std::unique(rows.rbegin(), rows.rend(),
                                      [](TrackRow const & a, TrackRow const & b) { return a.frame == b.frame; });
        rows.erase(rows.begin(), kept.base());
        std::stable_sort(table_.findings.begin(), table_.findings.end(),
                         [](Finding const & a, Finding const & b) { return a.line < b.line; });
    }

    QString path_;
    qsizetype number_ = 0;
    qsizetype fieldCount_ = 0;
    std::array<qsizetype, COLUMNS.size()> places_ = {};
    TrackTable table_;
};

} // namespace

TrackTable TrackTable::read(QString const & path) {
    return fromText(readFile(path), path);
}

TrackTable TrackTable::fromText(QByteArray const & text, QString const & path) {
    DecodedText const decoded = decode(text, path);
    TableReader reader(path);
    Lines lines(decoded.text);
    for (QStringView line; lines.next(line);)
        reader.readLine(line, lines.number());
    return reader.finish();
}

} // namespace vxproject
