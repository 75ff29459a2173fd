#include "benchmarks/ratios.h"

int main(int argc, char* argv[]) {
    return norvik::benchmarks::RunWithRatios(argc, argv);
}
