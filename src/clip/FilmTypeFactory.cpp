#include "clip/FilmTypeFactory.h"

#include "clip/InterlaceMode.h"

#include <algorithm>
#include <cmath>

namespace {
using VX::FilmType;
typedef VX_FilmTypeFactory::Names Names;

enum class Anamorphic { No, Yes };

struct Row {
    QString Names::*name;
    double filmBackWidth, filmBackHeight; // millimetres
    std::array<int, 3> widths, heights;   // pixels
    Anamorphic anamorphic;
};

// Film backs repeat and some heights have long decimals. They stand in projects so, and must be found again.
constexpr Row rows[] = {
    // clang-format off
    {&Names::pal, 20.12, 15.09, {720, 0, 0}, {576, 0, 0}, Anamorphic::No},
    {&Names::palAnamorphic, 20.12, 11.318, {720, 0, 0}, {576, 0, 0}, Anamorphic::Yes},
    {&Names::ntsc, 20.12, 15.09, {720, 720, 0}, {486, 480, 0}, Anamorphic::No},
    {&Names::ntscAnamorphic, 20.12, 11.318, {720, 720, 0}, {486, 480, 0}, Anamorphic::Yes},
    {&Names::cs4Pal, 20.12, 14.71275, {720, 0, 0}, {576, 0, 0}, Anamorphic::No},
    {&Names::cs4PalAnamorphic, 20.12, 11.0345625, {720, 0, 0}, {576, 0, 0}, Anamorphic::Yes},
    {&Names::cs4D1Ntsc, 20.12, 14.939099999999998, {720, 0, 0}, {486, 0, 0}, Anamorphic::No},
    {&Names::cs4DvNtsc, 20.12, 14.754666666666665, {720, 0, 0}, {480, 0, 0}, Anamorphic::No},
    {&Names::cs4D1NtscAnamorphic, 20.12, 11.204325, {720, 0, 0}, {486, 0, 0}, Anamorphic::Yes},
    {&Names::cs4DvNtscAnamorphic, 20.12, 11.066, {720, 0, 0}, {480, 0, 0}, Anamorphic::Yes},
    {&Names::dvcproHd720, 16.0, 9.0, {960, 0, 0}, {720, 0, 0}, Anamorphic::No},
    {&Names::dvcproHd1080, 16.0, 9.0, {1280, 0, 0}, {1080, 0, 0}, Anamorphic::No},
    {&Names::hdv, 16.0, 9.0, {1440, 0, 0}, {1080, 0, 0}, Anamorphic::No},
    {&Names::hd, 16.0, 9.0, {1920, 1280, 640}, {1080, 720, 480}, Anamorphic::No},
    {&Names::film16mm, 10.26, 7.49, {428, 856, 1712}, {0, 0, 0}, Anamorphic::No},
    {&Names::super16mm, 12.52, 7.42, {512, 1024, 2048}, {0, 0, 0}, Anamorphic::No},
    {&Names::fullAperture35mm, 24.892, 18.669, {1024, 2048, 4096}, {778, 1556, 3112}, Anamorphic::No},
    {&Names::scopeSuper35, 24.9, 13.9, {1024, 2048, 4096}, {436, 872, 1744}, Anamorphic::No},
    {&Names::super35ThreePerfA, 24.9, 13.9, {1024, 2048, 4096}, {578, 1156, 2312}, Anamorphic::No},
    {&Names::super35ThreePerfB, 24.9, 13.9, {1024, 2048, 4096}, {580, 1160, 2320}, Anamorphic::No},
    {&Names::vistaVision35mm, 37.719, 25.146, {1532, 3072, 6144}, {1024, 2048, 4096}, Anamorphic::No},
    {&Names::academy35mm, 21.946, 16.002, {914, 1828, 3656}, {666, 1332, 2664}, Anamorphic::No},
    {&Names::cinemascopePanavision, 43.893, 18.593, {914, 1828, 3656}, {778, 1556, 3112}, Anamorphic::No},
    {&Names::flat185, 43.893, 23.723, {914, 1828, 3656}, {494, 988, 1976}, Anamorphic::No},
    {&Names::film65mm5Perf, 52.476, 23.012, {1024, 2048, 4096}, {0, 0, 0}, Anamorphic::No},
    {&Names::film65mm8Perf, 52.629, 37.719, {1024, 2048, 4096}, {0, 0, 0}, Anamorphic::No},
    {&Names::film65mm10Perf, 70.409, 52.629, {1024, 2048, 4096}, {0, 0, 0}, Anamorphic::No},
    {&Names::film65mm15Perf, 70.409, 52.629, {1024, 2048, 4096}, {0, 0, 0}, Anamorphic::No},
    {&Names::imax70mm, 70.39, 52.62, {0, 0, 0}, {0, 0, 0}, Anamorphic::No},
    {&Names::custom, 10.0, 10.0, {0, 0, 0}, {0, 0, 0}, Anamorphic::No},
    // clang-format on
};

FilmType filmOf(Row const & row) {
    return FilmType(VX_FilmTypeFactory::names().*row.name, row.filmBackWidth, row.filmBackHeight, row.widths[0],
                    row.widths[1], row.widths[2], row.heights[0], row.heights[1], row.heights[2],
                    row.anamorphic == Anamorphic::Yes);
}

bool isScannedAtHeight(FilmType const & film, int height) {
    return std::find(film.heights.begin(), film.heights.end(), height) != film.heights.end();
}

bool isScannedAt(FilmType const & film, QSize const & size) {
    for (std::size_t i = 0; i < film.widths.size(); ++i)
        if (film.widths[i] == size.width() && film.heights[i] == size.height())
            return true;
    return false;
}

bool hasArea(QSize const & size) {
    return size.width() >= 1 && size.height() >= 1;
}

QSize fullSize(QSize const & size, bool interlaced) {
    return interlaced ? VX::frameSizeOfField(size) : size;
}

struct AspectRange {
    double low;
    double high;
};

// The aspects of film backs around the one that a pixel aspect asks for, which is first rounded to thousandths. A
// thousandth of the frame's aspect, not of the pixel's, is the tolerance, and it too is multiplied with the frame's
// aspect: so the range is narrow for tall frames and wide for wide ones. The plain form, aspect * (par +- 0.001), lets
// other film backs through.
AspectRange aspectRange(double pixelAspectRatio, QSize const & size) {
    if (!hasArea(size))
        return {0.0, 0.0};
    double const thousandths = std::floor(pixelAspectRatio * 1000 + 0.5);
    double const aspect = static_cast<double>(size.width()) / size.height();
    double const tolerance = aspect * 0.001;
    return {aspect * (thousandths * 0.001 - tolerance), aspect * (tolerance + thousandths * 0.001)};
}

// In single precision throughout: in double, other film backs lie at the edge of the tolerance.
bool hasPixelAspect(FilmType const & film, double pixelAspectRatio, QSize const & size) {
    float const difference = static_cast<float>(film.pixelAspectRatio(size)) - static_cast<float>(pixelAspectRatio);
    return std::fabs(difference) < 0.001f;
}
} // namespace

VX_FilmTypeFactory::Names const & VX_FilmTypeFactory::names() {
    static Names const all = {
        QStringLiteral("Custom"),
        QStringLiteral("PAL"),
        QStringLiteral("PAL Anamorphic"),
        QStringLiteral("NTSC"),
        QStringLiteral("NTSC Anamorphic"),
        QStringLiteral("CS4 PAL"),
        QStringLiteral("CS4 PAL Anamorphic"),
        QStringLiteral("CS4 D1 NTSC"),
        QStringLiteral("CS4 DV NTSC"),
        QStringLiteral("CS4 D1 NTSC Anamorphic"),
        QStringLiteral("CS4 DV NTSC Anamorphic"),
        QStringLiteral("DVCPRO HD 720"),
        QStringLiteral("DVCPRO HD 1080"),
        QStringLiteral("HDV"),
        QStringLiteral("HD"),
        QStringLiteral("16mm"),
        QStringLiteral("Super 16mm"),
        QStringLiteral("35mm Full Aperture"),
        QStringLiteral("Scope Super 35"),
        QStringLiteral("Super 35 (3 Perf) A"),
        QStringLiteral("Super 35 (3 Perf) B"),
        QStringLiteral("35mm VistaVision"),
        QStringLiteral("35mm Academy"),
        QStringLiteral("Cinemascope/Panavision"),
        QStringLiteral("Flat 1.85:1"),
        QStringLiteral("65mm (5 Perf)"),
        QStringLiteral("65mm (8 Perf)"),
        QStringLiteral("65mm (10 Perf)"),
        QStringLiteral("65mm (15 Perf)"),
        QStringLiteral("70mm IMAX"),
    };
    return all;
}

VX_FilmTypeFactory::Table const & VX_FilmTypeFactory::getInstance() {
    static Table const table = [] {
        Table films;
        for (Row const & row : rows)
            films.get<InSequence>().push_back(filmOf(row));
        return films;
    }();
    return table;
}

QStringList VX_FilmTypeFactory::getAllNames() {
    QStringList all;
    for (FilmType const & film : getInstance().get<InSequence>())
        all.append(film.name);
    return all;
}

FilmType VX_FilmTypeFactory::byName(QString const & name) {
    auto const & films = getInstance().get<ByName>();
    auto const found = films.find(name);
    return found == films.end() ? FilmType() : *found;
}

double VX_FilmTypeFactory::requiredFilmAspectFromParAndDims(double pixelAspectRatio, QSize const & size) {
    if (!hasArea(size))
        return 0.0;
    return static_cast<double>(size.width()) / size.height() * pixelAspectRatio;
}

FilmType VX_FilmTypeFactory::customTypeForParAndDims(double pixelAspectRatio, QSize const & size, bool interlaced) {
    if (!(pixelAspectRatio > 0.0) || !hasArea(size))
        return FilmType();
    double const width = size.width() * pixelAspectRatio;
    return FilmType(interlaced ? width / 2.0 : width, size.height());
}

FilmType VX_FilmTypeFactory::bestMatchForSize(QSize const & size, bool interlaced) {
    QSize const full = fullSize(size, interlaced);
    FilmType const * candidate = nullptr;
    for (FilmType const & film : getInstance().get<InSequence>()) {
        if (isScannedAt(film, full))
            return film;
        if (!candidate && isScannedAtHeight(film, full.height()))
            candidate = &film;
    }
    return candidate ? *candidate : FilmType();
}

FilmType VX_FilmTypeFactory::bestMatchForPAR(double pixelAspectRatio, QSize const & size, bool interlaced) {
    if (pixelAspectRatio <= 0.0 || !hasArea(size))
        return FilmType();
    QSize const full = fullSize(size, interlaced);
    auto const range = _bestFBMatchesFromParAndFullSize(pixelAspectRatio, full);
    QVector<FilmType> films;
    std::copy_if(range.first, range.second, std::back_inserter(films),
                 [&](FilmType const & film) { return hasPixelAspect(film, pixelAspectRatio, full); });
    films = _bestMatchesForFullSize(films, full);
    return films.isEmpty() ? customTypeForParAndDims(pixelAspectRatio, size, interlaced) : films.first();
}

std::pair<VX_FilmTypeFactory::AspectIterator, VX_FilmTypeFactory::AspectIterator>
VX_FilmTypeFactory::_bestFBMatchesFromParAndFullSize(double pixelAspectRatio, QSize const & size) {
    auto const & films = getInstance().get<ByAspect>();
    if (pixelAspectRatio <= 0.0)
        return {films.end(), films.end()};
    AspectRange const range = aspectRange(pixelAspectRatio, size);
    return {films.lower_bound(range.low), films.upper_bound(range.high)};
}

QVector<FilmType> VX_FilmTypeFactory::_bestMatchesForFullSize(QVector<FilmType> const & films, QSize const & size) {
    QVector<FilmType> ofSize;
    QVector<FilmType> ofHeight;
    if (size.height() < 1)
        return ofSize;
    for (FilmType const & film : films) {
        if (isScannedAt(film, size))
            ofSize.append(film);
        else if (isScannedAtHeight(film, size.height()))
            ofHeight.append(film);
    }
    return ofSize.isEmpty() ? ofHeight : ofSize;
}
