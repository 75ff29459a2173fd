#include "tests/support/leaveout.h"

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    norvik::test::LeaveOutWhatIsNotTestedHere();
    return RUN_ALL_TESTS();
}
