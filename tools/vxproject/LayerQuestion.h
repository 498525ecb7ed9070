#pragma once

#include "vxproject/AskedItem.h"

namespace Tool {

/// What every command about a layer's track asks for.
struct LayerQuestion {
    std::string file;
    long long layer = 0;
    int view = 0;
    std::string size; ///< Of the frame whose pixels count; may be empty.

    /// `sizeMeaning` is what the frame size does there, as addSize takes it.
    void addTo(CLI::App & command, std::string const & sizeMeaning);
};

/// The layer that was asked for, in its project.
class AskedLayer : public AskedItem {
public:
    /// Says what is wrong with the file, and that the layer is not there.
    explicit AskedLayer(LayerQuestion const & question);

    bool isThere() const { return layer_; }
    vxproject::Layer const & layer() const { return *layer_; }
    /// The size that was asked for.
    std::optional<vxproject::FrameSize> const & size() const { return size_; }
    /// The size of the layer's clip, if it has one.
    std::optional<vxproject::FrameSize> clipSize() const { return project().frameSizeOf(*layer_); }

    void complainOfFrame(double frame, QString const & why);

private:
    AskedLayer(LayerQuestion const & question, std::optional<vxproject::FrameSize> const & size);

    std::optional<vxproject::FrameSize> size_;
    vxproject::Layer const * layer_;
};

} // namespace Tool
