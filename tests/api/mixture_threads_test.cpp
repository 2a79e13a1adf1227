// Threads: the first loads of the gas table race, and many threads, each with
// its own context, evaluate mixed requests and get exactly the answers of one
// thread. Built also under ThreadSanitizer (tools/test.sh --threads).
#include <algorithm>
#include <cmath>
#include <cstring>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "ondrel/mixture.hpp"

namespace {

using ondrel::Pair;
using ondrel::Property;

// One thread's fixed sequence of mixed requests: dry and condensing gas,
// several pairs, every property; the answers as a flat list of bits.
std::vector<double> run_requests(const std::vector<ondrel::Mixture>& mixtures) {
    ondrel::Context ctx;
    std::vector<double> out;
    for (const ondrel::Mixture& mix : mixtures) {
        for (double t : {285.0, 300.0, 320.0, 400.0, 900.0}) {
            const ondrel::State base{1.01325e5, t};
            const auto all = ondrel::properties(ctx, mix, base);
            const double* v = &all.value.P;
            out.insert(out.end(), v, v + ondrel::legacy_property_count);
            for (Pair pair : {Pair::Ph, Pair::Ps, Pair::Tv, Pair::vu, Pair::hs}) {
                const std::string_view spec = ondrel::name(pair);
                auto value = [&](char l) {
                    return l == 'P' ? all.value.P : l == 'T' ? all.value.T : l == 'v' ? all.value.v
                         : l == 'h' ? all.value.h : l == 's' ? all.value.s : all.value.u;
                };
                const auto st = ondrel::solve(ctx, mix, pair, value(spec[0]), value(spec[1]));
                out.push_back(static_cast<double>(st.status));
                out.push_back(st.value.p);
                out.push_back(st.value.T);
                out.push_back(st ? ondrel::property(ctx, mix, st.value, Property::lambda).value : -1.0);
            }
        }
    }
    return out;
}

bool same_bits(const std::vector<double>& a, const std::vector<double>& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

TEST(MixtureThreads, ConcurrentFirstLoadsGiveOneTable) {
    constexpr int n = 8;
    std::vector<const ondrel::GasTable*> seen(n, nullptr);
    {
        std::vector<std::jthread> pool;
        for (int i = 0; i < n; ++i)
            pool.emplace_back([&seen, i] { seen[static_cast<std::size_t>(i)] = ondrel::default_gas_table().value.get(); });
    }
    ASSERT_NE(seen[0], nullptr);
    for (const ondrel::GasTable* t : seen) EXPECT_EQ(t, seen[0]);
}

TEST(MixtureThreads, EachThreadWithItsContextGetsTheSingleThreadedBits) {
    std::vector<ondrel::Mixture> mixtures;
    for (auto f : {std::vector<ondrel::Fraction>{{"N2", 0.71}, {"CO2", 0.13}, {"H2O", 0.12}, {"O2", 0.035}, {"AR", 0.005}},
                   std::vector<ondrel::Fraction>{{"N2", 0.71}, {"CO2", 0.13}, {"H2O(IF)", 0.12}, {"O2", 0.035}, {"AR", 0.005}},
                   std::vector<ondrel::Fraction>{{"H2O(IF)", 1.0}}}) {
        auto m = ondrel::Mixture::make(f);
        ASSERT_TRUE(m);
        mixtures.push_back(m.value);
    }
    const std::vector<double> want = run_requests(mixtures);
    constexpr int n = 6;
    std::vector<std::vector<double>> got(n);
    {
        std::vector<std::jthread> pool;
        for (int i = 0; i < n; ++i)
            pool.emplace_back([&, i] {
                // Each thread starts at another mixture, so that the threads interleave differently.
                std::vector<ondrel::Mixture> order(mixtures);
                std::rotate(order.begin(), order.begin() + i % 3, order.end());
                std::vector<double> r = run_requests(order);
                std::vector<double> back;
                // Undo the rotation: each mixture's block has the same length.
                const std::size_t block = r.size() / 3;
                for (int k = 0; k < 3; ++k) {
                    const std::size_t from = static_cast<std::size_t>((k - i % 3 + 3) % 3) * block;
                    back.insert(back.end(), r.begin() + static_cast<std::ptrdiff_t>(from),
                                r.begin() + static_cast<std::ptrdiff_t>(from + block));
                }
                got[static_cast<std::size_t>(i)] = back;
            });
    }
    for (int i = 0; i < n; ++i) EXPECT_TRUE(same_bits(got[static_cast<std::size_t>(i)], want)) << "thread " << i;
}

}  // namespace
