// Threads, each with its own context, evaluating a mixed list of requests at
// the same time get exactly the results and messages of one thread.
#include <gtest/gtest.h>

#include <latch>
#include <thread>

#include "ifc67_support.hpp"

namespace {

using namespace ifc67_test;

struct Request {
    const Pair* pair;
    double a, b;
};

// A call's result and the messages it collected.
struct Outcome {
    Result<State> result;
    std::vector<ondrel::ifc67::Message> messages;
};

Outcome run(Context& ctx, const Request& q) {
    ctx.clear_messages();
    Outcome o{q.pair->call(ctx, q.a, q.b), ctx.messages()};
    return o;
}

bool same(const Outcome& x, const Outcome& y) {
    if (!ifc67_test::same(x.result, y.result) || x.messages.size() != y.messages.size()) return false;
    for (std::size_t k = 0; k < x.messages.size(); ++k)
        if (x.messages[k].code != y.messages[k].code || x.messages[k].text != y.messages[k].text)
            return false;
    return true;
}

// Every pair at a third of the states through the regions (a different
// third for each pair), and at states out of
// range (above 800 C, below the lowest pressure), so that some requests
// collect messages and some place no state.
std::vector<Request> requests() {
    std::vector<State> st = states();
    Context ctx;
    st.push_back(ondrel::ifc67::from_pT(ctx, 1.0e8, 1100.0).value);
    st.push_back(ondrel::ifc67::from_pT(ctx, 300.0, 500.0).value);
    std::vector<Request> out;
    for (std::size_t i = 0; i < st.size(); ++i)
        for (std::size_t j = 0; j < pairs().size(); ++j)
            if ((i + j) % 3 == 0 || i + 2 >= st.size()) {
                const auto [a, b] = inputs(pairs()[j], st[i]);
                out.push_back({&pairs()[j], a, b});
            }
    return out;
}

TEST(Ifc67Threads, EachWithItsOwnContextGetTheResultsOfOneThread) {
    const std::vector<Request> list = requests();
    std::vector<Outcome> expected;
    Context ctx;
    for (const Request& q : list) expected.push_back(run(ctx, q));

    constexpr std::size_t threads = 4;
    constexpr int passes = 3;
    std::vector<std::size_t> differing(threads, 0), done(threads, 0);
    std::latch start(threads);
    std::vector<std::thread> pool;
    for (std::size_t k = 0; k < threads; ++k) {
        pool.emplace_back([&, k] {
            Context own;
            start.arrive_and_wait();
            const std::size_t n = list.size();
            for (int pass = 0; pass < passes; ++pass) {
                // Each thread starts elsewhere in the list, so that different
                // requests run side by side.
                for (std::size_t j = 0; j < n; ++j) {
                    const std::size_t i = (j + k * n / threads + static_cast<std::size_t>(pass) * 7) % n;
                    if (!same(run(own, list[i]), expected[i])) ++differing[k];
                    ++done[k];
                }
            }
        });
    }
    for (std::thread& t : pool) t.join();
    for (std::size_t k = 0; k < threads; ++k) {
        EXPECT_EQ(differing[k], 0u) << "thread " << k;
        EXPECT_EQ(done[k], list.size() * passes);
    }
    std::size_t with_messages = 0, not_placed = 0;
    for (const Outcome& o : expected) {
        with_messages += !o.messages.empty();
        not_placed += o.result.value.region == 0;
    }
    EXPECT_GT(list.size(), 1000u);
    EXPECT_GT(with_messages, 20u);
    EXPECT_GT(not_placed, 0u);
}

}  // namespace
