// Enthalpy and entropy of dry air at 1.01325 bar and 25 C, from C++ (C++20).
#include <cstdio>
#include <string_view>

#include <ondrel/ondrel.hpp>

int main() {
    const std::string_view names[] = {"N2", "O2", "AR"};
    const double conc[] = {0.7809, 0.2095, 0.0096};  // mole fractions
    const ondrel::legacy::Result h = ondrel::legacy::prop("PT", 1.01325, 25.0, names, conc, "h");  // kJ/kg
    const ondrel::legacy::Result s = ondrel::legacy::prop("PT", 1.01325, 25.0, names, conc, "s");  // kJ/(kg K)
    if (!h || !s) {
        std::fprintf(stderr, "ondrel::legacy::prop failed with error code %d\n", h ? s.error : h.error);
        return 1;
    }
    std::printf("air at 1.01325 bar, 25 C: h = %.4f kJ/kg, s = %.4f kJ/(kg K)\n", h.value, s.value);
}
