#pragma once

#include "geometry/gandalf/Camera.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

/// Lenses for a frame of 1920 by 1080, and what a lens does with a point.
namespace Lenses {

constexpr double WIDTH = 1920.0;
constexpr double HEIGHT = 1080.0;

/// A camera with the weights and the map that it points to.
struct Lens {
    Gan_Camera camera{};
    std::unique_ptr<Gan_CubicBSplineWeights> weights;
    std::vector<float> offsets;
    std::unique_ptr<Gan_Image> map;
};

struct Kind {
    char const * name;
    Gan_CameraType type;
    int terms;
    double largestTerm;
};

constexpr std::array<Kind, 10> KINDS{{{"linear", GAN_CAMERA_LINEAR, 0, 0.0},
                                      {"radial_1", GAN_CAMERA_RADIAL_1, 1, 0.5},
                                      {"radial_2", GAN_CAMERA_RADIAL_2, 2, 0.4},
                                      {"radial_3", GAN_CAMERA_RADIAL_3, 3, 0.3},
                                      {"radial_1_inverse", GAN_CAMERA_RADIAL_1_INVERSE, 1, 0.5},
                                      {"radial_2_inverse", GAN_CAMERA_RADIAL_2_INVERSE, 2, 0.4},
                                      {"anamorphic", GAN_CAMERA_ANAMORPHIC, 4, 0.4},
                                      {"bspline", GAN_CAMERA_BSPLINE, 0, 0.0},
                                      {"bspline_inverse", GAN_CAMERA_BSPLINE_INVERSE, 0, 0.0},
                                      {"map", GAN_CAMERA_DISTORTION_MAP, 0, 0.0}}};

inline std::string nameOf(Kind const & kind) {
    return kind.name;
}

class Random {
public:
    explicit Random(std::uint64_t seed) : m_generator(seed) {}

    double between(double low, double high) { return low + (high - low) * m_unit(m_generator); }

    Lens lens(Kind const & kind) {
        Lens result;
        Gan_Camera & camera = result.camera;
        camera.type = kind.type;
        camera.zh = 0.5 * WIDTH;
        camera.fx = WIDTH * between(0.6, 2.0);
        camera.fy = camera.fx * between(0.5, 1.2);
        camera.x0 = WIDTH * between(0.4, 0.6);
        camera.y0 = HEIGHT * between(0.4, 0.6);
        for (int i = 0; i < kind.terms; ++i)
            camera.distortion[i] = between(-kind.largestTerm, kind.largestTerm);
        if (kind.type == GAN_CAMERA_BSPLINE || kind.type == GAN_CAMERA_BSPLINE_INVERSE)
            addWeights(result);
        if (kind.type == GAN_CAMERA_DISTORTION_MAP)
            addMap(result);
        gan_camera_internalize(&camera);
        return result;
    }

    /// On the frame or up to a fifth of it outside.
    Gan_Vector3 imagePoint() { return {WIDTH * between(-0.2, 1.2), HEIGHT * between(-0.2, 1.2), 0.5 * WIDTH}; }

private:
    void addWeights(Lens & lens) {
        lens.weights = std::make_unique<Gan_CubicBSplineWeights>();
        for (double & weight : lens.weights->element)
            weight = between(-0.06, 0.06) * lens.camera.zh / lens.camera.fx;
        lens.camera.weight = lens.weights.get();
    }

    // A smooth wave in one of the two directions' maps, each cell of which differs.
    void addMap(Lens & lens) {
        unsigned int const width = 96;
        unsigned int const height = 54;
        double const phase = between(0.0, 6.0);
        double const size = between(0.005, 0.03);
        for (unsigned int j = 0; j < height; ++j) {
            for (unsigned int i = 0; i < width; ++i) {
                lens.offsets.push_back(static_cast<float>(size * std::sin(phase + 0.1 * i + 0.05 * j)));
                lens.offsets.push_back(static_cast<float>(size * std::cos(phase - 0.04 * i + 0.1 * j)));
            }
        }
        lens.map = std::make_unique<Gan_Image>(Gan_Image{GAN_IMAGE_FORMAT_VECTOR_2, GAN_TYPE_FLOAT, width, height,
                                                         2 * width * sizeof(float), lens.offsets.data()});
        (phase < 3.0 ? lens.camera.directMap : lens.camera.inverseMap) = lens.map.get();
    }

    std::mt19937_64 m_generator;
    std::uniform_real_distribution<double> m_unit{0.0, 1.0};
};

/// Where a point goes, and how.
struct Carried {
    Gan_Vector3 point;
    Gan_Matrix22 derivative;

    double jacobian() const { return derivative.xx * derivative.yy - derivative.xy * derivative.yx; }
};

inline std::optional<Carried> carry(Gan_CameraPointFunction * function, Gan_Camera const & camera,
                                    Gan_Vector3 const & from) {
    Carried result{};
    if (!function(&camera, &from, &result.point, &result.derivative, nullptr))
        return std::nullopt;
    return result;
}

inline std::optional<Carried> project(Gan_Camera const & camera, Gan_Vector3 const & scene) {
    return carry(camera.project, camera, scene);
}

inline std::optional<Carried> backproject(Gan_Camera const & camera, Gan_Vector3 const & image) {
    return carry(camera.backproject, camera, image);
}

} // namespace Lenses
