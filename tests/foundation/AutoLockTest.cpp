#include "foundation/AutoLock.h"

#include <QMutex>

#include <gtest/gtest.h>

#include <type_traits>

namespace {

// Inert on purpose: whoever takes it for a lock has none.
TEST(AutoLock, Lock_ofAMutex_leavesItFreeAndReleasesNothing) {
    static_assert(std::is_empty_v<VX_AutoLock> && std::is_trivially_destructible_v<VX_AutoLock>);
    QMutex mutex;
    {
        VX_AutoLock const lock(&mutex, "somewhere");
        EXPECT_TRUE(mutex.tryLock());
    }
    EXPECT_FALSE(mutex.tryLock());
    mutex.unlock();
    VX_AutoLock const none(nullptr, nullptr);
}

} // namespace
