#include "support/Warnings.h"

#include <gtest/gtest.h>

int main(int argc, char ** argv) {
    testing::InitGoogleTest(&argc, argv);
    Test::watchWarnings();
    return RUN_ALL_TESTS();
}
