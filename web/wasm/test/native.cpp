// The same functions as native code: the judge of the WebAssembly module, and what its speed is compared with.
//
//   native REPEATS <requests >answers
//
// A request is a line: the call, how many numbers follow, and these. The answer is a line: nanoseconds for one of REPEATS calls,
// how many numbers follow, and these with all their digits.

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

#include "exports.h"

namespace {

using Function = void (*)();

Function named(const std::string& call)
{
    if (call == "divide")
        return plc_divide;
    if (call == "measure")
        return plc_measure;
    return call == "amount_at" ? plc_amount_at : nullptr;
}

bool read_numbers()
{
    std::uint32_t count = 0;
    std::cin >> count;
    double* numbers = plc_input(count);
    std::string text;
    for (std::uint32_t i = 0; i < count && std::cin >> text; ++i)
        numbers[i] = std::strtod(text.c_str(), nullptr);
    return static_cast<bool>(std::cin);
}

}  // namespace

int main(int argc, char** argv)
{
    const int repeats = argc > 1 ? std::atoi(argv[1]) : 1;
    std::string call;
    while (std::cin >> call) {
        const Function function = named(call);
        if (function == nullptr || !read_numbers())
            return 1;
        const auto begin = std::chrono::steady_clock::now();
        for (int i = 0; i < repeats; ++i)
            function();
        const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - begin;
        std::printf("%.0f %u", time.count() / repeats, plc_result_length());
        for (std::uint32_t i = 0; i < plc_result_length(); ++i)
            std::printf(" %.17g", plc_result()[i]);
        std::printf("\n");
    }
    return 0;
}
