// Random runs of a program, one for each seed.
#pragma once

#include "tests/support/environment.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {

/// Runs `Sequence` with a folder of its own for each of the `usual` seeds from 1 on; `variable` in
/// the environment lets it work longer, NORVIK_FIRST_SEQUENCE elsewhere.
template <typename Sequence>
void ExpectNoFinding(const char* variable, unsigned usual) {
    const unsigned first = FromEnvironment("NORVIK_FIRST_SEQUENCE", 1);
    const unsigned sequences = FromEnvironment(variable, usual);
    constexpr int Operations = 40;
    for (unsigned seed = first; seed < first + sequences; ++seed) {
        const TestFolder folder;
        EXPECT_EQ(Sequence(folder, seed).Run(Operations), "") << "seed " << seed;
    }
}

}  // namespace norvik::test
