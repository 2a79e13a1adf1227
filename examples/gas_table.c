/* Loads the gas table and prints every component with its molar mass and
 * temperature range, through the library's exported C interface. */
#include <stdio.h>

#include "ondrel/od_fluiddata.h"

enum { name_len = 8, max_components = 250 };

int main(void) {
    static char names[max_components * name_len];
    int32_t n = 0;
    char path[256];

    int path_len = (int)sizeof path;

    fluidpath_(path, "Ondrel", sizeof path, 6);
    while (path_len > 0 && path[path_len - 1] == ' ') --path_len;
    printf("Gas data directory: %.*s\n", path_len, path);

    readgas_();
    getcompset_(&n, names, name_len);
    if (n == 0) {
        printf("No gas data found: set ONDREL_FLUIDPATH to the directory of Ondrel.Dat.\n");
        return 1;
    }

    /* The values are read for the components of a stored mixture: store them all. */
    storeidx_(&n, names, name_len);

    printf("%d components\n", (int)n);
    printf("%-4s %-8s %5s %16s %10s %10s\n", "row", "name", "phase", "M (kg/mol)", "Tmin (K)", "Tmax (K)");
    for (int32_t i = 0; i < n; ++i) {
        const char* name = names + (size_t)i * name_len;
        char phase = ' ';
        getphase_(&phase, 1, name, name_len);
        printf("%-4d %-8.8s %5c %16.8f %10.2f %10.2f\n", (int)(i + 1), name, phase, getmmol_(name, name_len),
               gettmin_(name, name_len), gettmax_(name, name_len));
    }
    return 0;
}
