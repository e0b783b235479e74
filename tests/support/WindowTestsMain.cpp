#include <gtest/gtest.h>

#include "ui/testing/Driver.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const ui::testing::Toolkit toolkit(argc, argv);
    return RUN_ALL_TESTS();
}
