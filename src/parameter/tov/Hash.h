#pragma once

#include <cstdint>
#include <memory>

struct XXH3_state_s;

namespace Tov {
/// An incremental digest: XXH3, 128 bits. Two hashes are equal when they were fed the same bytes in the same order,
/// however cut into updates; that two unequal inputs meet is as unlikely as 128 bits make it, and no defence against
/// someone who wants them to.
class Hash {
public:
    Hash();
    Hash(Hash const & other);
    Hash & operator=(Hash const & other);
    ~Hash();

    /// Adds `size` bytes. `data` may be null when `size` is 0.
    void update(void const * data, uint64_t size);

    bool operator==(Hash const & other) const;
    bool operator!=(Hash const & other) const { return !(*this == other); }

private:
    struct StateDeleter {
        void operator()(XXH3_state_s * state) const;
    };
    std::unique_ptr<XXH3_state_s, StateDeleter> m_state;
};
} // namespace Tov
