#include "project/Layer.h"

#include "clip/BaseClipInfo.h"
#include "clip/BaseClipInfoContainer.h"

#include <algorithm>

namespace vxproject {

namespace {

constexpr quint32 LARGEST_REGION = 65535;

/// The number of the first frame of the clip that a parameter names, asked anew each time.
boost::function<int()> firstFrameOf(VX_BaseClipInfoContainer const & clips, Kyn::Parameter<unsigned int> const & clip) {
    return [&clips, &clip] {
        unsigned int const id = clip.staticValue(Kyn::View());
        VX_BaseClipInfo const * const picture = id == 0 ? nullptr : clips.pcGetBaseClipInfo(id);
        return picture ? picture->firstFrameOffset : 0;
    };
}

} // namespace

Layer::Layer(VX_BaseClipInfoContainer & clips, quint32 id)
    : basic(&clips, std::min(id, LARGEST_REGION)),
      insert(&clips),
      remove(&clips, firstFrameOf(clips, remove.inputClipId)),
      stabilize(&clips, firstFrameOf(clips, stabilize.inputClipId)) {
    for (Kyn::ParameterSet * set :
         std::initializer_list<Kyn::ParameterSet *>{&basic, &tracking, &insert, &remove, &stabilize, &warper, &matte})
        addSet(*set);
}

} // namespace vxproject
