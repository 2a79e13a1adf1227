// Several threads evaluate one grid of states through the IF97 calls at
// once, from the first call of the process on, and each gets exactly the
// bits of a single-threaded evaluation: the calls reach no mutable shared
// state. Kept a program of its own so that it can be built and run under
// ThreadSanitizer alone.
#include <gtest/gtest.h>

#include <cstring>
#include <thread>
#include <vector>

#include "ondrel/if97.hpp"

namespace {
namespace api = ondrel::if97;

// Every value and status of one pass over the grid, in a fixed order: (p,
// T) states with their transport properties and single properties, states
// from (p, h) and (h, s) of those, and wet states from (T, x).
std::vector<double> evaluate_grid() {
    std::vector<double> out;
    auto put = [&out](const auto& r) {
        out.push_back(static_cast<double>(r.status));
        if constexpr (std::is_same_v<std::decay_t<decltype(r.value)>, double>) {
            out.push_back(r.value);
        } else {
            const api::State& s = r.value;
            out.insert(out.end(), {s.p, s.T, s.v, s.rho, s.h, s.s, s.u, s.cp, s.cv, s.w, s.alpha, s.kappa, s.x,
                                   static_cast<double>(s.region)});
        }
    };
    for (double p : {611.0, 1e4, 1e6, 1e7, 2.3e7, 4e7, 1e8}) {
        for (double t = 273.15; t <= 2273.15; t += 37.0) {
            const auto st = api::from_pT(p, t);
            put(st);
            put(api::h_pT(p, t));
            put(api::s_pT(p, t));
            put(api::viscosity(st.value));
            put(api::conductivity(st.value));
            put(api::from_ph(p, st.value.h));
            put(api::from_hs(st.value.h, st.value.s));
        }
    }
    for (double t = 273.16; t < 647.0; t += 23.0) {
        put(api::from_Tx(t, 0.25));
        put(api::from_px(api::from_Tx(t, 0.0).value.p, 0.75));
        put(api::surface_tension(t));
    }
    return out;
}

bool same_bits(const std::vector<double>& a, const std::vector<double>& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

TEST(If97Threads, ConcurrentEvaluationsGiveTheSingleThreadedBits) {
    constexpr int threads = 4;
    constexpr int passes = 3;
    std::vector<std::vector<double>> results(threads * passes);
    std::vector<std::thread> pool;
    for (int k = 0; k < threads; ++k) {
        pool.emplace_back([&results, k] {
            for (int pass = 0; pass < passes; ++pass) results[k * passes + pass] = evaluate_grid();
        });
    }
    for (std::thread& t : pool) t.join();
    const std::vector<double> reference = evaluate_grid();
    ASSERT_GT(reference.size(), 1000u);
    for (std::size_t k = 0; k < results.size(); ++k) {
        EXPECT_TRUE(same_bits(results[k], reference)) << "thread " << k / passes << " pass " << k % passes;
    }
}

}  // namespace
