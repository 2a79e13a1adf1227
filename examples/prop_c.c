/* Properties of dry air from C through the exported routines: one property
 * with od_prop_, all sixteen with od_allprops_, and a round trip from
 * pressure and enthalpy back to the temperature. */
#include <stdio.h>
#include <string.h>

#include "ondrel/ondrel.h"

enum { name_len = 8, ncomp = 3 };

int main(void) {
    /* Names of one width, blank-padded, one after the other. */
    char names[ncomp * name_len + 1];
    memcpy(names, "N2      O2      AR      ", sizeof names);
    const double conc[ncomp] = {0.7809, 0.2095, 0.0096};
    const int32_t n = ncomp;
    const double p = 1.01325, t = 25.0; /* bar, degrees Celsius */
    int32_t err = 0;

    ondrel_sub_();
    const double h = od_prop_("PT", &p, &t, &n, names, conc, "h", &err, 2, name_len, 1);
    printf("air at %.5f bar and %.2f C: h = %.6f kJ/kg (error %d)\n", p, t, h, (int)err);
    if (err != 0) return 1;

    const double t_back = od_prop_("Ph", &p, &h, &n, names, conc, "T", &err, 2, name_len, 1);
    printf("from P and h back to T = %.6f C (error %d)\n", t_back, (int)err);

    double v[16];
    od_allprops_("PT", &p, &t, &n, names, conc, &v[0], &v[1], &v[2], &v[3], &v[4], &v[5],
                 &v[6], &v[7], &v[8], &v[9], &v[10], &v[11], &v[12], &v[13], &v[14], &v[15],
                 &err, 2, name_len);
    static const char *labels[16] = {"P", "T", "v", "d", "h", "s", "u", "cv", "dP_dT",
                                     "dP_dv", "d2P_dT2", "d2P_dv2", "d2P_dTdv", "dCv_dT",
                                     "eta", "lambda"};
    for (int i = 0; i < 16; ++i) printf("  %-9s %.9g\n", labels[i], v[i]);
    printf("od_allprops error %d\n", (int)err);

    const double unknown = od_prop_("PT", &p, &t, &n, names, conc, "cp", &err, 2, name_len, 2);
    printf("\"cp\" is not offered: %.1f (error %d)\n", unknown, (int)err);
    return (err == 3 && t_back > t - 1e-4 && t_back < t + 1e-4) ? 0 : 1;
}
