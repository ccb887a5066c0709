/// What the C++ call costs that cost.py compares with: seconds of processor time for so many divisions.

#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "plparcel/division.h"

int main(int argc, char** argv)
{
    const long calls = argc == 2 ? std::atol(argv[1]) : 0;
    const plparcel::Ring lot = {{300.23, 420.57}, {410.75, 440.49}, {520.18, 320.81}, {350.04, 300.58}};
    double sum = 0.0;
    const std::clock_t start = std::clock();
    for (long i = 0; i < calls; ++i) {
        plparcel::Request request;
        request.line = plparcel::parallel_to(0);
        request.amounts = {plparcel::share(1.0, 3.0)};
        sum += plparcel::divide(lot, request).lines.at(0).from.x;
    }
    std::printf("%.6f\n", static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    return calls > 0 && sum > 0.0 ? 0 : 1;
}
