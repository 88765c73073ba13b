#include <gtest/gtest.h>

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen",
           0); // the tests are also run by the build, where there is no display
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
