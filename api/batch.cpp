// Array evaluation of the mixture model: a loop over the single calls, split
// into contiguous blocks of points, one thread and one context per block.
#include <algorithm>
#include <cmath>
#include <thread>
#include <vector>

#include "ondrel/mixture.hpp"

namespace ondrel {
namespace {

// Fewer points than this per thread are not worth a thread of their own.
inline constexpr std::size_t min_points_per_thread = 256;

void evaluate_block(const Mixture& mix, Pair pair, std::span<const double> in1, std::span<const double> in2,
                    std::span<const Property> props, std::span<double> out, std::span<Status> status,
                    std::size_t begin, std::size_t end) {
    Context ctx;
    const std::size_t w = props.size();
    for (std::size_t i = begin; i < end; ++i) {
        double* row = out.data() + i * w;
        const Result<State> st = solve(ctx, mix, pair, in1[i], in2[i]);
        Status s = st.status;
        if (s == Status::ok) s = properties(ctx, mix, st.value, props, std::span<double>(row, w));
        if (s != Status::ok) std::fill(row, row + w, std::nan(""));
        status[i] = s;
    }
}

}  // namespace

Status evaluate(const Mixture& mix, Pair pair, std::span<const double> in1, std::span<const double> in2,
                std::span<const Property> props, std::span<double> out, std::span<Status> status, unsigned threads) {
    const std::size_t n = in1.size();
    if (in2.size() != n || status.size() != n || out.size() != n * props.size()) return Status::invalid_argument;
    if (!mix.valid()) return Status::invalid_argument;
    // The core count is asked only where a second thread could be used: the
    // question costs microseconds (the C library reads it from /sys).
    if (threads == 0 && n / min_points_per_thread >= 2) threads = std::max(1u, std::thread::hardware_concurrency());
    const std::size_t blocks = std::clamp<std::size_t>(n / min_points_per_thread, 1, std::max(1u, threads));
    if (blocks == 1) {
        evaluate_block(mix, pair, in1, in2, props, out, status, 0, n);
        return Status::ok;
    }
    std::vector<std::jthread> pool;
    const std::size_t step = (n + blocks - 1) / blocks;
    for (std::size_t b = 1; b < blocks; ++b) {
        const std::size_t begin = std::min(n, b * step);
        const std::size_t end = std::min(n, begin + step);
        const auto work = [=, &mix] { evaluate_block(mix, pair, in1, in2, props, out, status, begin, end); };
        try {
            pool.emplace_back(work);
        } catch (const std::exception&) {
            work();  // no thread to be had: the block runs here; the bits are the same
        }
    }
    evaluate_block(mix, pair, in1, in2, props, out, status, 0, std::min(n, step));
    return Status::ok;  // the pool joins as it goes out of scope
}

}  // namespace ondrel
