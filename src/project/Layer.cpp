#include "project/Layer.h"

#include "clip/BaseClipInfo.h"
#include "clip/BaseClipInfoContainer.h"

#include <algorithm>

namespace vxproject {

namespace {

constexpr quint32 LARGEST_REGION = 65535;

/// The number of the first frame of a set's input clip, asked anew each time. The set need not be constructed yet: none
/// of its members is touched before it is asked.
template <class Set>
boost::function<int()> firstFrameOf(VX_BaseClipInfoContainer const & clips, Set const & set) {
    return [&clips, &set] {
        unsigned int const id = set.inputClipId.staticValue(Kyn::View());
        VX_BaseClipInfo const * const picture = id == 0 ? nullptr : clips.pcGetBaseClipInfo(id);
        return picture ? picture->firstFrameOffset : 0;
    };
}

} // namespace

Layer::Layer(VX_BaseClipInfoContainer & clips, quint32 id)
    : basic(&clips, std::min(id, LARGEST_REGION)),
      insert(&clips),
      remove(&clips, firstFrameOf(clips, remove)),
      stabilize(&clips, firstFrameOf(clips, stabilize)) {
    for (Kyn::ParameterSet * set :
         std::initializer_list<Kyn::ParameterSet *>{&basic, &tracking, &insert, &remove, &stabilize, &warper, &matte})
        addSet(*set);
}

} // namespace vxproject
