// Tests that cannot be run on a system.
#pragma once

namespace norvik::test {

/// To be called behind the test framework's own start: tests that this system cannot run are
/// skipped from then on.
void LeaveOutWhatIsNotTestedHere();

}  // namespace norvik::test
