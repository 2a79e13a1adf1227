/* Enthalpy and entropy of dry air at 1.01325 bar and 25 C, from C. */
#include <stdio.h>

#include <ondrel/ondrel.h>

int main(void) {
    /* Component names: blank-padded texts of one width (8), one after the other. */
    const char names[] = "N2      O2      AR      ";
    const double conc[3] = {0.7809, 0.2095, 0.0096}; /* mole fractions */
    const int32_t n = 3;
    const double p = 1.01325, t = 25.0; /* bar, degrees Celsius */
    int32_t err = 0;

    /* The last three arguments are the widths of "PT", of one name and of "h". */
    const double h = od_prop_("PT", &p, &t, &n, names, conc, "h", &err, 2, 8, 1); /* kJ/kg */
    if (err != 0) {
        fprintf(stderr, "od_prop_ failed with error code %d\n", (int)err);
        return 1;
    }
    const double s = od_prop_("PT", &p, &t, &n, names, conc, "s", &err, 2, 8, 1); /* kJ/(kg K) */
    printf("air at %g bar, %g C: h = %.4f kJ/kg, s = %.4f kJ/(kg K)\n", p, t, h, s);
    return err == 0 ? 0 : 1;
}
