#include "clip/FilmTypeFactory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

using VX::FilmType;
typedef VX_FilmTypeFactory Factory;

constexpr bool FRAME = false;
constexpr bool FIELD = true;

std::vector<FilmType> allFilms() {
    auto const & table = Factory::getInstance().get<Factory::InSequence>();
    return std::vector<FilmType>(table.begin(), table.end());
}

std::string nameForPar(double par, int width, int height, bool interlaced = FRAME) {
    return Factory::bestMatchForPAR(par, QSize(width, height), interlaced).name.toStdString();
}

bool isEqual(FilmType const & a, FilmType const & b) {
    return a.name == b.name && a.filmBackWidth == b.filmBackWidth && a.filmBackHeight == b.filmBackHeight &&
           a.widths == b.widths && a.heights == b.heights && a.anamorphic == b.anamorphic;
}

// The film type

TEST(FilmType, is_valid_with_a_film_back_of_two_sides_and_custom_without_a_name) {
    EXPECT_FALSE(FilmType().isValid());
    EXPECT_FALSE(FilmType().isCustom());
    EXPECT_FALSE(FilmType(1.0, 0.0).isValid());
    EXPECT_FALSE(FilmType(0.0, 1.0).isValid());
    EXPECT_TRUE(FilmType(-1.0, 1.0).isValid());
    EXPECT_TRUE(FilmType(3.0, 2.0).isCustom());
    EXPECT_EQ(FilmType(3.0, 2.0).getFilmBackAspectRatio(), 1.5);
    EXPECT_EQ(FilmType(3.0, 2.0).uiSize(0), QSize(0, 0));
    EXPECT_EQ(FilmType().defPixelAspectRatio(), 0.0);
}

TEST(FilmType, sizes_pair_widths_with_heights) {
    FilmType const film("Film", 16.0, 9.0, 1, 2, 3, 4, 5, 6, true);
    EXPECT_EQ(film.uiSize(0), QSize(1, 4));
    EXPECT_EQ(film.uiSize(1), QSize(2, 5));
    EXPECT_EQ(film.uiSize(2), QSize(3, 6));
    EXPECT_EQ(film.uiSize(3), QSize(0, 0));
    EXPECT_EQ(film.uiSize(std::numeric_limits<uint64_t>::max()), QSize(0, 0));
}

TEST(FilmType, pixel_aspect_stretches_the_frame_to_the_film_back) {
    FilmType const film("Film", 4.0, 3.0, 720, 0, 0, 576, 0, 0, false);
    EXPECT_DOUBLE_EQ(film.pixelAspectRatio(QSize(720, 576)), 768.0 / 720.0);
    EXPECT_DOUBLE_EQ(film.pixelAspectRatio(QSize(720, 288), FIELD), 768.0 / 720.0);
    EXPECT_DOUBLE_EQ(film.pixelAspectRatio(QSize(720, 288), FRAME), 384.0 / 720.0);
    EXPECT_DOUBLE_EQ(film.defPixelAspectRatio(), 768.0 / 720.0);
    EXPECT_EQ(film.pixelAspectRatio(QSize(720, 0)), 0.0);
    EXPECT_TRUE(std::isinf(film.pixelAspectRatio(QSize(0, 576))));
    EXPECT_TRUE(std::isnan(film.pixelAspectRatio(QSize(0, 0))));
}

// The table

TEST(FilmTable, names_find_their_rows_and_case_counts) {
    for (FilmType const & film : allFilms())
        EXPECT_TRUE(isEqual(Factory::byName(film.name), film)) << film.name.toStdString();
    EXPECT_FALSE(Factory::byName("hd").isValid());
    EXPECT_FALSE(Factory::byName("HD ").isValid());
    EXPECT_FALSE(Factory::byName(QString()).isValid());
}

TEST(FilmTable, custom_is_a_row_of_its_own_and_the_last) {
    QStringList const names = Factory::getAllNames();
    ASSERT_EQ(names.size(), 30);
    EXPECT_EQ(names.last(), Factory::names().custom);
    FilmType const custom = Factory::byName("Custom");
    EXPECT_EQ(custom.filmBackWidth, 10.0);
    EXPECT_TRUE(custom.isCustom());
}

TEST(FilmTable, index_by_aspect_is_a_stable_sort) {
    std::vector<FilmType> sorted = allFilms();
    std::stable_sort(sorted.begin(), sorted.end(), [](FilmType const & a, FilmType const & b) {
        return a.filmBackWidth / a.filmBackHeight < b.filmBackWidth / b.filmBackHeight;
    });
    auto const & index = Factory::getInstance().get<Factory::ByAspect>();
    EXPECT_TRUE(std::equal(index.begin(), index.end(), sorted.begin(), sorted.end(), isEqual));
}

// Projects hold these very names and numbers: a changed one would no longer be found.
TEST(FilmTable, numbers_have_their_fingerprint) {
    double sum = 0.0;
    double row = 0.0;
    for (FilmType const & film : allFilms()) {
        auto const & [w1, w2, w3] = film.widths;
        auto const & [h1, h2, h3] = film.heights;
        sum += ++row * (film.filmBackWidth + 2 * film.filmBackHeight + 3 * w1 + 5 * w2 + 7 * w3 + 11 * h1 + 13 * h2 +
                        17 * h3 + (film.anamorphic ? 19 : 0));
    }
    EXPECT_NEAR(sum, 25263371.349166665, 1e-7);
}

TEST(FilmTable, names_have_their_fingerprint) {
    long long sum = 0;
    long long place = 0;
    for (QChar const c : Factory::getAllNames().join('|'))
        sum += ++place * c.unicode();
    EXPECT_EQ(sum, 6654693);
}

// By size

struct Match {
    char const * name;
    int width, height;
    bool interlaced;
    char const * film; ///< Empty where none fits.
};

class BestMatchForSize : public testing::TestWithParam<Match> {};

TEST_P(BestMatchForSize, is_found) {
    Match const & m = GetParam();
    EXPECT_EQ(Factory::bestMatchForSize(QSize(m.width, m.height), m.interlaced).name.toStdString(), m.film);
}

INSTANTIATE_TEST_SUITE_P(Sizes, BestMatchForSize,
                         testing::Values(Match{"later_match_of_both", 1280, 720, FRAME, "HD"},
                                         Match{"width_at_another_position", 1920, 720, FRAME, "DVCPRO HD 720"},
                                         Match{"width_below_zero", -5, 576, FRAME, "PAL"},
                                         Match{"zeros_of_the_table", 720, 0, FRAME, "PAL"},
                                         Match{"nothing", 0, 0, FRAME, "PAL"},
                                         Match{"zeros_of_a_later_row", 512, 0, FRAME, "Super 16mm"},
                                         Match{"height_below_zero", 1920, -1080, FRAME, ""},
                                         Match{"largest_field", 1920, 0x7FFFFFFF, FIELD, ""},
                                         Match{"least_field", 1920, -0x7FFFFFFF, FIELD, ""}),
                         [](auto const & row) { return row.param.name; });

// By pixel aspect

TEST(RequiredFilmAspect, is_that_of_the_frame_in_square_pixels) {
    EXPECT_DOUBLE_EQ(Factory::requiredFilmAspectFromParAndDims(2.0, QSize(1828, 1556)), 3656.0 / 1556.0);
    EXPECT_EQ(Factory::requiredFilmAspectFromParAndDims(2.0, QSize(0, 1556)), 0.0);
    EXPECT_EQ(Factory::requiredFilmAspectFromParAndDims(2.0, QSize(1828, 0)), 0.0);
}

TEST(CustomFilm, film_back_is_in_pixels_and_a_field_halves_its_width) {
    FilmType const frame = Factory::customTypeForParAndDims(1.5, QSize(100, 40), FRAME);
    EXPECT_TRUE(frame.isCustom());
    EXPECT_EQ(frame.filmBackWidth, 150.0);
    EXPECT_EQ(frame.filmBackHeight, 40.0);
    FilmType const field = Factory::customTypeForParAndDims(1.5, QSize(100, 40), FIELD);
    EXPECT_EQ(field.filmBackWidth, 75.0);
    EXPECT_EQ(field.filmBackHeight, 40.0);
    EXPECT_DOUBLE_EQ(field.pixelAspectRatio(QSize(100, 40), FIELD), 1.5);
}

TEST(CustomFilm, unusable_input_gives_none) {
    for (auto const & [par, size] :
         {std::pair{0.0, QSize(100, 40)}, std::pair{-1.0, QSize(100, 40)}, std::pair{1.0, QSize(0, 40)},
          std::pair{1.0, QSize(100, 0)}, std::pair{std::numeric_limits<double>::quiet_NaN(), QSize(100, 40)}}) {
        EXPECT_FALSE(Factory::customTypeForParAndDims(par, size, FRAME).isValid());
        EXPECT_FALSE(Factory::bestMatchForPAR(par, size, FRAME).isValid());
    }
}

/// 2 for a film that is scanned at the very size, 1 at the height, 0 at neither.
int rankOf(FilmType const & film, QSize const & frame) {
    for (uint64_t i = 0; i < 3; ++i)
        if (film.uiSize(i) == frame)
            return 2;
    return std::count(film.heights.begin(), film.heights.end(), frame.height()) > 0 ? 1 : 0;
}

struct Scan {
    int best = -1;           ///< The index of the best row.
    bool isAtALimit = false; ///< Some row lies so near a limit of the range that the last digit decides.
};

/// The same answer from a walk over the whole table, in extended precision where the law leaves it open.
Scan plainScan(double par, QSize const & frame) {
    std::vector<FilmType> const films = allFilms();
    long double const frameAspect = static_cast<long double>(frame.width()) / frame.height();
    long double const asked = std::floor(par * 1000 + 0.5) / 1000.0L;
    std::pair<int, double> bestKey;
    Scan scan;
    for (std::size_t i = 0; i < films.size(); ++i) {
        double const aspect = films[i].filmBackWidth / films[i].filmBackHeight;
        long double const excess = std::fabs(aspect / frameAspect - asked) - frameAspect / 1000;
        scan.isAtALimit = scan.isAtALimit || std::fabs(excess) < 1e-12L;
        float const single = static_cast<float>(aspect * frame.height() / frame.width());
        std::pair<int, double> const key(-rankOf(films[i], frame), aspect);
        if (excess > 0 || !(std::fabs(single - static_cast<float>(par)) < 0.001f) || key.first == 0)
            continue;
        if (scan.best < 0 || key < bestKey) {
            scan.best = static_cast<int>(i);
            bestKey = key;
        }
    }
    return scan;
}

TEST(BestMatchForPAR, agrees_with_a_plain_scan_of_the_table) {
    std::vector<FilmType> const films = allFilms();
    std::map<int, int> answersByRank;
    std::vector<QSize> sizes;
    for (FilmType const & film : films)
        for (uint64_t i = 0; i < 3; ++i)
            for (int const width : {film.uiSize(i).width(), 100, 700, 5000})
                sizes.push_back(QSize(width, film.uiSize(i).height()));
    for (QSize const & size : sizes) {
        if (size.isEmpty())
            continue;
        for (FilmType const & film : films) {
            for (double const step : {-0.0011, -0.00095, -0.0005, 0.0, 0.0002, 0.0007, 0.00099, 0.001, 0.002}) {
                double const par = film.pixelAspectRatio(size) + step;
                Scan const scan = plainScan(par, size);
                if (scan.isAtALimit || par <= 0)
                    continue;
                FilmType const match = Factory::bestMatchForPAR(par, size, FRAME);
                FilmType const wanted = scan.best < 0 ? Factory::customTypeForParAndDims(par, size, FRAME)
                                                      : films[static_cast<std::size_t>(scan.best)];
                ASSERT_TRUE(isEqual(match, wanted)) << par << " at " << size.width() << 'x' << size.height() << ": "
                                                    << match.name.toStdString() << " for " << wanted.name.toStdString();
                ++answersByRank[scan.best < 0 ? 0 : rankOf(wanted, size)];
            }
        }
    }
    for (int rank = 0; rank <= 2; ++rank)
        EXPECT_GT(answersByRank[rank], 100) << rank;
}

TEST(BestMatchForPAR, of_equal_aspects_the_first_of_the_table_at_that_size_wins) {
    EXPECT_EQ(nameForPar(1.0, 1920, 1080), "HD");
    EXPECT_EQ(nameForPar(1.0, 1921, 1080), "DVCPRO HD 1080");
    EXPECT_EQ(nameForPar(4.0 / 3, 1440, 1080), "HDV");
    EXPECT_EQ(nameForPar(std::numeric_limits<double>::infinity(), 1920, 1080), "Custom");
}

TEST(BestMatchForPAR, field_is_half_a_frame_with_the_pixels_of_the_whole) {
    double const par = Factory::byName("PAL").pixelAspectRatio(QSize(720, 576));
    EXPECT_EQ(nameForPar(par, 720, 288, FIELD), "PAL");
    EXPECT_EQ(nameForPar(par, 720, 288, FRAME), "Custom");
    EXPECT_EQ(Factory::bestMatchForPAR(3.0, QSize(720, 288), FIELD).filmBackWidth, 1080.0);
}

// In double precision 1.001 - 1 is below 0.001, in single precision it is above.
TEST(BestMatchForPAR, tolerance_is_judged_in_single_precision) {
    EXPECT_EQ(Factory::byName("HD").pixelAspectRatio(QSize(1920, 1080)), 1.0);
    EXPECT_LT(1.001 - 1.0, 0.001);
    EXPECT_EQ(nameForPar(1.001, 1920, 1080), "Custom");
    EXPECT_EQ(nameForPar(1.00099, 1920, 1080), "HD");
}

// The range of film backs shrinks with the frame's aspect: what would be near enough in the last step is not looked at.
TEST(BestMatchForPAR, tall_frames_have_a_narrower_tolerance) {
    double const par = Factory::byName("HD").pixelAspectRatio(QSize(100, 1080));
    EXPECT_NEAR(par, 19.2, 1e-12);
    EXPECT_EQ(nameForPar(19.2, 100, 1080), "DVCPRO HD 1080");
    EXPECT_EQ(nameForPar(19.2004, 100, 1080), "DVCPRO HD 1080");
    EXPECT_EQ(nameForPar(19.2006, 100, 1080), "Custom");
}

} // namespace
