// The modern C++ API: a flue gas with condensing water, its state from
// pressure and enthalpy, all properties at once, and an array of states
// evaluated on all cores. Build with C++20 and link Ondrel::ondrel.
#include <cstdio>
#include <vector>

#include "ondrel/mixture.hpp"

int main() {
    std::string why;
    const auto gas = ondrel::Mixture::make(
        {{"N2", 0.71}, {"CO2", 0.13}, {"H2O(IF)", 0.12}, {"O2", 0.035}, {"AR", 0.005}}, &why);
    if (!gas) {
        std::printf("mixture: %s %s\n", ondrel::message(gas.status).data(), why.c_str());
        return 1;
    }
    ondrel::Context ctx;  // one per thread

    // Enthalpy at 1 bar and 400 C, then the state back from (p, h).
    const auto h = ondrel::property(ctx, gas.value, {1.0e5, 673.15}, ondrel::Property::h);
    const auto st = ondrel::solve(ctx, gas.value, ondrel::Pair::Ph, 1.0e5, h.value);
    if (!st) {
        std::printf("solve: %s\n", ondrel::message(st.status).data());
        return 1;
    }
    const auto all = ondrel::properties(ctx, gas.value, st.value);
    std::printf("T = %.6f K  h = %.3f J/kg  s = %.4f J/(kg K)  cv = %.4f J/(kg K)  lambda = %.5f W/(m K)\n",
                st.value.T, all.value.h, all.value.s, all.value.cv, all.value.lambda);

    // A refused input is a status, never a number.
    const auto bad = ondrel::solve(ctx, gas.value, ondrel::Pair::Ph, -1.0, h.value);
    std::printf("negative pressure: %s\n", ondrel::message(bad.status).data());

    // 100000 states from (p, h) on all cores.
    const std::size_t n = 100000;
    std::vector<double> p(n, 1.0e5), hs(n);
    for (std::size_t i = 0; i < n; ++i) hs[i] = h.value - 2.0 * static_cast<double>(i);
    const ondrel::Property want[] = {ondrel::Property::T, ondrel::Property::s};
    std::vector<double> out(n * 2);
    std::vector<ondrel::Status> status(n);
    if (ondrel::evaluate(gas.value, ondrel::Pair::Ph, p, hs, want, out, status) != ondrel::Status::ok) return 1;
    std::size_t good = 0;
    for (ondrel::Status s : status) good += s == ondrel::Status::ok;
    std::printf("array: %zu of %zu states solved, last T = %.3f K\n", good, n, out[2 * (n - 1)]);
    return st.value.T > 673.149999 && st.value.T < 673.150001 && good == n ? 0 : 1;
}
