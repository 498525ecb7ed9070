#pragma once

#include <QString>

struct Gan_Image;

namespace Kyn {
class View;
}

namespace VX {

/// What a save needs beyond the image. This one has nothing of it; an application's own overrides what it has. Images
/// stay the context's, and are good as long as it.
class ImageSaveContext {
public:
    virtual ~ImageSaveContext();

    /// The second field of an interlaced frame, where the two are apart. Null for none.
    virtual Gan_Image * secondField() const;
    /// An image that the writer may use as it likes. Null for none.
    virtual Gan_Image * temporaryImage() const;
    /// What a file calls a view. Empty for no name.
    virtual QString nameForView(Kyn::View const & view) const;
};

} // namespace VX
