/* Lists the gas table: every component with its phase, molar mass and
 * temperature range, through the exported routines od_compset_ and
 * od_info_ (a one-component mixture's molar mass and limits). When no gas
 * data is found, says where the library looked for it. */
#include <stdio.h>

#include "ondrel/c/gas_data.h"
#include "ondrel/ondrel.h"

enum { name_len = 8, max_components = 250, gas_data_not_found = 1 };

/* 'S' for a name ending in "(S)", 'L' for "(L)", else 'G'. */
static char phase_of(const char* name) {
    int len = name_len;
    while (len > 0 && name[len - 1] == ' ') --len;
    if (len >= 3 && name[len - 3] == '(' && name[len - 1] == ')') {
        if (name[len - 2] == 'S') return 'S';
        if (name[len - 2] == 'L') return 'L';
    }
    return 'G';
}

int main(void) {
    static char names[max_components * name_len];
    int32_t n = 0;
    od_compset_(&n, names, name_len);
    if (n == 0) {
        char why[2048];
        ondrel_describe(gas_data_not_found, why, sizeof why);
        printf("%s\n", why);
        return 1;
    }

    printf("%d components\n", (int)n);
    printf("%-4s %-8s %5s %16s %10s %10s\n", "row", "name", "phase", "M (kg/mol)", "Tmin (C)", "Tmax (C)");
    for (int32_t i = 0; i < n; ++i) {
        const char* name = names + (size_t)i * name_len;
        const int32_t one = 1;
        const double pure = 1.0;
        int32_t err = 0;
        const double m = od_info_(&one, name, &pure, "M_mol", &err, name_len, 5);
        const double tmin = od_info_(&one, name, &pure, "T_min", &err, name_len, 5);
        const double tmax = od_info_(&one, name, &pure, "T_max", &err, name_len, 5);
        printf("%-4d %-8.8s %5c %16.8f %10.2f %10.2f\n", (int)(i + 1), name, phase_of(name), m, tmin, tmax);
    }
    return 0;
}
