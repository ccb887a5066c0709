// Concurrent calls on distinct data need no locking: what several threads get is what one thread gets alone,
// to the last bit. Under ThreadSanitizer (preset `threads`) also: no two of them touch the same memory, but to
// read the one parcel that they share.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "calls.h"

namespace {

using test::Call;
using test::calls;
using test::Data;
using test::Outcome;

constexpr int kThreads = 8;
constexpr int kRounds = 50;

std::string without_spaces(std::string text)
{
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    return text;
}

std::multiset<std::string> exported()
{
    std::multiset<std::string> symbols;
    for (const char* list : {"/plcalc_symbols.txt", "/plutil_symbols.txt"}) {
        std::ifstream file(std::string(PLCALC_SYMBOL_LISTS) + list);
        EXPECT_TRUE(file.is_open()) << list;
        for (std::string line; std::getline(file, line);)
            symbols.insert(without_spaces(line));
    }
    return symbols;
}

CPoint3dVector hexagon()
{
    return {{12.0, 3.5, 0.0},  {71.25, 0.0, 0.0},   {103.5, 38.0, 0.0},
            {88.0, 79.0, 0.0}, {33.125, 91.5, 0.0}, {0.0, 47.0, 0.0}};
}

// Lets nobody begin before all have come.
class Gate {
public:
    void pass()
    {
        ++come_;
        while (come_ < kThreads)
            std::this_thread::yield();
    }

private:
    std::atomic<int> come_{0};
};

// Runs body(thread number) on all threads at once.
template <typename Body> void on_all_threads(const Body& body)
{
    Gate gate;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&gate, &body, t] {
            gate.pass();
            body(t);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

// What one thread got: by round, then by call.
using Outcomes = std::vector<std::vector<Outcome>>;

// In even rounds all threads make the same call at about the same time, in odd ones each another.
Outcomes all_calls(const CPoint3dVector& parcel, int thread)
{
    const std::size_t n = calls().size();
    Outcomes outcomes(kRounds, std::vector<Outcome>(n));
    for (std::size_t round = 0; round < outcomes.size(); ++round) {
        const std::size_t first = round % 2 == 0 ? 0 : static_cast<std::size_t>(thread) * n / kThreads;
        for (std::size_t i = 0; i < n; ++i) {
            const std::size_t at = (first + i) % n;
            Data data(parcel, (static_cast<std::uint64_t>(thread) * kRounds + round) * n + at);
            outcomes[round][at] = calls()[at].run(data);
        }
    }
    return outcomes;
}

void expect_same(const Outcome& got, const Outcome& want)
{
    EXPECT_EQ(got.words, want.words);
    ASSERT_EQ(got.states.size(), want.states.size());
    for (std::size_t i = 0; i < got.states.size(); ++i)
        EXPECT_STATE(got.states[i], want.states[i]);
}

TEST(Threads, CallsAreTheExportedFunctions)
{
    std::multiset<std::string> called;
    for (const Call& call : calls())
        called.insert(without_spaces(call.symbol));
    const std::multiset<std::string> wanted = exported();
    for (const std::string& symbol : wanted)
        EXPECT_EQ(called.count(symbol), 1U) << symbol << " is exported: add a call to calls.cpp";
    for (const std::string& symbol : called)
        EXPECT_EQ(wanted.count(symbol), 1U) << symbol << " is called, and not exported";
}

TEST(Threads, EveryFunctionFromEveryThread)
{
    const CPoint3dVector parcel = hexagon();
    // The threads before the single one, so that nothing is warm.
    std::vector<Outcomes> got(kThreads);
    on_all_threads([&](int t) { got[static_cast<std::size_t>(t)] = all_calls(parcel, t); });

    for (int t = 0; t < kThreads; ++t) {
        const Outcomes want = all_calls(parcel, t);
        for (std::size_t round = 0; round < want.size(); ++round) {
            for (std::size_t at = 0; at < calls().size(); ++at) {
                SCOPED_TRACE(calls()[at].symbol + ", thread " + std::to_string(t) + ", round " +
                             std::to_string(round));
                expect_same(got[static_cast<std::size_t>(t)][round][at], want[round][at]);
                if (HasFailure())
                    return;  // one shows it
            }
        }
    }
}

TEST(Threads, RequestsShareAParcel)
{
    const CPoint3dVector parcel = hexagon();
    const double whole = AreaCalcolata(parcel);

    // All sides or vertices by all three modes, each thread asking for another area.
    const auto divide = [&](int thread) {
        std::vector<Outcome> outcomes;
        const Data data(parcel, 0);
        for (int mode = 0; mode < 3; ++mode) {
            for (int side = 0; side < parcel.GetNoPoits(); ++side) {
                for (int percent = 5 + thread; percent < 100; percent += kThreads) {
                    CFrazArea object(parcel, data.vertex(side), data.vertex(side + 1), mode, 1,
                                     whole * percent / 100.0, 0.0);
                    outcomes.emplace_back();
                    outcomes.back().add_run(object);
                }
            }
        }
        return outcomes;
    };

    std::vector<std::vector<Outcome>> got(kThreads);
    on_all_threads([&](int t) { got[static_cast<std::size_t>(t)] = divide(t); });
    for (int t = 0; t < kThreads; ++t) {
        SCOPED_TRACE("thread " + std::to_string(t));
        const std::vector<Outcome> want = divide(t);
        ASSERT_EQ(got[static_cast<std::size_t>(t)].size(), want.size());
        for (std::size_t i = 0; i < want.size() && !HasFailure(); ++i) {
            EXPECT_EQ(want[i].words[0], 1U) << "a line is found";
            expect_same(got[static_cast<std::size_t>(t)][i], want[i]);
        }
    }
}

// The above says little of a function that always answers the same.
TEST(Threads, CallsHaveDifferentOutcomes)
{
    const CPoint3dVector parcel = hexagon();
    const Outcomes outcomes = all_calls(parcel, 0);
    // Those that have one answer: the version, the unit matrix, and what is asked of the shared parcel.
    const std::set<std::string> constant = {
        "PlFunz_version()", "PlFunz_getidmatrix2d(double(*)[3])", "AreaCalcolataSgn(CPoint3dVectorconst&)",
        "AreaCalcolata(CPoint3dVectorconst&)", "PeriCalcolato(CPoint3dVectorconst&)"};
    for (std::size_t at = 0; at < calls().size(); ++at) {
        std::set<std::vector<std::uint64_t>> different;
        bool state_moves = false;
        for (const std::vector<Outcome>& round : outcomes) {
            different.insert(round[at].words);
            const std::vector<test::State>& now = round[at].states;
            const std::vector<test::State>& first = outcomes[0][at].states;
            if (!now.empty() && !test::same_state("", "", now.back(), first.back()))
                state_moves = true;
        }
        const std::string symbol = without_spaces(calls()[at].symbol);
        EXPECT_EQ(different.size() > 1 || state_moves, constant.count(symbol) == 0) << symbol;
    }
}

}  // namespace
