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

std::string nameForSize(int width, int height, bool interlaced = FRAME) {
    return Factory::bestMatchForSize(QSize(width, height), interlaced).name.toStdString();
}

std::string nameForPar(double par, int width, int height, bool interlaced = FRAME) {
    return Factory::bestMatchForPAR(par, QSize(width, height), interlaced).name.toStdString();
}

bool isEqual(FilmType const & a, FilmType const & b) {
    return a.name == b.name && a.filmBackWidth == b.filmBackWidth && a.filmBackHeight == b.filmBackHeight &&
           a.widths == b.widths && a.heights == b.heights && a.anamorphic == b.anamorphic;
}

// The film type

TEST(FilmType, default_one_is_empty_and_not_valid) {
    FilmType const film;
    EXPECT_TRUE(film.name.isEmpty());
    EXPECT_FALSE(film.isValid());
    EXPECT_FALSE(film.isCustom());
    EXPECT_FALSE(film.anamorphic);
    EXPECT_EQ(film.uiSize(0), QSize(0, 0));
    EXPECT_EQ(film.defPixelAspectRatio(), 0.0);
}

TEST(FilmType, film_back_with_one_side_is_not_valid) {
    EXPECT_FALSE(FilmType(1.0, 0.0).isValid());
    EXPECT_FALSE(FilmType(0.0, 1.0).isValid());
    EXPECT_TRUE(FilmType(-1.0, 1.0).isValid());
}

TEST(FilmType, sizes_pair_widths_with_heights) {
    FilmType const film("Film", 16.0, 9.0, 1, 2, 3, 4, 5, 6, true);
    EXPECT_TRUE(film.anamorphic);
    EXPECT_EQ(film.uiSize(0), QSize(1, 4));
    EXPECT_EQ(film.uiSize(1), QSize(2, 5));
    EXPECT_EQ(film.uiSize(2), QSize(3, 6));
    EXPECT_EQ(film.uiSize(3), QSize(0, 0));
    EXPECT_EQ(film.uiSize(std::numeric_limits<uint64_t>::max()), QSize(0, 0));
}

TEST(FilmType, built_one_is_custom_and_has_no_sizes) {
    FilmType const film(3.0, 2.0);
    EXPECT_TRUE(film.isCustom());
    EXPECT_EQ(film.getFilmBackAspectRatio(), 1.5);
    EXPECT_EQ(film.uiSize(0), QSize(0, 0));
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

TEST(BestMatchForSize, first_of_several_film_backs_wins) {
    EXPECT_EQ(nameForSize(2048, 1556), "35mm Full Aperture");
    EXPECT_EQ(nameForSize(720, 486), "NTSC");
    EXPECT_EQ(nameForSize(720, 480), "NTSC");
}

TEST(BestMatchForSize, height_alone_serves_where_no_width_fits) {
    EXPECT_EQ(nameForSize(999, 1556), "35mm Full Aperture");
    EXPECT_EQ(nameForSize(-5, 576), "PAL");
}

TEST(BestMatchForSize, later_match_of_both_sides_wins_over_an_earlier_height) {
    EXPECT_EQ(nameForSize(1828, 1556), "Cinemascope/Panavision");
    EXPECT_EQ(nameForSize(1280, 720), "HD");
    EXPECT_EQ(nameForSize(640, 480), "HD");
}

TEST(BestMatchForSize, width_must_stand_at_the_same_position_as_the_height) {
    EXPECT_EQ(nameForSize(1920, 720), "DVCPRO HD 720");
}

TEST(BestMatchForSize, field_is_half_a_frame) {
    EXPECT_EQ(nameForSize(720, 288, FIELD), "PAL");
    EXPECT_EQ(nameForSize(720, 576, FIELD), "");
    EXPECT_EQ(nameForSize(720, 288, FRAME), "");
}

TEST(BestMatchForSize, height_of_zero_finds_the_zeros_of_the_table) {
    EXPECT_EQ(nameForSize(720, 0), "PAL");
    EXPECT_EQ(nameForSize(0, 0), "PAL");
    EXPECT_EQ(nameForSize(512, 0), "Super 16mm");
}

TEST(BestMatchForSize, unknown_and_huge_heights_find_nothing) {
    EXPECT_FALSE(Factory::bestMatchForSize(QSize(1920, 1081), FRAME).isValid());
    EXPECT_FALSE(Factory::bestMatchForSize(QSize(1920, -1080), FRAME).isValid());
    EXPECT_FALSE(Factory::bestMatchForSize(QSize(1920, 0x7FFFFFFF), FIELD).isValid());
    EXPECT_FALSE(Factory::bestMatchForSize(QSize(1920, -0x7FFFFFFF), FIELD).isValid());
}

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

/// The same answer from a walk over the whole table, in extended precision where the law leaves it open.
class PlainScan {
public:
    PlainScan(double par, QSize const & frame) : par_(par), frame_(frame) {}

    /// The index of the best row, or -1; ties at a limit of the range are reported as such.
    int best() {
        std::vector<FilmType> const films = allFilms();
        int found = -1;
        for (int i = 0; i < static_cast<int>(films.size()); ++i)
            if (fits(films[static_cast<std::size_t>(i)]) &&
                (found < 0 || isBetter(films[static_cast<std::size_t>(i)], films[static_cast<std::size_t>(found)])))
                found = i;
        return found;
    }

    bool isAtALimit() const { return atALimit_; }
    int rank(FilmType const & film) const {
        for (uint64_t i = 0; i < 3; ++i)
            if (film.uiSize(i) == frame_)
                return 2;
        return std::count(film.heights.begin(), film.heights.end(), frame_.height()) > 0 ? 1 : 0;
    }

private:
    bool fits(FilmType const & film) {
        long double const frameAspect = static_cast<long double>(frame_.width()) / frame_.height();
        long double const asked = std::floor(par_ * 1000 + 0.5) / 1000.0L;
        long double const pixel = film.filmBackWidth / static_cast<long double>(film.filmBackHeight) / frameAspect;
        long double const excess = std::fabs(pixel - asked) - frameAspect / 1000;
        if (std::fabs(excess) < 1e-12L)
            atALimit_ = true;
        float const single =
            static_cast<float>(film.filmBackWidth / film.filmBackHeight * frame_.height() / frame_.width());
        return excess <= 0 && std::fabs(single - static_cast<float>(par_)) < 0.001f && rank(film) > 0;
    }

    bool isBetter(FilmType const & film, FilmType const & than) const {
        if (rank(film) != rank(than))
            return rank(film) > rank(than);
        return film.filmBackWidth / film.filmBackHeight < than.filmBackWidth / than.filmBackHeight;
    }

    double par_;
    QSize frame_;
    bool atALimit_ = false;
};

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
                PlainScan scan(par, size);
                int const expected = scan.best();
                if (scan.isAtALimit() || par <= 0)
                    continue;
                FilmType const match = Factory::bestMatchForPAR(par, size, FRAME);
                FilmType const wanted = expected < 0 ? Factory::customTypeForParAndDims(par, size, FRAME)
                                                     : films[static_cast<std::size_t>(expected)];
                ASSERT_TRUE(isEqual(match, wanted)) << par << " at " << size.width() << 'x' << size.height() << ": "
                                                    << match.name.toStdString() << " for " << wanted.name.toStdString();
                ++answersByRank[expected < 0 ? 0 : scan.rank(wanted)];
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
}

TEST(BestMatchForPAR, field_is_half_a_frame_with_the_pixels_of_the_whole) {
    double const par = Factory::byName("PAL").pixelAspectRatio(QSize(720, 576));
    EXPECT_EQ(nameForPar(par, 720, 288, FIELD), "PAL");
    EXPECT_EQ(nameForPar(par, 720, 288, FRAME), "Custom");
    FilmType const custom = Factory::bestMatchForPAR(3.0, QSize(720, 288), FIELD);
    EXPECT_EQ(custom.filmBackWidth, 1080.0);
    EXPECT_EQ(custom.filmBackHeight, 288.0);
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

TEST(BestMatchForPAR, infinite_aspect_finds_nothing_and_stops) {
    EXPECT_EQ(nameForPar(std::numeric_limits<double>::infinity(), 1920, 1080), "Custom");
}

} // namespace
