#pragma once

#include "clip/FilmType.h"
#include "foundation/Translation.h"

#include <boost/multi_index/mem_fun.hpp>
#include <boost/multi_index/member.hpp>
#include <boost/multi_index/ordered_index.hpp>
#include <boost/multi_index/sequenced_index.hpp>
#include <boost/multi_index_container.hpp>

#include <QStringList>
#include <QVector>

#include <functional>
#include <utility>

/// The table of known film backs, and how one is found for a clip of unknown origin. Nothing here throws: what fits
/// nothing gives a FilmType that is not valid, or one named "Custom".
///
/// The table is built at first use and never changes; that first use is one thread's.
class VX_FilmTypeFactory {
    VX_DECLARE_TRANSLATION("VX_FilmTypeFactory")

public:
    struct Names;
    struct ByName;
    struct InSequence;
    struct ByAspect;

    /// The film backs by name, in the order of the table, and by aspect, where equal ones keep the table's order.
    typedef boost::multi_index_container<
        VX::FilmType,
        boost::multi_index::indexed_by<
            boost::multi_index::ordered_unique<boost::multi_index::tag<ByName>,
                                               boost::multi_index::member<VX::FilmType, QString, &VX::FilmType::name>>,
            boost::multi_index::sequenced<boost::multi_index::tag<InSequence>>,
            boost::multi_index::ordered_non_unique<
                boost::multi_index::tag<ByAspect>,
                boost::multi_index::const_mem_fun<VX::FilmType, double, &VX::FilmType::getFilmBackAspectRatio>,
                std::less<double>>>>
        Table;

    VX_FilmTypeFactory() = delete;

    static Table const & getInstance();

    /// The names, which are the same in every language.
    static Names const & names();
    /// All thirty names in the order of the table: "Custom" is the last here and the first in Names.
    static QStringList getAllNames();
    /// The film back of exactly that name, letter case included; one that is not valid if there is none.
    static VX::FilmType byName(QString const & name);

    /// The aspect (width over height) that a film back must have to give frames of that size pixels of that aspect:
    /// 0.0 if a side is below 1.
    static double requiredFilmAspectFromParAndDims(double pixelAspectRatio, QSize const & size);

    /// A film back in pixels that gives frames of that size pixels of that aspect. With `interlaced`, the size is that
    /// of one field. Not valid for an aspect at or below 0 and a side below 1.
    static VX::FilmType customTypeForParAndDims(double pixelAspectRatio, QSize const & size, bool interlaced);

    /// The film back that is scanned at that size: the first in the table that is, or the first that is scanned at
    /// that height. Not valid if there is none. With `interlaced`, the size is that of one field.
    ///
    /// A film back of that very size wins over an earlier one of that height only. A height of 0 is not refused: it
    /// finds the first film back that leaves one of its three heights open, or the one that has no height at that
    /// width.
    static VX::FilmType bestMatchForSize(QSize const & size, bool interlaced);

    /// The film back that gives frames of that size pixels of that aspect, to within 0.001 in single precision. Of
    /// several, those that are scanned at that size come first, then those that are scanned at that height. Of these
    /// the narrowest. Otherwise a custom one; not valid for an aspect at or below 0 and a side below 1. With
    /// `interlaced`, the size is that of one field and the aspect that of a pixel of the whole frame.
    static VX::FilmType bestMatchForPAR(double pixelAspectRatio, QSize const & size, bool interlaced);

private:
    typedef boost::multi_index::index<Table, ByAspect>::type::const_iterator AspectIterator;

    static std::pair<AspectIterator, AspectIterator> _bestFBMatchesFromParAndFullSize(double pixelAspectRatio,
                                                                                      QSize const & size);
    static QVector<VX::FilmType> _bestMatchesForFullSize(QVector<VX::FilmType> const & films, QSize const & size);
};

/// The names of the table's film backs.
struct VX_FilmTypeFactory::Names {
    QString custom;
    QString pal;
    QString palAnamorphic;
    QString ntsc;
    QString ntscAnamorphic;
    QString cs4Pal;
    QString cs4PalAnamorphic;
    QString cs4D1Ntsc;
    QString cs4DvNtsc;
    QString cs4D1NtscAnamorphic;
    QString cs4DvNtscAnamorphic;
    QString dvcproHd720;
    QString dvcproHd1080;
    QString hdv;
    QString hd;
    QString film16mm;
    QString super16mm;
    QString fullAperture35mm;
    QString scopeSuper35;
    QString super35ThreePerfA;
    QString super35ThreePerfB;
    QString vistaVision35mm;
    QString academy35mm;
    QString cinemascopePanavision;
    QString flat185;
    QString film65mm5Perf;
    QString film65mm8Perf;
    QString film65mm10Perf;
    QString film65mm15Perf;
    QString imax70mm;
};
