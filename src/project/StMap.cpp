#include "project/StMap.h"

#include "project/FileError.h"
#include "project/LayerWarp.h"
#include "project/TextFile.h"

#include <ImfChannelList.h>
#include <ImfFrameBuffer.h>
#include <ImfHeader.h>
#include <ImfIO.h>
#include <ImfInputFile.h>
#include <ImfOutputFile.h>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace vxproject {

namespace {

/// Writes into memory, so that a file on disk is replaced only by a whole one.
class BytesOut : public Imf::OStream {
public:
    BytesOut() : Imf::OStream("map") {}

    void write(char const * bytes, int count) override {
        std::size_t const end = at_ + static_cast<std::size_t>(count);
        if (static_cast<std::size_t>(bytes_.size()) < end)
            bytes_.resize(static_cast<qsizetype>(end));
        std::memcpy(bytes_.data() + at_, bytes, static_cast<std::size_t>(count));
        at_ = end;
    }
    std::uint64_t tellp() override { return at_; }
    void seekp(std::uint64_t position) override { at_ = position; }

    QByteArray const & bytes() const { return bytes_; }

private:
    QByteArray bytes_;
    std::size_t at_ = 0;
};

class BytesIn : public Imf::IStream {
public:
    explicit BytesIn(QByteArray const & bytes) : Imf::IStream("map"), bytes_(bytes) {}

    bool read(char * bytes, int count) override {
        std::size_t const end = at_ + static_cast<std::size_t>(count);
        if (end > static_cast<std::size_t>(bytes_.size()))
            throw std::runtime_error("the file ends too early");
        std::memcpy(bytes, bytes_.constData() + at_, static_cast<std::size_t>(count));
        at_ = end;
        return end < static_cast<std::size_t>(bytes_.size());
    }
    std::uint64_t tellg() override { return at_; }
    void seekg(std::uint64_t position) override { at_ = position; }

private:
    QByteArray const & bytes_;
    std::size_t at_ = 0;
};

/// A channel of 32-bit floats over the whole of an array, whose first element is the pixel at (left, top).
Imf::Slice sliceOf(std::vector<float> & channel, int width, int left = 0, int top = 0) {
    std::size_t const row = sizeof(float) * static_cast<std::size_t>(width);
    return Imf::Slice::Make(
        Imf::FLOAT, channel.data(),
        Imath::Box2i(Imath::V2i(left, top),
                     Imath::V2i(left + width - 1, top + static_cast<int>(channel.size()) / width - 1)),
        sizeof(float), row);
}

std::size_t pixelCount(FrameSize const & size) {
    return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

/// The place of a pixel's centre in s and t.
double ownS(int column, FrameSize const & size) {
    return (column + 0.5) / size.width;
}
double ownT(int row, FrameSize const & size) {
    return 1.0 - (row + 0.5) / size.height;
}

/// Calls with the column, the row and the place in the arrays.
template <class Visit>
void forEachPixel(FrameSize const & size, Visit const & visit) {
    std::size_t at = 0;
    for (int row = 0; row < size.height; ++row)
        for (int column = 0; column < size.width; ++column)
            visit(column, row, at++);
}

/// A map image with its pixels, which go together.
struct MapImage {
    std::vector<float> offsets;
    Gan_Image image;
};

} // namespace

StMap stMapOf(Gan_Camera const & camera, FrameSize const & size, MapDirection direction) {
    StMap map{size, std::vector<float>(pixelCount(size), StMap::NOWHERE),
              std::vector<float>(pixelCount(size), StMap::NOWHERE), 0};
    forEachPixel(size, [&](int column, int row, std::size_t at) {
        Gan_Vector2 const pixel{column + 0.5, row + 0.5};
        std::optional<Gan_Vector2> const source =
            direction == MapDirection::Direct ? distorted(camera, pixel) : undistorted(camera, pixel);
        if (!source) {
            ++map.nowhere;
            return;
        }
        map.s[at] = static_cast<float>(source->x / size.width);
        map.t[at] = static_cast<float>(1.0 - source->y / size.height);
    });
    return map;
}

QByteArray exrOf(StMap const & map) {
    StMap pixels = map; // The library takes pointers to what it only reads.
    std::vector<float> blue(pixelCount(map.size), 0.0f);
    Imf::Header header(map.size.width, map.size.height);
    Imf::FrameBuffer buffer;
    auto const add = [&](char const * name, std::vector<float> & channel) {
        header.channels().insert(name, Imf::Channel(Imf::FLOAT));
        buffer.insert(name, sliceOf(channel, map.size.width));
    };
    add("R", pixels.s);
    add("G", pixels.t);
    add("B", blue);
    BytesOut out;
    {
        Imf::OutputFile file(out, header);
        file.setFrameBuffer(buffer);
        file.writePixels(map.size.height);
    }
    return out.bytes();
}

StMap readStMap(QString const & path) {
    QByteArray const bytes = readFile(path);
    BytesIn in(bytes);
    try {
        Imf::InputFile file(in);
        Imath::Box2i const & window = file.header().dataWindow();
        qint64 const width = qint64(window.max.x) - window.min.x + 1;
        qint64 const height = qint64(window.max.y) - window.min.y + 1;
        if (width > StMap::MOST_PIXELS || height > StMap::MOST_PIXELS / width)
            throw std::runtime_error("it is larger than any frame");
        StMap map;
        map.size = {static_cast<int>(width), static_cast<int>(height)};
        if (!file.header().channels().findChannel("R") || !file.header().channels().findChannel("G"))
            throw std::runtime_error("it has no channels R and G");
        map.s.resize(pixelCount(map.size));
        map.t.resize(pixelCount(map.size));
        Imf::FrameBuffer buffer;
        buffer.insert("R", sliceOf(map.s, map.size.width, window.min.x, window.min.y));
        buffer.insert("G", sliceOf(map.t, map.size.width, window.min.x, window.min.y));
        file.setFrameBuffer(buffer);
        file.readPixels(window.min.y, window.max.y);
        for (std::size_t i = 0; i < map.s.size(); ++i)
            map.nowhere += map.s[i] == StMap::NOWHERE && map.t[i] == StMap::NOWHERE ? 1 : 0;
        return map;
    } catch (std::exception const & error) {
        throw FileError(path, 0, QStringLiteral("cannot be read as a lens map: ") + QString::fromUtf8(error.what()));
    }
}

boost::shared_ptr<Gan_Image> imageOf(StMap const & map) {
    auto const owner = boost::make_shared<MapImage>();
    owner->offsets.resize(2 * pixelCount(map.size));
    double const shape = static_cast<double>(map.size.height) / map.size.width;
    forEachPixel(map.size, [&](int column, int row, std::size_t at) {
        bool const shows = map.s[at] != StMap::NOWHERE || map.t[at] != StMap::NOWHERE;
        double const none = std::numeric_limits<double>::quiet_NaN();
        double const x = static_cast<double>(map.s[at]) - ownS(column, map.size);
        double const y = (ownT(row, map.size) - static_cast<double>(map.t[at])) * shape;
        owner->offsets[2 * at] = static_cast<float>(shows ? x : none);
        owner->offsets[2 * at + 1] = static_cast<float>(shows ? y : none);
    });
    owner->image = {GAN_IMAGE_FORMAT_VECTOR_2,
                    GAN_TYPE_FLOAT,
                    static_cast<unsigned int>(map.size.width),
                    static_cast<unsigned int>(map.size.height),
                    2 * sizeof(float) * static_cast<std::size_t>(map.size.width),
                    owner->offsets.data()};
    return boost::shared_ptr<Gan_Image>(owner, &owner->image);
}

} // namespace vxproject
