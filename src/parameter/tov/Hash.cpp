#include "parameter/tov/Hash.h"

#include <xxhash.h>

#include <new>

namespace Tov {
void Hash::StateDeleter::operator()(XXH3_state_s * state) const {
    XXH3_freeState(state);
}

Hash::Hash() : m_state(XXH3_createState()) {
    if (!m_state)
        throw std::bad_alloc();
    XXH3_128bits_reset(m_state.get());
}

Hash::Hash(Hash const & other) : Hash() {
    XXH3_copyState(m_state.get(), other.m_state.get());
}

Hash & Hash::operator=(Hash const & other) {
    if (this != &other)
        XXH3_copyState(m_state.get(), other.m_state.get());
    return *this;
}

Hash::~Hash() = default;

void Hash::update(void const * data, uint64_t size) {
    if (size > 0)
        XXH3_128bits_update(m_state.get(), data, static_cast<size_t>(size));
}

bool Hash::operator==(Hash const & other) const {
    return XXH128_isEqual(XXH3_128bits_digest(m_state.get()), XXH3_128bits_digest(other.m_state.get())) != 0;
}
} // namespace Tov
