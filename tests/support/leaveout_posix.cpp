#include "tests/support/leaveout.h"

namespace norvik::test {

void LeaveOutWhatIsNotTestedHere() {}

}  // namespace norvik::test
