#include "geometry/RandomLenses.h"
#include "geometry/gandalf/Vector2.h"

#include <gtest/gtest.h>

namespace {

using namespace Lenses;

// A map of pixel offsets, as fractions of the width; the rows carry some bytes more than they need.
class Map {
public:
    template <class Offset>
    Map(unsigned int width, unsigned int height, Offset offset) : m_pixels((2 * width + 3) * height) {
        for (unsigned int j = 0; j < height; ++j) {
            for (unsigned int i = 0; i < width; ++i) {
                Gan_Vector2 const o = offset((i + 0.5) / width - 0.5, (j + 0.5) / width - 0.5 * height / width);
                float * const pixel = &m_pixels[(2 * width + 3) * j + 2 * i];
                pixel[0] = static_cast<float>(o.x);
                pixel[1] = static_cast<float>(o.y);
            }
        }
        image = {GAN_IMAGE_FORMAT_VECTOR_2,       GAN_TYPE_FLOAT, width, height,
                 (2 * width + 3) * sizeof(float), m_pixels.data()};
    }

    Gan_Image image;

private:
    std::vector<float> m_pixels;
};

Map constantMap(double x, double y) {
    return Map(8, 4, [=](double, double) { return Gan_Vector2{x, y}; });
}

Gan_Camera cameraWith(Gan_Image const * direct, Gan_Image const * inverse) {
    Gan_Camera camera{};
    camera.type = GAN_CAMERA_DISTORTION_MAP;
    camera.zh = 0.5 * WIDTH;
    camera.fx = 1500.0;
    camera.fy = 1400.0;
    camera.x0 = 0.5 * WIDTH;
    camera.y0 = 0.5 * HEIGHT;
    camera.directMap = direct;
    camera.inverseMap = inverse;
    gan_camera_internalize(&camera);
    return camera;
}

Gan_Vector3 rayAt(Gan_Camera const & camera, double x, double y) {
    return {(x - camera.x0) / camera.fx, (y - camera.y0) / camera.fy, 1.0};
}

TEST(DistortionMap, offsets_are_fractions_of_the_frames_width_and_each_direction_reads_its_own) {
    Map const direct = constantMap(0.125, -0.0625);
    Map const inverse = constantMap(0.0, 0.25);
    Gan_Camera const camera = cameraWith(&direct.image, &inverse.image);
    auto const p = project(camera, rayAt(camera, 500.0, 400.0));
    EXPECT_NEAR(p->point.x, 500.0 + 0.125 * WIDTH, 1e-10);
    EXPECT_NEAR(p->point.y, 400.0 - 0.0625 * WIDTH, 1e-10);
    auto const ray = backproject(camera, {500.0, 400.0, camera.zh});
    Gan_Vector3 const expected = rayAt(camera, 500.0, 400.0 + 0.25 * WIDTH);
    EXPECT_NEAR(ray->point.x, expected.x, 1e-13);
    EXPECT_NEAR(ray->point.y, expected.y, 1e-13);
}

TEST(DistortionMap, one_map_serves_the_other_direction_inverted) {
    Map const map = constantMap(0.125, 0.0);
    Gan_Camera const direct = cameraWith(&map.image, nullptr);
    Gan_Camera const inverse = cameraWith(nullptr, &map.image);
    EXPECT_NEAR(backproject(direct, {500.0, 400.0, direct.zh})->point.x, rayAt(direct, 500.0 - 240.0, 400.0).x, 1e-13);
    EXPECT_NEAR(project(inverse, rayAt(inverse, 500.0, 400.0))->point.x, 500.0 - 240.0, 1e-10);
}

TEST(DistortionMap, look_up_is_bilinear_between_centres_and_constant_beyond_the_outermost) {
    // 8 by 4 pixels of 240: the centre of the first is at 120. The offset is linear across.
    Map const map(8, 4, [](double u, double v) { return Gan_Vector2{0.1 * u, 0.2 * v}; });
    Gan_Camera const camera = cameraWith(&map.image, nullptr);
    auto const shiftAt = [&](double x, double y) {
        auto const p = project(camera, rayAt(camera, x, y));
        return Gan_Vector2{(p->point.x - x) / WIDTH, (p->point.y - y) / WIDTH};
    };
    double const v = 300.0 / WIDTH - 0.5 * HEIGHT / WIDTH;
    EXPECT_NEAR(shiftAt(700.0, 300.0).x, 0.1 * (700.0 / WIDTH - 0.5), 1e-8);
    EXPECT_NEAR(shiftAt(700.0, 300.0).y, 0.2 * v, 1e-8);
    EXPECT_NEAR(shiftAt(-5000.0, 300.0).x, 0.1 * (120.0 / WIDTH - 0.5), 1e-8);
    EXPECT_NEAR(shiftAt(-5000.0, 300.0).y, 0.2 * v, 1e-8);
    EXPECT_NEAR(shiftAt(5000.0, 9000.0).x, 0.1 * (0.5 - 120.0 / WIDTH), 1e-8);
}

void expectInverted(Gan_Camera const & camera, std::uint64_t seed, int count) {
    Random random(seed);
    for (int n = 0; n < count; ++n) {
        Gan_Vector3 const p = random.imagePoint();
        Gan_Vector3 const ray = rayAt(camera, p.x, p.y);
        auto const image = project(camera, ray);
        ASSERT_TRUE(image);
        auto const back = backproject(camera, image->point);
        ASSERT_TRUE(back) << p.x << " " << p.y;
        ASSERT_NEAR(camera.fx * (back->point.x - ray.x), 0.0, 1e-9);
        ASSERT_NEAR(camera.fy * (back->point.y - ray.y), 0.0, 1e-9);
    }
}

TEST(DistortionMap, map_that_differs_from_cell_to_cell_is_inverted_too) {
    Random noise(6);
    // Neighbouring pixels differ by up to 0.4 of a pixel of the map in each channel: a rough picture, but a whole one.
    Map const map(64, 36, [&](double, double) {
        return Gan_Vector2{noise.between(-0.2, 0.2) / 64.0, noise.between(-0.2, 0.2) / 64.0};
    });
    expectInverted(cameraWith(&map.image, nullptr), 7, 5000);
}

TEST(DistortionMap, map_of_one_pixel_shifts_the_whole_plane) {
    Map const map(1, 1, [](double, double) { return Gan_Vector2{0.5, 0.0}; });
    expectInverted(cameraWith(&map.image, nullptr), 8, 100);
}

TEST(DistortionMap, cell_that_folds_the_picture_is_refused) {
    Map const map(8, 4, [](double u, double) { return Gan_Vector2{-2.0 * u, 0.0}; });
    Gan_Camera const camera = cameraWith(&map.image, nullptr);
    EXPECT_FALSE(project(camera, rayAt(camera, 900.0, 500.0)));
}

TEST(DistortionMap, map_full_of_folds_gives_a_point_that_goes_there_or_none) {
    Random random(9);
    Map const map(64, 36, [&](double, double) {
        return Gan_Vector2{random.between(-1.5, 1.5) / 64.0, random.between(-1.5, 1.5) / 64.0};
    });
    Gan_Camera const camera = cameraWith(&map.image, nullptr);
    int found = 0;
    for (int n = 0; n < 2000; ++n) {
        Gan_Vector3 const p = random.imagePoint();
        auto const ray = backproject(camera, p);
        if (!ray)
            continue;
        ++found;
        auto const back = project(camera, ray->point);
        ASSERT_TRUE(back);
        EXPECT_NEAR(back->point.x, p.x, 1e-9);
        EXPECT_NEAR(back->point.y, p.y, 1e-9);
    }
    EXPECT_GT(found, 1900);
}

TEST(DistortionMap, image_that_is_no_map_is_taken_for_none) {
    Map const good = constantMap(0.125, 0.0);
    std::vector<Gan_Image> bad(7, good.image);
    bad[0].pixels = nullptr;
    bad[1].type = GAN_TYPE_UNSIGNED_CHAR;
    bad[2].format = GAN_IMAGE_FORMAT_NONE;
    bad[3].width = 0;
    bad[4].height = 0;
    bad[5].stride = 8 * 2 * sizeof(float) - 1;
    bad[6].width = 0x80000000u;
    for (Gan_Image const & image : bad) {
        Gan_Camera camera = cameraWith(&image, nullptr);
        EXPECT_EQ(gan_camera_internalize(&camera), 0);
        EXPECT_NEAR(project(camera, rayAt(camera, 500.0, 400.0))->point.x, 500.0, 1e-10);
        // The good one of two serves both directions.
        camera = cameraWith(&image, &good.image);
        EXPECT_EQ(gan_camera_internalize(&camera), 1);
        EXPECT_NEAR(project(camera, rayAt(camera, 500.0, 400.0))->point.x, 500.0 - 240.0, 1e-10);
    }
}

} // namespace
